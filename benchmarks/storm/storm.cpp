// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolelooks.h"
#include "stormlink.h"

#include <applytheme.h>
#include <consolesession.h>
#include <consolewindow.h>
#include <hostsettings.h>
#include <latencymeter.h>
#include <logging.h>
#include <pluginhost.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <sys/resource.h>

#include <cstdio>
#include <memory>
#include <optional>

using namespace K7Host;

namespace {

// Later than whatever waits for the next frame.
constexpr int PaintedMs = 20;

struct Wish
{
    StormLink::Plan plan;
    bool isMeasured = true;
};

/// Nothing when the command line makes no sense.
std::optional<Wish> readWish(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Hands the records of a busy show to the console, from a thread, and sees whether it keeps up."));
    parser.addHelpOption();
    const QCommandLineOption seconds(QStringLiteral("seconds"), QStringLiteral("How long it lasts."),
                                     QStringLiteral("N"), QStringLiteral("60"));
    const QCommandLineOption rate(QStringLiteral("rate"), QStringLiteral("Records a second."),
                                  QStringLiteral("R"), QStringLiteral("1000"));
    const QCommandLineOption step(
        QStringLiteral("step"),
        QStringLiteral(
            "Hand in N records at once, as soon as the ones before are painted, instead of each at "
            "its time: as many in all, but as slowly as need be."),
        QStringLiteral("N"));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("Which records."),
                                  QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption bare(QStringLiteral("bare"), QStringLiteral("Measure no latencies."));
    parser.addOptions({seconds, rate, step, seed, bare});
    parser.process(application);

    Wish wish;
    const double duration = parser.value(seconds).toDouble();
    wish.plan.rate = parser.value(rate).toDouble();
    wish.plan.count = static_cast<qint64>(duration * wish.plan.rate);
    wish.plan.seed = parser.value(seed).toUInt();
    if (parser.isSet(step)) {
        wish.plan.step = parser.value(step).toInt();
        wish.plan.rate = 0;
    }
    wish.isMeasured = !parser.isSet(bare);
    if (wish.plan.count < 1 || wish.plan.step < 1)
        return {};
    return wish;
}

double secondsOf(const timeval &time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// What a thread, or the program, has used of the processor, in seconds.
struct ProcessorTime
{
    explicit ProcessorTime(int whose)
    {
        rusage usage{};
        getrusage(whose, &usage);
        inProgram = secondsOf(usage.ru_utime);
        inKernel = secondsOf(usage.ru_stime);
    }
    double inProgram;
    double inKernel;
};

void print(const char *name, const QString &value)
{
    std::printf("%-20s %s\n", name, qPrintable(value));
}

QString percentText(double part, double whole)
{
    return QStringLiteral("%1 %").arg(part * 100 / whole, 0, 'f', 1);
}

} // namespace

/// All of the storm happens in here: profilers look for its name.
extern "C" Q_DECL_EXPORT Q_NEVER_INLINE void runStorm()
{
    QCoreApplication::exec();
}

namespace {

/// The console of the plug-in that is loaded, in its window, at the link that storms.
class StormyConsole
{
public:
    explicit StormyConsole(const Wish &wish)
        : m_link(wish.plan)
        , m_settings(QStringLiteral("en"))
        , m_plugins(m_settings.store())
        , m_isMeasured(wish.isMeasured)
    {
    }

    std::optional<Fault> show();
    void run();
    void printFigures() const;
    /// Whether every record was taken, and every part shows its last one. Changes what it shows.
    bool isComplete();

private:
    void handAll(const std::vector<HostCall> &calls) const
    {
        for (const HostCall &call : calls)
            m_session->call(call);
    }

