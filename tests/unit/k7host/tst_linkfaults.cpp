// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <linkfaults.h>

#include <QTest>

using K7Host::LinkFault;
using K7Host::LinkFaults;
using K7Host::linkFaultsFromText;

Q_DECLARE_METATYPE(LinkFaults)

class tst_LinkFaults : public QObject
{
    Q_OBJECT

private slots:
    void namesAreRead_data();
    void namesAreRead();
    void whatIsNoFaultIsRefusedInOneLine_data();
    void whatIsNoFaultIsRefusedInOneLine();
};

void tst_LinkFaults::namesAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<LinkFaults>("expectedFaults");
    QTest::newRow("late") << QStringLiteral("late") << LinkFaults(LinkFault::Late);
    QTest::newRow("lost") << QStringLiteral("lost") << LinkFaults(LinkFault::Lost);
    QTest::newRow("duplicate") << QStringLiteral("duplicate") << LinkFaults(LinkFault::Duplicate);
    QTest::newRow("garbled") << QStringLiteral("garbled") << LinkFaults(LinkFault::Garbled);
    QTest::newRow("storm") << QStringLiteral("storm") << LinkFaults(LinkFault::Storm);
    QTest::newRow("two") << QStringLiteral("storm,late") << (LinkFault::Late | LinkFault::Storm);
    QTest::newRow("one twice") << QStringLiteral("lost,lost") << LinkFaults(LinkFault::Lost);
    QTest::newRow("all") << QStringLiteral("late,lost,duplicate,garbled,storm")
                         << (LinkFault::Late | LinkFault::Lost | LinkFault::Duplicate | LinkFault::Garbled |
                             LinkFault::Storm);
}

void tst_LinkFaults::namesAreRead()
{
    QFETCH(QString, text);
    QFETCH(LinkFaults, expectedFaults);
    QString error;
    const auto faults = linkFaultsFromText(text, &error);
    QVERIFY2(faults, qPrintable(error));
    QCOMPARE(*faults, expectedFaults);
    QCOMPARE(error, QString());
}

void tst_LinkFaults::whatIsNoFaultIsRefusedInOneLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expectedName");
    QTest::newRow("unknown") << QStringLiteral("foo") << QStringLiteral("foo");
    QTest::newRow("unknown after a known one") << QStringLiteral("late,foo") << QStringLiteral("foo");
    QTest::newRow("the first of two") << QStringLiteral("foo,bar") << QStringLiteral("foo");
    QTest::newRow("nothing") << QString() << QString();
    QTest::newRow("nothing at the end") << QStringLiteral("late,") << QString();
    QTest::newRow("nothing in between") << QStringLiteral("late,,lost") << QString();
    QTest::newRow("capital letters") << QStringLiteral("Late") << QStringLiteral("Late");
    QTest::newRow("blank") << QStringLiteral("late, lost") << QStringLiteral(" lost");
    QTest::newRow("half a name") << QStringLiteral("dup") << QStringLiteral("dup");
}

void tst_LinkFaults::whatIsNoFaultIsRefusedInOneLine()
{
    QFETCH(QString, text);
    QFETCH(QString, expectedName);
    QString error;
    QVERIFY(!linkFaultsFromText(text, &error));
    QCOMPARE(error,
             QStringLiteral("'%1' is no fault: late, lost, duplicate, garbled, storm").arg(expectedName));
}

QTEST_GUILESS_MAIN(tst_LinkFaults)

#include "tst_linkfaults.moc"
