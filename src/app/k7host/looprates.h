// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaObject>
#include <QObject>

namespace K7Host {

/// How often the event loop of its thread wakes up, and how often windows are painted, while it counts. A
/// loop that finds work before it has fallen asleep wakes up too.
class LoopRates : public QObject
{
    Q_OBJECT

public:
    /// Times are nanoseconds of any clock.
    void start(qint64 now);
    void stop(qint64 now);
    void reset(qint64 now);

    void notePaint() { ++m_paints; }

    // Per second of counting; 0 before there is any.
    double wakeUps(qint64 now) const { return perSecond(m_wakeUps, now); }
    double paints(qint64 now) const { return perSecond(m_paints, now); }

private:
    double perSecond(qint64 count, qint64 now) const;

    QMetaObject::Connection m_sleeps;
    QMetaObject::Connection m_wakes;
    bool m_isCounting = false;
    bool m_isAsleep = false;
    qint64 m_wakeUps = 0;
    qint64 m_paints = 0;
    qint64 m_begin = 0;   // of counting, while it does
    qint64 m_counted = 0; // before
};

} // namespace K7Host
