// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "traffictext.h"

#include "devicelink.h"
#include "networkaddress.h"
#include "recordfields.h"

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QMetaMethod>
#include <QStringList>

#include <cstring>

namespace K7Host {

namespace {

constexpr double LeverStepsPerPercent = 12;

const QLatin1String FieldSeparator("   ");

QString truthText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString leverText(quint32 value)
{
    return QStringLiteral("%1 (%2 %)").arg(value).arg(value / LeverStepsPerPercent, 0, 'f', 1);
}

QString valueText(const QJsonValue &value)
{
    if (value.isString())
        return quoted(value.toString());
    if (value.isBool())
        return truthText(value.toBool());
    if (!value.isArray())
        return QString::number(value.toDouble(), 'g', 12);
    QStringList texts;
    const QJsonArray values = value.toArray();
    for (const QJsonValue &each : values)
        texts << valueText(each);
    return texts.join(QLatin1Char(' '));
}

/// The parameters of a signal of the plug-in; none when there is no such signal.
QList<QByteArray> parameterNames(const QString &signal)
{
    const QMetaObject &plugin = Korvo::IKorvoECKeyboardPlugin::staticMetaObject;
    for (int i = plugin.methodOffset(); i < plugin.methodCount(); ++i) {
        const QMetaMethod method = plugin.method(i);
        if (signal == QLatin1String(method.name()))
            return method.parameterNames();
    }
    return {};
}

/// Collects fields as "name value".
class FieldTexts
{
public:
    explicit FieldTexts(const KeyNames &names)
        : m_names(names)
    {
    }

    void add(const char *name, const QString &value) const
    {
        m_texts << QLatin1String(name) + QLatin1Char(' ') + value;
    }
    void operator()(const char *name, quint32 number) const
    {
        if (number != 0 || !isUsuallyZero(name))
            add(name, numberText(name, number));
    }
    void operator()(const char *name, AddressField<const quint32> address) const
    {
        add(name, addressText(address.value));
    }
    void operator()(const char *name, TextField<const char> text) const
    {
        const auto length = static_cast<int>(qstrnlen(text.bytes, sizeof text.bytes));
        add(name, quoted(QString::fromUtf8(text.bytes, length)));
    }
    QString text() const { return m_texts.join(FieldSeparator); }

private:
    /// Hosts seldom use it.
    static bool isUsuallyZero(const char *name)
    {
        return qstrcmp(name, "ECKey") == 0 || qstrcmp(name, "ButtonState") == 0 ||
               qstrcmp(name, "brightness") == 0;
    }
    QString numberText(const char *name, quint32 number) const
    {
        if (qstrcmp(name, "ButtonKey") == 0)
            return m_names.key(number);
        if (qstrcmp(name, "OledKey") == 0)
            return m_names.label(number);
        if (qstrcmp(name, "Value") == 0)
            return leverText(number);
        return QString::number(number);
    }

    const KeyNames &m_names;
    mutable QStringList m_texts; // visitors are constant
};

class RecordTexts
{
public:
    RecordTexts(const KeyNames &names, TrafficText *text)
        : m_names(names)
        , m_text(text)
    {
    }

    template <typename Record>
    void operator()(const std::shared_ptr<Record> &record) const
    {
        if (!record) {
            m_text->fields = QStringLiteral("null");
            return;
        }
        const FieldTexts fields(m_names);
        visitFields(std::as_const(*record), fields);
        m_text->fields = fields.text();
        if constexpr (std::is_same_v<Record, Korvo::ECButtonColor>)
            m_text->color = QColor(record->R, record->G, record->B);
    }
    void operator()(KeyboardUpdate) const {}
    void operator()(IdleLook) const {}

private:
    const KeyNames &m_names;
    TrafficText *const m_text;
};

QString actionName(InputLine::Action action)
{
    switch (action) {
    case InputLine::Press:
        return QStringLiteral("press");
    case InputLine::Move:
        return QStringLiteral("move");
    case InputLine::Release:
        return QStringLiteral("release");
    case InputLine::Click:
        return QStringLiteral("click");
    case InputLine::Wheel:
        return QStringLiteral("wheel");
    case InputLine::Type:
        return QStringLiteral("type");
    case InputLine::Set:
        break;
    }
    return QStringLiteral("set");
}

class LineTexts
{
public:
    explicit LineTexts(const KeyNames &names)
        : m_names(names)
    {
    }

