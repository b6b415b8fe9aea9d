// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMutex>
#include <QQueue>
#include <QString>
#include <QThread>

#include <functional>
#include <optional>

namespace Korvo::Internal {

using InternetFun = std::function<int()>;

/// Carries out the settings panel's network changes, one after the other, off the GUI thread.
///
/// Each start() takes the work and the interface name that were set before it; started while it runs, the
/// thread does that work afterwards. The functions may be called from any thread. The object lives on the
/// thread that made it; destroying it there waits for the run under way and drops those that wait.
class InternetThread : public QThread
{
    Q_OBJECT

public:
    InternetThread();
    ~InternetThread() override;

    /// What the next start() does, on the worker thread; it replaces any earlier one. It is not empty by
    /// then: calling an empty one throws std::bad_function_call.
    void setThreadFun(InternetFun fun);

    /// The network interface that the next start() concerns, "eth0" or "eth2".
    void setCurrentETH(const QString &eth);

    void start(Priority priority = InheritPriority);

Q_SIGNALS:
    /// Emitted on the worker thread: the work for the interface \a eth has returned \a result.
    void signal_setEthModeFinished(QString eth, int result);

protected:
    void run() override;

private:
    struct Work
    {
        InternetFun fun;
        QString eth;
    };

    std::optional<Work> takeFirstWork();
    std::optional<Work> takeWork();
    bool isWorkWaiting();

    QMutex m_mutex; // of all that follows
    InternetFun m_threadFun;
    QString m_ethStr;
    bool m_isStoredWorkNew = true; // no start() has taken it
    QQueue<Work> m_waiting;
};

} // namespace Korvo::Internal
