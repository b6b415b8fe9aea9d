// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "internetthread.h"

#include <QMutexLocker>

#include <utility>

namespace Korvo::Internal {

InternetThread::InternetThread()
{
    // Work may arrive when run() has just seen that there is none.
    connect(this, &QThread::finished, this, [this] {
        if (isWorkWaiting())
            QThread::start();
    });
}

InternetThread::~InternetThread()
{
    {
        const QMutexLocker locker(&m_mutex);
        m_waiting.clear();
    }
    wait();
}

void InternetThread::setThreadFun(InternetFun fun)
{
    const QMutexLocker locker(&m_mutex);
    m_threadFun = std::move(fun);
    m_isStoredWorkNew = true;
}

void InternetThread::setCurrentETH(const QString &eth)
{
    const QMutexLocker locker(&m_mutex);
    m_ethStr = eth;
}

void InternetThread::start(Priority priority)
{
    {
        const QMutexLocker locker(&m_mutex);
        m_waiting.enqueue({m_threadFun, m_ethStr});
        m_ethStr.clear();
        m_isStoredWorkNew = false;
    }
    QThread::start(priority);
}

void InternetThread::run()
{
    for (std::optional<Work> work = takeFirstWork(); work; work = takeWork()) {
        const int result = work->fun();
        Q_EMIT signal_setEthModeFinished(work->eth, result);
    }
}

/// Started as any other thread, it does what is stored.
std::optional<InternetThread::Work> InternetThread::takeFirstWork()
{
    const QMutexLocker locker(&m_mutex);
    if (!m_waiting.isEmpty())
        return m_waiting.dequeue();
    if (!std::exchange(m_isStoredWorkNew, false))
        return {};
    return Work{m_threadFun, std::exchange(m_ethStr, QString())};
}

std::optional<InternetThread::Work> InternetThread::takeWork()
{
    const QMutexLocker locker(&m_mutex);
    if (m_waiting.isEmpty())
        return {};
    return m_waiting.dequeue();
}

bool InternetThread::isWorkWaiting()
{
    const QMutexLocker locker(&m_mutex);
    return !m_waiting.isEmpty();
}

} // namespace Korvo::Internal
