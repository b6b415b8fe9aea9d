// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "scenarioplayer.h"

#include "consolesession.h"
#include "hand.h"
#include "messageboxes.h"
#include "traffic.h"

#include <QScopedValueRollback>
#include <QThread>

#include <algorithm>
#include <cmath>

namespace K7Host {

namespace {

/// Stands for a message box where else names of signals stand.
QString messageBox()
{
    return QStringLiteral("message box");
}

bool isSameTarget(const InputLine &a, const InputLine &b)
{
    return a.keyId == b.keyId && a.keyName == b.keyName && a.widget == b.widget && a.finger == b.finger;
}

} // namespace

ScenarioPlayer::ScenarioPlayer(const Scenario &scenario, const Stage &stage, QObject *parent)
    : QObject(parent)
    , m_scenario(scenario)
    , m_stage(stage)
    , m_isTrace(scenario.isTrace())
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &ScenarioPlayer::playNext);
    connect(stage.boxes, &MessageBoxes::opened, this, [this] {
        m_boxLevel = QThread::currentThread()->loopLevel();
        noteOutcome(messageBox());
    });
    connect(stage.boxes, &MessageBoxes::answered, this, [this] { m_isBoxClosing = true; });
    connect(stage.boxes, &MessageBoxes::answerRefused, this, [this](const QString &button) {
        fail(m_answerLine, QStringLiteral("the message box has no button \"%1\"").arg(button));
    });
}

void ScenarioPlayer::start()
{
    const auto first = std::find_if(m_scenario.steps.cbegin(), m_scenario.steps.cend(),
                                    [](const Scenario::Step &step) { return step.line.ms.has_value(); });
    if (first != m_scenario.steps.cend())
        m_shiftMs = std::max(0.0, *first->line.ms - m_stage.traffic->now());
    goOn();
}

void ScenarioPlayer::emitted(const SignalLine &signal)
{
    const bool isAwaited = signal.signal == m_awaited;
    const bool isNext = m_isTrace && !isAwaited && isNextOutcome(signal.signal);
    if (isNext)
        ++m_next;
    else
        noteOutcome(signal.signal);
    if (isNext || (m_isTrace && isAwaited))
        answerPromptly();
}

void ScenarioPlayer::stop()
{
    m_timer.stop();
    m_awaited.clear();
    m_next = m_scenario.steps.size();
}

void ScenarioPlayer::playNext()
{
    if (isBoxClosing())
        return goOn();
    if (!m_awaited.isEmpty() && !giveUpWaiting())
        return;
    if (m_next == m_scenario.steps.size())
        return finish();
    const Scenario::Step &step = m_scenario.steps.at(m_next);
    if (step.line.direction != Direction::Out && remainingMs(step.line) > 0)
        return goOn(remainingMs(step.line));
    ++m_next;
    m_step = &step;
    goOn(); // before the step, which may run an event loop
    std::visit([this](const auto &line) { play(line); }, step.line.content);
}

void ScenarioPlayer::goOn(int ms)
{
    m_timer.start(ms);
}

bool ScenarioPlayer::hasEnded() const
{
    return !m_timer.isActive();
}

void ScenarioPlayer::finish()
{
    if (m_stage.boxes->isAnswerWaiting())
        return fail(m_answerLine, QStringLiteral("no message box opened"));
    emit finished();
}

void ScenarioPlayer::fail(int line, const QString &reason)
{
    stop();
    emit failed(m_scenario.fault(line, reason));
}

/// Until the time that the line was recorded at.
int ScenarioPlayer::remainingMs(const ScenarioLine &line) const
{
    return line.ms ? static_cast<int>(std::ceil(*line.ms - m_shiftMs - m_stage.traffic->now())) : 0;
}

/// How long what came out then is waited for now.
int ScenarioPlayer::graceMs(const ScenarioLine &line) const
{
    return line.ms ? std::max(0, remainingMs(line)) + GraceMs : PatienceMs;
}

void ScenarioPlayer::noteOutcome(const QString &name)
{
    if (name != m_awaited) {
        ++m_outcome[name];
        return;
    }
    m_awaited.clear();
    goOn();
}

bool ScenarioPlayer::isNextOutcome(const QString &name) const
{
    if (!m_awaited.isEmpty() || m_next == m_scenario.steps.size())
        return false;
    const auto *signal = std::get_if<SignalLine>(&m_scenario.steps.at(m_next).line.content);
    return signal && signal->signal == name;
}

