// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "traffic.h"

#include <QThread>

#include <algorithm>

namespace K7Host {

namespace {

constexpr double NanosecondsPerMs = 1e6;

QElapsedTimer startedClock()
{
    QElapsedTimer clock;
    clock.start();
    return clock;
}

} // namespace

Traffic::Traffic()
    : m_clock(startedClock())
{
}

void Traffic::addListener(TrafficListener *listener)
{
    const QMutexLocker lock(&m_mutex);
    m_listeners.push_back(listener);
}

void Traffic::removeListener(TrafficListener *listener)
{
    const QMutexLocker lock(&m_mutex);
    m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), listener), m_listeners.end());
}

double Traffic::now() const
{
    return static_cast<double>(m_clock.nsecsElapsed()) / NanosecondsPerMs;
}

void Traffic::note(Direction direction, const ScenarioLine::Content &content)
{
    append({{{}, direction, content}});
}

void Traffic::calling(const HostCall &call, Half half, Korvo::IKorvoECKeyboard *keyboard)
{
    Q_UNUSED(keyboard)
    append({{{}, Direction::In, CallLine{call, half, {}}}, &call, QThread::currentThreadId()});
}

void Traffic::called(const HostCall &call, Half half, Korvo::IKorvoECKeyboard *keyboard,
                     std::optional<bool> result)
{
    Q_UNUSED(half)
    Q_UNUSED(keyboard)
    const QMutexLocker lock(&m_mutex);
    const auto entry = std::find_if(m_waiting.begin(), m_waiting.end(),
                                    [&call](const Entry &known) { return known.openCall == &call; });
    if (entry == m_waiting.end())
        return;
    entry->openCall = nullptr;
    std::get<CallLine>(entry->line.content).result = result;
    tellWhatIsComplete();
}

void Traffic::emitted(const SignalLine &signal)
{
    note(Direction::Out, signal);
}

void Traffic::append(const Entry &entry)
{
    const QMutexLocker lock(&m_mutex);
    if (m_listeners.empty())
        return;
    tellOpenCalls();
    m_waiting.push_back(entry);
    m_waiting.back().line.ms = now(); // under the mutex, so that times do not run backwards
    tellWhatIsComplete();
}

/// Those of this thread: they are not the last line any more.
void Traffic::tellOpenCalls()
{
    for (Entry &entry : m_waiting) {
        if (entry.thread == QThread::currentThreadId())
            entry.openCall = nullptr;
    }
}

void Traffic::tellWhatIsComplete()
{
    while (!m_waiting.empty() && !m_waiting.front().openCall) {
        for (TrafficListener *listener : m_listeners)
            listener->noted(m_waiting.front().line);
        m_waiting.pop_front();
    }
}

} // namespace K7Host
