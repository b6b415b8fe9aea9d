// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <scenario.h>

#include <QBuffer>
#include <QTemporaryDir>
#include <QTest>

using namespace K7Host;

class tst_Scenario : public QObject
{
    Q_OBJECT

private slots:
    void commentsAndBlankLinesAreSkippedButCounted();
    void theLastLineNeedsNoEnd();
    void theMarkOfAnEditorIsSkipped_data();
    void theMarkOfAnEditorIsSkipped();
    void aLineWithoutEndIsAFault();
    void anEmptyFileIsAScenario();
    void aFaultNamesFileLineAndReason();
    void aScenarioWithAFaultIsNotPlayedAtAll();
    void aFileThatCannotBeReadIsAFault_data();
    void aFileThatCannotBeReadIsAFault();
    void aTraceIsTold_data();
    void aTraceIsTold();
};

namespace {

std::optional<Fault> read(QByteArray text, Scenario *scenario)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    return readScenario(&buffer, QStringLiteral("show.jsonl"), scenario);
}

} // namespace

void tst_Scenario::commentsAndBlankLinesAreSkippedButCounted()
{
    Scenario scenario;
    QVERIFY(!read("# a show\n\n{\"op\":\"wait\",\"ms\":1}\r\n   \n  # {\n\t{\"op\":\"wait\",\"ms\":2} \n",
                  &scenario));
    QCOMPARE(scenario.file, QStringLiteral("show.jsonl"));
    QCOMPARE(scenario.steps.size(), 2);
    QCOMPARE(scenario.steps.at(0).number, 3);
    QCOMPARE(std::get<WaitLine>(scenario.steps.at(0).line.content).ms, 1);
    QCOMPARE(scenario.steps.at(1).number, 6);
    QCOMPARE(std::get<WaitLine>(scenario.steps.at(1).line.content).ms, 2);
}

void tst_Scenario::theLastLineNeedsNoEnd()
{
    Scenario scenario;
    QVERIFY(!read("{\"op\":\"wait\",\"ms\":1}", &scenario));
    QCOMPARE(scenario.steps.size(), 1);
}

void tst_Scenario::theMarkOfAnEditorIsSkipped_data()
{
    QTest::addColumn<QByteArray>("firstLine");
    QTest::newRow("comment") << QByteArray("# a show\n");
    QTest::newRow("blank line") << QByteArray("\n");
    QTest::newRow("line") << QByteArray("{\"op\":\"wait\",\"ms\":0}\n");
}

void tst_Scenario::theMarkOfAnEditorIsSkipped()
{
    QFETCH(QByteArray, firstLine);
    Scenario scenario;
    QVERIFY(!read("\xef\xbb\xbf" + firstLine + "{\"op\":\"wait\",\"ms\":1}", &scenario));
    QCOMPARE(scenario.steps.constLast().number, 2);
}

void tst_Scenario::aLineWithoutEndIsAFault()
{
    Scenario scenario;
    const auto fault = read("\n" + QByteArray(2 * 1024 * 1024, 'x'), &scenario);
    QVERIFY(fault);
    QCOMPARE(fault->text, QStringLiteral("show.jsonl:2: the line is too long"));
}

void tst_Scenario::anEmptyFileIsAScenario()
{
    Scenario scenario;
    QVERIFY(!read("", &scenario));
    QVERIFY(scenario.steps.isEmpty());
}

void tst_Scenario::aFaultNamesFileLineAndReason()
{
    Scenario scenario;
    const auto fault = read("# first\n{\"op\":\"wait\",\"ms\":1}\n{\"op\":\"jump\"}\n", &scenario);
    QVERIFY(fault);
    QCOMPARE(fault->exitCode, ExitBadArguments);
    QCOMPARE(fault->text, QStringLiteral("show.jsonl:3: there is no operation \"jump\""));
}

void tst_Scenario::aScenarioWithAFaultIsNotPlayedAtAll()
{
    Scenario scenario;
    QVERIFY(read("{\"op\":\"wait\",\"ms\":1}\n{}\n", &scenario));
    QVERIFY(scenario.steps.isEmpty());
}

void tst_Scenario::aFileThatCannotBeReadIsAFault_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("not there") << QStringLiteral("nothing.jsonl");
    QTest::newRow("a folder") << QStringLiteral(".");
}

void tst_Scenario::aFileThatCannotBeReadIsAFault()
{
    QFETCH(QString, name);
    const QTemporaryDir dir;
    Scenario scenario;
    const auto fault = readScenario(dir.filePath(name), &scenario);
    QVERIFY(fault);
    QCOMPARE(fault->exitCode, ExitBadArguments);
    QVERIFY2(fault->text.contains(dir.filePath(name)), qPrintable(fault->text));
}

void tst_Scenario::aTraceIsTold_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<bool>("expectedTrace");
    QTest::newRow("scenario") << QByteArray("{\"op\":\"wait\",\"ms\":1}") << false;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("record") << QByteArray("{\"t\":1,\"dir\":\"in\",\"op\":\"updateKeyboard\"}") << true;
    QTest::newRow("signal")
        << QByteArray(
               "{\"op\":\"wait\",\"ms\":1}\n{\"dir\":\"out\",\"signal\":\"ecButtonPressed\",\"args\":[1]}")
        << true;
}

void tst_Scenario::aTraceIsTold()
{
    QFETCH(QByteArray, text);
    QFETCH(bool, expectedTrace);
    Scenario scenario;
    QVERIFY(!read(text, &scenario));
    QCOMPARE(scenario.isTrace(), expectedTrace);
}

QTEST_GUILESS_MAIN(tst_Scenario)

#include "tst_scenario.moc"
