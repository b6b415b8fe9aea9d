// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "faultylink.h"

#include "faultdice.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QSemaphore>
#include <QThread>
#include <QTimer>

#include <functional>
#include <map>
#include <vector>

namespace K7Host {

namespace {

constexpr std::size_t RecentCount = 32;   // records that a storm repeats
constexpr int MaxEmittedElsewhere = 1024; // at the same time

using Delivery = std::function<void()>;

template <typename Record>
using ReportSignal = void (DeviceLink::*)(std::shared_ptr<Record>);

} // namespace

/// What is under way, and what guards it. No lock is held while a record is emitted: who receives it may
/// press keys, or close the console.
class FaultyLink::Private
{
    Q_DISABLE_COPY(Private)

public:
    Private(FaultyLink *link, DeviceLink *otherLink, LinkFaults linkFaults, quint32 seed);

    bool isOpen() const;
    bool isBad() const;
    bool isStormy() const { return isBad() && faults.testFlag(LinkFault::Storm); }
    int underWay() const;

    void open();
    void becomeBad();
    void becomeGood();
    void close();

    int msToNext() const;
    bool deliverNext();
    std::vector<Delivery> makeBurst();

    DeviceLink *const other;
    const LinkFaults faults;
    // Children. Each runs only while there is something to wait for.
    QTimer *const turnTimer;
    QTimer *const lateTimer;
    QTimer *const stormTimer;

private:
    template <typename Record>
    void connectRecords(ReportSignal<Record> reported);

    template <typename Record>
    void take(ReportSignal<Record> reported, const std::shared_ptr<Record> &record);
    template <typename Record>
    void carry(ReportSignal<Record> reported, const std::shared_ptr<Record> &record);
    void deliver(const Delivery &delivery, quint32 discards);
    void remember(const Delivery &carrying);
    void waitForOtherThreads();

    // With the mutex locked:
    void discard();
    bool arriveLater(int delayMs, const Delivery &delivery);
    template <typename Record>
    Delivery carryInvented(ReportSignal<Record> reported);
    Delivery carryInventedOfAnyKind();

    FaultyLink *const q;
    QElapsedTimer m_clock; // runs before the first record comes
    // Who emits in another thread has one of them; who has all of them knows that nobody does.
    QSemaphore m_elsewhere{MaxEmittedElsewhere};

