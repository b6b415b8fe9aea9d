// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "networkaddress.h"
#include "objectreader.h"
#include "recordfields.h"
#include "scenarioline.h"
#include "scenarionames.h"

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QDialogButtonBox>
#include <QJsonDocument>
#include <QKeySequence>
#include <QMetaEnum>
#include <QMetaMethod>

#include <algorithm>
#include <cstring>
#include <limits>

namespace K7Host {

namespace {

constexpr int LongestWaitMs = 24 * 60 * 60 * 1000;
constexpr int LongestTraceMs = 1000000000; // more than eleven days
constexpr int HighestFinger = 31;

bool isButton(const QString &name)
{
    bool isKnown = false;
    QMetaEnum::fromType<QDialogButtonBox::StandardButtons>().keyToValue(name.toLatin1().constData(),
                                                                        &isKnown);
    return isKnown;
}

bool isPluginSignal(const QString &name)
{
    const QMetaObject &plugin = Korvo::IKorvoECKeyboardPlugin::staticMetaObject;
    for (int i = plugin.methodOffset(); i < plugin.methodCount(); ++i) {
        const QMetaMethod method = plugin.method(i);
        if (method.methodType() == QMetaMethod::Signal && name == QLatin1String(method.name()))
            return true;
    }
    return false;
}

class FieldReader
{
public:
    explicit FieldReader(ObjectReader *object)
        : m_object(object)
    {
    }

