// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "composition.h"
#include "pagedkeys.h"
#include "togglekeys.h"

namespace K7Host {

/// The Preset section of a video processor: two pages of compositions that are kept, and the keys that say
/// what the next preset's key does.
class PresetModel
{
public:
    static constexpr int PresetCount = 64;
    static constexpr quint32 FirstKey = 54;
    static constexpr quint32 PageUpKey = 86;
    static constexpr quint32 PageDownKey = 87;
    static constexpr quint32 ClearKey = 98;
    static constexpr quint32 ClearAllKey = 99;
    static constexpr quint32 SaveKey = 100;
    static constexpr quint32 LoadToProgramKey = 103;
    static constexpr quint32 PageLabel = 50;
    static constexpr quint32 LoadToProgramLabel = 100;

    /// A composition that was asked for, and where it goes to.
    struct Recall
    {
        Composition composition;
        bool toProgram = false;
    };

    /// A handful of presets is in use.
    PresetModel();

    /// SAVE, CLEAR and LOAD arm for the next preset's key, one of them at a time: it then stores \a preview,
    /// becomes empty, or goes to program; LOAD stays armed as long as program is not open to changes. Without
    /// them a preset goes to preview. An empty one goes nowhere.
    std::optional<Recall> press(quint32 key, const Composition &preview, bool isProgramOpen);
    /// The same as a press of the key of the preset of that number, on whatever page it is.
    std::optional<Recall> enter(int number, const Composition &preview, bool isProgramOpen);

    /// What the preset of that number holds, if it is in use; numbers count from 1 over all pages.
    std::optional<Composition> composition(int number) const;

    /// A preset that is exactly what \a program is, is red; exactly what only \a preview is, green.
    KeyColors keyColors(const Composition &program, const Composition &preview) const;
    LabelTexts labelTexts() const;

private:
    struct Preset
    {
        QString name; // empty as long as the preset is
        Composition composition;
    };

    std::optional<Recall> use(int preset, const Composition &preview, bool isProgramOpen);
    void save(int preset, const Composition &preview);
    void clear(int preset);

    PagedKeys m_keys;
    ToggleKeys m_modes;
    QVector<Preset> m_presets;
};

} // namespace K7Host
