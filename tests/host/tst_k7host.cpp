// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

/// Starts the program itself, as a person would.
class tst_K7Host : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void helpAndVersionAnswerOnStdout_data();
    void helpAndVersionAnswerOnStdout();
    void wrongArgumentsAreToldInOneLine_data();
    void wrongArgumentsAreToldInOneLine();

    void aNormalRunPrintsNothing_data();
    void aNormalRunPrintsNothing();
    void verboseShowsDebugMessages();
    void theLanguageHoldsForOneRun();
    void withoutExitTheWindowStaysUntilAsked();

    void theScreenshotHasTheConsolesSize_data();
    void theScreenshotHasTheConsolesSize();
    void aKiosksScreenshotIsTheSame();
    void theScreenshotFolderIsMade();
    void theStoredScaleChangesNoScreenshot();
    void aScreenshotThatCannotBeWrittenIsToldInOneLine_data();
    void aScreenshotThatCannotBeWrittenIsToldInOneLine();

    void aThemeThatCannotBeReadIsToldInOneLine_data();
    void aThemeThatCannotBeReadIsToldInOneLine();
    void aStoredThemeIsUsedUnlessItCannotBe_data();
    void aStoredThemeIsUsedUnlessItCannotBe();
    void everyFaultOfThePluginsIsToldInItsLine_data();
    void everyFaultOfThePluginsIsToldInItsLine();
    void pluginsAreListed_data();
    void pluginsAreListed();

    void withoutADisplayAScreenshotIsStillWritten_data();
    void withoutADisplayAScreenshotIsStillWritten();
    void withoutADisplayThereIsNothingToShow_data();
    void withoutADisplayThereIsNothingToShow();
    void anUnusablePlatformIsToldInOneLine();

    void aScenarioIsPlayedAndTraced_data();
    void aScenarioIsPlayedAndTraced();
    void scenarioAndTraceMayBeStandardInputAndOutput();
    void aWrongScenarioIsToldInOneLineBeforeItIsPlayed_data();
    void aWrongScenarioIsToldInOneLineBeforeItIsPlayed();
    void aStepThatFailsEndsTheProgram();
    void afterAScenarioTheConsoleStaysUnlessAsked();
    void aTraceThatCannotBeWrittenIsToldInOneLine();
    void aFullDiskIsToldOnceAndEndsNothing();
    void aKilledProgramLeavesWholeLines();
    void withoutADisplayAScenarioIsPlayed();
    void latencyIsSummedUpAtTheEnd();
    void aBadLinkIsNoFault();

private:
    struct Result
    {
        int exitCode = -1;
        QString out;
        QString err;
    };

    QString path(const char *name) const { return m_dir->filePath(QString::fromLatin1(name)); }
    QStringList linesOf(const QString &string) const;
    QProcessEnvironment environment() const;
    Result run(const QStringList &arguments) const { return run(arguments, environment()); }
    Result run(const QStringList &arguments, const QProcessEnvironment &environment) const;
    QSize screenshotSize() const;
    void addFile(const QString &name) const { addFile(name, "not what it seems\n"); }
    void addFile(const QString &name, const QByteArray &content) const;
    QStringList tracedCalls(const QByteArray &trace) const;

    QScopedPointer<QTemporaryDir> m_dir;
};

namespace {

QString text(const char *string)
{
    return QString::fromUtf8(string);
}

QString fixture(const char *name)
{
    return text(FIXTURE_DIR "/") + text(name);
}

/// Starts with the console of the fixtures, and leaves.
QStringList consoleRun(const QStringList &more = {})
{
    return QStringList{text("--plugin-dir"), fixture("console"), text("--exit")} + more;
}

} // namespace

void tst_K7Host::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

QStringList tst_K7Host::linesOf(const QString &string) const
{
    if (string.isEmpty())
        return {};
    QStringList lines = string.split(QLatin1Char('\n'));
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

/// Nothing of this session's display, language or settings.
QProcessEnvironment tst_K7Host::environment() const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "QT_SCALE_FACTOR",
                             "QT_LOGGING_RULES", "QT_MESSAGE_PATTERN"}) {
        environment.remove(text(name));
    }
    environment.insert(text("QT_QPA_PLATFORM"), text("offscreen"));
    environment.insert(text("XDG_CONFIG_HOME"), path("config"));
    return environment;
}

