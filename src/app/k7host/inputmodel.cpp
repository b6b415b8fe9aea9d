// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "inputmodel.h"

#include <array>

namespace K7Host {

namespace {

constexpr std::array<const char *, InputModel::SourceCount> SourceNames{
    "CAM 1",
    "CAM 2",
    "CAM 3",
    "CAM 4",
    "CAM 5",
    "CAM 6",
    "CAM 7",
    "CAM 8",
    "Wide",
    "Crane",
    "VTR A",
    "VTR B",
    "Playout 1",
    "Playout 2",
    "Graphics",
    "Laptop",

    "Jib left",
    "Jib right",
    "Handheld backstage",
    "Drone",
    "Audience left",
    "Audience right",
    "Rail cam",
    "Beauty shot, roof top",
    "Slow motion",
    "Clip 1",
    "Clip 2",
    "Lower third",
    "Score board",
    "Remote guest",
    "Test bars",
    "Black",
};

} // namespace

InputModel::InputModel()
    : m_keys({FirstKey,
              PageUpKey,
              PageDownKey,
              {12, 15, 14, 13, 17, 16, 23, 22, 21, 20, 19, 18, 79, 78, 82, 80},
              PageLabel},
             SourceCount)
{
}

QString InputModel::sourceName(int source)
{
    return QString::fromUtf8(SourceNames.at(static_cast<std::size_t>(source)));
}

KeyColors InputModel::keyColors(const Composition &program, const Composition &preview) const
{
    return m_keys.colors([&](int source) {
        if (program.shows(source))
            return KeyColor::Red;
        return preview.shows(source) ? KeyColor::Green : KeyColor::Idle;
    });
}

LabelTexts InputModel::labelTexts() const
{
    return m_keys.texts(&InputModel::sourceName);
}

} // namespace K7Host