    mutable QMutex m_mutex; // guards all below
    bool m_isOpen = false;
    bool m_isBad = false;
    quint32 m_discards = 0; // counts them: what came before the last one is not emitted any more
    FaultDice m_dice;
    std::multimap<qint64, Delivery> m_late; // by the clock's ms
    std::vector<Delivery> m_recent;         // carry the newest records once more; for storms
    std::size_t m_oldest = 0;               // of these, when there are RecentCount
};

FaultyLink::Private::Private(FaultyLink *link, DeviceLink *otherLink, LinkFaults linkFaults, quint32 seed)
    : other(otherLink)
    , faults(linkFaults)
    , turnTimer(new QTimer(link))
    , lateTimer(new QTimer(link))
    , stormTimer(new QTimer(link))
    , q(link)
    , m_dice(linkFaults, seed)
{
    const auto setUp = [this](QTimer *timer, const QString &name, auto slot) {
        timer->setObjectName(name);
        QObject::connect(timer, &QTimer::timeout, q, slot);
    };
    setUp(turnTimer, QStringLiteral("turn"), &FaultyLink::takeTurns);
    setUp(lateTimer, QStringLiteral("late"), &FaultyLink::deliverDue);
    setUp(stormTimer, QStringLiteral("storm"), &FaultyLink::blow);
    lateTimer->setSingleShot(true);
    lateTimer->setTimerType(Qt::PreciseTimer);
    m_clock.start();

    connectRecords(&DeviceLink::buttonColorReported);
    connectRecords(&DeviceLink::oledTextReported);
    connectRecords(&DeviceLink::tBarValueReported);
    connectRecords(&DeviceLink::deviceIPReported);
    connectRecords(&DeviceLink::dviSignalReported);
    connectRecords(&DeviceLink::peripheralVisibilityReported);
}

template <typename Record>
void FaultyLink::Private::connectRecords(ReportSignal<Record> reported)
{
    QObject::connect(
        other, reported, q,
        [this, reported](const std::shared_ptr<Record> &record) { take(reported, record); },
        Qt::DirectConnection);
}

bool FaultyLink::Private::isOpen() const
{
    const QMutexLocker locker(&m_mutex);
    return m_isOpen;
}

bool FaultyLink::Private::isBad() const
{
    const QMutexLocker locker(&m_mutex);
    return m_isBad;
}

int FaultyLink::Private::underWay() const
{
    const QMutexLocker locker(&m_mutex);
    return static_cast<int>(m_late.size());
}

void FaultyLink::Private::open()
{
    const QMutexLocker locker(&m_mutex);
    m_isOpen = true;
}

void FaultyLink::Private::becomeBad()
{
    const QMutexLocker locker(&m_mutex);
    m_isBad = true;
}

void FaultyLink::Private::becomeGood()
{
    {
        const QMutexLocker locker(&m_mutex);
        m_isBad = false;
        discard();
    }
    waitForOtherThreads();
}

void FaultyLink::Private::close()
{
    {
        const QMutexLocker locker(&m_mutex);
        m_isOpen = false;
        m_isBad = false;
        m_recent.clear();
        discard();
    }
    waitForOtherThreads();
}

void FaultyLink::Private::discard()
{
    ++m_discards;
    m_late.clear();
}

void FaultyLink::Private::waitForOtherThreads()
{
    m_elsewhere.acquire(MaxEmittedElsewhere);
    m_elsewhere.release(MaxEmittedElsewhere);
}

/// -1 when there is none.
int FaultyLink::Private::msToNext() const
{
    const QMutexLocker locker(&m_mutex);
    if (m_late.empty())
        return -1;
    return static_cast<int>(qMax<qint64>(0, m_late.cbegin()->first - m_clock.elapsed()));
}

/// False when none is due.
bool FaultyLink::Private::deliverNext()
{
    Delivery delivery;
    {
        const QMutexLocker locker(&m_mutex);
        const auto next = m_late.cbegin();
        if (next == m_late.cend() || next->first > m_clock.elapsed())
            return false;
        delivery = next->second;
        m_late.erase(next);
    }
    delivery();
    return true;
}

/// What is called for each record of a burst.
std::vector<Delivery> FaultyLink::Private::makeBurst()
{
    const QMutexLocker locker(&m_mutex);
    std::vector<Delivery> burst(1 + m_dice.below(MaxBurst));
    for (Delivery &carrying : burst) {
        const bool isRepeated = !m_recent.empty() && m_dice.below(2) == 0;
        carrying = isRepeated ? m_recent.at(m_dice.below(static_cast<quint32>(m_recent.size())))
                              : carryInventedOfAnyKind();
    }
    return burst;
}

template <typename Record>
void FaultyLink::Private::take(ReportSignal<Record> reported, const std::shared_ptr<Record> &record)
{
    if (faults.testFlag(LinkFault::Storm))
        remember([this, reported, record] { carry(reported, record); });
    carry(reported, record);
}

template <typename Record>
void FaultyLink::Private::carry(ReportSignal<Record> reported, const std::shared_ptr<Record> &record)
{
    std::vector<Delivery> atOnce;
    bool isNextOther = false;
    quint32 discards = 0;
    {
        const QMutexLocker locker(&m_mutex);
        if (!m_isOpen)
            return;
        discards = m_discards;
        const auto deliveryOf = [this, reported](const std::shared_ptr<Record> &arriving) {
            return [this, reported, arriving] { emit(q->*reported)(arriving); };
        };
        const std::vector<int> delays = m_isBad ? m_dice.delays() : std::vector<int>{0};
        for (const int delayMs : delays) {
            const Delivery delivery = deliveryOf(m_isBad ? m_dice.arriving(record) : record);
            if (delayMs == 0)
                atOnce.push_back(delivery);
            else if (arriveLater(delayMs, delivery))
                isNextOther = true;
        }
    }
    if (isNextOther)
        QMetaObject::invokeMethod(q, "awaitNext"); // on the GUI thread
    for (const Delivery &delivery : atOnce)
        deliver(delivery, discards);
}

/// True when the record is the next one to come.
bool FaultyLink::Private::arriveLater(int delayMs, const Delivery &delivery)
{
    if (m_late.size() >= MaxUnderWay)
        return false;
    const auto place = m_late.emplace(m_clock.elapsed() + delayMs, delivery);
    return place == m_late.begin();
}

void FaultyLink::Private::deliver(const Delivery &delivery, quint32 discards)
{
    const auto isCurrent = [this, discards] {
        const QMutexLocker locker(&m_mutex);
        return discards == m_discards;
    };
    const bool isElsewhere = QThread::currentThread() != q->thread();
    if (isElsewhere)
        m_elsewhere.acquire();
    if (isCurrent())
        delivery();
    if (isElsewhere)
        m_elsewhere.release();
}

void FaultyLink::Private::remember(const Delivery &carrying)
{
    const QMutexLocker locker(&m_mutex);
    if (m_recent.size() < RecentCount) {
        m_recent.push_back(carrying);
        return;
    }
    m_recent.at(m_oldest) = carrying;
    m_oldest = (m_oldest + 1) % RecentCount;
}

template <typename Record>
Delivery FaultyLink::Private::carryInvented(ReportSignal<Record> reported)
{
    const std::shared_ptr<Record> record = m_dice.invented<Record>();
    return [this, reported, record] { carry(reported, record); };
}

Delivery FaultyLink::Private::carryInventedOfAnyKind()
{
    switch (m_dice.below(6)) {
    case 0:
        return carryInvented(&DeviceLink::buttonColorReported);
    case 1:
        return carryInvented(&DeviceLink::oledTextReported);
    case 2:
        return carryInvented(&DeviceLink::tBarValueReported);
    case 3:
        return carryInvented(&DeviceLink::deviceIPReported);
    case 4:
        return carryInvented(&DeviceLink::dviSignalReported);
    default:
        return carryInvented(&DeviceLink::peripheralVisibilityReported);
    }
}

FaultyLink::FaultyLink(DeviceLink *link, LinkFaults faults, quint32 seed, QObject *parent)
    : DeviceLink(parent)
    , d(std::make_unique<Private>(this, link, faults, seed))
{
}

FaultyLink::~FaultyLink()
{
    // What the other link's threads are emitting needs this object whole.
    FaultyLink::consoleClosed();
}

bool FaultyLink::isBad() const
{
    return d->isBad();
}

int FaultyLink::underWay() const
{
    return d->underWay();
}

void FaultyLink::keyPressed(quint32 code)
{
    d->other->keyPressed(code);
}

void FaultyLink::keyReleased(quint32 code)
{
    d->other->keyReleased(code);
}

void FaultyLink::refresh()
{
    if (!d->isOpen()) {
        d->open();
        fail();
    }
    d->other->refresh();
}

void FaultyLink::consoleClosed()
{
    // First, and without a lock: it may wait for threads that are handing on a record here.
    d->other->consoleClosed();
    d->close();
    for (QTimer *timer : {d->turnTimer, d->lateTimer, d->stormTimer})
        timer->stop();
}

void FaultyLink::leverMoved(quint16 value, bool isBottomToTop)
{
    d->other->leverMoved(value, isBottomToTop);
}

void FaultyLink::lampChanged(Lamp lamp, bool isOn, quint8 brightness)
{
    d->other->lampChanged(lamp, isOn, brightness);
}

void FaultyLink::peripheralScreensChanged(int count, int operationScreen, const QVector<quint16> &sizes)
{
    d->other->peripheralScreensChanged(count, operationScreen, sizes);
}

void FaultyLink::addressesRequested(quint8 port)
{
    d->other->addressesRequested(port);
}

void FaultyLink::addressesEntered(const QString &interfaceName, const QString &ip, const QString &mask,
                                  const QString &gateway)
{
    d->other->addressesEntered(interfaceName, ip, mask, gateway);
}

void FaultyLink::addressChangeRequested(quint8 port, quint8 mode)
{
    d->other->addressChangeRequested(port, mode);
}

void FaultyLink::clockSet(const QString &date, const QString &time)
{
    d->other->clockSet(date, time);
}

void FaultyLink::timeTypeChanged(int type)
{
    d->other->timeTypeChanged(type);
}

void FaultyLink::restartRequested(quint8 type)
{
    d->other->restartRequested(type);
}

void FaultyLink::fail()
{
    if (!d->isOpen() || !d->faults)
        return;
    d->becomeBad();
    d->turnTimer->start(BadMs);
    if (d->faults.testFlag(LinkFault::Storm))
        d->stormTimer->start(BurstMs);
}

void FaultyLink::recover()
{
    if (!d->isOpen())
        return;
    d->becomeGood();
    d->lateTimer->stop();
    d->stormTimer->stop();
    if (d->faults)
        d->turnTimer->start(GoodMs);
    d->other->refresh();
}

void FaultyLink::takeTurns()
{
    isBad() ? recover() : fail();
}

void FaultyLink::awaitNext()
{
    const int waitMs = d->msToNext();
    if (waitMs >= 0)
        d->lateTimer->start(waitMs);
}

void FaultyLink::deliverDue()
{
    for (int i = 0; i < MaxInARow && d->deliverNext(); ++i)
        continue;
    awaitNext();
}

void FaultyLink::blow()
{
    const auto burst = d->makeBurst();
    for (const auto &carryOne : burst) {
        if (!d->isStormy())
            return;
        carryOne();
    }
}

} // namespace K7Host
