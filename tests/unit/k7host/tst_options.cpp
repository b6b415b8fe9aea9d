// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <options.h>

#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QTest>

using K7Host::CommandLine;
using K7Host::LinkFault;
using K7Host::Options;
using K7Host::parseCommandLine;

class tst_Options : public QObject
{
    Q_OBJECT

private slots:
    void withoutArgumentsEverythingHasItsDefault();
    void valuesAreTakenOver();
    void switchesAreTakenOver_data();
    void switchesAreTakenOver();
    void whatWatchesTheConsoleIsOffUnlessAsked();
    void aTraceDoesNotOverwriteItsScenario();
    void scaleIsFitOrAFactor_data();
    void scaleIsFitOrAFactor();
    void aScaleIsReadAsItIsWritten_data();
    void aScaleIsReadAsItIsWritten();
    void wrongArgumentsAreRefusedInOneLine_data();
    void wrongArgumentsAreRefusedInOneLine();
    void helpListsExactlyWhatThereIs();
    void versionIsTold();
};

static CommandLine parse(const QStringList &arguments)
{
    return parseCommandLine(QStringList(QStringLiteral("k7host")) + arguments, QStringLiteral("/opt/k7/bin"));
}

void tst_Options::withoutArgumentsEverythingHasItsDefault()
{
    const CommandLine line = parse({});
    QCOMPARE(line.outcome, CommandLine::Run);
    QCOMPARE(line.options.pluginDir, QStringLiteral("/opt/k7/lib/korvo/plugins"));
    QCOMPARE(line.options.themeDir, QStringLiteral("/opt/k7/share/korvo/themes/k7"));
    QCOMPARE(line.options.language, QString());
    QVERIFY(!line.options.scaleGiven);
    QCOMPARE(line.options.scale, 0.0);
    QCOMPARE(line.options.screenshotDir, QString());
    QVERIFY(!line.options.themeGiven);
    QVERIFY(!line.options.kiosk);
    QVERIFY(!line.options.exit);
    QVERIFY(!line.options.listPlugins);
    QVERIFY(!line.options.verbose);
}

void tst_Options::valuesAreTakenOver()
{
    const CommandLine line =
        parse({QStringLiteral("--plugin-dir"), QStringLiteral("some/plugins"),
               QStringLiteral("--theme=/looks"), QStringLiteral("--lang"), QStringLiteral("de_CH"),
               QStringLiteral("--screenshot"), QStringLiteral(".")});
    QCOMPARE(line.outcome, CommandLine::Run);
    QCOMPARE(line.options.pluginDir, QStringLiteral("some/plugins"));
    QCOMPARE(line.options.themeDir, QStringLiteral("/looks"));
    QCOMPARE(line.options.language, QStringLiteral("de_CH"));
    QCOMPARE(line.options.screenshotDir, QStringLiteral("."));
    QCOMPARE(line.options.themeDir, QStringLiteral("/looks"));
    QVERIFY(line.options.themeGiven);
}

void tst_Options::switchesAreTakenOver_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<bool>("exit");
    QTest::addColumn<bool>("kiosk");
    QTest::addColumn<bool>("listPlugins");
    QTest::addColumn<bool>("verbose");
    QTest::newRow("exit") << QStringLiteral("--exit") << true << false << false << false;
    QTest::newRow("kiosk") << QStringLiteral("--kiosk") << false << true << false << false;
    QTest::newRow("list-plugins") << QStringLiteral("--list-plugins") << false << false << true << false;
    QTest::newRow("verbose") << QStringLiteral("--verbose") << false << false << false << true;
}

void tst_Options::switchesAreTakenOver()
{
    QFETCH(QString, argument);
    const CommandLine line = parse({argument});
    QCOMPARE(line.outcome, CommandLine::Run);
    QTEST(line.options.exit, "exit");
    QTEST(line.options.kiosk, "kiosk");
    QTEST(line.options.listPlugins, "listPlugins");
    QTEST(line.options.verbose, "verbose");
}

void tst_Options::whatWatchesTheConsoleIsOffUnlessAsked()
{
    const Options usual = parse({}).options;
    QVERIFY(!usual.inspect);
    QVERIFY(!usual.latency);
    QVERIFY(!usual.faults);
    QCOMPARE(usual.scenario, QString());
    QCOMPARE(usual.trace, QString());

    const CommandLine line =
        parse({QStringLiteral("--inspect"), QStringLiteral("--latency"), QStringLiteral("--scenario"),
               QStringLiteral("-"), QStringLiteral("--trace"), QStringLiteral("a.trace"),
               QStringLiteral("--faults"), QStringLiteral("late,storm"), QStringLiteral("--seed"),
               QStringLiteral("4294967295")});
    QCOMPARE(line.outcome, CommandLine::Run);
    QVERIFY(line.options.inspect);
    QVERIFY(line.options.latency);
    QCOMPARE(line.options.scenario, QStringLiteral("-"));
    QCOMPARE(line.options.trace, QStringLiteral("a.trace"));
    QCOMPARE(line.options.faults, LinkFault::Late | LinkFault::Storm);
    QCOMPARE(line.options.seed, 0xffffffffU);
}

void tst_Options::aTraceDoesNotOverwriteItsScenario()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    const CommandLine line =
        parse({QStringLiteral("--scenario"), file.fileName(), QStringLiteral("--trace"),
               QFileInfo(file).path() + QStringLiteral("/./") + QFileInfo(file).fileName()});
    QCOMPARE(line.outcome, CommandLine::Refused);
    QVERIFY2(line.text.contains(file.fileName()), qPrintable(line.text));
}

