// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <pagedkeys.h>

#include <QTest>

using namespace K7Host;

class tst_PagedKeys : public QObject
{
    Q_OBJECT

private slots:
    void pageKeysTurnThePageWithoutWrappingAround_data();
    void pageKeysTurnThePageWithoutWrappingAround();
    void aKeyStandsForAnItemOfThePage_data();
    void aKeyStandsForAnItemOfThePage();
    void keysBehindTheEndAreIdleAndUnlabelled();
    void labelsStandInTheirOwnOrder();
    void aListOfOnePageHasNowhereToTurnTo_data();
    void aListOfOnePageHasNowhereToTurnTo();
};

namespace {

using Keys = QVector<quint32>;

// Three keys, and seven items on three pages.
PagedKeys threeKeys(int itemCount = 7)
{
    return PagedKeys({10, 20, 21, {31, 30, 32}, 40}, itemCount);
}

PagedKeys keysAfter(const Keys &presses)
{
    PagedKeys keys = threeKeys();
    for (const quint32 key : presses)
        keys.press(key);
    return keys;
}

KeyColors greenColors(const PagedKeys &keys)
{
    return keys.colors([](int) { return KeyColor::Green; });
}

LabelTexts numbers(const PagedKeys &keys)
{
    return keys.texts([](int item) { return QString::number(item); });
}

} // namespace

void tst_PagedKeys::pageKeysTurnThePageWithoutWrappingAround_data()
{
    QTest::addColumn<Keys>("presses");
    QTest::addColumn<QString>("expectedPage");
    QTest::addColumn<QRgb>("expectedUp");
    QTest::addColumn<QRgb>("expectedDown");
    const auto first = QStringLiteral("Page 1/3");
    const auto middle = QStringLiteral("Page 2/3");
    const auto last = QStringLiteral("Page 3/3");
    QTest::newRow("at the start") << Keys{} << first << KeyColor::Idle << KeyColor::Blue;
    QTest::newRow("up at the start") << Keys{20} << first << KeyColor::Idle << KeyColor::Blue;
    QTest::newRow("down") << Keys{21} << middle << KeyColor::Blue << KeyColor::Blue;
    QTest::newRow("to the end") << Keys{21, 21} << last << KeyColor::Blue << KeyColor::Idle;
    QTest::newRow("down at the end") << Keys{21, 21, 21} << last << KeyColor::Blue << KeyColor::Idle;
    QTest::newRow("back from the end") << Keys{21, 21, 21, 20} << middle << KeyColor::Blue << KeyColor::Blue;
}

void tst_PagedKeys::pageKeysTurnThePageWithoutWrappingAround()
{
    QFETCH(Keys, presses);
    const PagedKeys keys = keysAfter(presses);
    QTEST(numbers(keys).value(40), "expectedPage");
    QTEST(greenColors(keys).value(20), "expectedUp");
    QTEST(greenColors(keys).value(21), "expectedDown");
}

void tst_PagedKeys::aKeyStandsForAnItemOfThePage_data()
{
    QTest::addColumn<Keys>("before");
    QTest::addColumn<quint32>("key");
    QTest::addColumn<int>("expectedItem"); // -1 is none
    QTest::newRow("first key") << Keys{} << 10U << 0;
    QTest::newRow("last key") << Keys{} << 12U << 2;
    QTest::newRow("second page") << Keys{21} << 11U << 4;
    QTest::newRow("last item") << Keys{21, 21} << 10U << 6;
    QTest::newRow("behind the last item") << Keys{21, 21} << 11U << -1;
    QTest::newRow("before the keys") << Keys{} << 9U << -1;
    QTest::newRow("after the keys") << Keys{} << 13U << -1;
    QTest::newRow("page up") << Keys{} << 20U << -1;
    QTest::newRow("page down") << Keys{} << 21U << -1;
    QTest::newRow("zero") << Keys{} << 0U << -1;
    QTest::newRow("largest") << Keys{} << 0xffffffffU << -1;
}

void tst_PagedKeys::aKeyStandsForAnItemOfThePage()
{
    QFETCH(Keys, before);
    QFETCH(quint32, key);
    PagedKeys keys = keysAfter(before);
    QTEST(keys.press(key).value_or(-1), "expectedItem");
}

void tst_PagedKeys::keysBehindTheEndAreIdleAndUnlabelled()
{
    const PagedKeys keys = keysAfter({21, 21});
    const KeyColors expectedColors{{10, KeyColor::Green},
                                   {11, KeyColor::Idle},
                                   {12, KeyColor::Idle},
                                   {20, KeyColor::Blue},
                                   {21, KeyColor::Idle}};
    QCOMPARE(greenColors(keys), expectedColors);
    const LabelTexts expectedTexts{
        {31, QStringLiteral("6")}, {30, QString()}, {32, QString()}, {40, QStringLiteral("Page 3/3")}};
    QCOMPARE(numbers(keys), expectedTexts);
}

void tst_PagedKeys::labelsStandInTheirOwnOrder()
{
    const LabelTexts texts = numbers(threeKeys());
    QCOMPARE(texts.size(), 4);
    QCOMPARE(texts.value(31), QStringLiteral("0"));
    QCOMPARE(texts.value(30), QStringLiteral("1"));
    QCOMPARE(texts.value(32), QStringLiteral("2"));
}

void tst_PagedKeys::aListOfOnePageHasNowhereToTurnTo_data()
{
    QTest::addColumn<int>("itemCount");
    QTest::newRow("one item") << 1;
    QTest::newRow("a full page") << 3;
}

void tst_PagedKeys::aListOfOnePageHasNowhereToTurnTo()
{
    QFETCH(int, itemCount);
    PagedKeys keys = threeKeys(itemCount);
    keys.press(21);
    QCOMPARE(numbers(keys).value(40), QStringLiteral("Page 1/1"));
    QCOMPARE(greenColors(keys).value(20), KeyColor::Idle);
    QCOMPARE(greenColors(keys).value(21), KeyColor::Idle);
}

QTEST_APPLESS_MAIN(tst_PagedKeys)

#include "tst_pagedkeys.moc"
