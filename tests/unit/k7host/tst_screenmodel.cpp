// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <screenmodel.h>

#include <QTest>

using namespace K7Host;

class tst_ScreenModel : public QObject
{
    Q_OBJECT

private slots:
    void itStartsWithTheFirstScreenSelected();
    void aPressSelectsAScreenAndTheNextOneDeselectsIt_data();
    void aPressSelectsAScreenAndTheNextOneDeselectsIt();
    void theSecondPageHoldsEightScreens();
    void theSelectionStaysWithItsScreenWhenThePageTurns();
    void theProgramKeysToggle_data();
    void theProgramKeysToggle();
    void freezingAndMatchingCanBeAsked();
    void labelsFollowTheColumnsOfTheConsole();
    void theReservedKeyAndKeysOfOtherSectionsChangeNothing();
    void textsFitIntoARecord();
};

namespace {

ScreenModel modelAfter(const QVector<quint32> &keys)
{
    ScreenModel model;
    for (const quint32 key : keys)
        model.press(key);
    return model;
}

} // namespace

void tst_ScreenModel::itStartsWithTheFirstScreenSelected()
{
    KeyColors expected;
    for (quint32 key = 1; key <= 16; ++key)
        expected.insert(key, KeyColor::Idle);
    for (quint32 key = 88; key <= 91; ++key)
        expected.insert(key, KeyColor::Idle);
    expected.insert(0, KeyColor::Yellow);
    expected.insert(17, KeyColor::Blue);
    QCOMPARE(ScreenModel().keyColors(), expected);
    QCOMPARE(ScreenModel().labelTexts().size(), 17);
}

void tst_ScreenModel::aPressSelectsAScreenAndTheNextOneDeselectsIt_data()
{
    QTest::addColumn<quint32>("key");
    for (quint32 key = 1; key < 16; ++key)
        QTest::newRow(qPrintable(QString::number(key))) << key;
}

void tst_ScreenModel::aPressSelectsAScreenAndTheNextOneDeselectsIt()
{
    QFETCH(quint32, key);
    ScreenModel model;
    model.press(key);
    KeyColors expected = ScreenModel().keyColors();
    expected[key] = KeyColor::Yellow;
    QCOMPARE(model.keyColors(), expected);
    QCOMPARE(model.labelTexts(), ScreenModel().labelTexts());
    model.press(key);
    QCOMPARE(model.keyColors(), ScreenModel().keyColors());
}

void tst_ScreenModel::theSecondPageHoldsEightScreens()
{
    ScreenModel model = modelAfter({17});
    const LabelTexts texts = model.labelTexts();
    QCOMPARE(texts.value(49), QStringLiteral("Page 2/2"));
    QCOMPARE(emptyCount(texts), 8);
    const KeyColors before = model.keyColors();
    for (quint32 key = 8; key < 16; ++key)
        model.press(key);
    QCOMPARE(model.keyColors(), before);
    model.press(7);
    QCOMPARE(model.keyColors().value(7), KeyColor::Yellow);
    model.press(16);
    QCOMPARE(model.keyColors(), ScreenModel().keyColors());
    QCOMPARE(model.labelTexts(), ScreenModel().labelTexts());
}

void tst_ScreenModel::theSelectionStaysWithItsScreenWhenThePageTurns()
{
    ScreenModel model = modelAfter({0, 5, 17, 2, 16});
    QCOMPARE(model.keyColors().keys(KeyColor::Yellow), QList<quint32>{5});
    model.press(17);
    QCOMPARE(model.keyColors().keys(KeyColor::Yellow), QList<quint32>{2});
}

void tst_ScreenModel::theProgramKeysToggle_data()
{
    QTest::addColumn<quint32>("key");
    QTest::addColumn<QRgb>("expectedColor");
    QTest::newRow("FREEZE PGM") << 88U << KeyColor::Blue;
    QTest::newRow("MATCH PGM") << 89U << KeyColor::Yellow;
    QTest::newRow("FTB") << 91U << KeyColor::Red;
}

void tst_ScreenModel::theProgramKeysToggle()
{
    QFETCH(quint32, key);
    QFETCH(QRgb, expectedColor);
    ScreenModel model;
    model.press(key);
    KeyColors expected = ScreenModel().keyColors();
    expected[key] = expectedColor;
    QCOMPARE(model.keyColors(), expected);
    model.press(key);
    QCOMPARE(model.keyColors(), ScreenModel().keyColors());
}

void tst_ScreenModel::freezingAndMatchingCanBeAsked()
{
    QVERIFY(!ScreenModel().isProgramFrozen());
    QVERIFY(!ScreenModel().isProgramMatched());
    QVERIFY(modelAfter({88}).isProgramFrozen());
    QVERIFY(!modelAfter({88}).isProgramMatched());
    QVERIFY(modelAfter({89}).isProgramMatched());
    QVERIFY(!modelAfter({89}).isProgramFrozen());
}

void tst_ScreenModel::labelsFollowTheColumnsOfTheConsole()
{
    const QVector<int> oledNumbers{40, 39, 38, 37, 42, 41, 48, 47, 46, 45, 44, 43, 78, 77, 76, 75};
    const LabelTexts first = ScreenModel().labelTexts();
    const LabelTexts second = modelAfter({17}).labelTexts();
    QCOMPARE(first.value(labelId(oledNumbers.first())), QStringLiteral("Main"));
    QCOMPARE(first.value(labelId(oledNumbers.last())), QStringLiteral("Recorder"));
    QCOMPARE(first.value(49), QStringLiteral("Page 1/2"));
    for (int column = 0; column < 16; ++column) {
        const quint32 label = labelId(oledNumbers.at(column));
        QVERIFY(!first.value(label).isEmpty());
        QCOMPARE(second.value(label).isEmpty(), column >= 8);
    }
}

void tst_ScreenModel::theReservedKeyAndKeysOfOtherSectionsChangeNothing()
{
    ScreenModel model;
    auto keys = keysOutside(model.keyColors());
    QCOMPARE(keys.size(), 256 - 22 + 7);
    keys << 90;
    for (const quint32 key : qAsConst(keys)) {
        model.press(key);
        QCOMPARE(model.keyColors(), ScreenModel().keyColors());
        QCOMPARE(model.labelTexts(), ScreenModel().labelTexts());
    }
}

void tst_ScreenModel::textsFitIntoARecord()
{
    QCOMPARE(tooLong(ScreenModel().labelTexts()), QStringList());
    QCOMPARE(tooLong(modelAfter({17}).labelTexts()), QStringList());
}

QTEST_APPLESS_MAIN(tst_ScreenModel)

#include "tst_screenmodel.moc"
