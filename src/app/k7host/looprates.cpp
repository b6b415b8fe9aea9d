// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "looprates.h"

#include <QAbstractEventDispatcher>

namespace K7Host {

void LoopRates::start(qint64 now)
{
    if (m_isCounting)
        return;
    m_isCounting = true;
    m_begin = now;
    const auto *dispatcher = QAbstractEventDispatcher::instance();
    m_sleeps =
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] { m_isAsleep = true; });
    // It is also awake whenever somebody has events processed who waits for none.
    m_wakes = connect(dispatcher, &QAbstractEventDispatcher::awake, this, [this] {
        m_wakeUps += m_isAsleep;
        m_isAsleep = false;
    });
}

void LoopRates::stop(qint64 now)
{
    if (!m_isCounting)
        return;
    m_isCounting = false;
    m_isAsleep = false;
    m_counted += now - m_begin;
    disconnect(m_sleeps);
    disconnect(m_wakes);
}

void LoopRates::reset(qint64 now)
{
    m_begin = now;
    m_counted = 0;
    m_wakeUps = 0;
    m_paints = 0;
}

double LoopRates::perSecond(qint64 count, qint64 now) const
{
    const qint64 duration = m_counted + (m_isCounting ? now - m_begin : 0);
    return duration > 0 ? static_cast<double>(count) * 1e9 / static_cast<double>(duration) : 0;
}

} // namespace K7Host
