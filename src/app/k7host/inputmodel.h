// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "composition.h"
#include "pagedkeys.h"

namespace K7Host {

/// The Input section of a video processor: two pages of sixteen sources.
class InputModel
{
public:
    static constexpr int SourceCount = 32;
    static constexpr quint32 FirstKey = 36; ///< INPUT_01; the others follow
    static constexpr quint32 PageUpKey = 52;
    static constexpr quint32 PageDownKey = 53;
    static constexpr quint32 PageLabel = 51;

    /// \a source is 0 to SourceCount - 1.
    static QString sourceName(int source);

    InputModel();

    /// Gives the source that was chosen, if any; page keys turn the page.
    std::optional<int> press(quint32 key) { return m_keys.press(key); }

    /// What \a program shows is red, what only \a preview shows green.
    KeyColors keyColors(const Composition &program, const Composition &preview) const;
    LabelTexts labelTexts() const;

private:
    PagedKeys m_keys;
};

} // namespace K7Host
