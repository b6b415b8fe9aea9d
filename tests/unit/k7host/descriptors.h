// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QFile>

#include <array>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

/// One of the program's descriptors, leading elsewhere for as long as this lives.
class Redirection
{
public:
    Redirection(int descriptor, int target)
        : m_descriptor(descriptor)
        , m_former(::dup(descriptor))
    {
        ::dup2(target, descriptor);
    }
    ~Redirection()
    {
        ::dup2(m_former, m_descriptor);
        ::close(m_former);
    }

private:
    Q_DISABLE_COPY(Redirection)

    const int m_descriptor;
    const int m_former;
};

/// Files of this program grow no further than to this size for as long as this lives, as on a disk that is
/// full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_former);
        rlimit limit = m_former;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_former); }

private:
    Q_DISABLE_COPY(FullDisk)

    rlimit m_former = {};
};

/// Reads a descriptor's bytes as far as there are any. Owns the descriptor.
class Reader
{
public:
    explicit Reader(int descriptor)
        : m_descriptor(descriptor)
    {
        ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) | O_NONBLOCK);
    }
    /// Of the named pipe \a name, which is made when it is not there.
    explicit Reader(const QString &name)
        : Reader(openPipe(QFile::encodeName(name)))
    {
    }
    ~Reader() { ::close(m_descriptor); }

    /// All that was read since the beginning.
    QByteArray all()
    {
        std::array<char, 65536> part = {};
        for (;;) {
            const auto size = ::read(m_descriptor, part.data(), part.size());
            if (size <= 0)
                return m_bytes;
            m_bytes.append(part.data(), int(size));
        }
    }

    /// Whether a pipe that was written to in whole pages takes no more.
    bool isFull() const
    {
        int size = 0;
        return ::ioctl(m_descriptor, FIONREAD, &size) == 0 && size >= ::fcntl(m_descriptor, F_GETPIPE_SZ);
    }

private:
    Q_DISABLE_COPY(Reader)

    static int openPipe(const QByteArray &name)
    {
        ::mkfifo(name.constData(), 0600);
        return ::open(name.constData(), O_RDONLY | O_NONBLOCK);
    }

    const int m_descriptor;
    QByteArray m_bytes;
};

inline QByteArray contents(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
