// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <faultdice.h>

#include <QSet>
#include <QTest>

#include <algorithm>
#include <cstring>
#include <limits>

using namespace K7Host;

class tst_FaultDice : public QObject
{
    Q_OBJECT

private slots:
    void withoutFaultsARecordComesOnceAndAtOnce();
    void someRecordsAreLost();
    void someRecordsComeMoreThanOnce();
    void everyRecordHasADelayOfItsOwn();
    void theSameSeedGivesTheSameAnswers();
    void someRecordsComeGarbledOrNull();
    void nothingIsGarbledWithoutThatFault();
    void garbledIdsAreKnownForeignOrOutOfRange();
    void garbledTextsAreNoUtf8AndDoNotEnd();
    void theLeverIsSentAnywhere();
    void portsAndInputsAreTakenForOneAnother();
    void inventedColorsLightKeys();
};

namespace {

constexpr int Many = 40000;
constexpr quint32 Seed = 7;

using Color = Korvo::ECButtonColor;

/// What many copies of an empty record come as, the nulls left out.
template <typename Record>
QVector<Record> garbledRecords()
{
    FaultDice dice(LinkFault::Garbled, Seed);
    QVector<Record> records;
    const auto sent = std::make_shared<Record>();
    for (int i = 0; i < Many; ++i) {
        if (const auto record = dice.arriving(sent))
            records << *record;
    }
    return records;
}

template <typename Record, typename Number>
QSet<quint32> valuesOf(const QVector<Record> &records, Number Record::*field)
{
    QSet<quint32> values;
    for (const Record &record : records)
        values << quint32(record.*field);
    return values;
}

} // namespace

void tst_FaultDice::withoutFaultsARecordComesOnceAndAtOnce()
{
    FaultDice dice({}, Seed);
    for (int i = 0; i < Many; ++i)
        QCOMPARE(dice.delays(), std::vector<int>{0});
}

void tst_FaultDice::someRecordsAreLost()
{
    FaultDice dice(LinkFault::Lost, Seed);
    int lost = 0;
    for (int i = 0; i < Many; ++i) {
        const auto delays = dice.delays();
        lost += delays.empty() ? 1 : 0;
        QVERIFY(delays.empty() || delays == std::vector<int>{0});
    }
    QVERIFY2(lost > Many / 5 && lost < Many / 3, qPrintable(QString::number(lost)));
}

void tst_FaultDice::someRecordsComeMoreThanOnce()
{
    FaultDice dice(LinkFault::Duplicate, Seed);
    QSet<int> counts;
    int single = 0;
    for (int i = 0; i < Many; ++i) {
        const auto delays = dice.delays();
        QVERIFY(std::all_of(delays.cbegin(), delays.cend(), [](int delay) { return delay == 0; }));
        counts << static_cast<int>(delays.size());
        single += delays.size() == 1 ? 1 : 0;
    }
    QCOMPARE(counts, (QSet<int>{1, 2, 3, 4}));
    QVERIFY2(single > Many * 2 / 3 && single < Many * 4 / 5, qPrintable(QString::number(single)));
}

void tst_FaultDice::everyRecordHasADelayOfItsOwn()
{
    FaultDice dice(LinkFault::Late, Seed);
    QSet<int> seen;
    for (int i = 0; i < Many; ++i) {
        const auto delays = dice.delays();
        QCOMPARE(delays.size(), std::size_t(1));
        seen << delays.front();
    }
    QVERIFY(seen.size() > 450);
    QCOMPARE(*std::min_element(seen.cbegin(), seen.cend()), 0);
    QCOMPARE(*std::max_element(seen.cbegin(), seen.cend()), 500);
}

void tst_FaultDice::theSameSeedGivesTheSameAnswers()
{
    const auto faults = LinkFault::Late | LinkFault::Lost | LinkFault::Duplicate | LinkFault::Garbled;
    const auto answers = [faults](quint32 seed) {
        FaultDice dice(faults, seed);
        QVector<quint32> numbers;
        const auto sent = std::make_shared<Color>();
        for (int i = 0; i < 100; ++i) {
            const auto delays = dice.delays();
            for (const int delay : delays) {
                const auto record = dice.arriving(sent);
                numbers << quint32(delay) << (record ? record->ButtonKey : 1000) << (record ? record->R : 0);
            }
        }
        return numbers;
    };
    QCOMPARE(answers(1), answers(1));
    QVERIFY(answers(1) != answers(2));
}

