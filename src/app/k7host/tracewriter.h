// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <QByteArray>

#include <memory>
#include <optional>

namespace K7Host {

/// How much a TraceWriter holds back, and for how long.
struct TraceLimits
{
    qint64 queuedBytes = 8LL * 1024 * 1024; ///< lines that wait to be written, with their line ends
    int closingMs = 2000;                   ///< how long what waits is still written when the trace is closed
};

/// Writes the lines of a trace from a thread of its own, so that nobody waits for a disk or a reader.
///
/// A line goes to the system as soon as it comes, whole; lines wait only while the file is slower than they
/// are. A line is lost when too much waits already or the file takes nothing, as a full disk does. In the
/// place of lost lines the trace holds {"t":MS,"gap":COUNT}, MS being the time of the first. The first loss
/// of a trace, and lines left over at its end, are told on stderr.
///
/// The owner opens, closes and destroys; any thread writes.
class TraceWriter
{
public:
    explicit TraceWriter(const TraceLimits &limits = TraceLimits());
    ~TraceWriter();

    /// Begins a trace in the file \a name, which is emptied; "-" is standard output. Closes the trace before.
    /// A fault names the file and the reason, and leaves the trace closed.
    std::optional<Fault> open(const QString &name);

    /// Appends \a line, without a line end, of the time \a ms since the start. Never waits for the file. Does
    /// nothing while no trace is open.
    void write(double ms, const QByteArray &line);

    /// Writes what waits, within the time that the limits leave. Does nothing when no trace is open.
    void close();

private:
    Q_DISABLE_COPY(TraceWriter)

    class Queue;
    class Thread;

    const std::unique_ptr<Queue> m_queue;
    std::unique_ptr<Thread> m_thread; // null while closed
};

} // namespace K7Host
