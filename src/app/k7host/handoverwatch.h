// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "hostcall.h"

#include <QObject>

#include <atomic>
#include <functional>

namespace K7Host {

/// Watches the calls that threads other than the GUI's make of halves, and that wait for the GUI thread.
///
/// All are counted. One at a time is followed: events that are posted before and after it frame it in the
/// queue, so that the GUI thread learns when it is about to take it and when it has. Those that come
/// meanwhile cost their threads a few atomic operations each.
///
/// Lives on the GUI thread.
class HandOverWatch : public QObject
{
    Q_OBJECT

public:
    /// Nanoseconds, from any thread.
    using Clock = std::function<qint64()>;

    explicit HandOverWatch(const Clock &clock);

    /// To be told by the threads that call, before and after; \a call is at the same address in both.
    void calling(const HostCall &call, const Korvo::IKorvoECKeyboard *keyboard);
    void called(const HostCall &call);

    /// How many there were.
    qint64 count() const { return m_count - m_countBefore; }
    /// The most that waited at once, of all times that the GUI thread looked: whenever it has taken one that
    /// was followed, and again when it has taken all that were behind that.
    qint64 mostWaiting() const { return m_mostWaiting; }
    /// Begins to count anew.
    void reset();

Q_SIGNALS:
    /// The call that is followed, and was made at \a begin, is about to be taken if \a keyboard is there.
    void comes(const K7Host::HostCall &call, const Korvo::IKorvoECKeyboard *keyboard, qint64 begin);
    /// It has been; some time ago, when its thread was kept from telling.
    void taken();

protected:
    void customEvent(QEvent *event) override;

private:
    void noteTaken(qint64 number);

    const Clock m_now;
    std::atomic<const void *> m_followed{nullptr}; // until the GUI thread has taken it
    std::atomic<qint64> m_count{0};                // handed over
    qint64 m_mostWaiting = 0;
    qint64 m_countBefore = 0;
    bool m_isLooking = false; // an event is on its way behind all that waited
};

} // namespace K7Host
