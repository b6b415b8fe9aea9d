// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "numberpad.h"

#include <algorithm>

namespace K7Host {

std::optional<int> NumberPad::press(quint32 key)
{
    switch (key) {
    case EnterKey:
        return enter();
    case BackKey:
        deleteDigit();
        break;
    case IncreaseKey:
        step(1);
        break;
    case DecreaseKey:
        step(-1);
        break;
    case ZeroKey:
        type(0);
        break;
    default:
        if (key >= FirstDigitKey && key < DecreaseKey)
            type(static_cast<int>(key - FirstDigitKey) + 1);
    }
    return std::nullopt;
}

KeyColors NumberPad::keyColors() const
{
    KeyColors colors;
    for (quint32 key = FirstDigitKey; key < EnterKey; ++key)
        colors.insert(key, KeyColor::Idle);
    colors.insert(EnterKey, m_isEntering ? KeyColor::Green : KeyColor::Idle);
    return colors;
}

LabelTexts NumberPad::labelTexts() const
{
    const QString number = m_number ? QString::number(*m_number) : QStringLiteral("-");
    return {{NumberLabel, QStringLiteral("No. %1").arg(number)}};
}

void NumberPad::type(int digit)
{
    const int number = m_isEntering ? *m_number * 10 + digit : digit;
    if (number > MaxNumber)
        return;
    m_number = number;
    m_isEntering = true;
}

void NumberPad::step(int by)
{
    m_number = std::clamp(m_number.value_or(0) + by, 0, MaxNumber);
    m_isEntering = true;
}

void NumberPad::deleteDigit()
{
    m_isEntering = m_number >= 10;
    m_number = m_isEntering ? std::make_optional(*m_number / 10) : std::nullopt;
}

std::optional<int> NumberPad::enter()
{
    if (!m_isEntering)
        return std::nullopt;
    m_isEntering = false;
    return m_number;
}

} // namespace K7Host
