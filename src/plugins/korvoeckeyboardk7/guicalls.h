// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QEvent>
#include <QObject>
#include <QThread>

#include <memory>
#include <utility>

namespace Korvo::ECKeyboard::K7::Internal {

/// Runs calls on the GUI thread: those made there at once, those of other threads from the event loop, in the
/// order in which they came.
///
/// Of those only so many wait: who comes when the room is full waits for a place, so that a storm slows its
/// sender down instead of filling the memory, and nothing is dropped. It is not kept longer than given, since
/// the GUI thread may be waiting for that very thread; then its call waits outside of the room, and a warning
/// says so, once until the room has been empty again.
///
/// Lives on the GUI thread.
class GuiCalls : public QObject
{
    Q_OBJECT

public:
    /// So many calls, at least 1, and so many milliseconds, at least 0.
    explicit GuiCalls(int room = 1024, int longestWaitMs = 100);
    /// As close(). Nobody begins a run() any more; those that wait in one do not touch this object again.
    ~GuiCalls() override;

    /// Runs \a call, from any thread; one that is made on the GUI thread has run when this returns. \a call
    /// may destroy this object.
    template <typename Call>
    void run(Call call)
    {
        if (QThread::currentThread() == thread()) {
            call();
            return;
        }
        // Not touched any more from here on: it may go while the thread waits.
        const std::shared_ptr<Gate> gate = m_gate;
        queue(*gate, std::make_unique<WaitingCallOf<Call>>(std::move(call)));
    }

    /// Drops the calls that wait, and from now on those of other threads; who waits for a place goes on at
    /// once. On the GUI thread.
    void close();

protected:
    void customEvent(QEvent *event) override;

private:
    struct Gate;

    class WaitingCall : public QEvent
    {
    public:
        WaitingCall()
            : QEvent(User)
        {
        }
        virtual void run() = 0;
        bool hasPlace = false; // in the room
    };

    template <typename Call>
    class WaitingCallOf : public WaitingCall
    {
    public:
        explicit WaitingCallOf(Call &&call)
            : m_call(std::move(call))
        {
        }
        void run() override { m_call(); }

    private:
        Call m_call;
    };

    static void queue(Gate &gate, std::unique_ptr<WaitingCall> call);

    const std::shared_ptr<Gate> m_gate;
};

} // namespace Korvo::ECKeyboard::K7::Internal
