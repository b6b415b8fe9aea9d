// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <numberpad.h>

#include <QTest>

using namespace K7Host;

class tst_NumberPad : public QObject
{
    Q_OBJECT

private slots:
    void itStartsWithoutANumber();
    void everyDigitTypesItself_data();
    void everyDigitTypesItself();
    void keysMakeANumber_data();
    void keysMakeANumber();
    void enterGivesTheNumberOnce();
    void enterIsGreenWhileThereIsAnEntry();
    void keysOfOtherSectionsChangeNothing();
    void textsFitIntoARecord();
};

namespace {

using Keys = QVector<quint32>;

constexpr quint32 One = 106;
constexpr quint32 Two = 107;
constexpr quint32 Three = 108;
constexpr quint32 Nine = 114;
constexpr quint32 Less = 115;
constexpr quint32 Zero = 116;
constexpr quint32 More = 117;
constexpr quint32 Back = 118;
constexpr quint32 Enter = 119;

NumberPad padAfter(const Keys &keys)
{
    NumberPad pad;
    for (const quint32 key : keys)
        pad.press(key);
    return pad;
}

} // namespace

void tst_NumberPad::itStartsWithoutANumber()
{
    KeyColors expected;
    for (quint32 key = One; key <= Enter; ++key)
        expected.insert(key, KeyColor::Idle);
    QCOMPARE(expected.size(), 14);
    QCOMPARE(NumberPad().keyColors(), expected);
    QCOMPARE(NumberPad().labelTexts(), (LabelTexts{{labelId(91), QStringLiteral("No. -")}}));
    QVERIFY(!NumberPad().press(Enter));
}

void tst_NumberPad::everyDigitTypesItself_data()
{
    QTest::addColumn<quint32>("key");
    QTest::addColumn<int>("expectedNumber");
    for (quint32 key = One; key <= Nine; ++key)
        QTest::newRow(qPrintable(QString::number(key))) << key << static_cast<int>(key) - 105;
    QTest::newRow("116") << Zero << 0;
}

void tst_NumberPad::everyDigitTypesItself()
{
    QFETCH(quint32, key);
    QFETCH(int, expectedNumber);
    NumberPad pad;
    QVERIFY(!pad.press(key));
    QCOMPARE(pad.labelTexts().value(90), QStringLiteral("No. %1").arg(expectedNumber));
    QCOMPARE(pad.press(Enter), std::make_optional(expectedNumber));
}

void tst_NumberPad::keysMakeANumber_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("expectedNumber");
    const auto none = QStringLiteral("-");
    const auto number = [](int n) { return QString::number(n); };
    QTest::newRow("two digits") << Keys{One, Two} << number(12);
    QTest::newRow("leading zeros") << Keys{Zero, Zero, Three} << number(3);
    QTest::newRow("four digits") << Keys{Nine, Nine, Nine, Nine} << number(9999);
    QTest::newRow("a fifth digit") << Keys{One, Two, Three, Three, Nine} << number(1233);
    QTest::newRow("BACK") << Keys{One, Two, Back} << number(1);
    QTest::newRow("BACK over a ten") << Keys{One, Zero, Back} << number(1);
    QTest::newRow("BACK and on") << Keys{One, Two, Back, Three} << number(13);
    QTest::newRow("BACK over all") << Keys{One, Back} << none;
    QTest::newRow("BACK over zero") << Keys{Zero, Back} << none;
    QTest::newRow("BACK over nothing") << Keys{Back} << none;
    QTest::newRow("digit after BACK over all") << Keys{One, Back, Two} << number(2);
    QTest::newRow("+ from nothing") << Keys{More} << number(1);
    QTest::newRow("- from nothing") << Keys{Less} << number(0);
    QTest::newRow("+ over a ten") << Keys{Nine, More} << number(10);
    QTest::newRow("- over a ten") << Keys{One, Zero, Less} << number(9);
    QTest::newRow("+ at the end") << Keys{Nine, Nine, Nine, Nine, More} << number(9999);
    QTest::newRow("- at the end") << Keys{Zero, Less} << number(0);
    QTest::newRow("digit after +") << Keys{One, More, Three} << number(23);
    QTest::newRow("ENTER keeps the number") << Keys{One, Two, Enter} << number(12);
    QTest::newRow("digit after ENTER") << Keys{One, Two, Enter, Three} << number(3);
    QTest::newRow("+ after ENTER") << Keys{One, Two, Enter, More} << number(13);
    QTest::newRow("- after ENTER") << Keys{One, Two, Enter, Less} << number(11);
    QTest::newRow("BACK after ENTER") << Keys{One, Two, Enter, Back} << number(1);
    QTest::newRow("BACK after ENTER, one digit") << Keys{One, Enter, Back} << none;
}

void tst_NumberPad::keysMakeANumber()
{
    QFETCH(Keys, keys);
    QFETCH(QString, expectedNumber);
    QCOMPARE(padAfter(keys).labelTexts().value(90), QStringLiteral("No. ") + expectedNumber);
}

void tst_NumberPad::enterGivesTheNumberOnce()
{
    NumberPad pad = padAfter({One, Two});
    QCOMPARE(pad.press(Enter), std::make_optional(12));
    QVERIFY(!pad.press(Enter));
    pad.press(More);
    QCOMPARE(pad.press(Enter), std::make_optional(13));
    pad.press(Back);
    pad.press(Back);
    QVERIFY(!pad.press(Enter));
}

void tst_NumberPad::enterIsGreenWhileThereIsAnEntry()
{
    KeyColors lit = NumberPad().keyColors();
    lit[Enter] = KeyColor::Green;
    QCOMPARE(padAfter({One}).keyColors(), lit);
    QCOMPARE(padAfter({Zero}).keyColors(), lit);
    QCOMPARE(padAfter({More}).keyColors(), lit);
    QCOMPARE(padAfter({One, Enter, Less}).keyColors(), lit);
    QCOMPARE(padAfter({One, Enter}).keyColors(), NumberPad().keyColors());
    QCOMPARE(padAfter({One, Back}).keyColors(), NumberPad().keyColors());
}

void tst_NumberPad::keysOfOtherSectionsChangeNothing()
{
    const Keys typed{One, Two};
    NumberPad pad = padAfter(typed);
    const Keys keys = keysOutside(pad.keyColors());
    QCOMPARE(keys.size(), 256 - 14 + 7);
    for (const quint32 key : keys)
        QVERIFY2(!pad.press(key), qPrintable(QString::number(key)));
    QCOMPARE(pad.keyColors(), padAfter(typed).keyColors());
    QCOMPARE(pad.labelTexts(), padAfter(typed).labelTexts());
}

void tst_NumberPad::textsFitIntoARecord()
{
    QCOMPARE(tooLong(padAfter({Nine, Nine, Nine, Nine}).labelTexts()), QStringList());
}

QTEST_APPLESS_MAIN(tst_NumberPad)

#include "tst_numberpad.moc"