void tst_FaultDice::someRecordsComeGarbledOrNull()
{
    FaultDice dice(LinkFault::Garbled, Seed);
    const auto sent = std::make_shared<Color>();
    int nulls = 0;
    int copies = 0;
    for (int i = 0; i < Many; ++i) {
        const auto record = dice.arriving(sent);
        nulls += record ? 0 : 1;
        copies += record && record != sent ? 1 : 0;
    }
    QVERIFY2(nulls > Many / 32 && nulls < Many / 8, qPrintable(QString::number(nulls)));
    QVERIFY2(copies > Many / 3 && copies < Many / 2, qPrintable(QString::number(copies)));
    QCOMPARE(std::memcmp(sent.get(), std::make_shared<Color>().get(), sizeof(quint32)), 0);
    QVERIFY(!dice.arriving(std::shared_ptr<Color>()));
}

void tst_FaultDice::nothingIsGarbledWithoutThatFault()
{
    FaultDice dice(LinkFault::Late | LinkFault::Lost | LinkFault::Duplicate | LinkFault::Storm, Seed);
    const auto sent = std::make_shared<Color>();
    for (int i = 0; i < Many; ++i)
        QVERIFY(dice.arriving(sent) == sent);
}

void tst_FaultDice::garbledIdsAreKnownForeignOrOutOfRange()
{
    const auto keys = valuesOf(garbledRecords<Color>(), &Color::ButtonKey);
    for (quint32 key = 0; key < 138; ++key)
        QVERIFY2(keys.contains(key), qPrintable(QString::number(key)));
    QVERIFY(keys.contains(255));
    QVERIFY(keys.contains(std::numeric_limits<quint32>::max()));
    QVERIFY(keys.size() > 138 + 50);

    const auto labels = valuesOf(garbledRecords<Korvo::ECOLEDText>(), &Korvo::ECOLEDText::OledKey);
    for (quint32 label = 0; label < 101; ++label)
        QVERIFY2(labels.contains(label), qPrintable(QString::number(label)));
    QVERIFY(labels.contains(255));
    QVERIFY(labels.size() > 101 + 50);
}

void tst_FaultDice::garbledTextsAreNoUtf8AndDoNotEnd()
{
    int garbled = 0;
    const auto records = garbledRecords<Korvo::ECOLEDText>();
    for (const Korvo::ECOLEDText &record : records) {
        if (record.OledText[0] == '\0')
            continue;
        ++garbled;
        QVERIFY(!std::memchr(record.OledText, 0, sizeof record.OledText));
        QVERIFY(QString::fromUtf8(record.OledText, sizeof record.OledText)
                    .contains(QChar(QChar::ReplacementCharacter)));
    }
    QVERIFY(garbled > Many / 8);
}

void tst_FaultDice::theLeverIsSentAnywhere()
{
    const auto positions = valuesOf(garbledRecords<Korvo::ECTBarValue>(), &Korvo::ECTBarValue::Value);
    QVERIFY(positions.contains(std::numeric_limits<quint32>::max()));
    const auto count = [&positions](auto condition) {
        return std::count_if(positions.cbegin(), positions.cend(), condition);
    };
    QVERIFY(count([](quint32 position) { return position > 0 && position <= 1200; }) > 50);
    QVERIFY(count([](quint32 position) { return position > 1200; }) > 50);
}

void tst_FaultDice::portsAndInputsAreTakenForOneAnother()
{
    using Ip = Korvo::ECDeviceIPData;
    const auto ports = valuesOf(garbledRecords<Ip>(), &Ip::Index);
    for (const quint32 port : {0U, 1U, 255U})
        QVERIFY(ports.contains(port));
    QVERIFY(ports.size() > 50);
    QVERIFY(valuesOf(garbledRecords<Ip>(), &Ip::IP).size() > 50);
    QVERIFY(valuesOf(garbledRecords<Ip>(), &Ip::Status).contains(1));

    using Dvi = Korvo::DVIInSignal;
    const auto inputs = valuesOf(garbledRecords<Dvi>(), &Dvi::Index);
    for (const quint32 input : {0U, 1U, 255U})
        QVERIFY(inputs.contains(input));

    using Visible = Korvo::PeripheralControlVisibleState;
    QVERIFY(valuesOf(garbledRecords<Visible>(), &Visible::visible).contains(1));
}

void tst_FaultDice::inventedColorsLightKeys()
{
    FaultDice dice(LinkFault::Storm, Seed);
    int red = 0;
    for (int i = 0; i < Many; ++i) {
        const auto color = dice.invented<Color>();
        QVERIFY(color);
        red += color->R == 255 && color->G == 0 && color->B == 0 ? 1 : 0;
    }
    QVERIFY2(red > Many / 20, qPrintable(QString::number(red)));
}

QTEST_GUILESS_MAIN(tst_FaultDice)

#include "tst_faultdice.moc"
