// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "composition.h"
#include "pagedkeys.h"

namespace K7Host {

/// The Layer section of a video processor: two pages of layers, of which any number is selected, and the keys
/// that change the selected ones on preview.
class LayerModel
{
public:
    static constexpr quint32 FirstKey = 18;
    static constexpr quint32 PageUpKey = 34;
    static constexpr quint32 PageDownKey = 35;
    static constexpr quint32 ClearKey = 92;
    static constexpr quint32 ClearAllKey = 93;
    static constexpr quint32 TopKey = 94;
    static constexpr quint32 BottomKey = 95;
    static constexpr quint32 SelectAllKey = 96;  ///< the first reserved key
    static constexpr quint32 SelectNoneKey = 97; ///< the second one
    static constexpr quint32 PageLabel = 52;
    static constexpr quint32 SelectAllLabel = 88;
    static constexpr quint32 SelectNoneLabel = 89;

    /// The first layer is selected.
    LayerModel();

    /// A layer's key selects it or not; the edit keys change \a preview, or the selection.
    void press(quint32 key, Composition *preview);
    const Composition::LayerSet &selected() const { return m_selected; }

    KeyColors keyColors() const;
    /// A layer's label shows its source, or its number when it holds none, and its height in the stack.
    LabelTexts labelTexts(const Composition &preview) const;

private:
    PagedKeys m_keys;
    Composition::LayerSet m_selected;
};

} // namespace K7Host