tst_K7Host::Result tst_K7Host::run(const QStringList &arguments, const QProcessEnvironment &environment) const
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(text(K7HOST), arguments);
    Result result;
    if (process.waitForFinished() && process.exitStatus() == QProcess::NormalExit)
        result.exitCode = process.exitCode();
    result.out = QString::fromLocal8Bit(process.readAllStandardOutput());
    result.err = QString::fromLocal8Bit(process.readAllStandardError());
    return result;
}

QSize tst_K7Host::screenshotSize() const
{
    return QImageReader(path("console.png")).size();
}

void tst_K7Host::addFile(const QString &name, const QByteArray &content) const
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

/// What the left half was called, without what every start brings.
QStringList tst_K7Host::tracedCalls(const QByteArray &trace) const
{
    QStringList calls;
    const QList<QByteArray> lines = trace.split('\n');
    for (const QByteArray &line : lines) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        if (object.value(QLatin1String("half")) == QLatin1String("left"))
            calls << object.value(QLatin1String("op")).toString();
    }
    const int start = calls.lastIndexOf(text("updateDVISignalStatus"));
    return calls.mid(start + 1).filter(QRegularExpression(text("^(?!updateECDeviceIP)")));
}

void tst_K7Host::helpAndVersionAnswerOnStdout_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expectedPart");
    QTest::newRow("help") << QStringList{text("--help")} << text("--plugin-dir");
    QTest::newRow("short help") << QStringList{text("-h")} << text("--plugin-dir");
    QTest::newRow("version") << QStringList{text("--version")} << text("k7host 4.");
    QTest::newRow("help before all else") << QStringList{text("--help"), text("left over")} << text("--exit");
}

void tst_K7Host::helpAndVersionAnswerOnStdout()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, expectedPart);
    QProcessEnvironment withoutDisplay = environment();
    withoutDisplay.remove(text("QT_QPA_PLATFORM"));
    const Result result = run(arguments, withoutDisplay);
    QCOMPARE(result.err, QString());
    QVERIFY2(result.out.contains(expectedPart), qPrintable(result.out));
    QCOMPARE(result.exitCode, 0);
}

void tst_K7Host::wrongArgumentsAreToldInOneLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("expectedPart");
    QTest::newRow("unknown option") << QStringList{text("--foo")} << text("foo");
    QTest::newRow("two unknown options") << QStringList{text("--foo"), text("--bar")} << text("bar");
    QTest::newRow("left over") << QStringList{text("now")} << text("now");
    QTest::newRow("no value") << QStringList{text("--theme")} << text("--theme");
    QTest::newRow("wrong scale") << QStringList{text("--scale"), text("5")} << text("'5'");
    QTest::newRow("line break") << QStringList{text("one\ntwo")} << text("two");
}

void tst_K7Host::wrongArgumentsAreToldInOneLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, expectedPart);
    const Result result = run(arguments);
    QCOMPARE(result.out, QString());
    QCOMPARE(linesOf(result.err).size(), 1);
    QVERIFY2(result.err.startsWith(text("k7host: ")), qPrintable(result.err));
    QVERIFY2(result.err.contains(expectedPart), qPrintable(result.err));
    QCOMPARE(result.exitCode, 2);
}

void tst_K7Host::aNormalRunPrintsNothing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("default") << consoleRun();
    QTest::newRow("fitted") << consoleRun({text("--scale"), text("auto")});
    QTest::newRow("small") << consoleRun({text("--scale"), text("0.25")});
    QTest::newRow("large") << consoleRun({text("--scale"), text("2")});
    QTest::newRow("other language") << consoleRun({text("--lang"), text("de")});
    QTest::newRow("kiosk") << consoleRun({text("--kiosk")});
    QTest::newRow("kiosk of another size") << consoleRun({text("--kiosk"), text("--scale"), text("2")});
}

