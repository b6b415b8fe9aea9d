// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QThread>

namespace Korvo::ECKeyboard::K7::Internal {

/// Runs \a call on the GUI thread that \a receiver lives in: at once when it is called there, else from the
/// event loop, in the order of calls. A receiver that goes first takes its waiting calls along.
template <typename Call>
void onGuiThread(const QObject *receiver, Call call)
{
    if (QThread::currentThread() == receiver->thread()) {
        call();
        return;
    }
    const QObject carrier;
    QObject::connect(&carrier, &QObject::destroyed, receiver, call, Qt::QueuedConnection);
}

} // namespace Korvo::ECKeyboard::K7::Internal
