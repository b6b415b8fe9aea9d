// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "applicationlanguage.h"
#include "applytheme.h"
#include "consolesession.h"
#include "consolewindow.h"
#include "display.h"
#include "faultylink.h"
#include "hardwarepanel.h"
#include "hostactions.h"
#include "hostsettings.h"
#include "hostwindow.h"
#include "instruments.h"
#include "keypadtrigger.h"
#include "kineticscroller.h"
#include "kiosk.h"
#include "logging.h"
#include "options.h"
#include "pluginhost.h"
#include "quitonsignal.h"
#include "scenario.h"
#include "screenshot.h"
#include "simulatedprocessor.h"

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QApplication>
#include <QDir>
#include <QIcon>

#include <cstdio>
#include <functional>
#include <memory>

using namespace K7Host;

namespace {

CommandLine readCommandLine(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv); // knows the program's folder
    return parseCommandLine(QCoreApplication::arguments(), QCoreApplication::applicationDirPath());
}

int print(const QString &text)
{
    std::fputs(qPrintable(text), stdout);
    return ExitDone;
}

int listPlugins(int argc, char *argv[], const Options &options)
{
    const QCoreApplication application(argc, argv);
    const HostSettings settings(options.language);
    PluginHost plugins(settings.store());
    if (const auto fault = plugins.load(options.pluginDir))
        return report(*fault);
    return print(plugins.descriptions().join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

/// Where the plug-in looks for its texts.
QString translationsDir()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/translations"));
}

/// The window shows the processor's hardware, and what is done there goes to the processor.
void join(ConsoleWindow *window, SimulatedProcessor *processor)
{
    QObject::connect(processor, &SimulatedProcessor::hardwareChanged, window, &ConsoleWindow::showHardware);
    QObject::connect(window, &ConsoleWindow::switchOnRequested, processor, &SimulatedProcessor::switchOn);
    QObject::connect(window->hardwarePanel(), &HardwarePanel::dviSignalSwitched, processor,
                     &SimulatedProcessor::setDviSignal);
    window->showHardware(processor->hardware());
}

/// What both ways of showing the console need.
struct Parts
{
    const Options &options;
    HostSettings *settings;
    QString themeDir;
    ConsoleSession *session;
    SimulatedProcessor *processor;
    ApplicationLanguage *language;
    Instruments *instruments;
    bool isTrace; // what is played

    qreal scale() const { return options.scaleGiven ? options.scale : settings->scale(); }
};

/// To be called when the halves have a parent: the session gives every key a style sheet, with which each new
/// parent polishes it anew.
void beginSession(const Parts &parts)
{
    if (!parts.isTrace) // which holds all that the link would report
        parts.session->start();
}

using Picture = std::function<QImage(qreal factor)>;

/// Does what was asked for once the console is shown.
void finishStart(const Parts &parts, const Picture &picture)
{
    parts.instruments->start(picture);
    const Options &options = parts.options;
    if (!options.scenario.isEmpty())
        return;
    if (!options.screenshotDir.isEmpty()) {
        const auto fault =
            saveScreenshot(picture(options.pictureFactor()), options.screenshotDir, ScreenshotLine().file);
        if (fault)
            return QCoreApplication::exit(report(*fault));
    }
    if (options.exit)
        QCoreApplication::exit(ExitDone);
}

/// Sees input before those who note it, and before those that were kept first until now.
void keepFirst(QObject *filter, const Parts &parts)
{
    QObject::connect(parts.instruments, &Instruments::inspectingChanged, filter,
                     [filter] { qApp->installEventFilter(filter); });
}

/// What a desk of glass has beside its keys. All are children of the console.
void addTouchAids(ConsoleWindow *console, const Parts &parts)
{
    keepFirst(new KeypadTrigger(console), parts);
    keepFirst(new KineticScroller(console), parts);
}

int runUntilAsked()
{
    const QuitOnSignal quitOnSignal;
    return QApplication::exec();
}

int runInWindow(const Parts &parts)
{
    ConsoleWindow console(parts.session->halves());
    beginSession(parts);
    join(&console, parts.processor);
    addTouchAids(&console, parts);
    HostWindow window(&console, parts.settings);
    window.addLanguages(parts.language);
    window.addThemes(parts.themeDir);
    window.addTool(makeInspectorAction(parts.instruments, &window));
    window.setScreenshotDir(parts.options.screenshotDir);
    // Where nobody looks, nothing depends on how large a screen is said to be, or on the last run.
    const qreal scale = parts.scale();
    window.setScale(isOffscreen() && scale == 0 ? 1 : scale);
    if (!isOffscreen())
        window.rememberPlace();
    QObject::connect(&console, &ConsoleWindow::shown, &window, [&] {
        finishStart(parts, [&console](qreal factor) { return console.picture(factor); });
    });
    window.show();
    return runUntilAsked();
}

int runAsKiosk(const Parts &parts)
{
    Kiosk kiosk(parts.session->halves(), parts.scale());
    beginSession(parts);
    const QList<ConsoleWindow *> consoles = kiosk.consoles();
    for (ConsoleWindow *console : consoles) {
        join(console, parts.processor);
        addTouchAids(console, parts);
    }
    makeQuitAction(kiosk.mainWindow());
    makeNextLanguageAction(parts.language, kiosk.mainWindow());
    makeInspectorAction(parts.instruments, kiosk.mainWindow());
    QObject::connect(parts.instruments, &Instruments::inspectingChanged, &kiosk, &Kiosk::setCursorShown);
    QObject::connect(&kiosk, &Kiosk::shown, &kiosk,
                     [&] { finishStart(parts, [&kiosk](qreal factor) { return kiosk.picture(factor); }); });
    kiosk.show();
    kiosk.setCursorShown(parts.instruments->isInspecting());
    return runUntilAsked();
}

/// The theme that was asked for, or chosen before. A chosen one that cannot be used is no reason not to
/// start.
std::optional<Fault> applyAnyTheme(const Options &options, const HostSettings &settings, QString *dir)
{
    *dir = options.themeGiven ? options.themeDir : settings.theme(options.themeDir);
    auto fault = applyTheme(*dir);
    if (!fault || *dir == options.themeDir)
        return fault;
    complain(fault->text);
    *dir = options.themeDir;
    return applyTheme(*dir);
}

/// What follows when the scenario ends, well or not.
void followScenario(Instruments *instruments, ConsoleSession *session, const Options &options, bool isTrace)
{
    QObject::connect(instruments, &Instruments::failed, session,
                     [](const Fault &fault) { QCoreApplication::exit(report(fault)); });
    QObject::connect(instruments, &Instruments::played, session, [=] {
        if (options.exit)
            QCoreApplication::exit(ExitDone);
        else if (isTrace)
            session->start(); // the link takes over
    });
}

int showConsole(int argc, char *argv[], const Options &options)
{
    Scenario scenario;
    if (const auto fault = readScenario(options.scenario, &scenario))
        return report(*fault);

    prepareDisplay(options);
    QApplication application(argc, argv);
    if (const auto fault = checkDisplay(options))
        return report(*fault);
    HostSettings settings(options.language);
    QString themeDir;
    if (const auto fault = applyAnyTheme(options, settings, &themeDir))
        return report(*fault);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/k7host.svg")));

    PluginHost plugins(settings.store());
    if (const auto fault = plugins.load(options.pluginDir))
        return report(*fault);
    Korvo::IKorvoECKeyboardPlugin *plugin = plugins.keyboardPlugin();
    if (!plugin && plugins.hasFailed())
        return ExitPluginUnusable; // the reason is told
    if (!plugin) {
        return report({ExitPluginUnusable,
                       QStringLiteral("no plug-in in %1 supplies a console").arg(options.pluginDir)});
    }

    ApplicationLanguage language(plugin, settings.store(), translationsDir());
    SimulatedProcessor processor;
    const auto badLink =
        options.faults ? std::make_unique<FaultyLink>(&processor, options.faults, options.seed) : nullptr;
    Instruments instruments(options, scenario);
    ConsoleSession session(plugin, badLink ? badLink.get() : static_cast<DeviceLink *>(&processor));
    session.prepare();
    if (const auto fault = instruments.watch(&session))
        return report(*fault);
    followScenario(&instruments, &session, options, scenario.isTrace());
    if (session.halves().isEmpty())
        return report({ExitPluginUnusable, QStringLiteral("the plug-in supplies no console halves")});

    const Parts parts{options,    &settings, themeDir,     &session,
                      &processor, &language, &instruments, scenario.isTrace()};
    const int exitCode = options.kiosk ? runAsKiosk(parts) : runInWindow(parts);
    std::fputs(qPrintable(instruments.latencySummary()), stderr);
    return exitCode;
}

} // namespace

int main(int argc, char *argv[])
{
    const CommandLine commandLine = readCommandLine(argc, argv);
    switch (commandLine.outcome) {
    case CommandLine::Answered:
        return print(commandLine.text);
    case CommandLine::Refused:
        return report({ExitBadArguments, commandLine.text});
    case CommandLine::Run:
        break;
    }
    setUpLogging(commandLine.options.verbose);
    return commandLine.options.listPlugins ? listPlugins(argc, argv, commandLine.options)
                                           : showConsole(argc, argv, commandLine.options);
}
