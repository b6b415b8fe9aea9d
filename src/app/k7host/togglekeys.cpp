// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "togglekeys.h"

#include <algorithm>

namespace K7Host {

ToggleKeys::ToggleKeys(const QVector<ToggleKey> &keys)
    : m_keys(keys)
{
}

void ToggleKeys::press(quint32 id)
{
    const auto pressed =
        std::find_if(m_keys.cbegin(), m_keys.cend(), [id](const ToggleKey &key) { return key.id == id; });
    if (pressed == m_keys.cend() || m_on.remove(id))
        return;
    for (const ToggleKey &other : qAsConst(m_keys)) {
        if (pressed->group != 0 && other.group == pressed->group)
            m_on.remove(other.id);
    }
    m_on.insert(id);
}

void ToggleKeys::turnAllOff()
{
    m_on.clear();
}

KeyColors ToggleKeys::colors() const
{
    KeyColors colors;
    for (const ToggleKey &key : m_keys)
        colors.insert(key.id, isOn(key.id) ? key.color : KeyColor::Idle);
    return colors;
}

} // namespace K7Host
