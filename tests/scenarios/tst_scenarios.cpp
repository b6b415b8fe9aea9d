// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "tracetext.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// Plays the ready scenarios with the program itself, and compares what passed between host and console.
///
/// With KORVO_RENEW_TRACES set, the expected traces are written anew instead.
class tst_Scenarios : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aScenarioGivesItsTrace_data();
    void aScenarioGivesItsTrace();
    void aTraceGivesTheSameTraceAgain_data();
    void aTraceGivesTheSameTraceAgain();
    void aLongSessionGivesTheSameTraceAgain();
    void aLineThatCannotBeDoneIsToldBeforeAnythingIsPlayed_data();
    void aLineThatCannotBeDoneIsToldBeforeAnythingIsPlayed();
    void examplesOfTheDocumentRun_data();
    void examplesOfTheDocumentRun();
    void theDocumentHasAnExampleOfEveryKindOfLine();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    int run(const QString &scenario, const QString &trace, QString *output) const;
    void play(const QString &scenario, const QString &trace) const;
    void compare(const QStringList &actual, const QStringList &expected) const;
    void writeLines(const QString &file, const QStringList &lines) const;

    QScopedPointer<QTemporaryDir> m_dir;
};

namespace {

QString text(const char *string)
{
    return QString::fromUtf8(string);
}

QString source(const QString &name)
{
    return text(SCENARIO_DIR "/") + name;
}

/// Blocks of examples in the document, each with the number of its first line.
QMap<int, QStringList> examples()
{
    QMap<int, QStringList> blocks;
    const QStringList lines = readLines(text(SCENARIO_DOCUMENT));
    int first = 0;
    for (int i = 0; i < lines.size(); ++i) {
        if (lines.at(i) == QLatin1String("```jsonl"))
            first = i + 2;
        else if (lines.at(i) == QLatin1String("```"))
            first = 0;
        else if (first > 0)
            blocks[first] << lines.at(i);
    }
    return blocks;
}

} // namespace

void tst_Scenarios::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

/// The program's exit code; -1 when it does not end well.
int tst_Scenarios::run(const QString &scenario, const QString &trace, QString *output) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(text("QT_QPA_PLATFORM"), text("offscreen"));
    // Settings from before are none of the scenario's.
    const QTemporaryDir config;
    environment.insert(text("XDG_CONFIG_HOME"), config.path());
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(text(K7HOST), {text("--scenario"), scenario, text("--trace"), trace, text("--screenshot"),
                                 m_dir->path(), text("--lang"), text("en"), text("--exit")});
    const bool hasEnded = program.waitForFinished(60000) && program.exitStatus() == QProcess::NormalExit;
    *output = QString::fromUtf8(program.readAll());
    return hasEnded ? program.exitCode() : -1;
}

/// Fails when the program does not play it to its end without a word.
void tst_Scenarios::play(const QString &scenario, const QString &trace) const
{
    QString output;
    const int exitCode = run(scenario, trace, &output);
    QCOMPARE(output, QString());
    QCOMPARE(exitCode, 0);
}

/// Fails with what diff says.
void tst_Scenarios::compare(const QStringList &actual, const QStringList &expected) const
{
    if (actual == expected)
        return;
    writeLines(path(text("expected")), expected);
    writeLines(path(text("actual")), actual);
    QProcess diff;
    diff.setWorkingDirectory(m_dir->path());
    diff.start(text("diff"), {text("-U2"), text("expected"), text("actual")});
    QVERIFY(diff.waitForFinished());
    const QByteArray difference = diff.readAll();
    QFAIL(("the traces differ:\n" + difference.left(6000)).constData());
}

void tst_Scenarios::writeLines(const QString &file, const QStringList &lines) const
{
    QFile output(file);
    QVERIFY(output.open(QIODevice::WriteOnly));
    for (const QString &line : lines)
        output.write(line.toUtf8() + '\n');
}

void tst_Scenarios::aScenarioGivesItsTrace_data()
{
    QTest::addColumn<QString>("name");
    const QStringList files = QDir(text(SCENARIO_DIR)).entryList({text("*.jsonl")});
    QVERIFY(files.size() >= 5);
    for (const QString &file : files) {
        const QString name = file.section(QLatin1Char('.'), 0, 0);
        QTest::newRow(qPrintable(name)) << name;
    }
}

