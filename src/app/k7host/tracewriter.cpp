// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "tracewriter.h"

#include "linefile.h"

#include <QDeadlineTimer>
#include <QLocale>
#include <QMutex>
#include <QQueue>
#include <QSemaphore>
#include <QThread>

#include <csignal>
#include <poll.h>
#include <unistd.h>

namespace K7Host {

namespace {

/// A line, or the number of lines that are missing in its place.
struct TraceEntry
{
    double ms = 0; ///< of the line, or of the first that is missing
    QByteArray line;
    qint64 missing = 0; ///< 0: it is a line
};

/// How often a thread that waits for a reader looks at what else there is to do.
constexpr int traceWaitMs = 50;

QByteArray gapLine(double ms, qint64 missing)
{
    return QByteArrayLiteral("{\"t\":") + QByteArray::number(ms, 'f', QLocale::FloatingPointShortest) +
           QByteArrayLiteral(",\"gap\":") + QByteArray::number(missing) + '}';
}

/// A reader that left and a file grown to its limit shall be errors of this thread's writes, not the
/// program's end.
void blockWriteSignals()
{
    sigset_t signalSet;
    sigemptyset(&signalSet);
    sigaddset(&signalSet, SIGPIPE);
    sigaddset(&signalSet, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &signalSet, nullptr);
}

/// False where a message would have to wait: nobody reads stderr just now.
bool canComplain()
{
    pollfd state = {STDERR_FILENO, POLLOUT, 0};
    return ::poll(&state, 1, 0) > 0;
}

} // namespace

/// Lines on their way to the thread. Only the thread takes; any thread may do the rest.
class TraceWriter::Queue
{
public:
    explicit Queue(const TraceLimits &limits)
        : m_limits(limits)
    {
    }

    void open();
    void put(double ms, const QByteArray &line);
    void close();

    /// Waits for an entry; none when the queue is closed and empty.
    std::optional<TraceEntry> take();
    bool hasLost() const;
    /// Whether the time for closing is over.
    bool isTimeUp() const;

private:
    void giveRoomBack();

    const TraceLimits m_limits;
    QSemaphore m_filled;    // what there is to take: the entries, and the end when closed
    mutable QMutex m_mutex; // protects all below
    QQueue<TraceEntry> m_entries;
    qint64 m_bytes = 0; // of the lines queued and of the line taken last, which is being written
    qint64 m_takenBytes = 0;
    bool m_isOpen = false;
    bool m_hasLost = false;
    QDeadlineTimer m_deadline;
};

void TraceWriter::Queue::open()
{
    const QMutexLocker lock(&m_mutex);
    m_isOpen = true;
    m_hasLost = false;
    m_deadline = QDeadlineTimer(QDeadlineTimer::Forever);
}

void TraceWriter::Queue::put(double ms, const QByteArray &line)
{
    const QMutexLocker lock(&m_mutex);
    if (!m_isOpen)
        return;
    const qint64 size = line.size() + 1;
    if (m_bytes + size <= m_limits.queuedBytes) {
        m_entries.enqueue({ms, line, 0});
        m_bytes += size;
    } else {
        m_hasLost = true;
        if (!m_entries.isEmpty() && m_entries.last().missing > 0) {
            ++m_entries.last().missing;
            return;
        }
        m_entries.enqueue({ms, QByteArray(), 1});
    }
    m_filled.release();
}

void TraceWriter::Queue::close()
{
    const QMutexLocker lock(&m_mutex);
    m_isOpen = false;
    m_deadline.setRemainingTime(m_limits.closingMs);
    m_filled.release();
}

std::optional<TraceEntry> TraceWriter::Queue::take()
{
    giveRoomBack();
    m_filled.acquire();
    const QMutexLocker lock(&m_mutex);
    if (m_entries.isEmpty())
        return {};
    TraceEntry entry = m_entries.dequeue();
    if (entry.missing == 0)
        m_takenBytes = entry.line.size() + 1;
    return entry;
}

/// Of the line taken last, which is written by now.
void TraceWriter::Queue::giveRoomBack()
{
    const QMutexLocker lock(&m_mutex);
    m_bytes -= m_takenBytes;
    m_takenBytes = 0;
}

bool TraceWriter::Queue::hasLost() const
{
    const QMutexLocker lock(&m_mutex);
    return m_hasLost;
}

bool TraceWriter::Queue::isTimeUp() const
{
    const QMutexLocker lock(&m_mutex);
    return m_deadline.hasExpired();
}

/// Takes from the queue and writes, until the queue is closed.
class TraceWriter::Thread : public QThread
{
public:
    explicit Thread(Queue *queue)
        : m_queue(queue)
    {
    }

