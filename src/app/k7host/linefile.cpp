// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "linefile.h"

#include <QFile>

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace K7Host {

namespace {

constexpr int lineFileFlags = O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

bool isRegularFile(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

/// Standard output is shared, with other programs too, and so must go on to block. A pipe or terminal is
/// opened a second time for us alone; a file is not, since that would begin anew at its beginning.
int openStandardOutput()
{
    if (!isRegularFile(STDOUT_FILENO)) {
        const int own = ::open("/proc/self/fd/1", lineFileFlags);
        if (own >= 0)
            return own;
    }
    return ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
}

int openNamedFile(const QString &name)
{
    return ::open(QFile::encodeName(name).constData(), lineFileFlags | O_CREAT | O_TRUNC, 0666);
}

bool hasRoom(int descriptor, int waitMs)
{
    pollfd state = {descriptor, POLLOUT, 0};
    return ::poll(&state, 1, waitMs) > 0; // also when writing would fail: it then says why
}

} // namespace

LineFile::~LineFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

std::optional<Fault> LineFile::open(const QString &name)
{
    Q_ASSERT(m_descriptor < 0);
    const bool isStandardOutput = name == QLatin1String("-");
    m_name = isStandardOutput ? QStringLiteral("standard output") : name;
    if (name.isEmpty())
        return Fault{ExitBadArguments, QStringLiteral("cannot write a file without a name")};
    m_descriptor = isStandardOutput ? openStandardOutput() : openNamedFile(name);
    if (m_descriptor < 0) {
        const QString reason = errno == ENXIO ? QStringLiteral("a pipe that nobody reads, or no device")
                                              : qt_error_string(errno);
        return Fault{ExitBadArguments, QStringLiteral("cannot write %1: %2").arg(m_name, reason)};
    }
    m_isRegular = isRegularFile(m_descriptor);
    return {};
}

QString LineFile::name() const
{
    return m_name;
}

LineFile::Outcome LineFile::write(const QByteArray &line)
{
    const Outcome before = finish();
    if (before != Accepted)
        return before;
    const QByteArray bytes = line + '\n';
    const int sent = send(bytes);
    if (sent == 0)
        return m_error != 0 ? Refused : Busy;
    if (sent < bytes.size()) {
        if (takeBack(sent))
            return Refused;
        m_rest = bytes.mid(sent);
    }
    return Accepted;
}

LineFile::Outcome LineFile::finish()
{
    m_rest.remove(0, send(m_rest));
    if (m_rest.isEmpty())
        return Accepted;
    return m_error != 0 ? Refused : Busy;
}

void LineFile::waitForRoom(int ms) const
{
    hasRoom(m_descriptor, ms);
}

/// Returns how many of the bytes the system took. A pipe with room takes PIPE_BUF bytes without blocking,
/// even where the descriptor is not ours to set, and a line as short as that never mixes with other programs'
/// lines.
int LineFile::send(const QByteArray &bytes)
{
    m_error = 0;
    int sent = 0;
    while (sent < bytes.size() && hasRoom(m_descriptor, 0)) {
        const int left = bytes.size() - sent;
        const int size = m_isRegular ? left : qMin(left, int(PIPE_BUF));
        const auto taken = ::write(m_descriptor, bytes.constData() + sent, size_t(size));
        if (taken < 0 && errno == EINTR)
            continue;
        if (taken < 0 && errno != EAGAIN)
            m_error = errno;
        if (taken <= 0)
            break;
        sent += int(taken);
    }
    return sent;
}

/// Takes the last \a bytes written out of a regular file; false when others wrote behind them, or it cannot
/// be.
bool LineFile::takeBack(int bytes)
{
    if (!m_isRegular)
        return false;
    const off_t end = ::lseek(m_descriptor, 0, SEEK_CUR);
    struct stat status = {};
    if (end < bytes || ::fstat(m_descriptor, &status) != 0 || status.st_size != end)
        return false;
    return ::ftruncate(m_descriptor, end - bytes) == 0 &&
           ::lseek(m_descriptor, end - bytes, SEEK_SET) == end - bytes;
}

} // namespace K7Host
