// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "support.h"

#include <guicalls.h>

#include <QCoreApplication>
#include <QSemaphore>
#include <QTest>
#include <QThread>
#include <QVector>

#include <atomic>
#include <memory>
#include <vector>

using Korvo::ECKeyboard::K7::Internal::GuiCalls;

namespace {

constexpr int Ever = 600000; // ms; longer than the test may take
constexpr int LongMs = 30000;

/// A thread that does \a Work.
template <typename Work>
class Worker : public QThread
{
public:
    explicit Worker(Work work)
        : m_work(work)
    {
        start();
    }
    ~Worker() override { wait(); }
    void run() override { m_work(); }

private:
    Work m_work;
};

/// A call that tells when it has been handed over: it is moved into the queue then, before any waiting.
class TellingCall
{
public:
    explicit TellingCall(QSemaphore *movedIn)
        : m_movedIn(movedIn)
    {
    }
    TellingCall(TellingCall &&other) noexcept
        : m_movedIn(other.m_movedIn)
    {
        m_movedIn->release();
    }
    void operator()() const {}

private:
    QSemaphore *const m_movedIn;
};

QVector<int> numbersBelow(int end)
{
    QVector<int> numbers;
    for (int i = 0; i < end; ++i)
        numbers << i;
    return numbers;
}

} // namespace

class tst_GuiCalls : public QObject
{
    Q_OBJECT

private slots:
    void onTheGuiThreadACallRunsAtOnce();
    void callsOfAnotherThreadRunInOrderOnTheGuiThread();
    void aFullRoomHoldsTheSenderBack_data();
    void aFullRoomHoldsTheSenderBack();
    void aThreadThatTheGuiThreadWaitsForGoesOn();
    void anOverloadIsWarnedOfOnce();
    void theGuiThreadNeverWaits();
    void everyThreadKeepsItsOrder();
    void closingLetsAllWaitingThreadsGo();
    void destroyingLetsAWaitingThreadGo();
    void whatWaitsGoesWithTheObject();
    void afterClosingOnlyTheGuiThreadIsServed();
    void aCallMayDestroyTheObject();
    void aCallMayTakeThoseThatFollow();
};

void tst_GuiCalls::onTheGuiThreadACallRunsAtOnce()
{
    GuiCalls calls(1, 0);
    int ran = 0;
    calls.run([&ran] { ++ran; });
    calls.run([&ran] { ++ran; });
    QCOMPARE(ran, 2);
}

