// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <functionmodel.h>

#include <QTest>

using namespace K7Host;

class tst_FunctionModel : public QObject
{
    Q_OBJECT

private slots:
    void everyKeyIsIdleAtTheStart();
    void aKeyTogglesItsMode_data();
    void aKeyTogglesItsMode();
    void copyMirrorAndSwapExcludeOneAnother();
    void theOtherModesStandAlone();
    void theLocksCanBeAsked();
    void theReservedKeysAndKeysOfOtherSectionsChangeNothing();
};

namespace {

FunctionModel modelAfter(const QVector<quint32> &keys)
{
    FunctionModel model;
    for (const quint32 key : keys)
        model.press(key);
    return model;
}

} // namespace

void tst_FunctionModel::everyKeyIsIdleAtTheStart()
{
    KeyColors expected;
    for (quint32 key = 120; key <= 131; ++key)
        expected.insert(key, KeyColor::Idle);
    QCOMPARE(FunctionModel().keyColors(), expected);
}

void tst_FunctionModel::aKeyTogglesItsMode_data()
{
    QTest::addColumn<quint32>("key");
    QTest::addColumn<QRgb>("expectedColor");
    QTest::newRow("SAVE TO DEVICE") << 120U << KeyColor::Blue;
    QTest::newRow("PGM EDIT") << 121U << KeyColor::Orange;
    QTest::newRow("MVR") << 122U << KeyColor::Blue;
    QTest::newRow("DSK") << 123U << KeyColor::Red;
    QTest::newRow("COPY") << 124U << KeyColor::Purple;
    QTest::newRow("MIRROR") << 125U << KeyColor::Purple;
    QTest::newRow("SWAP") << 126U << KeyColor::Purple;
    QTest::newRow("LOCK T-BAR") << 127U << KeyColor::Red;
    QTest::newRow("LOCK PANEL") << 128U << KeyColor::Red;
}

void tst_FunctionModel::aKeyTogglesItsMode()
{
    QFETCH(quint32, key);
    QFETCH(QRgb, expectedColor);
    KeyColors expected = FunctionModel().keyColors();
    expected[key] = expectedColor;
    QCOMPARE(modelAfter({key}).keyColors(), expected);
    QCOMPARE(modelAfter({key, key}).keyColors(), FunctionModel().keyColors());
}

void tst_FunctionModel::copyMirrorAndSwapExcludeOneAnother()
{
    for (const quint32 first : {124U, 125U, 126U}) {
        for (const quint32 second : {124U, 125U, 126U}) {
            if (first != second)
                QCOMPARE(modelAfter({first, second}).keyColors(), modelAfter({second}).keyColors());
        }
    }
}

void tst_FunctionModel::theOtherModesStandAlone()
{
    const KeyColors colors = modelAfter({120, 121, 122, 123, 124, 127, 128}).keyColors();
    QCOMPARE(colors.keys(KeyColor::Idle), (QList<quint32>{125, 126, 129, 130, 131}));
}

void tst_FunctionModel::theLocksCanBeAsked()
{
    QVERIFY(!FunctionModel().isTBarLocked());
    QVERIFY(!FunctionModel().isPanelLocked());
    QVERIFY(modelAfter({127}).isTBarLocked());
    QVERIFY(!modelAfter({127}).isPanelLocked());
    QVERIFY(modelAfter({128}).isPanelLocked());
    QVERIFY(!modelAfter({128}).isTBarLocked());
}

void tst_FunctionModel::theReservedKeysAndKeysOfOtherSectionsChangeNothing()
{
    FunctionModel model;
    auto keys = keysOutside(model.keyColors());
    QCOMPARE(keys.size(), 256 - 12 + 7);
    keys << 129 << 130 << 131;
    for (const quint32 key : qAsConst(keys)) {
        model.press(key);
        QCOMPARE(model.keyColors(), FunctionModel().keyColors());
    }
}

QTEST_APPLESS_MAIN(tst_FunctionModel)

#include "tst_functionmodel.moc"
