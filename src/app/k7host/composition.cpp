// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "composition.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace K7Host {

Composition::Composition()
{
    std::iota(m_stack.begin(), m_stack.end(), 0);
}

std::optional<int> Composition::sourceOn(int layer) const
{
    return m_sources.at(static_cast<std::size_t>(layer));
}

bool Composition::shows(int source) const
{
    return std::find(m_sources.cbegin(), m_sources.cend(), source) != m_sources.cend();
}

int Composition::heightOf(int layer) const
{
    const auto place = std::find(m_stack.cbegin(), m_stack.cend(), layer);
    return static_cast<int>(std::distance(m_stack.cbegin(), place)) + 1;
}

void Composition::put(int source, const LayerSet &layers)
{
    for (std::size_t layer = 0; layer < m_sources.size(); ++layer) {
        if (layers.test(layer))
            m_sources.at(layer) = source;
    }
}

void Composition::clear(const LayerSet &layers)
{
    for (std::size_t layer = 0; layer < m_sources.size(); ++layer) {
        if (layers.test(layer))
            m_sources.at(layer).reset();
    }
}

void Composition::moveToTop(const LayerSet &layers)
{
    moveToBottom(~layers);
}

void Composition::moveToBottom(const LayerSet &layers)
{
    std::stable_partition(m_stack.begin(), m_stack.end(),
                          [&layers](int layer) { return layers.test(static_cast<std::size_t>(layer)); });
}

} // namespace K7Host
