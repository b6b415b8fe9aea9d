// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

namespace Korvo::EC {

/// Puts off what \a key would paint at once: QAbstractButton shows a press before it tells it. Whoever stops
/// its painting meanwhile has the last word.
class PaintLater
{
public:
    explicit PaintLater(QWidget *key)
        : m_key(key->updatesEnabled() ? key : nullptr)
    {
        if (m_key)
            m_key->setAttribute(Qt::WA_UpdatesDisabled);
    }
    ~PaintLater() { allow(); }

    /// From now on the key is painted, in the next pass of the event loop.
    void allow()
    {
        if (m_key && !m_key->testAttribute(Qt::WA_ForceUpdatesDisabled))
            m_key->setUpdatesEnabled(true);
        m_key.clear();
    }

private:
    Q_DISABLE_COPY(PaintLater)

    QPointer<QWidget> m_key;
};

} // namespace Korvo::EC
