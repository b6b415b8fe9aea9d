// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consoletexts.h"

#include <QTest>
#include <QTime>

using namespace Korvo::Internal;

namespace {

QString plain(const char *text)
{
    return QString::fromLatin1(text);
}

} // namespace

class tst_ConsoleTexts : public QObject
{
    Q_OBJECT

private slots:
    void aNumberShowsItsLowestByteFirst_data();
    void aNumberShowsItsLowestByteFirst();
    void aTextGivesItsNumber_data();
    void aTextGivesItsNumber();
    void aGatewayBelongsToTheNetwork_data();
    void aGatewayBelongsToTheNetwork();
    void onlyATextThatIsNoAddressIsTheSameNetwork_data();
    void onlyATextThatIsNoAddressIsTheSameNetwork();
    void aDateIsTurnedRound_data();
    void aDateIsTurnedRound();
    void theClockIsShown_data();
    void theClockIsShown();
    void everyHourIsShown();
};

void tst_ConsoleTexts::aNumberShowsItsLowestByteFirst_data()
{
    QTest::addColumn<quint32>("number");
    QTest::addColumn<QString>("expectedText");
    QTest::newRow("none") << 0u << plain("0.0.0.0");
    QTest::newRow("all") << 0xffffffffu << plain("255.255.255.255");
    QTest::newRow("lowest byte") << 0x000000ffu << plain("255.0.0.0");
    QTest::newRow("second byte") << 0x0000ff00u << plain("0.255.0.0");
    QTest::newRow("third byte") << 0x00ff0000u << plain("0.0.255.0");
    QTest::newRow("highest byte") << 0xff000000u << plain("0.0.0.255");
    QTest::newRow("an address") << 0x0d01a8c0u << plain("192.168.1.13");
    QTest::newRow("a mask") << 0x00ffffffu << plain("255.255.255.0");
    QTest::newRow("four different") << 0x04030201u << plain("1.2.3.4");
    QTest::newRow("the sign bit") << 0x80000000u << plain("0.0.0.128");
    QTest::newRow("lowest bits") << 0x01010101u << plain("1.1.1.1");
}

void tst_ConsoleTexts::aNumberShowsItsLowestByteFirst()
{
    QFETCH(quint32, number);
    QFETCH(QString, expectedText);
    QCOMPARE(ipv4ToQString(number), expectedText);
    QCOMPARE(ipv4GatewayToQString(number), expectedText);
    QCOMPARE(ipv4StringToInt(expectedText), number);
}

void tst_ConsoleTexts::aTextGivesItsNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("expectedNumber");
    QTest::newRow("nothing") << plain("") << 0u;
    QTest::newRow("a word") << plain("address") << 0u;
    QTest::newRow("one part") << plain("192") << 0u;
    QTest::newRow("two parts") << plain("192.168") << 0u;
    QTest::newRow("three parts") << plain("192.168.1") << 0u;
    QTest::newRow("five parts") << plain("192.168.1.13.1") << 0u;
    QTest::newRow("a dot at the end") << plain("192.168.1.13.") << 0u;
    QTest::newRow("a dot at the start") << plain(".192.168.1.13") << 0u;
    QTest::newRow("other separators") << plain("192,168,1,13") << 0u;
    QTest::newRow("an empty first part counts") << plain(".168.1.13") << 0x0d01a800u;
    QTest::newRow("an empty part counts") << plain("192..1.13") << 0x0d0100c0u;
    QTest::newRow("an empty last part counts") << plain("192.168.1.") << 0x0001a8c0u;
    QTest::newRow("empty parts only") << plain("...") << 0u;
    QTest::newRow("leading zeros are decimal") << plain("010.020.030.040") << 0x281e140au;
    QTest::newRow("words count as 0") << plain("a.2.b.4") << 0x04000200u;
    QTest::newRow("256 runs over") << plain("256.0.0.0") << 0x00000100u;
    QTest::newRow("257 keeps its low byte") << plain("257.0.0.0") << 0x00000101u;
    QTest::newRow("999 in the second part") << plain("0.999.0.0") << 0x0003e700u;
    QTest::newRow("256 joins the next") << plain("256.2.0.0") << 0x00000300u;
    QTest::newRow("joined by or, not by sum") << plain("256.1.0.0") << 0x00000100u;
    QTest::newRow("256 falls off the end") << plain("0.0.0.256") << 0u;
    QTest::newRow("the largest last part") << plain("0.0.0.255") << 0xff000000u;
    QTest::newRow("beyond any number") << plain("99999999999.1.2.3") << 0x03020100u;
}