    /// To be opened before the thread starts.
    LineFile *file() { return &m_file; }

protected:
    void run() override;

private:
    void write(const TraceEntry &entry);
    bool writeGap();
    bool writeLine(const QByteArray &line);
    void finish();

    void miss(double ms, qint64 lines);
    void setReason(const QString &reason);
    void tellReason();

    Queue *const m_queue;
    LineFile m_file;
    TraceEntry m_gap; // lines missing at the end of the file, of which it does not tell yet
    QString m_reason; // of the first loss, empty when nothing is lost
    bool m_isReasonTold = false;
};

void TraceWriter::Thread::run()
{
    blockWriteSignals();
    while (const auto entry = m_queue->take()) {
        write(*entry);
        tellReason();
    }
    finish();
    tellReason();
}

void TraceWriter::Thread::write(const TraceEntry &entry)
{
    if (entry.missing > 0) {
        miss(entry.ms, entry.missing);
        writeGap();
    } else if (!writeGap() || !writeLine(entry.line)) {
        miss(entry.ms, 1);
    }
}

bool TraceWriter::Thread::writeGap()
{
    if (m_gap.missing > 0 && writeLine(gapLine(m_gap.ms, m_gap.missing)))
        m_gap.missing = 0;
    return m_gap.missing == 0;
}

bool TraceWriter::Thread::writeLine(const QByteArray &line)
{
    LineFile::Outcome outcome = LineFile::Busy;
    while (outcome == LineFile::Busy && !m_queue->isTimeUp()) {
        outcome = m_file.write(line);
        if (outcome != LineFile::Busy)
            break;
        tellReason();
        m_file.waitForRoom(traceWaitMs);
    }
    if (m_file.error() != 0)
        setReason(qt_error_string(m_file.error()));
    return outcome == LineFile::Accepted;
}

/// What the file tells of its end, and what it cannot.
void TraceWriter::Thread::finish()
{
    qint64 missing = m_gap.missing;
    if (m_file.finish() != LineFile::Accepted)
        ++missing; // the line that is half written
    else if (missing > 0)
        m_file.write(gapLine(m_gap.ms, missing));
    if (m_file.error() != 0)
        setReason(qt_error_string(m_file.error()));
    if (missing > 0 && m_queue->isTimeUp() && canComplain()) {
        complain(QStringLiteral("the trace in %1 lacks its end, lines not written in time: %2")
                     .arg(m_file.name())
                     .arg(missing));
    }
}

void TraceWriter::Thread::miss(double ms, qint64 lines)
{
    if (m_gap.missing == 0)
        m_gap.ms = ms;
    m_gap.missing += lines;
}

void TraceWriter::Thread::setReason(const QString &reason)
{
    if (m_reason.isEmpty())
        m_reason = reason;
}

void TraceWriter::Thread::tellReason()
{
    if (m_isReasonTold)
        return;
    if (m_queue->hasLost())
        setReason(QStringLiteral("lines come faster than they are written"));
    if (m_reason.isEmpty() || !canComplain())
        return;
    complain(QStringLiteral("the trace in %1 lacks lines: %2").arg(m_file.name(), m_reason));
    m_isReasonTold = true;
}

TraceWriter::TraceWriter(const TraceLimits &limits)
    : m_queue(std::make_unique<Queue>(limits))
{
}

TraceWriter::~TraceWriter()
{
    close();
}

std::optional<Fault> TraceWriter::open(const QString &name)
{
    close();
    auto thread = std::make_unique<Thread>(m_queue.get());
    if (auto fault = thread->file()->open(name))
        return fault;
    m_queue->open();
    m_thread = std::move(thread);
    m_thread->start();
    return {};
}

void TraceWriter::write(double ms, const QByteArray &line)
{
    m_queue->put(ms, line);
}

void TraceWriter::close()
{
    if (!m_thread)
        return;
    m_queue->close();
    m_thread->wait();
    m_thread.reset();
}

} // namespace K7Host
