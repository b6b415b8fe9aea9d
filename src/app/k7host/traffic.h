// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sessionobserver.h"

#include <QElapsedTimer>
#include <QMutex>

#include <deque>
#include <vector>

namespace K7Host {

/// Is told of everything that crosses the boundary of the console.
class TrafficListener
{
public:
    TrafficListener() = default;
    virtual ~TrafficListener() = default;

    /// In any thread, one line at a time, in order. Must not call the Traffic that tells it.
    virtual void noted(const ScenarioLine &line) = 0;

private:
    Q_DISABLE_COPY(TrafficListener)
};

/// All that crosses the boundary of the console, one line after the other, each with its time: calls of the
/// halves, input, signals of the plug-in and message boxes. A call is told when it returns, with its result;
/// one that causes another line before that is told then, without a result, lest more than the last line is
/// ever held back. Either way what it causes follows it.
///
/// Lines may be noted in any thread.
class Traffic : public SessionObserver
{
public:
    /// Time begins now.
    Traffic();

    /// \a listener is told of every line from now on, and outlives this object, or leaves it before.
    void addListener(TrafficListener *listener);
    /// When this returns, \a listener is told of nothing more.
    void removeListener(TrafficListener *listener);

    /// Milliseconds since the start.
    double now() const;

    void note(Direction direction, const ScenarioLine::Content &content);

    void calling(const HostCall &call, Half half, Korvo::IKorvoECKeyboard *keyboard) override;
    void called(const HostCall &call, Half half, Korvo::IKorvoECKeyboard *keyboard,
                std::optional<bool> result) override;
    void emitted(const SignalLine &signal) override;

private:
    struct Entry
    {
        ScenarioLine line;
        const HostCall *openCall = nullptr; // has not returned yet
        Qt::HANDLE thread = nullptr;        // of the call
    };

    void append(const Entry &entry);
    void tellOpenCalls();
    void tellWhatIsComplete();

    const QElapsedTimer m_clock;

    QMutex m_mutex;
    // Under the mutex:
    std::vector<TrafficListener *> m_listeners;
    std::deque<Entry> m_waiting; // behind a call that has not returned
};

} // namespace K7Host
