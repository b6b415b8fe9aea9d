// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "instruments.h"

#include "consolesession.h"
#include "consolewidgets.h"
#include "hand.h"
#include "inputrecorder.h"
#include "inspector.h"
#include "latencymeter.h"
#include "latencypage.h"
#include "messageboxes.h"
#include "scenarioplayer.h"
#include "screenshot.h"
#include "tracewriter.h"
#include "traffic.h"

#include <QApplication>
#include <QSet>

#include <algorithm>

namespace K7Host {

namespace {

/// Parts of popups are made when they open: the calendar, and Qt's own.
bool comesLater(const QString &address)
{
    const QStringList names = address.split(QLatin1Char('/'));
    return std::any_of(names.cbegin(), names.cend(), [](const QString &name) {
        return name.startsWith(QLatin1String("calendar")) || name.startsWith(QLatin1String("qt_")) ||
               name.startsWith(QLatin1Char('Q'));
    });
}

/// Writes the traffic down.
class Trace : public TrafficListener
{
public:
    std::optional<Fault> open(const QString &name) { return m_writer.open(name); }
    void noted(const ScenarioLine &line) override { m_writer.write(line.ms.value_or(0), toJson(line)); }

private:
    TraceWriter m_writer;
};

} // namespace

class Instruments::Private
{
public:
    Private(const Options &wanted, const Scenario &toPlay)
        : options(wanted)
        , scenario(toPlay)
    {
    }

    bool plays() const { return !options.scenario.isEmpty(); }
    bool records() const { return !options.trace.isEmpty(); }

    void makeMeter();
    void makeTraffic();
    void makeRecorder();
    void makeInspector();
    void makePlayer();
    void beginInspecting();
    void endInspecting();
    std::optional<Fault> saveScreenshot(const QString &file) const;
    std::optional<Fault> faultOfScenario(const ConsoleWidgets &widgets) const;
    QString faultOf(const InputLine &input, const ConsoleWidgets &widgets, QSet<int> *fingers) const;

    const Options options;
    const Scenario scenario;
    ConsoleSession *session = nullptr;
    std::function<QImage(qreal)> picture;
    bool isInspecting = false;

