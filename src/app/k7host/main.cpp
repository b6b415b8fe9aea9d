// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "applicationlanguage.h"
#include "applytheme.h"
#include "consolesession.h"
#include "consolewindow.h"
#include "display.h"
#include "faultylink.h"
#include "hardwarepanel.h"
#include "hostsettings.h"
#include "instruments.h"
#include "keypadtrigger.h"
#include "languagemenu.h"
#include "logging.h"
#include "options.h"
#include "pluginhost.h"
#include "quitonsignal.h"
#include "scaledview.h"
#include "scenario.h"
#include "screenshot.h"
#include "simulatedprocessor.h"

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QApplication>
#include <QBoxLayout>
#include <QDir>

#include <cstdio>
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

/// Shows the window, in a view when it is to be smaller than it is.
std::unique_ptr<QWidget> show(ConsoleWindow *window, const Options &options)
{
    const qreal factor = reduction(options, window->size());
    std::unique_ptr<QWidget> view;
    if (factor < 1)
        view = std::make_unique<ScaledView>(window, factor);
    (view ? view.get() : window)->show();
    return view;
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

/// Does what was asked for once the console is shown.
void finishStart(ConsoleWindow *window, Instruments *instruments, const Options &options)
{
    instruments->start(window);
    if (!options.scenario.isEmpty())
        return;
    if (!options.screenshotDir.isEmpty()) {
        const auto fault = saveScreenshot(window->picture(options.pictureFactor()), options.screenshotDir,
                                          ScreenshotLine().file);
        if (fault)
            return QCoreApplication::exit(report(*fault));
    }
    if (options.exit)
        QCoreApplication::exit(ExitDone);
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
    if (const auto fault = applyTheme(options.themeDir))
        return report(*fault);

    const HostSettings settings(options.language);
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
    // A trace holds all that the link would report.
    if (!scenario.isTrace())
        session.start();
    followScenario(&instruments, &session, options, scenario.isTrace());

    ConsoleWindow window(session.halves());
    join(&window, &processor);
    window.hardwarePanel()->toolPlace()->addWidget(new LanguageMenu(&language));
    const KeypadTrigger keypad(&window);
    QObject::connect(&window, &ConsoleWindow::shown, &window,
                     [&] { finishStart(&window, &instruments, options); });
    const auto view = show(&window, options);

    const QuitOnSignal quitOnSignal;
    const int exitCode = QApplication::exec();
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