/// Whether the next line followed the one before it at once.
bool ScenarioPlayer::isNextPrompt() const
{
    if (hasEnded() || !m_awaited.isEmpty() || m_next == m_scenario.steps.size())
        return false;
    const std::optional<double> last = m_scenario.steps.at(m_next - 1).line.ms;
    const std::optional<double> next = m_scenario.steps.at(m_next).line.ms;
    return !last || !next || *next - *last < PromptMs;
}

/// Hands in, while a signal is still being emitted, what its receivers answered at once: more may come out
/// after that in the same breath.
void ScenarioPlayer::answerPromptly()
{
    if (m_isAnswering)
        return; // whoever made the call goes on
    const QScopedValueRollback<bool> answering(m_isAnswering, true);
    for (int answers = 0; answers < LongestBreath && isNextPrompt(); ++answers) {
        const Scenario::Step &step = m_scenario.steps.at(m_next);
        const auto *call = std::get_if<CallLine>(&step.line.content);
        if (!call)
            return;
        ++m_next;
        m_step = &step;
        play(*call);
    }
}

/// A click is one deed: nothing comes between its press and its release.
void ScenarioPlayer::releaseAtOnce(const InputLine &press)
{
    if (!isNextPrompt())
        return;
    const Scenario::Step &step = m_scenario.steps.at(m_next);
    const auto *input = std::get_if<InputLine>(&step.line.content);
    if (!input || input->action != InputLine::Release || !isSameTarget(*input, press))
        return;
    ++m_next;
    m_step = &step;
    act(*input, step.number);
}

/// The event loop of a box goes on for a while after the answer, and the box blocks what is done then.
bool ScenarioPlayer::isBoxClosing()
{
    m_isBoxClosing = m_isBoxClosing && QThread::currentThread()->loopLevel() > m_boxLevel;
    return m_isBoxClosing;
}

void ScenarioPlayer::await(const QString &name, int ms, bool isNeeded)
{
    const auto known = m_outcome.find(name);
    if (known != m_outcome.end() && *known > 0) {
        --*known;
        return;
    }
    m_awaited = name;
    m_isNeeded = isNeeded;
    goOn(ms);
}

/// Whether the scenario goes on.
bool ScenarioPlayer::giveUpWaiting()
{
    const QString name = m_awaited;
    m_awaited.clear();
    if (m_isNeeded)
        fail(m_step->number, QStringLiteral("no %1 in this time").arg(name));
    return !m_isNeeded;
}

void ScenarioPlayer::play(const CallLine &line)
{
    if (!m_isTrace)
        m_outcome.clear();
    m_stage.session->call(line.call, line.half);
}

void ScenarioPlayer::play(const InputLine &line)
{
    if (!m_isTrace)
        m_outcome.clear();
    if (line.action != InputLine::Click) {
        act(line, m_step->number);
        if (m_isTrace && line.action == InputLine::Press)
            releaseAtOnce(line);
        return;
    }
    // In a trace each half of a click stands before what it causes.
    const int number = m_step->number;
    InputLine half = line;
    half.action = InputLine::Press;
    act(half, number);
    half.action = InputLine::Release;
    if (!hasEnded())
        act(half, number);
}

void ScenarioPlayer::act(const InputLine &line, int number)
{
    m_stage.traffic->note(Direction::In, line);
    if (const auto reason = m_stage.hand->act(line))
        fail(number, *reason);
}

void ScenarioPlayer::play(const AnswerLine &line)
{
    if (!m_isTrace)
        m_outcome.clear();
    m_answerLine = m_step->number;
    m_stage.boxes->answer(line.button);
}

void ScenarioPlayer::play(const WaitLine &line)
{
    goOn(line.ms);
}

void ScenarioPlayer::play(const WaitForLine &line)
{
    await(line.signal, line.ms, true);
}

void ScenarioPlayer::play(const ScreenshotLine &line)
{
    const int number = m_step->number;
    if (const auto fault = m_stage.saveScreenshot(line.file))
        fail(number, fault->text);
}

void ScenarioPlayer::play(const SignalLine &line)
{
    await(line.signal, graceMs(m_step->line), false);
}

void ScenarioPlayer::play(const MessageLine & /*line*/)
{
    await(messageBox(), graceMs(m_step->line), false);
}

void ScenarioPlayer::play(const GapLine & /*line*/) {}

} // namespace K7Host
