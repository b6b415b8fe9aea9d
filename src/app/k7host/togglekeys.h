// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolestate.h"

#include <QSet>
#include <QVector>

namespace K7Host {

/// A key that a press lights and the next one puts out.
struct ToggleKey
{
    quint32 id;
    QRgb color;
    int group = 0; ///< keys of the same group exclude one another, 0 is no group
};

/// Which keys of a table are on.
class ToggleKeys
{
public:
    explicit ToggleKeys(const QVector<ToggleKey> &keys);

    /// Changes nothing unless \a id is in the table.
    void press(quint32 id);
    void turnAllOff();
    bool isOn(quint32 id) const { return m_on.contains(id); }

    KeyColors colors() const;

private:
    QVector<ToggleKey> m_keys;
    QSet<quint32> m_on;
};

} // namespace K7Host
