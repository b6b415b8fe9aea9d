// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolestate.h"

namespace K7Host {

/// The Number section of a video processor: a number that is typed or stepped to, 0 to MaxNumber.
class NumberPad
{
public:
    static constexpr int MaxNumber = 9999;
    static constexpr quint32 FirstDigitKey = 106; ///< 1; the digits to 9 follow
    static constexpr quint32 DecreaseKey = 115;
    static constexpr quint32 ZeroKey = 116;
    static constexpr quint32 IncreaseKey = 117;
    static constexpr quint32 BackKey = 118;
    static constexpr quint32 EnterKey = 119;
    static constexpr quint32 NumberLabel = 90; ///< in the Transition section

    /// ENTER ends an entry and gives its number. The number stays, for stepping on: a digit begins anew, and
    /// every other key goes on with it. A digit that leads beyond MaxNumber is ignored.
    std::optional<int> press(quint32 key);

    /// ENTER is green as long as there is an entry to end.
    KeyColors keyColors() const;
    LabelTexts labelTexts() const;

private:
    void type(int digit);
    void step(int by);
    void deleteDigit();
    std::optional<int> enter();

    std::optional<int> m_number;
    bool m_isEntering = false;
};

} // namespace K7Host