void tst_K7Host::aNormalRunPrintsNothing()
{
    QFETCH(QStringList, arguments);
    const Result result = run(arguments);
    QCOMPARE(result.err, QString());
    QCOMPARE(result.out, QString());
    QCOMPARE(result.exitCode, 0);
}

void tst_K7Host::verboseShowsDebugMessages()
{
    const Result result = run(consoleRun({text("--verbose")}));
    QCOMPARE(linesOf(result.err), QStringList{text("k7host: korvo.fixture: language is ''")});
    QCOMPARE(result.exitCode, 0);
}

void tst_K7Host::theLanguageHoldsForOneRun()
{
    const Result result = run(consoleRun({text("--verbose"), text("--lang"), text("de_CH")}));
    QCOMPARE(linesOf(result.err), QStringList{text("k7host: korvo.fixture: language is 'de_CH'")});
    QCOMPARE(linesOf(run(consoleRun({text("--verbose")})).err),
             QStringList{text("k7host: korvo.fixture: language is ''")});
}

void tst_K7Host::withoutExitTheWindowStaysUntilAsked()
{
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(text(K7HOST),
                  {text("--plugin-dir"), fixture("console"), text("--screenshot"), m_dir->path()});
    QTRY_COMPARE(screenshotSize(), QSize(3489, 1050)); // so the window is shown
    QCOMPARE(process.state(), QProcess::Running);

    process.terminate();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardError(), QByteArray());
}

void tst_K7Host::theScreenshotHasTheConsolesSize_data()
{
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QString>("scaleOfTheSession");
    QTest::addColumn<QSize>("expectedSize");
    QTest::newRow("no scale") << QString() << QString() << QSize(3489, 1050);
    QTest::newRow("fitted") << text("auto") << QString() << QSize(3489, 1050);
    QTest::newRow("half") << text("0.5") << QString() << QSize(1745, 525);
    QTest::newRow("double") << text("2") << QString() << QSize(6978, 2100);
    QTest::newRow("session's scale") << QString() << text("1.5") << QSize(3489, 1050);
    QTest::newRow("half of any session's scale") << text("0.5") << text("1.5") << QSize(1745, 525);
}

void tst_K7Host::theScreenshotHasTheConsolesSize()
{
    QFETCH(QString, scale);
    QFETCH(QString, scaleOfTheSession);
    QStringList arguments = consoleRun({text("--screenshot"), m_dir->path()});
    if (!scale.isEmpty())
        arguments << text("--scale") << scale;
    QProcessEnvironment session = environment();
    if (!scaleOfTheSession.isEmpty())
        session.insert(text("QT_SCALE_FACTOR"), scaleOfTheSession);

    const Result result = run(arguments, session);
    QCOMPARE(result.err, QString());
    QCOMPARE(result.exitCode, 0);
    QTEST(screenshotSize(), "expectedSize");
}

void tst_K7Host::aKiosksScreenshotIsTheSame()
{
    for (const QStringList &more : {QStringList(), QStringList{text("--kiosk")}}) {
        const char *dir = more.isEmpty() ? "window" : "kiosk";
        const Result result = run(consoleRun(more + QStringList{text("--screenshot"), path(dir)}));
        QCOMPARE(result.err, QString());
        QCOMPARE(result.exitCode, 0);
    }
    const QImage picture(path("kiosk/console.png"));
    QCOMPARE(picture.size(), QSize(3489, 1050));
    QCOMPARE(picture, QImage(path("window/console.png")));
}

void tst_K7Host::theStoredScaleChangesNoScreenshot()
{
    QVERIFY(QDir(m_dir->path()).mkpath(text("config/LUMETRA")));
    addFile(path("config/LUMETRA/k7host.ini"), "[%General]\nScale=0.5\n");
    const Result result = run(consoleRun({text("--screenshot"), m_dir->path()}));
    QCOMPARE(result.err, QString());
    QCOMPARE(screenshotSize(), QSize(3489, 1050));
}

