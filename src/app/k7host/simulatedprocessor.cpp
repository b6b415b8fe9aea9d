// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "simulatedprocessor.h"

#include <QTimer>

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

std::shared_ptr<Korvo::ECTBarValue> leverRecord(const Lever &lever)
{
    auto record = std::make_shared<Korvo::ECTBarValue>();
    record->Value = static_cast<quint32>(lever.position);
    record->IsBottomToTop = lever.isBottomToTop ? 1 : 0;
    return record;
}

/// The entries of \a current that \a known does not hold.
template <typename Value>
QMap<quint32, Value> newIn(const QMap<quint32, Value> &current, const QMap<quint32, Value> &known)
{
    QMap<quint32, Value> news;
    for (auto it = current.cbegin(); it != current.cend(); ++it) {
        const auto old = known.constFind(it.key());
        if (old == known.cend() || *old != *it)
            news.insert(it.key(), *it);
    }
    return news;
}

} // namespace

SimulatedProcessor::SimulatedProcessor(QObject *parent)
    : DeviceLink(parent)
    , m_shown(m_model.state())
    , m_frameTimer(new QTimer(this))
{
    m_frameTimer->setInterval(TransitionModel::FrameMs);
    m_frameTimer->setTimerType(Qt::PreciseTimer);
    connect(m_frameTimer, &QTimer::timeout, this, &SimulatedProcessor::advanceFrame);
}

SimulatedProcessor::~SimulatedProcessor() = default;

void SimulatedProcessor::keyPressed(quint32 code)
{
    m_model.press(code - KeyCodeOffset);
    answer();
}

void SimulatedProcessor::keyReleased(quint32 code)
{
    Q_UNUSED(code)
}

void SimulatedProcessor::refresh()
{
    m_shown = {};
    sendChanges();
}

void SimulatedProcessor::advanceFrame()
{
    m_model.advanceFrame();
    answer();
}

void SimulatedProcessor::answer()
{
    if (!m_model.isMoving())
        m_frameTimer->stop();
    else if (!m_frameTimer->isActive())
        m_frameTimer->start();
    sendChanges();
}

void SimulatedProcessor::sendChanges()
{
    const ConsoleState current = m_model.state();
    const KeyColors colors = newIn(current.colors, m_shown.colors);
    const LabelTexts texts = newIn(current.texts, m_shown.texts);

    // A receiver may press a key: that answer then holds what is left of this one, and all that is newer.
    const quint32 number = ++m_answers;
    const auto isOutdated = [this, number] { return m_answers != number; };

    for (auto it = colors.cbegin(); it != colors.cend() && !isOutdated(); ++it) {
        m_shown.colors.insert(it.key(), *it);
        emit buttonColorReported(colorRecord(it.key(), *it));
    }
    for (auto it = texts.cbegin(); it != texts.cend() && !isOutdated(); ++it) {
        m_shown.texts.insert(it.key(), *it);
        emit oledTextReported(textRecord(it.key(), *it));
    }
    if (!isOutdated() && m_shown.lever != current.lever) {
        m_shown.lever = current.lever;
        emit tBarValueReported(leverRecord(*current.lever));
    }
}

} // namespace K7Host