    template <typename Number>
    void operator()(const char *name, Number &number) const
    {
        const QString field = QLatin1String(name);
        if (m_object->has(field))
            number = static_cast<Number>(m_object->takeNumber(field, 0, std::numeric_limits<Number>::max()));
    }
    void operator()(const char *name, AddressField<quint32> address) const
    {
        const QString field = QLatin1String(name);
        if (!m_object->has(field))
            return;
        const QJsonValue value = m_object->take(field);
        if (!value.isString()) {
            address.value = static_cast<quint32>(
                m_object->toNumber(value, field, 0, std::numeric_limits<quint32>::max()));
            return;
        }
        const auto number = addressFromText(value.toString());
        if (!number)
            m_object->fail(QStringLiteral("\"%1\" is no address").arg(value.toString()));
        address.value = number.value_or(0);
    }
    void operator()(const char *name, TextField<char> text) const
    {
        const QString field = QLatin1String(name);
        if (!m_object->has(field))
            return;
        const QByteArray bytes = oledBytes(m_object->take(field), field);
        if (bytes.size() > int(sizeof text.bytes))
            return m_object->fail(QStringLiteral("\"%1\" is longer than %2 bytes")
                                      .arg(field, QString::number(sizeof text.bytes)));
        std::memcpy(text.bytes, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }

private:
    QByteArray oledBytes(const QJsonValue &value, const QString &field) const
    {
        QByteArray bytes = value.toString().toUtf8();
        const QJsonArray numbers = value.toArray();
        for (const QJsonValue &number : numbers)
            bytes += static_cast<char>(m_object->toNumber(number, field, 0, 0xff));
        if (!value.isString() && !value.isArray())
            m_object->fail(QStringLiteral("\"%1\" is to be a text, or its bytes").arg(field));
        if (bytes.contains('\0'))
            m_object->fail(QStringLiteral("\"%1\" holds a zero byte").arg(field));
        return bytes;
    }

    ObjectReader *const m_object;
};

template <typename Record>
void readRecord(ObjectReader *line, std::shared_ptr<Record> *record)
{
    const QJsonValue value = line->take(QStringLiteral("record"));
    if (value.isNull()) {
        record->reset();
        return;
    }
    if (!value.isObject())
        return line->fail(QStringLiteral("\"record\" is to be an object, or null"));
    ObjectReader fields(value.toObject());
    visitFields(**record, FieldReader(&fields));
    fields.finish();
    if (!fields.error().isEmpty())
        line->fail(fields.error());
}

void readRecord(ObjectReader * /*line*/, KeyboardUpdate * /*call*/) {}
void readRecord(ObjectReader * /*line*/, IdleLook * /*call*/) {}

CallLine readCall(ObjectReader *line, const HostCall &emptyCall, bool isTraced)
{
    CallLine result{emptyCall, {}, {}};
    std::visit([line](auto &kind) { readRecord(line, &kind); }, result.call);
    if (line->has(QStringLiteral("half")))
        result.half = static_cast<Half>(line->takeChoice(QStringLiteral("half"), HalfNames));
    if (isTraced && line->has(QStringLiteral("result")))
        result.result = line->takeTruth(QStringLiteral("result"));
    return result;
}

/// Who is meant: a key or a widget, and not both.
void readTarget(ObjectReader *line, InputLine *input, bool isNeeded)
{
    const QString key = QStringLiteral("key");
    const QString widget = QStringLiteral("widget");
    if (line->has(key) && line->has(widget))
        return line->fail(QStringLiteral("\"key\" and \"widget\" exclude each other"));
    if (isNeeded && !line->has(key) && !line->has(widget))
        return line->fail(QStringLiteral("\"key\" or \"widget\" is missing"));
    input->widget = line->takeOptionalText(widget);
    if (!line->has(key))
        return;
    const QJsonValue value = line->take(key);
    if (value.isString() && !value.toString().isEmpty())
        input->keyName = value.toString();
    else
        input->keyId =
            static_cast<quint32>(line->toNumber(value, key, 0, std::numeric_limits<quint32>::max()));
}

void readTyped(ObjectReader *line, InputLine *input)
{
    input->text = line->takeOptionalText(QStringLiteral("text"));
    input->keys = line->takeOptionalText(QStringLiteral("keys"));
    if (input->text.isEmpty() == input->keys.isEmpty())
        line->fail(QStringLiteral("either \"text\" or \"keys\" is to be typed"));
    const QKeySequence keys = QKeySequence::fromString(input->keys, QKeySequence::PortableText);
    if (!input->keys.isEmpty() && (keys.count() != 1 || keys[0] == Qt::Key_unknown))
        line->fail(QStringLiteral("\"%1\" is no key").arg(input->keys));
}

void readValue(ObjectReader *line, InputLine *input)
{
    input->value = line->take(QStringLiteral("value"));
    if (!input->value.isString() && !input->value.isDouble() && !input->value.isBool())
        line->fail(QStringLiteral("\"value\" is to be a text, a number, true or false"));
}

InputLine readInput(ObjectReader *line, InputLine::Action action)
{
    InputLine input;
    input.action = action;
    readTarget(line, &input, action != InputLine::Type);
    if (action == InputLine::Type)
        readTyped(line, &input);
    if (action == InputLine::Set)
        readValue(line, &input);
    if (action == InputLine::Type || action == InputLine::Set)
        return input;

    const QString at = QStringLiteral("at");
    if (action == InputLine::Move || line->has(at))
        input.at = line->takePoint(at);
    if (action == InputLine::Wheel) {
        input.delta = line->takePoint(QStringLiteral("delta"));
        return input;
    }
    if (line->has(QStringLiteral("finger")))
        input.finger = static_cast<int>(line->takeNumber(QStringLiteral("finger"), 0, HighestFinger));
    if (action == InputLine::Press && line->has(QStringLiteral("double")))
        input.isDouble = line->takeTruth(QStringLiteral("double"));
    return input;
}

AnswerLine readAnswer(ObjectReader *line)
{
    const QString button = line->takeText(QStringLiteral("button"));
    if (!isButton(button))
        line->fail(QStringLiteral("\"%1\" is no button of a message box").arg(button));
    return {button};
}

int readMs(ObjectReader *line)
{
    return static_cast<int>(line->takeNumber(QStringLiteral("ms"), 0, LongestWaitMs));
}

QString readSignalName(ObjectReader *line)
{
    QString signal = line->takeText(QStringLiteral("signal"));
    if (!isPluginSignal(signal))
        line->fail(QStringLiteral("\"%1\" is no signal of the plug-in").arg(signal));
    return signal;
}

WaitForLine readWaitFor(ObjectReader *line)
{
    const QString signal = readSignalName(line);
    return {signal, readMs(line)};
}

ScreenshotLine readScreenshot(ObjectReader *line)
{
    const QString name = QStringLiteral("file");
    if (!line->has(name))
        return {};
    const QString file = line->takeText(name);
    const bool isPlain = std::all_of(file.cbegin(), file.cend(), [](QChar character) {
        return character.isPrint() && character != QLatin1Char('/');
    });
    if (!isPlain || !file.endsWith(QLatin1String(".png")))
        line->fail(QStringLiteral("\"file\" is to be the name of a .png file without folder"));
    return {file};
}

ScenarioLine::Content readOperation(ObjectReader *line, bool isTraced)
{
    const QString name = line->takeText(QStringLiteral("op"));
    if (const auto call = callOf(name))
        return readCall(line, *call, isTraced);
    if (const auto action = indexIn(ActionNames, name))
        return readInput(line, static_cast<InputLine::Action>(*action));
    if (name == QLatin1String("answer"))
        return readAnswer(line);
    if (name == QLatin1String("wait"))
        return WaitLine{readMs(line)};
    if (name == QLatin1String("waitFor"))
        return readWaitFor(line);
    if (name == QLatin1String("screenshot"))
        return readScreenshot(line);
    line->fail(QStringLiteral("there is no operation \"%1\"").arg(name));
    return GapLine();
}

SignalLine readSignal(ObjectReader *line)
{
    const QString signal = readSignalName(line);
    const QJsonValue args = line->take(QStringLiteral("args"));
    if (!args.isArray())
        line->fail(QStringLiteral("\"args\" is to be a list"));
    return {signal, args.toArray()};
}

MessageLine readMessage(ObjectReader *line)
{
    const QJsonValue value = line->take(QStringLiteral("message"));
    if (!value.isObject())
        line->fail(QStringLiteral("\"message\" is to be an object"));
    ObjectReader fields(value.toObject());
    const auto text = [&fields](const QString &name) {
        const QJsonValue field = fields.take(name);
        if (!field.isString())
            fields.fail(QStringLiteral("\"%1\" is to be a text").arg(name));
        return field.toString();
    };
    MessageLine message{text(QStringLiteral("title")), text(QStringLiteral("text")),
                        text(QStringLiteral("informative"))};
    fields.finish();
    if (!fields.error().isEmpty())
        line->fail(fields.error());
    return message;
}

ScenarioLine::Content readContent(ObjectReader *line, const std::optional<Direction> &direction)
{
    if (line->has(QStringLiteral("op"))) {
        if (direction == Direction::Out)
            line->fail(QStringLiteral("an operation goes in"));
        return readOperation(line, direction.has_value());
    }
    if (line->has(QStringLiteral("gap")))
        return GapLine{
            static_cast<int>(line->takeNumber(QStringLiteral("gap"), 1, std::numeric_limits<int>::max()))};
    const bool isMessage = line->has(QStringLiteral("message"));
    if (!isMessage && !line->has(QStringLiteral("signal"))) {
        line->fail(QStringLiteral("\"op\" is missing"));
        return GapLine();
    }
    if (direction != Direction::Out)
        line->fail(QStringLiteral("what comes out of the console has \"dir\":\"out\""));
    return isMessage ? ScenarioLine::Content(readMessage(line)) : ScenarioLine::Content(readSignal(line));
}

ScenarioLine readLine(ObjectReader *line)
{
    ScenarioLine result;
    if (line->has(QStringLiteral("dir")))
        result.direction = static_cast<Direction>(line->takeChoice(QStringLiteral("dir"), DirectionNames));
    result.content = readContent(line, result.direction);
    const QString ms = QStringLiteral("t");
    const bool isTraced = result.direction || std::holds_alternative<GapLine>(result.content);
    if (isTraced && line->has(ms)) {
        const QJsonValue value = line->take(ms);
        result.ms = value.toDouble(-1);
        if (*result.ms < 0 || *result.ms > LongestTraceMs)
            line->fail(
                QStringLiteral("\"t\" is to be a number of milliseconds from 0 to %1").arg(LongestTraceMs));
    }
    line->finish();
    return result;
}

} // namespace

std::optional<ScenarioLine> scenarioLineFromJson(const QByteArray &json, QString *error)
{
    QJsonParseError fault;
    const QJsonDocument document = QJsonDocument::fromJson(json, &fault);
    if (fault.error != QJsonParseError::NoError) {
        *error = QStringLiteral("no JSON: %1").arg(fault.errorString());
        return {};
    }
    if (!document.isObject()) {
        *error = QStringLiteral("no JSON object");
        return {};
    }
    ObjectReader reader(document.object());
    const ScenarioLine line = readLine(&reader);
    *error = reader.error();
    return error->isEmpty() ? std::make_optional(line) : std::nullopt;
}

} // namespace K7Host
