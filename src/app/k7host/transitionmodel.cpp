// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "transitionmodel.h"

#include <algorithm>

namespace K7Host {

void TransitionModel::press(quint32 key)
{
    switch (key) {
    case MixKey:
        m_isWipe = false;
        break;
    case WipeKey:
        m_isWipe = true;
        break;
    case LongerKey:
        m_length = std::min(m_length + StepFrames, MaxFrames);
        break;
    case ShorterKey:
        m_length = std::max(m_length - StepFrames, 0);
        break;
    default:
        break;
    }
}

void TransitionModel::start()
{
    // A lever that has come to its end travels back.
    const bool turns = m_lever.position == Lever::End;
    m_lever = {0, turns ? !m_lever.isBottomToTop : m_lever.isBottomToTop};
    m_runLength = m_length;
    m_frame = 0;
}

bool TransitionModel::advanceFrame()
{
    ++m_frame;
    m_lever.position = Lever::End * m_frame / m_runLength;
    if (m_frame < m_runLength)
        return false;
    complete();
    return true;
}

void TransitionModel::complete()
{
    if (!isRunning())
        return;
    m_lever.position = Lever::End;
    m_runLength = 0;
}

KeyColors TransitionModel::keyColors() const
{
    return {
        {CutKey, KeyColor::Idle},
        {TakeKey, isRunning() ? KeyColor::Red : KeyColor::Idle},
        {MixKey, m_isWipe ? KeyColor::Idle : KeyColor::Yellow},
        {WipeKey, m_isWipe ? KeyColor::Yellow : KeyColor::Idle},
        {Reserved1Key, KeyColor::Idle},
        {LongerKey, KeyColor::Idle},
        {ShorterKey, KeyColor::Idle},
        {Reserved3Key, KeyColor::Idle},
    };
}

LabelTexts TransitionModel::labelTexts() const
{
    const int lengthMs = m_length * FrameMs;
    const QString percent = QStringLiteral("%1 %").arg(m_lever.position * 100 / Lever::End);
    return {
        {MixLabel, QStringLiteral("MIX")},
        {WipeLabel, QStringLiteral("WIPE")},
        {TimeLabel, QStringLiteral("%1.%2 s").arg(lengthMs / 1000).arg(lengthMs % 1000 / 100)},
        {FramesLabel, QStringLiteral("%1 fr").arg(m_length)},
        {PercentLabel, isRunning() ? percent : QString()},
    };
}

} // namespace K7Host