void tst_Scenarios::aScenarioGivesItsTrace()
{
    QFETCH(QString, name);
    play(source(name + text(".jsonl")), path(text("trace")));
    if (QTest::currentTestFailed())
        return;
    const QString expected = source(name + text(".trace"));
    const QStringList lines = withoutTimes(readLines(path(text("trace"))));
    if (qEnvironmentVariableIsSet("KORVO_RENEW_TRACES"))
        writeLines(expected, lines);
    compare(comparable(lines), comparable(readLines(expected)));
}

void tst_Scenarios::aTraceGivesTheSameTraceAgain_data()
{
    aScenarioGivesItsTrace_data();
}

void tst_Scenarios::aTraceGivesTheSameTraceAgain()
{
    QFETCH(QString, name);
    play(source(name + text(".trace")), path(text("again")));
    if (QTest::currentTestFailed())
        return;
    compare(withoutTimes(readLines(path(text("again")))), readLines(source(name + text(".trace"))));
}

/// Also with what the console does by itself after ten seconds; the scenarios rest then.
void tst_Scenarios::aLongSessionGivesTheSameTraceAgain()
{
    QStringList lines;
    for (const char *name : {"languages", "show"})
        lines << readLines(source(text(name) + text(".jsonl")));
    lines << text(R"({"op":"wait","ms":5500})");
    for (const char *name : {"settings", "storm"})
        lines << readLines(source(text(name) + text(".jsonl")));
    writeLines(path(text("long.jsonl")), lines);

    play(path(text("long.jsonl")), path(text("first.trace")));
    if (QTest::currentTestFailed())
        return;
    const QStringList first = readLines(path(text("first.trace")));
    QVERIFY(first.size() > 2000);
    QVERIFY(first.filter(text("signalReqECDeviceIP")).size() >= 2);
    play(path(text("first.trace")), path(text("second.trace")));
    if (QTest::currentTestFailed())
        return;
    compare(comparable(withoutTimes(readLines(path(text("second.trace"))))), comparable(withoutTimes(first)));
}

void tst_Scenarios::aLineThatCannotBeDoneIsToldBeforeAnythingIsPlayed_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("expectedReason");
    QTest::newRow("no such key") << text(R"({"op":"press","key":"PRESET_99"})") << text("PRESET_99");
    QTest::newRow("a label's id") << text(R"({"op":"press","key":138})") << text("138");
    QTest::newRow("no such widget") << text(R"({"op":"click","widget":"pushButton_aply"})")
                                    << text("pushButton_aply");
    QTest::newRow("several widgets") << text(R"({"op":"click","widget":"octet_1"})") << text("octet_1");
    QTest::newRow("finger in the air")
        << text(R"({"op":"release","key":58,"finger":2})") << text("finger 2 is not down");
}

void tst_Scenarios::aLineThatCannotBeDoneIsToldBeforeAnythingIsPlayed()
{
    QFETCH(QString, line);
    QFETCH(QString, expectedReason);
    const QString file = path(text("wrong.jsonl"));
    writeLines(file, {text(R"({"op":"press","key":58,"finger":1})"), line});
    QString output;
    QCOMPARE(run(file, path(text("trace")), &output), 2);
    QVERIFY2(output.startsWith(text("k7host: ") + file + text(":2: ")), qPrintable(output));
    QVERIFY2(output.contains(expectedReason) && output.count(QLatin1Char('\n')) == 1, qPrintable(output));
    QVERIFY(!QFile::exists(path(text("trace"))));
}

void tst_Scenarios::examplesOfTheDocumentRun_data()
{
    QTest::addColumn<QStringList>("lines");
    const QMap<int, QStringList> blocks = examples();
    QVERIFY(blocks.size() >= 7);
    for (auto it = blocks.cbegin(); it != blocks.cend(); ++it)
        QTest::addRow("line %d", it.key()) << *it;
}

void tst_Scenarios::examplesOfTheDocumentRun()
{
    QFETCH(QStringList, lines);
    writeLines(path(text("example.jsonl")), lines);
    play(path(text("example.jsonl")), path(text("trace")));
}

void tst_Scenarios::theDocumentHasAnExampleOfEveryKindOfLine()
{
    QSet<QString> kinds;
    const QMap<int, QStringList> blocks = examples();
    for (const QStringList &lines : blocks)
        kinds += kindsOf(lines);
    QCOMPARE(kinds, allKinds());
}

QTEST_GUILESS_MAIN(tst_Scenarios)

#include "tst_scenarios.moc"