void tst_K7Host::theScreenshotFolderIsMade()
{
    const Result result = run(consoleRun({text("--screenshot"), path("new/folder")}));
    QCOMPARE(result.err, QString());
    QCOMPARE(result.exitCode, 0);
    const QImage picture(path("new/folder/console.png"));
    QCOMPARE(picture.size(), QSize(3489, 1050));
    QCOMPARE(picture.pixelColor(10, 10), QColor(Qt::darkRed));
    QCOMPARE(picture.pixelColor(3472, 1049), QColor(Qt::darkBlue));
}

void tst_K7Host::aScreenshotThatCannotBeWrittenIsToldInOneLine_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a file in the way of the folder") << text("file");
    QTest::newRow("a folder in the way of the file") << text("taken");
}

void tst_K7Host::aScreenshotThatCannotBeWrittenIsToldInOneLine()
{
    QFETCH(QString, name);
    addFile(path("file"));
    QVERIFY(QDir(m_dir->path()).mkpath(text("taken/console.png")));

    const QString dir = m_dir->filePath(name);
    const Result result = run(consoleRun({text("--screenshot"), dir}));
    QCOMPARE(result.out, QString());
    QCOMPARE(linesOf(result.err).size(), 1);
    QVERIFY2(result.err.startsWith(text("k7host: ")) && result.err.contains(dir), qPrintable(result.err));
    QCOMPARE(result.exitCode, 2);
}

void tst_K7Host::aThemeThatCannotBeReadIsToldInOneLine_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("no such folder") << text("missing");
    QTest::newRow("a file") << text("file");
    QTest::newRow("no style sheet in it") << text("empty");
    QTest::newRow("a folder for a style sheet") << text("folder");
    QTest::newRow("no pictures") << text("bare");
    QTest::newRow("no color of that name") << text("colorless");
}

void tst_K7Host::aThemeThatCannotBeReadIsToldInOneLine()
{
    QFETCH(QString, theme);
    addFile(path("file"));
    QVERIFY(QDir(m_dir->path()).mkpath(text("empty")));
    QVERIFY(QDir(m_dir->path()).mkpath(text("folder/console.qss")));
    QVERIFY(QDir(m_dir->path()).mkpath(text("bare")));
    addFile(path("bare/console.qss"));
    QVERIFY(QDir(m_dir->path()).mkpath(text("colorless/images")));
    addFile(path("colorless/console.qss"), "QLabel { color: @ink; }");

    const QString dir = m_dir->filePath(theme);
    const Result result = run(consoleRun({text("--theme"), dir}));
    QCOMPARE(result.out, QString());
    QCOMPARE(linesOf(result.err).size(), 1);
    QVERIFY2(result.err.startsWith(text("k7host: ")) && result.err.contains(dir), qPrintable(result.err));
    QCOMPARE(result.exitCode, 2);
}

void tst_K7Host::aStoredThemeIsUsedUnlessItCannotBe_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("expectedComplaints");
    QTest::newRow("the standard one") << text("k7") << QStringList() << 0;
    QTest::newRow("one that is not there any more") << text("gone") << QStringList() << 0;
    QTest::newRow("one that cannot be read") << text("broken") << QStringList() << 1;
    QTest::newRow("none of this run's") << text("broken") << QStringList{text("--theme"), text(THEME)} << 0;
}

void tst_K7Host::aStoredThemeIsUsedUnlessItCannotBe()
{
    QFETCH(QString, theme);
    QFETCH(QStringList, arguments);
    QFETCH(int, expectedComplaints);
    QVERIFY(QDir(m_dir->path()).mkpath(text("broken")));
    QVERIFY(QDir(m_dir->path()).mkpath(text("config/LUMETRA")));
    const QString stored = theme == text("broken") ? path("broken") : theme;
    addFile(path("config/LUMETRA/k7host.ini"), "[%General]\nTheme=" + stored.toUtf8() + "\n");
    const Result result = run(consoleRun(arguments));
    QCOMPARE(linesOf(result.err).size(), expectedComplaints);
    QVERIFY(expectedComplaints == 0 || result.err.contains(theme));
    QCOMPARE(result.exitCode, 0);
}

