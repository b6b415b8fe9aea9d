// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <bitset>
#include <optional>

namespace K7Host {

/// A picture: which source each layer holds, and how the layers are stacked. Layers count from 0 to
/// LayerCount - 1, sources from 0.
class Composition
{
public:
    static constexpr int LayerCount = 32;
    using LayerSet = std::bitset<LayerCount>;

    /// No layer holds a source; they are stacked in their order, the first one at the bottom.
    Composition();

    /// The source of \a layer, if it holds one.
    std::optional<int> sourceOn(int layer) const;
    bool shows(int source) const;
    /// The place of \a layer in the stack, 1 (bottom) to LayerCount (top).
    int heightOf(int layer) const;

    void put(int source, const LayerSet &layers);
    /// Takes the sources of \a layers away; they keep their places in the stack.
    void clear(const LayerSet &layers);
    /// Moves \a layers to an end of the stack; they keep their order among themselves.
    void moveToTop(const LayerSet &layers);
    void moveToBottom(const LayerSet &layers);

    friend bool operator==(const Composition &a, const Composition &b)
    {
        return a.m_sources == b.m_sources && a.m_stack == b.m_stack;
    }
    friend bool operator!=(const Composition &a, const Composition &b) { return !(a == b); }

private:
    std::array<std::optional<int>, LayerCount> m_sources;
    std::array<int, LayerCount> m_stack; // layers from bottom to top
};

} // namespace K7Host