    StormLink m_link;
    HostSettings m_settings;
    PluginHost m_plugins;
    const bool m_isMeasured;
    std::unique_ptr<LatencyMeter> m_meter;
    std::unique_ptr<ConsoleSession> m_session;
    std::unique_ptr<ConsoleWindow> m_window;
    double m_seconds = 0;
    double m_processTime = 0;
    double m_guiTimeInProgram = 0;
    double m_guiTimeInKernel = 0;
};

std::optional<Fault> StormyConsole::show()
{
    if (auto fault = applyTheme(QStringLiteral(KORVO_THEME)))
        return fault;
    if (auto fault = m_plugins.load(QStringLiteral(KORVO_PLUGINS)))
        return fault;
    if (!m_plugins.keyboardPlugin())
        return Fault{ExitPluginUnusable, QStringLiteral("there is no console")};
    m_session = std::make_unique<ConsoleSession>(m_plugins.keyboardPlugin(), &m_link);
    m_session->prepare();
    if (m_isMeasured) {
        m_meter = std::make_unique<LatencyMeter>(m_session->halves());
        m_session->addObserver(m_meter.get());
    }
    m_session->start();
    m_window = std::make_unique<ConsoleWindow>(m_session->halves());
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        return Fault{ExitPluginUnusable, QStringLiteral("the console does not come up")};
    QCoreApplication::processEvents();
    return {};
}

void StormyConsole::run()
{
    QObject::connect(&m_link, &StormLink::stepSent, m_window.get(), [this] {
        QTimer::singleShot(PaintedMs, Qt::PreciseTimer, m_window.get(), [this] { m_link.goOn(); });
    });
    // Behind the last record, and what that asks to be painted.
    QObject::connect(&m_link, &StormLink::finished, m_window.get(), [this] {
        QTimer::singleShot(PaintedMs, m_window.get(), [] { QCoreApplication::quit(); });
    });
    if (m_meter)
        m_meter->reset();
    const ProcessorTime process(RUSAGE_SELF);
    const ProcessorTime gui(RUSAGE_THREAD);
    QElapsedTimer timer;
    timer.start();
    m_link.start();
    runStorm();
    m_seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    const ProcessorTime guiAfter(RUSAGE_THREAD);
    const ProcessorTime processAfter(RUSAGE_SELF);
    m_guiTimeInProgram = guiAfter.inProgram - gui.inProgram;
    m_guiTimeInKernel = guiAfter.inKernel - gui.inKernel;
    m_processTime = processAfter.inProgram + processAfter.inKernel - process.inProgram - process.inKernel;
}

void StormyConsole::printFigures() const
{
    print("sent", QStringLiteral("%1 records in %2 s").arg(m_link.sentCount()).arg(m_seconds, 0, 'f', 1));
    print("processor",
          QStringLiteral("%1 of a core; GUI thread %2 in the program, %3 in the kernel")
              .arg(percentText(m_processTime, m_seconds), percentText(m_guiTimeInProgram, m_seconds),
                   percentText(m_guiTimeInKernel, m_seconds)));
    print("latest hand-over", millisecondsText(m_link.worstDelay()) + QStringLiteral(" after its time"));
    if (m_meter)
        std::fputs(qPrintable(m_meter->summary()), stdout);
}

bool StormyConsole::isComplete()
{
    const bool areAllTaken = !m_meter || m_meter->recordCount() == 2 * m_link.sentCount(); // each half's
    const ConsoleLooks shown = looksOf(m_window.get());
    handAll(StormRecords::otherOnes());
    const int changedCount = differenceOf(shown, looksOf(m_window.get()));
    handAll(m_link.records().lastOnes());
    const int wrongCount = differenceOf(shown, looksOf(m_window.get()));
    print("compared", QStringLiteral("%1 keys, labels and levers, of which %2 do not show their last record")
                          .arg(changedCount)
                          .arg(wrongCount));
    // Two keys take no colour, five labels no text.
    const bool isAllCompared = changedCount > shown.size() - 10;
    return areAllTaken && isAllCompared && wrongCount == 0;
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir settingsDir; // nobody's own
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settingsDir.path());
    const QApplication application(argc, argv);
    setUpLogging(false);
    const std::optional<Wish> wish = readWish(application);
    if (!wish) {
        std::fputs("storm: there must be records to send\n", stderr);
        return 2;
    }
    StormyConsole console(*wish);
    if (const auto fault = console.show()) {
        std::fprintf(stderr, "storm: %s\n", qPrintable(fault->text));
        return fault->exitCode;
    }
    console.run();
    console.printFigures();
    const bool isComplete = console.isComplete();
    print("result", isComplete ? QStringLiteral("complete") : QStringLiteral("NOT COMPLETE"));
    return isComplete ? 0 : 1;
}