void tst_K7Host::everyFaultOfThePluginsIsToldInItsLine_data()
{
    QTest::addColumn<QString>("dir");
    QTest::addColumn<QStringList>("expectedParts"); // of each line
    QTest::newRow("no such folder") << text("missing") << QStringList{text("no plug-in folder")};
    QTest::newRow("a file") << text("file.so") << QStringList{text("no plug-in folder")};
    QTest::newRow("nothing in it") << text("empty") << QStringList{text("no plug-in found")};
    QTest::newRow("no plug-in") << text("broken") << QStringList{text("libbroken.so")};
    QTest::newRow("one that cannot be started")
        << fixture("failing") << QStringList{text("the flux is missing")};
    QTest::newRow("one without a console") << fixture("bare") << QStringList{text("supplies a console")};
}

void tst_K7Host::everyFaultOfThePluginsIsToldInItsLine()
{
    QFETCH(QString, dir);
    QFETCH(QStringList, expectedParts);
    addFile(path("file.so"));
    QVERIFY(QDir(m_dir->path()).mkpath(text("empty")));
    QVERIFY(QDir(m_dir->path()).mkpath(text("broken")));
    addFile(path("broken/libbroken.so"));

    const Result result =
        run({text("--plugin-dir"), QDir(m_dir->path()).absoluteFilePath(dir), text("--exit")});
    QCOMPARE(result.out, QString());
    const QStringList lines = linesOf(result.err);
    QCOMPARE(lines.size(), expectedParts.size());
    for (int i = 0; i < lines.size(); ++i) {
        QVERIFY2(lines.at(i).startsWith(text("k7host: ")), qPrintable(lines.at(i)));
        QVERIFY2(lines.at(i).contains(expectedParts.at(i)), qPrintable(lines.at(i)));
    }
    QCOMPARE(result.exitCode, 1);
}

void tst_K7Host::pluginsAreListed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("expectedError");
    QTest::newRow("console") << text("console") << text("1.2.3") << text("running") << QString();
    QTest::newRow("bare") << text("bare") << text("0.1") << text("running") << QString();
    QTest::newRow("failing") << text("failing") << text("0.2") << text("failed")
                             << text("the flux is missing");
}

void tst_K7Host::pluginsAreListed()
{
    QFETCH(QString, name);
    QFETCH(QString, version);
    QFETCH(QString, state);
    QFETCH(QString, expectedError);
    QProcessEnvironment withoutDisplay = environment();
    withoutDisplay.remove(text("QT_QPA_PLATFORM"));

    const QString dir = text(FIXTURE_DIR "/") + name;
    const Result result = run({text("--list-plugins"), text("--plugin-dir"), dir}, withoutDisplay);
    const QStringList lines = linesOf(result.out);
    QCOMPARE(lines.size(), 1);
    const QStringList words = lines.first().split(QLatin1Char('\t'));
    const QStringList expectedWords{name, version, state, dir + text("/lib") + name + text(".so")};
    QCOMPARE(words.mid(0, 4), expectedWords);
    QCOMPARE(words.size(), expectedError.isEmpty() ? 4 : 5);
    QVERIFY2(words.last().contains(expectedError), qPrintable(words.last()));
    QCOMPARE(result.exitCode, 0);
}

void tst_K7Host::withoutADisplayAScreenshotIsStillWritten_data()
{
    QTest::addColumn<QString>("display");
    QTest::newRow("none") << QString();
    QTest::newRow("one that is not there") << text(":93");
}