    // Each is null until something needs it; what uses another one stands behind it. What the session tells
    // of calls stays to the end: another thread may still be telling it when it is not needed any more.
    Trace trace;
    std::unique_ptr<Traffic> traffic;
    std::unique_ptr<LatencyMeter> meter;
    std::unique_ptr<MessageBoxes> boxes;
    std::unique_ptr<Hand> hand;
    std::unique_ptr<InputRecorder> recorder;
    std::unique_ptr<ScenarioPlayer> player;
    std::unique_ptr<Inspector> inspector;
};

Instruments::Instruments(const Options &options, const Scenario &scenario)
    : d(new Private(options, scenario))
{
}

Instruments::~Instruments() = default;

std::optional<Fault> Instruments::watch(ConsoleSession *session)
{
    d->session = session;
    if (auto fault = d->faultOfScenario(ConsoleWidgets(session->halves())))
        return fault;
    if (d->records()) {
        if (auto fault = d->trace.open(d->options.trace))
            return fault;
    }
    if (d->options.latency) {
        d->makeMeter();
        session->addObserver(d->meter.get());
    }
    if (d->plays() || d->records()) {
        d->makeTraffic();
        session->addObserver(d->traffic.get());
    }
    if (d->records()) {
        d->traffic->addListener(&d->trace);
        d->makeRecorder();
    }
    setInspecting(d->options.inspect);
    if (d->plays()) {
        d->makePlayer();
        connect(d->player.get(), &ScenarioPlayer::finished, this, &Instruments::played);
        connect(d->player.get(), &ScenarioPlayer::failed, this, &Instruments::failed);
        connect(qApp, &QCoreApplication::aboutToQuit, d->player.get(), &ScenarioPlayer::stop);
    }
    return {};
}

void Instruments::start(const std::function<QImage(qreal)> &picture)
{
    d->picture = picture;
    if (d->isInspecting)
        d->inspector->show();
    if (d->player)
        d->player->start();
}

bool Instruments::isInspecting() const
{
    return d->isInspecting;
}

void Instruments::setInspecting(bool isOn)
{
    if (isOn == d->isInspecting)
        return;
    if (!d->inspector) {
        d->makeInspector();
        connect(d->inspector.get(), &Inspector::closed, this, [this] { setInspecting(false); });
    }
    d->isInspecting = isOn;
    if (isOn)
        d->beginInspecting();
    else
        d->endInspecting();
    const bool isStarted = d->picture != nullptr;
    d->inspector->setVisible(isOn && isStarted);
    emit inspectingChanged(isOn);
}

QString Instruments::latencySummary() const
{
    return d->options.latency ? d->meter->summary() : QString();
}

void Instruments::Private::makeMeter()
{
    if (!meter)
        meter = std::make_unique<LatencyMeter>(session->halves());
}

void Instruments::Private::makeTraffic()
{
    if (traffic)
        return;
    traffic = std::make_unique<Traffic>();
    boxes = std::make_unique<MessageBoxes>(session->halves());
    Traffic *const all = traffic.get();
    QObject::connect(boxes.get(), &MessageBoxes::opened, boxes.get(),
                     [all](const MessageLine &message) { all->note(Direction::Out, message); });
    QObject::connect(boxes.get(), &MessageBoxes::answered, boxes.get(),
                     [all](const AnswerLine &answer) { all->note(Direction::In, answer); });
    hand = std::make_unique<Hand>(session->halves());
}

void Instruments::Private::makeRecorder()
{
    if (!recorder)
        recorder = std::make_unique<InputRecorder>(session->halves(), traffic.get(), hand.get());
}

void Instruments::Private::makeInspector()
{
    makeMeter();
    makeTraffic();
    inspector = std::make_unique<Inspector>(session->halves());
    inspector->addPage(new LatencyPage(meter.get()), QStringLiteral("Latency"));
    QObject::connect(
        inspector.get(), &Inspector::callRequested, session,
        [this](const HostCall &call, const std::optional<Half> &half) { session->call(call, half); });
}

void Instruments::Private::beginInspecting()
{
    traffic->addListener(inspector->listener());
    makeRecorder();
    if (!options.latency) {
        meter->setMeasuring(true);
        session->addObserver(meter.get());
    }
    if (!plays() && !records())
        session->addObserver(traffic.get());
}

void Instruments::Private::endInspecting()
{
    traffic->removeListener(inspector->listener());
    if (!records())
        recorder.reset();
    if (!options.latency) {
        meter->setMeasuring(false);
        session->removeObserver(meter.get());
    }
    if (!plays() && !records())
        session->removeObserver(traffic.get());
}

void Instruments::Private::makePlayer()
{
    const ScenarioPlayer::Stage stage{session, hand.get(), boxes.get(), traffic.get(),
                                      [this](const QString &file) { return saveScreenshot(file); }};
    player = std::make_unique<ScenarioPlayer>(scenario, stage);
    session->addObserver(player.get());
}

std::optional<Fault> Instruments::Private::saveScreenshot(const QString &file) const
{
    return K7Host::saveScreenshot(picture(options.pictureFactor()), options.screenshotDir, file);
}

/// What can be known before anything is played.
std::optional<Fault> Instruments::Private::faultOfScenario(const ConsoleWidgets &widgets) const
{
    QSet<int> fingers;
    for (const Scenario::Step &step : scenario.steps) {
        QString reason;
        if (options.screenshotDir.isEmpty() && std::holds_alternative<ScreenshotLine>(step.line.content))
            reason = QStringLiteral("pictures need --screenshot DIR");
        else if (const auto *input = std::get_if<InputLine>(&step.line.content))
            reason = faultOf(*input, widgets, &fingers);
        if (!reason.isEmpty())
            return scenario.fault(step.number, reason);
    }
    return {};
}

/// \a fingers are those that are down before, and after.
QString Instruments::Private::faultOf(const InputLine &input, const ConsoleWidgets &widgets,
                                      QSet<int> *fingers) const
{
    if (!comesLater(input.widget)) {
        QString fault = widgets.find(input).fault;
        if (!fault.isEmpty())
            return fault;
    }
    // A trace may begin while a finger is down.
    if (!input.finger || scenario.isTrace())
        return {};
    const bool isDown = fingers->contains(*input.finger);
    if (input.action == InputLine::Press)
        fingers->insert(*input.finger);
    else if (input.action == InputLine::Release)
        fingers->remove(*input.finger);
    const bool needsDown = input.action == InputLine::Move || input.action == InputLine::Release;
    return needsDown && !isDown ? QStringLiteral("finger %1 is not down").arg(*input.finger) : QString();
}

} // namespace K7Host
