// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "handoverwatch.h"

#include <QCoreApplication>
#include <QEvent>

namespace K7Host {

namespace {

constexpr char HandedOver = 0; // its address stands for a followed call that has returned

class ComingEvent : public QEvent
{
public:
    static constexpr Type Kind = Type(User + 1);

    ComingEvent(const HostCall &toCome, const Korvo::IKorvoECKeyboard *half, qint64 now)
        : QEvent(Kind)
        , call(toCome)
        , keyboard(half)
        , begin(now)
    {
    }
    const HostCall call;
    const Korvo::IKorvoECKeyboard *const keyboard;
    const qint64 begin;
};

/// All calls up to a number have been taken when it arrives.
class TakenEvent : public QEvent
{
public:
    static constexpr Type Kind = Type(User + 2);

    TakenEvent(qint64 last, bool isFollowed)
        : QEvent(Kind)
        , number(last)
        , endsFollowing(isFollowed)
    {
    }
    const qint64 number;
    const bool endsFollowing;
};

} // namespace

HandOverWatch::HandOverWatch(const Clock &clock)
    : m_now(clock)
{
}

void HandOverWatch::calling(const HostCall &call, const Korvo::IKorvoECKeyboard *keyboard)
{
    const void *nobody = nullptr;
    if (m_followed.compare_exchange_strong(nobody, &call))
        QCoreApplication::postEvent(this, new ComingEvent(call, keyboard, m_now()));
}

void HandOverWatch::called(const HostCall &call)
{
    const qint64 number = ++m_count;
    const void *followed = &call;
    if (m_followed.compare_exchange_strong(followed, &HandedOver))
        QCoreApplication::postEvent(this, new TakenEvent(number, true));
}

void HandOverWatch::reset()
{
    m_countBefore = m_count;
    m_mostWaiting = 0;
}

void HandOverWatch::customEvent(QEvent *event)
{
    if (event->type() == ComingEvent::Kind) {
        const auto *coming = static_cast<ComingEvent *>(event);
        emit comes(coming->call, coming->keyboard, coming->begin);
        return;
    }
    const auto *arrived = static_cast<TakenEvent *>(event);
    if (arrived->endsFollowing) {
        emit taken();
        m_followed = nullptr;
    } else {
        m_isLooking = false;
    }
    noteTaken(arrived->number);
}

void HandOverWatch::noteTaken(qint64 number)
{
    // Just before that one was taken it waited itself, and all that came after it.
    const qint64 count = m_count;
    m_mostWaiting = qMax(m_mostWaiting, count - number + 1);
    if (count > number && !m_isLooking) {
        m_isLooking = true;
        QCoreApplication::postEvent(this, new TakenEvent(count, false));
    }
}

} // namespace K7Host
