// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "screenmodel.h"

#include <array>

namespace K7Host {

namespace {

constexpr std::array<const char *, ScreenModel::ScreenCount> ScreenNames{
    "Main",       "Left",        "Right",      "Floor",      "Wedge",    "Prompter", "Foyer 1", "Foyer 2",
    "Bar",        "Stage",       "FOH",        "Overflow",   "Press",    "VIP",      "Stream",  "Recorder",

    "Delay left", "Delay right", "Gate north", "Gate south", "Car park", "Canteen",  "Kiosk 1", "Kiosk 2",
};

} // namespace

ScreenModel::ScreenModel()
    : m_keys({FirstKey,
              PageUpKey,
              PageDownKey,
              {39, 38, 37, 36, 41, 40, 47, 46, 45, 44, 43, 42, 77, 76, 75, 74},
              PageLabel},
             ScreenCount)
    , m_toggles({{FreezeProgramKey, KeyColor::Blue},
                 {MatchProgramKey, KeyColor::Yellow},
                 {FadeToBlackKey, KeyColor::Red}})
    , m_selected(1) // the first one
{
}

void ScreenModel::press(quint32 key)
{
    m_toggles.press(key);
    if (const auto screen = m_keys.press(key))
        m_selected.flip(static_cast<std::size_t>(*screen));
}

KeyColors ScreenModel::keyColors() const
{
    KeyColors colors = m_keys.colors([this](int screen) {
        return m_selected.test(static_cast<std::size_t>(screen)) ? KeyColor::Yellow : KeyColor::Idle;
    });
    addAll(&colors, m_toggles.colors());
    colors.insert(ReservedKey, KeyColor::Idle);
    return colors;
}

LabelTexts ScreenModel::labelTexts() const
{
    return m_keys.texts(
        [](int screen) { return QString::fromUtf8(ScreenNames.at(static_cast<std::size_t>(screen))); });
}

} // namespace K7Host
