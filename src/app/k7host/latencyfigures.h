// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

namespace K7Host {

/// What can be said of any number of durations, in 30 kilobytes.
///
/// Number and worst are exact. Median and percentile are those of a sample: the smallest duration that is not
/// below 50, or 99, percent of all; told with an error of less than 1 percent, and exactly below 128 ns.
class LatencyFigures
{
public:
    LatencyFigures();

    /// A negative duration counts as 0.
    void add(qint64 nanoseconds);

    qint64 count() const { return m_count; }
    // In nanoseconds; 0 when there are none.
    qint64 median() const;
    qint64 percentile99() const;
    qint64 worst() const { return m_worst; }

private:
    qint64 ofRank(qint64 rank) const;

    std::vector<qint64> m_counts; // by class of durations, see the source
    qint64 m_count = 0;
    qint64 m_worst = 0;
};

/// "0.042 ms", "3.14 ms", "27.2 ms", "1234 ms": three digits or the microseconds.
QString millisecondsText(qint64 nanoseconds);

} // namespace K7Host
