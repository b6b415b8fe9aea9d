// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <networkaddress.h>

#include <QTest>

using namespace K7Host;

class tst_NetworkAddress : public QObject
{
    Q_OBJECT

private slots:
    void addressesHaveTheirFirstNumberInTheLowestByte_data();
    void addressesHaveTheirFirstNumberInTheLowestByte();
    void textsThatAreNoAddressesAreRefused_data();
    void textsThatAreNoAddressesAreRefused();
};

void tst_NetworkAddress::addressesHaveTheirFirstNumberInTheLowestByte_data()
{
    QTest::addColumn<quint32>("address");
    QTest::newRow("0.0.0.0") << 0x00000000U;
    QTest::newRow("1.2.3.4") << 0x04030201U;
    QTest::newRow("192.168.1.13") << 0x0d01a8c0U;
    QTest::newRow("255.255.255.0") << 0x00ffffffU;
    QTest::newRow("255.255.255.255") << 0xffffffffU;
}

void tst_NetworkAddress::addressesHaveTheirFirstNumberInTheLowestByte()
{
    QFETCH(quint32, address);
    const QString text = QString::fromLatin1(QTest::currentDataTag());
    QVERIFY(addressFromText(text));
    QCOMPARE(*addressFromText(text), address);
    QCOMPARE(addressText(address), text);
}

void tst_NetworkAddress::textsThatAreNoAddressesAreRefused_data()
{
    QTest::addColumn<QString>("text");
    const char *const texts[] = {
        "",          "1",         "1.2.3",      "1.2.3.4.5", "1.2.3.",    ".2.3.4",      "1..3.4",
        "...",       "1.2.3.256", "1.2.3.-4",   "1.2.3.+4",  "1.2.3.0x4", " 1.2.3.4",    "1.2. 3.4",
        "1.2.3.4\n", "1.2.3.a",   "1.2.3.0004", "1,2,3,4",   "localhost", "1.2.3.99999", "::1"};
    for (const char *text : texts)
        QTest::addRow("'%s'", text) << QString::fromLatin1(text);
    QTest::newRow("no Latin digits") << QStringLiteral("1.2.3.\u0664");
}

void tst_NetworkAddress::textsThatAreNoAddressesAreRefused()
{
    QFETCH(QString, text);
    QVERIFY(!addressFromText(text));
}

QTEST_APPLESS_MAIN(tst_NetworkAddress)

#include "tst_networkaddress.moc"
