// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <togglekeys.h>

#include <QTest>

using namespace K7Host;

class tst_ToggleKeys : public QObject
{
    Q_OBJECT

private slots:
    void pressesTurnKeysOnAndOff_data();
    void pressesTurnKeysOnAndOff();
    void keysOutsideOfTheTableChangeNothing();
    void allCanBeTurnedOffAtOnce();
};

namespace {

using Keys = QVector<quint32>;

// 1 and 2 stand alone; 3 and 4 exclude one another, and so do 5 and 6.
ToggleKeys someKeys()
{
    return ToggleKeys({{1, KeyColor::Red},
                       {2, KeyColor::Green},
                       {3, KeyColor::Purple, 1},
                       {4, KeyColor::Purple, 1},
                       {5, KeyColor::Yellow, 2},
                       {6, KeyColor::Orange, 2}});
}

Keys keysThatAreOn(const ToggleKeys &keys)
{
    Keys on;
    for (quint32 id = 0; id < 256; ++id) {
        if (keys.isOn(id))
            on << id;
    }
    return on;
}

} // namespace

void tst_ToggleKeys::pressesTurnKeysOnAndOff_data()
{
    QTest::addColumn<Keys>("presses");
    QTest::addColumn<Keys>("expectedOn");
    QTest::newRow("none at first") << Keys{} << Keys{};
    QTest::newRow("on") << Keys{1} << Keys{1};
    QTest::newRow("off") << Keys{1, 1} << Keys{};
    QTest::newRow("two without a group") << Keys{1, 2} << Keys{1, 2};
    QTest::newRow("another of the group") << Keys{3, 4} << Keys{4};
    QTest::newRow("a group can be off") << Keys{3, 3} << Keys{};
    QTest::newRow("groups do not mix") << Keys{3, 5, 1} << Keys{1, 3, 5};
    QTest::newRow("back and forth") << Keys{5, 6, 5} << Keys{5};
}

void tst_ToggleKeys::pressesTurnKeysOnAndOff()
{
    QFETCH(Keys, presses);
    QFETCH(Keys, expectedOn);
    ToggleKeys keys = someKeys();
    for (const quint32 key : presses)
        keys.press(key);
    QCOMPARE(keysThatAreOn(keys), expectedOn);

    KeyColors expectedColors{{1, KeyColor::Red},    {2, KeyColor::Green},  {3, KeyColor::Purple},
                             {4, KeyColor::Purple}, {5, KeyColor::Yellow}, {6, KeyColor::Orange}};
    for (auto it = expectedColors.begin(); it != expectedColors.end(); ++it) {
        if (!expectedOn.contains(it.key()))
            *it = KeyColor::Idle;
    }
    QCOMPARE(keys.colors(), expectedColors);
}

void tst_ToggleKeys::keysOutsideOfTheTableChangeNothing()
{
    ToggleKeys keys = someKeys();
    keys.press(3);
    const Keys others = keysOutside(keys.colors());
    QCOMPARE(others.size(), 256 - 6 + 7);
    for (const quint32 key : others) {
        keys.press(key);
        QVERIFY(!keys.isOn(key));
    }
    QCOMPARE(keysThatAreOn(keys), Keys{3});
}

void tst_ToggleKeys::allCanBeTurnedOffAtOnce()
{
    ToggleKeys keys = someKeys();
    keys.press(1);
    keys.press(4);
    keys.turnAllOff();
    QCOMPARE(keysThatAreOn(keys), Keys{});
    QCOMPARE(keys.colors(), someKeys().colors());
}

QTEST_APPLESS_MAIN(tst_ToggleKeys)

#include "tst_togglekeys.moc"