void tst_K7Host::withoutADisplayAScreenshotIsStillWritten()
{
    QFETCH(QString, display);
    QProcessEnvironment session = environment();
    session.remove(text("QT_QPA_PLATFORM"));
    if (!display.isEmpty())
        session.insert(text("DISPLAY"), display);
    const Result result = run(consoleRun({text("--screenshot"), m_dir->path()}), session);
    QCOMPARE(result.err, text("k7host: no display, running offscreen\n"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(screenshotSize(), QSize(3489, 1050));
}

void tst_K7Host::withoutADisplayThereIsNothingToShow_data()
{
    withoutADisplayAScreenshotIsStillWritten_data();
}

void tst_K7Host::withoutADisplayThereIsNothingToShow()
{
    QFETCH(QString, display);
    QProcessEnvironment session = environment();
    session.remove(text("QT_QPA_PLATFORM"));
    if (!display.isEmpty())
        session.insert(text("DISPLAY"), display);
    const Result result = run(consoleRun(), session);
    QCOMPARE(linesOf(result.err).size(), 1);
    QVERIFY2(result.err.startsWith(text("k7host: no display")), qPrintable(result.err));
    QVERIFY2(result.err.contains(text("--screenshot")), qPrintable(result.err));
    QCOMPARE(result.exitCode, 2);
}

void tst_K7Host::anUnusablePlatformIsToldInOneLine()
{
    QProcessEnvironment session = environment();
    session.insert(text("QT_QPA_PLATFORM"), text("paper"));
    const Result result = run(consoleRun(), session);
    QCOMPARE(linesOf(result.err).size(), 1);
    QVERIFY2(result.err.startsWith(text("k7host: ")) && result.err.contains(text("paper")),
             qPrintable(result.err));
    QCOMPARE(result.exitCode, 2);
}

void tst_K7Host::aScenarioIsPlayedAndTraced_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("in the window") << QStringList();
    QTest::newRow("in a kiosk") << QStringList{text("--kiosk")};
    QTest::newRow("with the inspector") << QStringList{text("--inspect")};
}

void tst_K7Host::aScenarioIsPlayedAndTraced()
{
    QFETCH(QStringList, arguments);
    addFile(path("a.jsonl"), "# one call\n{\"op\":\"updateKeyboard\",\"half\":\"left\"}\n"
                             "{\"op\":\"screenshot\",\"file\":\"picture.png\"}\n");
    const Result result =
        run(consoleRun(arguments + QStringList{text("--scenario"), path("a.jsonl"), text("--trace"),
                                               path("a.trace"), text("--screenshot"), m_dir->path()}));
    QCOMPARE(result.err, QString());
    QCOMPARE(result.out, QString());
    QCOMPARE(result.exitCode, 0);
    QFile trace(path("a.trace"));
    QVERIFY(trace.open(QIODevice::ReadOnly));
    QCOMPARE(tracedCalls(trace.readAll()), QStringList{text("updateKeyboard")});
    QVERIFY(!QImage(path("picture.png")).isNull());
    QVERIFY(!QFile::exists(path("console.png")));
}

void tst_K7Host::scenarioAndTraceMayBeStandardInputAndOutput()
{
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(text(K7HOST), consoleRun({text("--scenario"), text("-"), text("--trace"), text("-")}));
    process.write("{\"op\":\"updateKeyboard\"}\n");
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardError(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(tracedCalls(process.readAllStandardOutput()), QStringList{text("updateKeyboard")});
}

void tst_K7Host::aWrongScenarioIsToldInOneLineBeforeItIsPlayed_data()
{
    QTest::addColumn<QByteArray>("lastLine");
    QTest::addColumn<QString>("expectedReason");
    QTest::newRow("no JSON") << QByteArray("updateKeyboard") << text("no JSON");
    QTest::newRow("no such operation")
        << QByteArray("{\"op\":\"jump\"}") << text("there is no operation \"jump\"");
    QTest::newRow("no such key") << QByteArray("{\"op\":\"click\",\"key\":\"PRESET_99\"}")
                                 << text("PRESET_99");
    QTest::newRow("no such widget") << QByteArray("{\"op\":\"click\",\"widget\":\"nope\"}") << text("nope");
    QTest::newRow("no folder for pictures")
        << QByteArray("{\"op\":\"screenshot\",\"file\":\"a.png\"}") << text("--screenshot DIR");
}

void tst_K7Host::aWrongScenarioIsToldInOneLineBeforeItIsPlayed()
{
    QFETCH(QByteArray, lastLine);
    QFETCH(QString, expectedReason);
    addFile(path("a.jsonl"), "{\"op\":\"updateKeyboard\"}\n" + lastLine);
    const Result result = run(consoleRun({text("--scenario"), path("a.jsonl"), text("--trace"), text("-")}));
    QCOMPARE(result.out, QString());
    QCOMPARE(linesOf(result.err).size(), 1);
    QVERIFY2(result.err.startsWith(text("k7host: ") + path("a.jsonl") + text(":2: ")),
             qPrintable(result.err));
    QVERIFY2(result.err.contains(expectedReason), qPrintable(result.err));
    QCOMPARE(result.exitCode, 2);
}

void tst_K7Host::aStepThatFailsEndsTheProgram()
{
    addFile(path("a.jsonl"), "{\"op\":\"waitFor\",\"signal\":\"ecButtonPressed\",\"ms\":1}");
    const Result result =
        run({text("--plugin-dir"), fixture("console"), text("--scenario"), path("a.jsonl")});
    QCOMPARE(result.err, text("k7host: ") + path("a.jsonl") + text(":1: no ecButtonPressed in this time\n"));
    QCOMPARE(result.exitCode, 2);
}

void tst_K7Host::afterAScenarioTheConsoleStaysUnlessAsked()
{
    addFile(path("a.jsonl"), "{\"op\":\"screenshot\",\"file\":\"console.png\"}");
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(text(K7HOST), {text("--plugin-dir"), fixture("console"), text("--scenario"),
                                 path("a.jsonl"), text("--screenshot"), m_dir->path()});
    QTRY_VERIFY(!screenshotSize().isEmpty());
    QCOMPARE(process.state(), QProcess::Running);
    process.terminate();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
}

void tst_K7Host::aTraceThatCannotBeWrittenIsToldInOneLine()
{
    const Result result = run(consoleRun({text("--trace"), path("missing/a.trace")}));
    QCOMPARE(linesOf(result.err).size(), 1);
    QVERIFY2(result.err.contains(path("missing/a.trace")), qPrintable(result.err));
    QCOMPARE(result.exitCode, 2);
}

void tst_K7Host::aFullDiskIsToldOnceAndEndsNothing()
{
    const Result result = run(consoleRun({text("--trace"), text("/dev/full")}));
    QCOMPARE(linesOf(result.err).size(), 1);
    QVERIFY2(result.err.contains(text("/dev/full")), qPrintable(result.err));
    QCOMPARE(result.exitCode, 0);
}

void tst_K7Host::aKilledProgramLeavesWholeLines()
{
    addFile(path("a.jsonl"), "{\"op\":\"updateKeyboard\",\"half\":\"left\"}\n{\"op\":\"wait\",\"ms\":60000}");
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(text(K7HOST),
                  consoleRun({text("--scenario"), path("a.jsonl"), text("--trace"), path("trace")}));
    QFile trace(path("trace"));
    QByteArray lines;
    const auto isPlayed = [&] {
        trace.close();
        if (trace.open(QIODevice::ReadOnly))
            lines = trace.readAll();
        return lines.contains("updateKeyboard");
    };
    QTRY_VERIFY(isPlayed());
    process.kill();
    QVERIFY(process.waitForFinished());
    QVERIFY(isPlayed());
    QVERIFY(lines.endsWith('\n'));
    QCOMPARE(tracedCalls(lines), QStringList{text("updateKeyboard")});
}

void tst_K7Host::withoutADisplayAScenarioIsPlayed()
{
    addFile(path("a.jsonl"), "{\"op\":\"updateKeyboard\"}");
    QProcessEnvironment session = environment();
    session.remove(text("QT_QPA_PLATFORM"));
    const Result result = run(consoleRun({text("--scenario"), path("a.jsonl")}), session);
    QCOMPARE(result.err, text("k7host: no display, running offscreen\n"));
    QCOMPARE(result.exitCode, 0);
}

void tst_K7Host::latencyIsSummedUpAtTheEnd()
{
    const Result result = run(consoleRun({text("--latency")}));
    QCOMPARE(result.out, QString());
    QVERIFY2(result.err.contains(text("touch")) && result.err.contains(text("record")),
             qPrintable(result.err));
    QCOMPARE(result.exitCode, 0);
}

void tst_K7Host::aBadLinkIsNoFault()
{
    const Result result = run(
        consoleRun({text("--faults"), text("late,lost,duplicate,garbled,storm"), text("--seed"), text("3")}));
    QCOMPARE(result.err, QString());
    QCOMPARE(result.exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_K7Host)

#include "tst_k7host.moc"
