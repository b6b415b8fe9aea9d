// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "simulatedprocessor.h"

namespace K7Host {

namespace {

std::shared_ptr<Korvo::ECButtonColor> colorRecord(quint32 key, QRgb color)
{
    auto record = std::make_shared<Korvo::ECButtonColor>();
    record->ButtonKey = key;
    record->R = static_cast<quint8>(qRed(color));
    record->G = static_cast<quint8>(qGreen(color));
    record->B = static_cast<quint8>(qBlue(color));
    return record;
}

std::shared_ptr<Korvo::ECOLEDText> textRecord(quint32 label, const QString &text)
{
    auto record = std::make_shared<Korvo::ECOLEDText>();
    record->OledKey = label;
    qstrncpy(record->OledText, text.toUtf8().constData(), sizeof record->OledText);
    return record;
}

/// Calls \a send(id, value) for each entry of \a current that \a known does not hold.
template <typename Value, typename Send>
void sendUnknown(const QMap<quint32, Value> &known, const QMap<quint32, Value> &current, Send send)
{
    for (auto it = current.cbegin(); it != current.cend(); ++it) {
        const auto old = known.constFind(it.key());
        if (old == known.cend() || *old != *it)
            send(it.key(), *it);
    }
}

} // namespace

SimulatedProcessor::SimulatedProcessor(QObject *parent)
    : DeviceLink(parent)
{
}

SimulatedProcessor::~SimulatedProcessor() = default;

void SimulatedProcessor::keyPressed(quint32 code)
{
    const InputModel before = m_input;
    m_input.press(code - KeyCodeOffset);
    sendColors(before.keyColors());
    sendTexts(before.labelTexts());
}

void SimulatedProcessor::keyReleased(quint32 code)
{
    Q_UNUSED(code)
}

void SimulatedProcessor::refresh()
{
    sendColors({});
    sendTexts({});
}

void SimulatedProcessor::sendColors(const QMap<quint32, QRgb> &known)
{
    sendUnknown(known, m_input.keyColors(),
                [this](quint32 key, QRgb color) { emit buttonColorReported(colorRecord(key, color)); });
}

void SimulatedProcessor::sendTexts(const QMap<quint32, QString> &known)
{
    sendUnknown(known, m_input.labelTexts(), [this](quint32 label, const QString &text) {
        emit oledTextReported(textRecord(label, text));
    });
}

} // namespace K7Host
