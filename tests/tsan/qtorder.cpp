// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// Qt is not built for the thread sanitizer and brings its own locks, so the sanitizer would take all that
// they guard for races. These functions stand before Qt's own, call them, and tell it what they order:
//
//  - a mutex and a semaphore order as such;
//  - what comes before the start of a function in a thread pool comes before the function;
//  - what a thread did before it emitted a signal, made a connection or posted an event comes before every
//    event that is delivered later. It is more than Qt promises, since it does not ask for which receiver,
//    but a smaller promise would need Qt's private headers;
//  - what a thread did comes before the end of a wait for it.
//
// Nothing else is promised: two threads that touch something of ours without one of these are reported.

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFutureInterface>
#include <QMutex>
#include <QObject>
#include <QSemaphore>
#include <QThread>

#include <sanitizer/tsan_interface.h>

#include <dlfcn.h>

namespace {

char events; // its address stands for the order of events

template <typename Function>
Function *theirs(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

bool beforeEvent(void **)
{
    __tsan_acquire(&events);
    return false;
}

const bool isRegistered = QInternal::registerCallback(QInternal::EventNotifyCallback, beforeEvent);

} // namespace

#define KORVO_ORDER(name, result, ...)       \
    result name(__VA_ARGS__) __asm__(#name); \
    Q_DECL_EXPORT result name(__VA_ARGS__)

KORVO_ORDER(_ZN6QMutex4lockEv, void, QMutex *mutex)
{
    static auto *const lock = theirs<void(QMutex *)>("_ZN6QMutex4lockEv");
    __tsan_mutex_pre_lock(mutex, __tsan_mutex_write_reentrant);
    lock(mutex);
    __tsan_mutex_post_lock(mutex, __tsan_mutex_write_reentrant, 1);
}

KORVO_ORDER(_ZN6QMutex7tryLockEi, bool, QMutex *mutex, int timeout)
{
    static auto *const tryLock = theirs<bool(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    const unsigned flags = __tsan_mutex_write_reentrant | __tsan_mutex_try_lock;
    __tsan_mutex_pre_lock(mutex, flags);
    const bool isLocked = tryLock(mutex, timeout);
    __tsan_mutex_post_lock(mutex, isLocked ? flags : flags | __tsan_mutex_try_lock_failed, 1);
    return isLocked;
}

KORVO_ORDER(_ZN6QMutex6unlockEv, void, QMutex *mutex)
{
    static auto *const unlock = theirs<void(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_mutex_pre_unlock(mutex, 0);
    unlock(mutex);
    __tsan_mutex_post_unlock(mutex, 0);
}

KORVO_ORDER(_ZN6QMutexD1Ev, void, QMutex *mutex)
{
    static auto *const destroy = theirs<void(QMutex *)>("_ZN6QMutexD1Ev");
    __tsan_mutex_destroy(mutex, 0);
    destroy(mutex);
}

KORVO_ORDER(_ZN10QSemaphore7releaseEi, void, QSemaphore *semaphore, int count)
{
    static auto *const release = theirs<void(QSemaphore *, int)>("_ZN10QSemaphore7releaseEi");
    __tsan_release(semaphore);
    release(semaphore, count);
}

KORVO_ORDER(_ZN10QSemaphore7acquireEi, void, QSemaphore *semaphore, int count)
{
    static auto *const acquire = theirs<void(QSemaphore *, int)>("_ZN10QSemaphore7acquireEi");
    acquire(semaphore, count);
    __tsan_acquire(semaphore);
}

KORVO_ORDER(_ZN10QSemaphore10tryAcquireEii, bool, QSemaphore *semaphore, int count, int timeout)
{
    static auto *const tryAcquire = theirs<bool(QSemaphore *, int, int)>("_ZN10QSemaphore10tryAcquireEii");
    const bool isAcquired = tryAcquire(semaphore, count, timeout);
    if (isAcquired)
        __tsan_acquire(semaphore);
    return isAcquired;
}

// A thread tells of its end itself, before whoever waits for it goes on.
KORVO_ORDER(_ZN7QThreadC2EP7QObject, void, QThread *thread, QObject *parent)
{
    static auto *const construct = theirs<void(QThread *, QObject *)>("_ZN7QThreadC2EP7QObject");
    construct(thread, parent);
    QObject::connect(
        thread, &QThread::finished, thread, [thread] { __tsan_release(thread); }, Qt::DirectConnection);
}

KORVO_ORDER(_ZN7QThread4waitE14QDeadlineTimer, bool, QThread *thread, QDeadlineTimer deadline)
{
    static auto *const wait = theirs<bool(QThread *, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool hasEnded = wait(thread, deadline);
    if (hasEnded)
        __tsan_acquire(thread);
    return hasEnded;
}

KORVO_ORDER(_ZN7QThread4waitEm, bool, QThread *thread, unsigned long time)
{
    static auto *const wait = theirs<bool(QThread *, unsigned long)>("_ZN7QThread4waitEm");
    const bool hasEnded = wait(thread, time);
    if (hasEnded)
        __tsan_acquire(thread);
    return hasEnded;
}

// What a pool's thread asks first.
KORVO_ORDER(_ZNK20QFutureInterfaceBase10isCanceledEv, bool, const QFutureInterfaceBase *future)
{
    static auto *const isCanceled =
        theirs<bool(const QFutureInterfaceBase *)>("_ZNK20QFutureInterfaceBase10isCanceledEv");
    __tsan_acquire(const_cast<QFutureInterfaceBase *>(future));
    return isCanceled(future);
}

KORVO_ORDER(_ZN20QFutureInterfaceBase13reportStartedEv, void, QFutureInterfaceBase *future)
{
    static auto *const reportStarted =
        theirs<void(QFutureInterfaceBase *)>("_ZN20QFutureInterfaceBase13reportStartedEv");
    __tsan_release(future);
    reportStarted(future);
}

KORVO_ORDER(_ZN11QMetaObject8activateEP7QObjectPKS_iPPv, void, QObject *sender, const QMetaObject *meta,
            int signal, void **arguments)
{
    static auto *const activate = theirs<void(QObject *, const QMetaObject *, int, void **)>(
        "_ZN11QMetaObject8activateEP7QObjectPKS_iPPv");
    __tsan_release(&events);
    activate(sender, meta, signal, arguments);
}

KORVO_ORDER(_ZN16QCoreApplication9postEventEP7QObjectP6QEventi, void, QObject *receiver, QEvent *event,
            int priority)
{
    static auto *const postEvent =
        theirs<void(QObject *, QEvent *, int)>("_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    __tsan_release(&events);
    postEvent(receiver, event, priority);
}

#define KORVO_CONNECT \
    _ZN7QObject11connectImplEPKS_PPvS1_S3_PN9QtPrivate15QSlotObjectBaseEN2Qt14ConnectionTypeEPKiPK11QMetaObject
#define KORVO_NAME(name) #name
#define KORVO_NAME_OF(name) KORVO_NAME(name)

using ConnectImpl = QMetaObject::Connection(const QObject *, void **, const QObject *, void **,
                                            QtPrivate::QSlotObjectBase *, Qt::ConnectionType, const int *,
                                            const QMetaObject *);

QMetaObject::Connection connectImpl(const QObject *sender, void **signal, const QObject *receiver,
                                    void **slotPtr, QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type,
                                    const int *types,
                                    const QMetaObject *meta) __asm__(KORVO_NAME_OF(KORVO_CONNECT));

Q_DECL_EXPORT QMetaObject::Connection connectImpl(const QObject *sender, void **signal,
                                                  const QObject *receiver, void **slotPtr,
                                                  QtPrivate::QSlotObjectBase *slot, Qt::ConnectionType type,
                                                  const int *types, const QMetaObject *meta)
{
    static auto *const connect = theirs<ConnectImpl>(KORVO_NAME_OF(KORVO_CONNECT));
    __tsan_release(&events);
    return connect(sender, signal, receiver, slotPtr, slot, type, types, meta);
}
