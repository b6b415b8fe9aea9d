// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <latencyfigures.h>

#include <QTest>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using K7Host::LatencyFigures;
using K7Host::millisecondsText;

using Durations = QVector<qint64>;

Q_DECLARE_METATYPE(Durations)

namespace {

constexpr qint64 Longest = std::numeric_limits<qint64>::max();

/// The smallest of \a sorted that is not below \a percent of all.
qint64 reference(const Durations &sorted, int percent)
{
    const auto rank = static_cast<int>(std::ceil(sorted.size() * percent / 100.0));
    return sorted.at(rank - 1);
}

template <typename Next>
Durations many(int count, const Next &next)
{
    std::mt19937_64 generator(20260117);
    Durations durations;
    durations.reserve(count);
    for (int i = 0; i < count; ++i)
        durations << next(generator());
    return durations;
}

} // namespace

class tst_LatencyFigures : public QObject
{
    Q_OBJECT

private slots:
    void figuresAreThoseOfTheSortedDurations_data();
    void figuresAreThoseOfTheSortedDurations();
    void withoutDurationsAllIsZero();
    void aNegativeDurationIsZero();
    void everyPowerOfTwoIsCloselyMet();
    void millionsTakeNoMoreRoomAndAreStillExactInNumber();
    void textsHaveSensibleDigits_data();
    void textsHaveSensibleDigits();
};

void tst_LatencyFigures::figuresAreThoseOfTheSortedDurations_data()
{
    QTest::addColumn<Durations>("durations");
    QTest::newRow("one") << Durations{4711};
    QTest::newRow("two") << Durations{1000000, 2000000};
    QTest::newRow("three, not in order") << Durations{3000000, 1000000, 2000000};
    QTest::newRow("all the same") << Durations(1000, 16666667);
    QTest::newRow("so short that they are exact")
        << many(5000, [](quint64 any) { return qint64(any % 128); });
    QTest::newRow("evenly up to 20 ms") << many(5000, [](quint64 any) { return qint64(any % 20000000); });
    QTest::newRow("over all powers") << many(5000, [](quint64 any) { return qint64(any >> (1 + any % 60)); });
    QTest::newRow("short ones, and a tenth that are long")
        << many(5001, [](quint64 any) { return qint64(any % 10 ? 300000 + any % 1000 : 90000000); });
    QTest::newRow("a hundred, of which one is long") << Durations(99, 1000) + Durations{50000000};
    QTest::newRow("a hundred, of which two are long") << Durations(98, 1000) + Durations(2, 50000000);
    QTest::newRow("the longest there is") << Durations{1, Longest, Longest};
}

void tst_LatencyFigures::figuresAreThoseOfTheSortedDurations()
{
    QFETCH(Durations, durations);
    LatencyFigures figures;
    for (const qint64 duration : qAsConst(durations))
        figures.add(duration);
    std::sort(durations.begin(), durations.end());

    QCOMPARE(figures.count(), qint64(durations.size()));
    QCOMPARE(figures.worst(), durations.constLast());
    const auto isClose = [](qint64 told, qint64 expected) {
        // Without an overflow of the difference; exact where a class is one duration.
        const qint64 error = told > expected ? told - expected : expected - told;
        return error <= expected / 128;
    };
    const qint64 median = reference(durations, 50);
    const qint64 percentile99 = reference(durations, 99);
    QVERIFY2(isClose(figures.median(), median), qPrintable(QString::number(figures.median())));
    QVERIFY2(isClose(figures.percentile99(), percentile99),
             qPrintable(QString::number(figures.percentile99())));
    QVERIFY(figures.median() <= figures.percentile99());
    QVERIFY(figures.percentile99() <= figures.worst());
}

void tst_LatencyFigures::withoutDurationsAllIsZero()
{
    const LatencyFigures figures;
    QCOMPARE(figures.count(), 0);
    QCOMPARE(figures.median(), 0);
    QCOMPARE(figures.percentile99(), 0);
    QCOMPARE(figures.worst(), 0);
}

void tst_LatencyFigures::aNegativeDurationIsZero()
{
    LatencyFigures figures;
    figures.add(-1);
    QCOMPARE(figures.count(), 1);
    QCOMPARE(figures.median(), 0);
    QCOMPARE(figures.worst(), 0);
}

void tst_LatencyFigures::everyPowerOfTwoIsCloselyMet()
{
    for (int power = 0; power < 63; ++power) {
        for (const qint64 off : {-1, 0, 1}) {
            const qint64 duration = (qint64(1) << power) + off;
            LatencyFigures figures;
            figures.add(duration);
            figures.add(Longest); // not what limits the median
            const qint64 error = std::abs(figures.median() - duration);
            QVERIFY2(error <= duration / 128, qPrintable(QString::number(duration)));
        }
    }
}

void tst_LatencyFigures::millionsTakeNoMoreRoomAndAreStillExactInNumber()
{
    constexpr qint64 Count = 3000000;
    LatencyFigures figures;
    for (qint64 i = 0; i < Count; ++i)
        figures.add(i * 10);
    QCOMPARE(figures.count(), Count);
    QCOMPARE(figures.worst(), (Count - 1) * 10);
    QVERIFY(std::abs(figures.median() - Count * 5) <= Count * 5 / 128);
}

void tst_LatencyFigures::textsHaveSensibleDigits_data()
{
    QTest::addColumn<qint64>("nanoseconds");
    QTest::addColumn<QString>("expectedText");
    const auto row = [](qint64 nanoseconds, const char *expectedText) {
        QTest::newRow(expectedText) << nanoseconds << QString::fromLatin1(expectedText);
    };
    row(0, "0.000 ms");
    row(41700, "0.042 ms");
    row(612345, "0.612 ms");
    row(3141593, "3.14 ms");
    row(27182818, "27.2 ms");
    row(1234567890, "1235 ms");
}

void tst_LatencyFigures::textsHaveSensibleDigits()
{
    QFETCH(qint64, nanoseconds);
    QTEST(millisecondsText(nanoseconds), "expectedText");
}

QTEST_GUILESS_MAIN(tst_LatencyFigures)

#include "tst_latencyfigures.moc"