    TrafficText operator()(const CallLine &line) const
    {
        TrafficText text{RecordTraffic, operationName(line.call), {}, {}, {}, {}};
        text.half = line.half ? halfName(*line.half) : QStringLiteral("both");
        if (line.result)
            text.result = truthText(*line.result);
        std::visit(RecordTexts(m_names, &text), line.call);
        return text;
    }
    TrafficText operator()(const InputLine &line) const
    {
        FieldTexts fields(m_names);
        if (line.keyId)
            fields.add("key", m_names.key(*line.keyId));
        if (!line.keyName.isEmpty())
            fields.add("key", line.keyName);
        if (!line.widget.isEmpty())
            fields.add("widget", line.widget);
        if (line.finger)
            fields.add("finger", QString::number(*line.finger));
        if (line.at)
            fields.add("at", pointText(*line.at));
        if (line.isDouble)
            fields.add("double", truthText(true));
        if (line.action == InputLine::Wheel)
            fields.add("delta", pointText(line.delta));
        if (!line.text.isEmpty())
            fields.add("text", quoted(line.text));
        if (!line.keys.isEmpty())
            fields.add("keys", line.keys);
        if (line.action == InputLine::Set)
            fields.add("value", valueText(line.value));
        return {InputTraffic, actionName(line.action), {}, fields.text(), {}, {}};
    }
    TrafficText operator()(const AnswerLine &line) const
    {
        return other(InputTraffic, QStringLiteral("answer"), line.button);
    }
    TrafficText operator()(const WaitLine &line) const
    {
        return other(InputTraffic, QStringLiteral("wait"), QStringLiteral("%1 ms").arg(line.ms));
    }
    TrafficText operator()(const WaitForLine &line) const
    {
        return other(InputTraffic, QStringLiteral("waitFor"),
                     line.signal + FieldSeparator + QStringLiteral("%1 ms").arg(line.ms));
    }
    TrafficText operator()(const ScreenshotLine &line) const
    {
        return other(InputTraffic, QStringLiteral("screenshot"), line.file);
    }
    TrafficText operator()(const SignalLine &line) const
    {
        const FieldTexts fields(m_names);
        const QList<QByteArray> names = parameterNames(line.signal);
        for (int i = 0; i < line.args.size(); ++i)
            fields.add(names.value(i).constData(), argumentText(names.value(i), line.args.at(i)));
        return other(SignalTraffic, line.signal, fields.text());
    }
    TrafficText operator()(const MessageLine &line) const
    {
        QStringList texts{line.title, line.text, line.informative};
        texts.removeAll(QString());
        return other(MessageTraffic, QStringLiteral("message"),
                     texts.join(FieldSeparator).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    }
    TrafficText operator()(const GapLine &line) const
    {
        return other(MessageTraffic, QStringLiteral("gap"),
                     QStringLiteral("no room for %1 lines").arg(line.lines));
    }

private:
    static TrafficText other(TrafficKind kind, const QString &name, const QString &fields)
    {
        return {kind, name, {}, fields, {}, {}};
    }
    static QString pointText(const QPoint &point)
    {
        return QStringLiteral("%1,%2").arg(point.x()).arg(point.y());
    }
    QString argumentText(const QByteArray &parameter, const QJsonValue &value) const
    {
        const auto number = static_cast<quint32>(value.toDouble());
        if (parameter == "key")
            return m_names.keyOfCode(number);
        if (parameter == "value")
            return leverText(number);
        return valueText(value);
    }

    const KeyNames &m_names;
};

quint32 codeOf(const SignalLine &line)
{
    return static_cast<quint32>(line.args.at(0).toDouble());
}

} // namespace

TrafficText describe(const ScenarioLine &line, const KeyNames &names)
{
    return std::visit(LineTexts(names), line.content);
}

std::optional<TrafficItem> itemOf(const ScenarioLine &line)
{
    if (const auto *call = std::get_if<CallLine>(&line.content)) {
        const auto *color = std::get_if<std::shared_ptr<Korvo::ECButtonColor>>(&call->call);
        if (color && *color)
            return TrafficItem{ConsoleItem::Key, (*color)->ButtonKey};
        const auto *text = std::get_if<std::shared_ptr<Korvo::ECOLEDText>>(&call->call);
        if (text && *text)
            return TrafficItem{ConsoleItem::Label, (*text)->OledKey};
    }
    const auto *signal = std::get_if<SignalLine>(&line.content);
    if (signal && signal->signal.startsWith(QLatin1String("ecButton")))
        return TrafficItem{ConsoleItem::Key, codeOf(*signal) - KeyCodeOffset};
    return {};
}

} // namespace K7Host
