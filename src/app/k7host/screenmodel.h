// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "pagedkeys.h"
#include "togglekeys.h"

#include <bitset>

namespace K7Host {

/// The Screen section of a video processor: two pages of screens, of which any number is selected, and what
/// becomes of program.
class ScreenModel
{
public:
    static constexpr int ScreenCount = 24;
    static constexpr quint32 FirstKey = 0;
    static constexpr quint32 PageUpKey = 16;
    static constexpr quint32 PageDownKey = 17;
    static constexpr quint32 FreezeProgramKey = 88;
    static constexpr quint32 MatchProgramKey = 89;
    static constexpr quint32 ReservedKey = 90; ///< silent on the console, but takes a colour
    static constexpr quint32 FadeToBlackKey = 91;
    static constexpr quint32 PageLabel = 49;

    ScreenModel();

    /// A screen's key selects it or not; FREEZE PGM, MATCH PGM and FTB are turned on or off.
    void press(quint32 key);

    /// Program stays as it is.
    bool isProgramFrozen() const { return m_toggles.isOn(FreezeProgramKey); }
    /// Preview becomes what program is: when this begins, and whenever program changes.
    bool isProgramMatched() const { return m_toggles.isOn(MatchProgramKey); }

    KeyColors keyColors() const;
    LabelTexts labelTexts() const;

private:
    PagedKeys m_keys;
    ToggleKeys m_toggles;
    std::bitset<ScreenCount> m_selected;
};

} // namespace K7Host
