// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "guicalls.h"

#include "logging.h"

#include <QCoreApplication>
#include <QMutex>
#include <QSemaphore>

#include <atomic>

namespace Korvo::ECKeyboard::K7::Internal {

/// What threads share that wait for a place; the last one to leave takes it along.
struct GuiCalls::Gate
{
    Gate(GuiCalls *owner, int places, int longestMs)
        : room(places)
        , longestWaitMs(longestMs)
        , placeCount(places)
        , calls(owner)
    {
    }

    QSemaphore room; // the free places
    const int longestWaitMs;
    const int placeCount;
    std::atomic<bool> isOverfull{false}; // and a warning has said so
    QMutex mutex;
    GuiCalls *calls; // null once closed; mutex
};

GuiCalls::GuiCalls(int room, int longestWaitMs)
    : m_gate(std::make_shared<Gate>(this, room, longestWaitMs))
{
}

GuiCalls::~GuiCalls()
{
    close();
}

void GuiCalls::queue(Gate &gate, std::unique_ptr<WaitingCall> call)
{
    const bool hasPlace = gate.room.tryAcquire(1, gate.longestWaitMs);
    call->hasPlace = hasPlace;
    {
        const QMutexLocker locker(&gate.mutex);
        if (gate.calls)
            QCoreApplication::postEvent(gate.calls, call.release());
    }
    if (call) {
        // Closed: whoever waits behind goes on too.
        if (hasPlace)
            gate.room.release();
        return;
    }
    if (!hasPlace && !gate.isOverfull.exchange(true))
        qCWarning(lcPlugin, "More than %d records wait: the console cannot keep up.", gate.placeCount);
}

void GuiCalls::close()
{
    {
        const QMutexLocker locker(&m_gate->mutex);
        if (!m_gate->calls)
            return;
        m_gate->calls = nullptr;
    }
    m_gate->room.release(); // the first one that waits, which lets on the next
    QCoreApplication::removePostedEvents(this);
}

void GuiCalls::customEvent(QEvent *event)
{
    auto *call = static_cast<WaitingCall *>(event);
    if (call->hasPlace)
        m_gate->room.release();
    if (m_gate->room.available() == m_gate->placeCount)
        m_gate->isOverfull = false;
    call->run(); // which may be the end of this object
}

} // namespace Korvo::ECKeyboard::K7::Internal
