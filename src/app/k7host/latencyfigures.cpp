// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "latencyfigures.h"

#include <QtAlgorithms>

namespace K7Host {

namespace {

// Durations up to 127 are a class each. Every further power of two is 64 classes again, each twice as
// wide as the ones before: a class is never wider than 1/64 of what is in it, and its middle half as far off.
constexpr int ClassBits = 6;
constexpr int ClassesPerPower = 1 << ClassBits;
constexpr int MaxShift = 62 - ClassBits; // the highest bit of a duration is bit 62
constexpr int ClassCount = (MaxShift + 2) * ClassesPerPower;
constexpr int ExactClasses = 2 * ClassesPerPower; // of one duration each

int classOf(qint64 duration)
{
    if (duration < ExactClasses)
        return static_cast<int>(duration);
    const int highestBit = 63 - static_cast<int>(qCountLeadingZeroBits(static_cast<quint64>(duration)));
    const int shift = highestBit - ClassBits;
    return shift * ClassesPerPower + static_cast<int>(duration >> shift);
}

qint64 middleOf(int classIndex)
{
    if (classIndex < ExactClasses)
        return classIndex;
    const int shift = classIndex / ClassesPerPower - 1;
    const qint64 first = static_cast<qint64>(classIndex - shift * ClassesPerPower) << shift;
    return first + (qint64(1) << (shift - 1));
}

} // namespace

LatencyFigures::LatencyFigures()
    : m_counts(ClassCount)
{
}

void LatencyFigures::add(qint64 nanoseconds)
{
    const qint64 duration = qMax(nanoseconds, qint64(0));
    ++m_counts[static_cast<std::size_t>(classOf(duration))];
    ++m_count;
    m_worst = qMax(m_worst, duration);
}

qint64 LatencyFigures::median() const
{
    return ofRank((m_count + 1) / 2);
}

qint64 LatencyFigures::percentile99() const
{
    return ofRank(m_count - m_count / 100);
}

/// The duration that is at place \a rank of all in order, from 1.
qint64 LatencyFigures::ofRank(qint64 rank) const
{
    qint64 seen = 0;
    for (int i = 0; i < ClassCount; ++i) {
        seen += m_counts[static_cast<std::size_t>(i)];
        if (seen >= rank)
            return qMin(middleOf(i), m_worst);
    }
    return m_worst;
}

QString millisecondsText(qint64 nanoseconds)
{
    const double ms = static_cast<double>(nanoseconds) / 1e6;
    const int decimals = ms < 1 ? 3 : ms < 10 ? 2 : ms < 100 ? 1 : 0;
    return QStringLiteral("%1 ms").arg(ms, 0, 'f', decimals);
}

} // namespace K7Host