void tst_ConsoleTexts::aTextGivesItsNumber()
{
    QFETCH(QString, text);
    QFETCH(quint32, expectedNumber);
    QCOMPARE(ipv4StringToInt(text), expectedNumber);
}

void tst_ConsoleTexts::aGatewayBelongsToTheNetwork_data()
{
    QTest::addColumn<QString>("ip");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("gateway");
    QTest::addColumn<bool>("expected");
    const QString ip = plain("192.168.1.13");
    const QString mask = plain("255.255.255.0");
    const QString gateway = plain("192.168.1.1");
    QTest::newRow("the usual") << ip << mask << gateway << true;
    QTest::newRow("third octet differs") << ip << mask << plain("192.168.0.1") << false;
    QTest::newRow("first octet differs") << ip << mask << plain("193.168.1.1") << false;
    QTest::newRow("second octet differs") << ip << mask << plain("192.169.1.1") << false;
    QTest::newRow("last octet, masked") << ip << plain("255.255.255.255") << gateway << false;
    QTest::newRow("a gateway of its own") << ip << plain("255.255.255.255") << ip << true;
    QTest::newRow("no mask takes all") << ip << plain("0.0.0.0") << plain("8.8.8.8") << true;
    QTest::newRow("wide mask") << ip << plain("255.255.0.0") << plain("192.168.0.1") << true;
    QTest::newRow("mask within an octet, inside")
        << plain("10.0.0.130") << plain("255.255.255.128") << plain("10.0.0.254") << true;
    QTest::newRow("mask within an octet, outside")
        << plain("10.0.0.130") << plain("255.255.255.128") << plain("10.0.0.126") << false;
    QTest::newRow("mask with a hole")
        << plain("10.5.3.1") << plain("255.0.255.0") << plain("10.9.3.2") << true;
    QTest::newRow("all zero") << plain("0.0.0.0") << plain("0.0.0.0") << plain("0.0.0.0") << true;
    QTest::newRow("ip of three") << plain("192.168.1") << mask << gateway << false;
    QTest::newRow("ip of five") << plain("192.168.1.13.1") << mask << gateway << false;
    QTest::newRow("mask of three") << ip << plain("255.255.255") << gateway << false;
    QTest::newRow("mask of five") << ip << plain("255.255.255.0.0") << gateway << false;
    QTest::newRow("gateway of three") << ip << mask << plain("192.168.1") << false;
    QTest::newRow("gateway of five") << ip << mask << plain("192.168.1.1.1") << false;
    QTest::newRow("ip with an empty part") << plain("192..1.13") << mask << gateway << false;
    QTest::newRow("mask with an empty part") << ip << plain("255.255..0") << gateway << false;
    QTest::newRow("gateway with an empty part") << ip << mask << plain("192.168.1.") << false;
    QTest::newRow("empty parts are dropped")
        << plain("192..168.1.13") << mask << plain(".192.168.1.1.") << true;
    QTest::newRow("all empty") << plain("...") << plain("...") << plain("...") << false;
    QTest::newRow("nothing") << QString() << QString() << QString() << false;
    QTest::newRow("decimal, not octal") << plain("010.0.0.1") << mask << plain("10.0.0.2") << true;
    QTest::newRow("not cut to a byte")
        << plain("256.0.0.1") << plain("256.0.0.0") << plain("0.0.0.1") << false;
}

void tst_ConsoleTexts::aGatewayBelongsToTheNetwork()
{
    QFETCH(QString, ip);
    QFETCH(QString, mask);
    QFETCH(QString, gateway);
    QFETCH(bool, expected);
    QCOMPARE(isGatewayOnNetwork(ip, mask, gateway), expected);
}

void tst_ConsoleTexts::onlyATextThatIsNoAddressIsTheSameNetwork_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("c");
    QTest::addColumn<QString>("d");
    QTest::addColumn<bool>("expected");
    const QString ip = plain("192.168.1.13");
    const QString mask = plain("255.255.255.0");
    QTest::newRow("one network, twice") << ip << mask << ip << mask << false;
    QTest::newRow("two networks") << ip << mask << plain("10.0.0.1") << mask << false;
    QTest::newRow("all zero") << plain("0.0.0.0") << plain("0.0.0.0") << plain("0.0.0.0") << plain("0.0.0.0")
                              << false;
    QTest::newRow("four words are four parts") << plain("a.b.c.d") << mask << ip << mask << false;
    QTest::newRow("empty parts are dropped")
        << plain("192..168.1.13") << mask << plain("10.0.0.1.") << mask << false;
    const char *const malformed[] = {"",    "192",         "192.168.1", "192.168.1.", "192.168.1.13.1",
                                     "...", "192 168 1 13"};
    for (const char *text : malformed) {
        const QString bad = plain(text);
        QTest::newRow(qPrintable(plain("first is \"%1\"").arg(bad))) << bad << mask << ip << mask << true;
        QTest::newRow(qPrintable(plain("second is \"%1\"").arg(bad))) << ip << bad << ip << mask << true;
        QTest::newRow(qPrintable(plain("third is \"%1\"").arg(bad))) << ip << mask << bad << mask << true;
        QTest::newRow(qPrintable(plain("fourth is \"%1\"").arg(bad))) << ip << mask << ip << bad << true;
    }
}

