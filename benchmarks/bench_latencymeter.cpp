// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <applytheme.h>
#include <consolesession.h>
#include <consolewindow.h>
#include <korvoeckeyboardk7plugin.h>
#include <latencymeter.h>
#include <simulatedprocessor.h>

#include <korvo/keyboard/constants.h>

#include <QAbstractButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <memory>
#include <optional>

using namespace K7Host;

namespace {

constexpr quint32 Key = 38; // of the left half
constexpr quint32 EveryKey = 255;
constexpr int WarmUps = 4; // an even number: what alternates is as it was

HostCall color(quint32 key, bool isGreen)
{
    auto record = std::make_shared<Korvo::ECButtonColor>();
    record->ButtonKey = key;
    (isGreen ? record->G : record->R) = 255;
    return record;
}

} // namespace

/// What it costs to measure latencies: each with the console alone, and with a meter that watches it. The
/// console is the real one at its native size with its theme, answered by the simulated processor.
class bench_LatencyMeter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void anEvent_data() { addRows(); }
    void anEvent();
    void aRecordThatChangesNothing_data() { addRows(); }
    void aRecordThatChangesNothing();
    void aRecord_data() { addRows(); }
    void aRecord();
    void aRecordWithItsPainting_data() { addRows(); }
    void aRecordWithItsPainting();
    void aBroadcastWithItsPainting_data() { addRows(); }
    void aBroadcastWithItsPainting();
    void aClickWithItsAnswer_data() { addRows(); }
    void aClickWithItsAnswer();

private:
    static void addRows()
    {
        QTest::addColumn<bool>("isMeasured");
        QTest::newRow("without a meter") << false;
        QTest::newRow("with a meter") << true;
    }
    void takeDown();
    // What was posted, and no timers: a tick would fall into one count or the other.
    static void paint() { QCoreApplication::sendPostedEvents(); }
    template <typename Work>
    static void measure(const Work &work);

    QTemporaryDir m_configDir;
    std::optional<bool> m_isMeasured; // whether the console that stands has a meter
    std::unique_ptr<Korvo::ECKeyboard::K7Plugin> m_plugin;
    std::unique_ptr<SimulatedProcessor> m_processor;
    std::unique_ptr<LatencyMeter> m_meter;
    std::unique_ptr<ConsoleSession> m_session;
    std::unique_ptr<ConsoleWindow> m_window;
};

void bench_LatencyMeter::initTestCase()
{
    QVERIFY(m_configDir.isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_configDir.path());
    QVERIFY(!applyTheme(QStringLiteral(K7_THEME)));
}

/// Called often, since measurements are repeated until they take long enough.
void bench_LatencyMeter::init()
{
    QFETCH(bool, isMeasured);
    if (m_isMeasured == isMeasured)
        return;
    takeDown();
    m_isMeasured = isMeasured;
    m_plugin = std::make_unique<Korvo::ECKeyboard::K7Plugin>();
    m_processor = std::make_unique<SimulatedProcessor>();
    m_session = std::make_unique<ConsoleSession>(m_plugin.get(), m_processor.get());
    m_session->prepare();
    if (isMeasured) {
        m_meter = std::make_unique<LatencyMeter>(m_session->halves());
        m_session->addObserver(m_meter.get());
    }
    m_session->start();
    m_window = std::make_unique<ConsoleWindow>(m_session->halves());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    paint();
}

void bench_LatencyMeter::cleanupTestCase()
{
    takeDown();
}

void bench_LatencyMeter::takeDown()
{
    m_window.reset();
    m_session.reset();
    m_meter.reset();
    m_processor.reset();
    m_plugin.reset();
}

/// One call is enough to count instructions, once what alternates has been shown both ways.
template <typename Work>
void bench_LatencyMeter::measure(const Work &work)
{
    for (int i = 0; i < WarmUps; ++i)
        work();
    QBENCHMARK
    {
        work();
    }
}

void bench_LatencyMeter::anEvent()
{
    QObject receiver;
    QEvent event(QEvent::User);
    measure([&] { QCoreApplication::sendEvent(&receiver, &event); });
}

void bench_LatencyMeter::aRecordThatChangesNothing()
{
    const HostCall green = color(Key, true);
    m_session->call(green);
    paint();
    measure([&] { m_session->call(green); });
}

void bench_LatencyMeter::aRecord()
{
    const HostCall green = color(Key, true);
    const HostCall red = color(Key, false);
    measure([&] {
        m_session->call(green);
        m_session->call(red);
    });
}

void bench_LatencyMeter::aRecordWithItsPainting()
{
    bool isGreen = false;
    measure([&] {
        isGreen = !isGreen;
        m_session->call(color(Key, isGreen));
        paint();
    });
}

void bench_LatencyMeter::aBroadcastWithItsPainting()
{
    bool isGreen = false;
    measure([&] {
        isGreen = !isGreen;
        m_session->call(color(EveryKey, isGreen));
        paint();
    });
}

void bench_LatencyMeter::aClickWithItsAnswer()
{
    const auto keys = m_window->findChildren<QAbstractButton *>();
    const auto found = std::find_if(keys.cbegin(), keys.cend(), [](const QAbstractButton *key) {
        return key->property(Korvo::Constants::PROPERTY_KORVOECKEY).toUInt() == Key;
    });
    QVERIFY(found != keys.cend());
    const QPoint place = (*found)->mapTo(m_window.get(), (*found)->rect().center());
    measure([&] {
        QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, place);
        paint();
    });
}

QTEST_MAIN(bench_LatencyMeter)

#include "bench_latencymeter.moc"
