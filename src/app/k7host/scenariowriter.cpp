// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "networkaddress.h"
#include "recordfields.h"
#include "scenarioline.h"
#include "scenarionames.h"

#include <QJsonDocument>

#include <cmath>
#include <utility>

namespace K7Host {

namespace {

constexpr double MicrosecondsPerMs = 1000;

QByteArray bytesOf(const char (&text)[sizeof(Korvo::ECOLEDText::OledText)])
{
    return {text, static_cast<int>(qstrnlen(text, sizeof text))};
}

/// As an array of numbers when the bytes are no text.
QJsonValue oledTextToJson(const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() == bytes)
        return text;
    QJsonArray numbers;
    for (const char byte : bytes)
        numbers.append(static_cast<uchar>(byte));
    return numbers;
}

/// A JSON object whose members keep the order in which they are added.
class ObjectWriter
{
public:
    void add(const char *name, const QJsonValue &value)
    {
        const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
        addJson(name, list.mid(1, list.size() - 2));
    }
    void addJson(const char *name, const QByteArray &json)
    {
        m_json += m_json.isEmpty() ? "{\"" : ",\"";
        m_json += name;
        m_json += "\":";
        m_json += json;
    }
    QByteArray json() const { return m_json.isEmpty() ? QByteArrayLiteral("{}") : m_json + '}'; }

private:
    QByteArray m_json;
};

class FieldWriter
{
public:
    explicit FieldWriter(ObjectWriter *object)
        : m_object(object)
    {
    }

    void operator()(const char *name, quint32 number) const { m_object->add(name, double(number)); }
    template <typename Number>
    void operator()(const char *name, AddressField<Number> address) const
    {
        m_object->add(name, addressText(address.value));
    }
    template <typename Char>
    void operator()(const char *name, TextField<Char> text) const
    {
        m_object->add(name, oledTextToJson(bytesOf(text.bytes)));
    }

private:
    ObjectWriter *const m_object;
};

/// Adds the fields of each kind of line.
class ContentWriter
{
public:
    explicit ContentWriter(ObjectWriter *object)
        : m_object(object)
    {
    }

    void operator()(const CallLine &line) const
    {
        addOperation(operationName(line.call));
        if (line.half)
            m_object->add("half", halfName(*line.half));
        std::visit([this](const auto &kind) { addRecord(kind); }, line.call);
        if (line.result)
            m_object->add("result", *line.result);
    }
    void operator()(const InputLine &line) const
    {
        addOperation(ActionNames.at(line.action));
        if (line.keyId)
            m_object->add("key", double(*line.keyId));
        addText("key", line.keyName);
        addText("widget", line.widget);
        if (line.finger)
            m_object->add("finger", *line.finger);
        if (line.at)
            m_object->add("at", toJsonArray(*line.at));
        if (line.isDouble)
            m_object->add("double", true);
        if (line.action == InputLine::Wheel)
            m_object->add("delta", toJsonArray(line.delta));
        addText("text", line.text);
        addText("keys", line.keys);
        if (line.action == InputLine::Set)
            m_object->add("value", line.value);
    }
    void operator()(const AnswerLine &line) const
    {
        addOperation(QStringLiteral("answer"));
        m_object->add("button", line.button);
    }
    void operator()(const WaitLine &line) const
    {
        addOperation(QStringLiteral("wait"));
        m_object->add("ms", line.ms);
    }
    void operator()(const WaitForLine &line) const
    {
        addOperation(QStringLiteral("waitFor"));
        m_object->add("signal", line.signal);
        m_object->add("ms", line.ms);
    }
    void operator()(const ScreenshotLine &line) const
    {
        addOperation(QStringLiteral("screenshot"));
        m_object->add("file", line.file);
    }
    void operator()(const SignalLine &line) const
    {
        m_object->add("signal", line.signal);
        m_object->add("args", line.args);
    }
    void operator()(const MessageLine &line) const
    {
        ObjectWriter message;
        message.add("title", line.title);
        message.add("text", line.text);
        message.add("informative", line.informative);
        m_object->addJson("message", message.json());
    }
    void operator()(const GapLine &line) const { m_object->add("gap", line.lines); }

private:
    void addOperation(const QString &name) const { m_object->add("op", name); }
    void addText(const char *name, const QString &text) const
    {
        if (!text.isEmpty())
            m_object->add(name, text);
    }
    template <typename Record>
    void addRecord(const std::shared_ptr<Record> &record) const
    {
        if (!record)
            return m_object->add("record", QJsonValue());
        ObjectWriter fields;
        visitFields(std::as_const(*record), FieldWriter(&fields));
        m_object->addJson("record", fields.json());
    }
    void addRecord(KeyboardUpdate) const {}
    void addRecord(IdleLook) const {}
    static QJsonArray toJsonArray(const QPoint &point) { return {point.x(), point.y()}; }

    ObjectWriter *const m_object;
};

} // namespace

QByteArray toJson(const ScenarioLine &line)
{
    ObjectWriter object;
    if (line.ms)
        object.add("t", std::round(*line.ms * MicrosecondsPerMs) / MicrosecondsPerMs);
    if (line.direction)
        object.add("dir", DirectionNames.at(static_cast<std::size_t>(*line.direction)));
    std::visit(ContentWriter(&object), line.content);
    return object.json();
}

QString halfName(Half half)
{
    return HalfNames.at(static_cast<std::size_t>(half));
}

} // namespace K7Host