void tst_GuiCalls::callsOfAnotherThreadRunInOrderOnTheGuiThread()
{
    GuiCalls calls;
    QVector<int> ran;
    bool isOnGuiThread = true;
    runElsewhere([&] {
        for (int i = 0; i < 100; ++i) {
            calls.run([&, i] {
                ran << i;
                isOnGuiThread &= QThread::currentThread() == calls.thread();
            });
        }
    });
    QVERIFY(ran.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(ran, numbersBelow(100));
    QVERIFY(isOnGuiThread);
}

void tst_GuiCalls::aFullRoomHoldsTheSenderBack_data()
{
    QTest::addColumn<int>("room");
    QTest::newRow("one") << 1;
    QTest::newRow("some") << 7;
    QTest::newRow("as in the console") << 1024;
}

void tst_GuiCalls::aFullRoomHoldsTheSenderBack()
{
    QFETCH(int, room);
    const int count = 4 * room + 100;
    GuiCalls calls(room, Ever);
    std::atomic<int> sent{0};
    QSemaphore isSent;
    QVector<int> ran;
    int mostWaiting = 0;
    const LogKeeper log;
    Worker sender([&] {
        for (int i = 0; i < count; ++i) {
            calls.run([&, i] {
                mostWaiting = qMax(mostWaiting, sent - i);
                ran << i;
            });
            ++sent;
            isSent.release();
        }
    });
    // So many go without waiting for anybody, and no more: with half as many again there would be time for
    // it.
    QVERIFY(isSent.tryAcquire(room, LongMs));
    QVERIFY(!isSent.tryAcquire(1, 20));
    QTRY_COMPARE_WITH_TIMEOUT(ran.size(), count, LongMs);
    QCOMPARE(ran, numbersBelow(count));
    // The one that runs has given up its place.
    QVERIFY2(mostWaiting <= room + 1, qPrintable(QString::number(mostWaiting)));
    QVERIFY(sender.wait());
    QCOMPARE(LogKeeper::lines(), QStringList());
}

void tst_GuiCalls::aThreadThatTheGuiThreadWaitsForGoesOn()
{
    GuiCalls calls(3, 1);
    QVector<int> ran;
    const LogKeeper log;
    runElsewhere([&] {
        for (int i = 0; i < 10; ++i)
            calls.run([&, i] { ran << i; });
    });
    QVERIFY(ran.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(ran, numbersBelow(10));
}

void tst_GuiCalls::anOverloadIsWarnedOfOnce()
{
    GuiCalls calls(3, 1);
    const QString warning = QStringLiteral("More than 3 records wait: the console cannot keep up.");
    const auto send = [&calls](int count) {
        runElsewhere([&] {
            for (int i = 0; i < count; ++i)
                calls.run([] {});
        });
    };
    const LogKeeper log;
    send(3);
    QCOMPARE(LogKeeper::lines(), QStringList());
    send(3);
    QCOMPARE(LogKeeper::lines(), QStringList{warning});
    QCoreApplication::processEvents();
    send(3);
    QCOMPARE(LogKeeper::lines(), QStringList{warning});
    send(1);
    QCOMPARE(LogKeeper::lines(), (QStringList{warning, warning}));
}

void tst_GuiCalls::theGuiThreadNeverWaits()
{
    GuiCalls calls(1, Ever);
    runElsewhere([&calls] { calls.run([] {}); });
    bool hasRun = false;
    calls.run([&hasRun] { hasRun = true; });
    QVERIFY(hasRun);
}

void tst_GuiCalls::everyThreadKeepsItsOrder()
{
    constexpr int ThreadCount = 4;
    constexpr int CallCount = 500;
    GuiCalls calls(8, Ever);
    QVector<QVector<int>> ran(ThreadCount);
    const auto send = [&](int thread) {
        for (int i = 0; i < CallCount; ++i)
            calls.run([&ran, thread, i] { ran[thread] << i; });
    };
    const auto sender = [&send](int thread) { return [&send, thread] { send(thread); }; };
    std::vector<std::unique_ptr<Worker<decltype(sender(0))>>> senders;
    senders.reserve(ThreadCount);
    for (int thread = 0; thread < ThreadCount; ++thread)
        senders.push_back(std::make_unique<Worker<decltype(sender(0))>>(sender(thread)));
    for (int thread = 0; thread < ThreadCount; ++thread) {
        QTRY_COMPARE_WITH_TIMEOUT(ran.at(thread).size(), CallCount, LongMs);
        QCOMPARE(ran.at(thread), numbersBelow(CallCount));
    }
}

void tst_GuiCalls::closingLetsAllWaitingThreadsGo()
{
    GuiCalls calls(1, Ever);
    std::atomic<int> ran{0};
    QSemaphore areComing;
    const auto send = [&] {
        areComing.release();
        for (int i = 0; i < 3; ++i)
            calls.run([&ran] { ++ran; });
    };
    {
        Worker first(send);
        Worker second(send);
        Worker third(send);
        areComing.acquire(3);
        calls.close();
        QVERIFY(first.wait(LongMs));
        QVERIFY(second.wait(LongMs));
        QVERIFY(third.wait(LongMs));
    }
    QCoreApplication::processEvents();
    QCOMPARE(ran, 0);
}

void tst_GuiCalls::destroyingLetsAWaitingThreadGo()
{
    auto calls = std::make_unique<GuiCalls>(1, Ever);
    runElsewhere([&] { calls->run([] {}); });
    QSemaphore movedIn;
    Worker sender([&] { calls->run(TellingCall(&movedIn)); });
    movedIn.acquire();
    calls.reset();
    QVERIFY(sender.wait(LongMs));
}

void tst_GuiCalls::whatWaitsGoesWithTheObject()
{
    const auto record = std::make_shared<int>();
    auto calls = std::make_unique<GuiCalls>();
    runElsewhere([&] { calls->run([record] {}); });
    QCOMPARE(record.use_count(), 2L);
    calls.reset();
    QCOMPARE(record.use_count(), 1L);
}

void tst_GuiCalls::afterClosingOnlyTheGuiThreadIsServed()
{
    GuiCalls calls(1, Ever);
    calls.close();
    calls.close();
    int ran = 0;
    runElsewhere([&] {
        calls.run([&ran] { ++ran; });
        calls.run([&ran] { ++ran; });
    });
    QCoreApplication::processEvents();
    QCOMPARE(ran, 0);
    calls.run([&ran] { ++ran; });
    QCOMPARE(ran, 1);
}

void tst_GuiCalls::aCallMayDestroyTheObject()
{
    auto calls = std::make_unique<GuiCalls>();
    bool hasRun = false;
    runElsewhere([&] {
        calls->run([&calls] { calls.reset(); });
        calls->run([&hasRun] { hasRun = true; });
    });
    QCoreApplication::processEvents();
    QVERIFY(!calls);
    QVERIFY(!hasRun);
}

void tst_GuiCalls::aCallMayTakeThoseThatFollow()
{
    GuiCalls calls;
    QVector<int> ran;
    runElsewhere([&] {
        calls.run([&ran] {
            QCoreApplication::sendPostedEvents();
            ran << 2;
        });
        for (int i = 0; i < 2; ++i)
            calls.run([&ran, i] { ran << i; });
    });
    QCoreApplication::processEvents();
    QCOMPARE(ran, (QVector<int>{0, 1, 2}));
}

QTEST_GUILESS_MAIN(tst_GuiCalls)

#include "tst_guicalls.moc"
