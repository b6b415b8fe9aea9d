// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "presetmodel.h"

#include <initializer_list>

namespace K7Host {

namespace {

/// \a sources are those of the first layers.
Composition layersOf(std::initializer_list<int> sources)
{
    Composition composition;
    Composition::LayerSet layer(1);
    for (const int source : sources) {
        composition.put(source, layer);
        layer <<= 1;
    }
    return composition;
}

} // namespace

PresetModel::PresetModel()
    : m_keys({FirstKey,
              PageUpKey,
              PageDownKey,
              {71, 70, 69, 68, 67, 66, 63, 62, 61, 60, 65, 64, 55, 54, 59, 58,
               7,  6,  8,  11, 10, 9,  5,  0,  4,  3,  2,  1,  57, 56, 53, 48},
              PageLabel},
             PresetCount)
    , m_modes({{SaveKey, KeyColor::Yellow, 1},
               {ClearKey, KeyColor::Orange, 1},
               {LoadToProgramKey, KeyColor::Red, 1}})
    , m_presets{
          {QStringLiteral("Opening"), layersOf({0})},        {QStringLiteral("Interview"), layersOf({1, 2})},
          {QStringLiteral("Panel"), layersOf({8, 3, 4, 5})}, {QStringLiteral("Slides"), layersOf({15, 1})},
          {QStringLiteral("Score"), layersOf({2, 28})},      {QStringLiteral("Break"), layersOf({25, 27})},
          {QStringLiteral("Black"), layersOf({31})}}
{
    m_presets.resize(PresetCount);
}

std::optional<PresetModel::Recall> PresetModel::press(quint32 key, const Composition &preview,
                                                      bool isProgramOpen)
{
    m_modes.press(key);
    if (key == ClearAllKey) {
        m_modes.turnAllOff();
        m_presets.fill(Preset());
    }
    const auto preset = m_keys.press(key);
    return preset ? use(*preset, preview, isProgramOpen) : std::nullopt;
}

std::optional<PresetModel::Recall> PresetModel::enter(int number, const Composition &preview,
                                                      bool isProgramOpen)
{
    if (number < 1 || number > PresetCount)
        return std::nullopt;
    return use(number - 1, preview, isProgramOpen);
}

std::optional<Composition> PresetModel::composition(int number) const
{
    if (number < 1 || number > PresetCount || m_presets.at(number - 1).name.isEmpty())
        return std::nullopt;
    return m_presets.at(number - 1).composition;
}

KeyColors PresetModel::keyColors(const Composition &program, const Composition &preview) const
{
    KeyColors colors = m_keys.colors([&](int preset) {
        const auto held = composition(preset + 1);
        if (held == program)
            return KeyColor::Red;
        return held == preview ? KeyColor::Green : KeyColor::Idle;
    });
    addAll(&colors, m_modes.colors());
    colors.insert(ClearAllKey, KeyColor::Idle);
    return colors;
}

LabelTexts PresetModel::labelTexts() const
{
    LabelTexts texts = m_keys.texts([this](int preset) { return m_presets.at(preset).name; });
    texts.insert(LoadToProgramLabel, QStringLiteral("TO PGM"));
    return texts;
}

std::optional<PresetModel::Recall> PresetModel::use(int preset, const Composition &preview,
                                                    bool isProgramOpen)
{
    if (m_modes.isOn(LoadToProgramKey) && !isProgramOpen)
        return std::nullopt;

    const ToggleKeys modes = m_modes;
    m_modes.turnAllOff();
    if (modes.isOn(SaveKey))
        save(preset, preview);
    else if (modes.isOn(ClearKey))
        clear(preset);
    else if (const auto held = composition(preset + 1))
        return Recall{*held, modes.isOn(LoadToProgramKey)};
    return std::nullopt;
}

void PresetModel::save(int preset, const Composition &preview)
{
    Preset &target = m_presets[preset];
    target.composition = preview;
    if (target.name.isEmpty())
        target.name = QStringLiteral("Preset %1").arg(preset + 1);
}

void PresetModel::clear(int preset)
{
    m_presets[preset] = Preset();
}

} // namespace K7Host