void tst_Options::scaleIsFitOrAFactor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qreal>("expectedScale");
    QTest::newRow("auto") << QStringLiteral("auto") << 0.0;
    QTest::newRow("smallest") << QStringLiteral("0.25") << 0.25;
    QTest::newRow("one") << QStringLiteral("1") << 1.0;
    QTest::newRow("largest") << QStringLiteral("4") << 4.0;
}

void tst_Options::scaleIsFitOrAFactor()
{
    QFETCH(QString, text);
    const CommandLine line = parse({QStringLiteral("--scale"), text});
    QCOMPARE(line.outcome, CommandLine::Run);
    QVERIFY(line.options.scaleGiven);
    QTEST(line.options.scale, "expectedScale");
}

void tst_Options::aScaleIsReadAsItIsWritten_data()
{
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<QString>("text");
    QTest::newRow("auto") << 0.0 << QStringLiteral("auto");
    QTest::newRow("three quarters") << 0.75 << QStringLiteral("0.75");
    QTest::newRow("double") << 2.0 << QStringLiteral("2");
}

void tst_Options::aScaleIsReadAsItIsWritten()
{
    QFETCH(qreal, scale);
    QFETCH(QString, text);
    QCOMPARE(K7Host::textOfScale(scale), text);
    const std::optional<qreal> read = K7Host::scaleFromText(text);
    QVERIFY(read);
    QCOMPARE(*read, scale);
    QVERIFY(!K7Host::scaleFromText(QStringLiteral("huge")));
}

void tst_Options::wrongArgumentsAreRefusedInOneLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expectedPart");
    const auto row = [](const char *name, const char *arguments, const char *expectedPart) {
        QTest::newRow(name) << QString::fromLatin1(arguments).split(QLatin1Char(' '))
                            << QString::fromLatin1(expectedPart);
    };
    row("unknown option", "--frobnicate", "frobnicate");
    row("unknown short option", "-x", "'x'");
    row("value for a switch", "--exit=1", "--exit");
    row("left-over argument", "console", "console");
    row("argument after a switch", "--exit now", "now");
    row("no value", "--plugin-dir", "--plugin-dir");
    row("empty value", "--theme=", "--theme");
    row("option for a value", "--screenshot --exit", "--screenshot");
    row("option for a language", "--lang --verbose", "--lang");
    row("unknown language", "--lang klingon", "klingon");
    row("no scale", "--scale", "--scale");
    row("word for a scale", "--scale big", "big");
    row("empty scale", "--scale=", "--scale");
    row("scale too small", "--scale 0.24", "0.24");
    row("zero scale", "--scale 0", "'0'");
    row("scale too large", "--scale 4.01", "4.01");
    row("negative scale", "--scale -1", "-1");
    row("no number", "--scale nan", "nan");
    row("infinite scale", "--scale inf", "inf");
    row("number with more behind", "--scale 1x", "1x");
    row("no scenario", "--scenario", "--scenario");
    row("option for a scenario", "--scenario --exit", "--scenario");
    row("option for a trace", "--trace --exit", "--trace");
    row("unknown fault", "--faults late,foo", "'foo' is no fault");
    row("empty fault", "--faults late,", "'' is no fault");
    row("no faults", "--faults", "--faults");
    row("no seed", "--seed=", "''");
    row("negative seed", "--seed -1", "'-1'");
    row("seed too large", "--seed 4294967296", "4294967295");
}

void tst_Options::wrongArgumentsAreRefusedInOneLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, expectedPart);
    const CommandLine line = parse(arguments);
    QCOMPARE(line.outcome, CommandLine::Refused);
    QVERIFY2(line.text.contains(expectedPart), qPrintable(line.text));
    QVERIFY2(!line.text.contains(QLatin1Char('\n')), qPrintable(line.text));
}

void tst_Options::helpListsExactlyWhatThereIs()
{
    const CommandLine line = parse({QStringLiteral("--help")});
    QCOMPARE(line.outcome, CommandLine::Answered);

    QStringList options;
    const QStringList words = line.text.split(QRegularExpression(QStringLiteral("\\s+")));
    for (const QString &word : words) {
        if (word.startsWith(QLatin1String("--")))
            options << word;
    }
    options.sort();
    const QStringList expectedOptions{
        QStringLiteral("--exit"),    QStringLiteral("--faults"),       QStringLiteral("--help"),
        QStringLiteral("--inspect"), QStringLiteral("--kiosk"),        QStringLiteral("--lang"),
        QStringLiteral("--latency"), QStringLiteral("--list-plugins"), QStringLiteral("--plugin-dir"),
        QStringLiteral("--scale"),   QStringLiteral("--scenario"),     QStringLiteral("--screenshot"),
        QStringLiteral("--seed"),    QStringLiteral("--theme"),        QStringLiteral("--trace"),
        QStringLiteral("--verbose"), QStringLiteral("--version")};
    QCOMPARE(options, expectedOptions);
}

void tst_Options::versionIsTold()
{
    const CommandLine line = parse({QStringLiteral("--version")});
    QCOMPARE(line.outcome, CommandLine::Answered);
    const QRegularExpression expectedText(QStringLiteral("^k7host \\d+\\.\\d+\\.\\d+\n$"));
    QVERIFY2(expectedText.match(line.text).hasMatch(), qPrintable(line.text));
}

QTEST_GUILESS_MAIN(tst_Options)

#include "tst_options.moc"