void tst_ConsoleTexts::onlyATextThatIsNoAddressIsTheSameNetwork()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QString, c);
    QFETCH(QString, d);
    QFETCH(bool, expected);
    QCOMPARE(isSameNetwork(a, b, c, d), expected);
}

void tst_ConsoleTexts::aDateIsTurnedRound_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("expectedDate");
    QTest::newRow("the fifteenth") << plain("15/11/2026") << plain("2026-11-15");
    QTest::newRow("zeros stay") << plain("01/02/2026") << plain("2026-02-01");
    QTest::newRow("zeros are not added") << plain("1/2/2026") << plain("2026-2-1");
    QTest::newRow("short year") << plain("31/12/99") << plain("99-12-31");
    QTest::newRow("empty parts count") << plain("//") << plain("--");
    QTest::newRow("no day") << plain("/02/2026") << plain("2026-02-");
    QTest::newRow("words") << plain("a/b/c") << plain("c-b-a");
    QTest::newRow("place markers") << plain("%1/%2/%3") << plain("%3-%2-%1");
    QTest::newRow("two parts") << plain("02/2026") << plain("02/2026");
    QTest::newRow("four parts") << plain("01/02/2026/1") << plain("01/02/2026/1");
    QTest::newRow("one part") << plain("2026") << plain("2026");
    QTest::newRow("other separators") << plain("01.02.2026") << plain("01.02.2026");
    QTest::newRow("done already") << plain("2026-02-01") << plain("2026-02-01");
    QTest::newRow("nothing") << QString() << QString();
}

void tst_ConsoleTexts::aDateIsTurnedRound()
{
    QFETCH(QString, date);
    QFETCH(QString, expectedDate);
    switchDateFormt(date);
    QCOMPARE(date, expectedDate);
}

void tst_ConsoleTexts::theClockIsShown_data()
{
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QString>("expected24");
    QTest::addColumn<QString>("expected12");
    QTest::newRow("midnight") << QTime(0, 0, 0) << plain("0:00:00") << plain("0:00:00");
    QTest::newRow("after midnight") << QTime(0, 0, 9) << plain("0:00:09") << plain("0:00:09");
    QTest::newRow("morning") << QTime(9, 5, 0) << plain("9:05:00") << plain("9:05:00");
    QTest::newRow("before noon") << QTime(11, 59, 59) << plain("11:59:59") << plain("11:59:59");
    QTest::newRow("noon") << QTime(12, 0, 0) << plain("12:00:00") << plain("12:00:00");
    QTest::newRow("end of noon") << QTime(12, 59, 59) << plain("12:59:59") << plain("12:59:59");
    QTest::newRow("one") << QTime(13, 0, 0) << plain("13:00:00") << plain("1:00:00");
    QTest::newRow("afternoon") << QTime(15, 4, 9) << plain("15:04:09") << plain("3:04:09");
    QTest::newRow("last") << QTime(23, 59, 59, 999) << plain("23:59:59") << plain("11:59:59");
}

void tst_ConsoleTexts::theClockIsShown()
{
    QFETCH(QTime, time);
    QFETCH(QString, expected24);
    QFETCH(QString, expected12);
    QCOMPARE(clockText(time, false), expected24);
    QCOMPARE(clockText(time, true), expected12);
}

void tst_ConsoleTexts::everyHourIsShown()
{
    for (int hour = 0; hour < 24; ++hour) {
        const QTime time(hour, 30, 7);
        const int lowered = hour > 12 ? hour - 12 : hour;
        QCOMPARE(clockText(time, false), plain("%1:30:07").arg(hour));
        QCOMPARE(clockText(time, true), plain("%1:30:07").arg(lowered));
    }
}

QTEST_APPLESS_MAIN(tst_ConsoleTexts)

#include "tst_consoletexts.moc"
