// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "internetthread.h"

#include "consolepanel.h"
#include "support.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

#include <atomic>
#include <limits>

using Korvo::Internal::InternetThread;

namespace {

/// Takes down each end of work, where it was emitted, as "eth0 7".
class Ends : public QObject
{
public:
    explicit Ends(InternetThread *thread)
    {
        connect(
            thread, &InternetThread::signal_setEthModeFinished, this,
            [this, thread](const QString &eth, int result) {
                const QMutexLocker locker(&m_mutex);
                m_lines << "%1 %2"_q.arg(eth).arg(result);
                m_areOnWorker = m_areOnWorker && QThread::currentThread() == thread;
            },
            Qt::DirectConnection);
    }
    QStringList lines() const
    {
        const QMutexLocker locker(&m_mutex);
        return m_lines;
    }
    bool areOnWorker() const
    {
        const QMutexLocker locker(&m_mutex);
        return m_areOnWorker;
    }

private:
    mutable QMutex m_mutex;
    QStringList m_lines;
    bool m_areOnWorker = true;
};

/// Busily, since the moment right after the end is the one that matters.
bool waitForLines(const Ends &ends, int count)
{
    QElapsedTimer clock;
    clock.start();
    while (ends.lines().size() < count && clock.elapsed() < 5000)
        QCoreApplication::processEvents();
    return ends.lines().size() == count;
}

} // namespace

class tst_InternetThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theThreadIsIdleAtFirst();
    void theWorkRunsOnTheThread();
    void theResultAndTheNameAreTold_data();
    void theResultAndTheNameAreTold();
    void theEndIsToldOnTheThreadAndQueuedToTheGui();
    void aPlainStartDoesWhatIsStoredOnce();
    void theThreadIsUsedAgain();
    void theNameHoldsForOneRun();
    void theLastWorkSetBeforeAStartCounts();
    void whatIsSetWhileItRunsIsForTheNextStart();
    void startsInARowLoseNoneAndDoubleNone_data();
    void startsInARowLoseNoneAndDoubleNone();
    void aStartAtTheVeryEndIsNotLost();
    void startsFromSeveralThreadsLoseNone();
    void emptyWorkThrows();
    void destroyingWaitsForTheWork();
    void destroyingDropsTheWorkThatWaits();
    void destroyingAnIdleThreadIsQuick();

private:
    void startWork(const QString &eth, const std::function<int()> &work);

    std::unique_ptr<InternetThread> m_thread;
};

void tst_InternetThread::init()
{
    m_thread = std::make_unique<InternetThread>();
}

void tst_InternetThread::cleanup()
{
    m_thread.reset();
}

void tst_InternetThread::startWork(const QString &eth, const std::function<int()> &work)
{
    m_thread->setCurrentETH(eth);
    m_thread->setThreadFun(work);
    m_thread->start();
}

void tst_InternetThread::theThreadIsIdleAtFirst()
{
    QVERIFY(!m_thread->isRunning());
    QVERIFY(!m_thread->isFinished());
    QCOMPARE(m_thread->parent(), nullptr);
    QCOMPARE(m_thread->thread(), QThread::currentThread());
    m_thread->setCurrentETH("eth0"_q);
    m_thread->setThreadFun([] { return 1; });
    QVERIFY(!m_thread->isRunning());
}

void tst_InternetThread::theWorkRunsOnTheThread()
{
    std::atomic<QThread *> ranOn{nullptr};
    startWork("eth0"_q, [&ranOn] {
        ranOn = QThread::currentThread();
        return 0;
    });
    QVERIFY(m_thread->wait(5000));
    QCOMPARE(ranOn.load(), m_thread.get());
}

void tst_InternetThread::theResultAndTheNameAreTold_data()
{
    QTest::addColumn<QString>("eth");
    QTest::addColumn<int>("result");
    QTest::newRow("eth0") << "eth0"_q << 1;
    QTest::newRow("eth2") << "eth2"_q << 1;
    QTest::newRow("nothing done") << "eth0"_q << 0;
    QTest::newRow("a failure") << "eth2"_q << -1;
    QTest::newRow("no name") << QString() << 7;
    QTest::newRow("any name") << "wlan0 \u00e4"_q << std::numeric_limits<int>::max();
}

void tst_InternetThread::theResultAndTheNameAreTold()
{
    QFETCH(QString, eth);
    QFETCH(int, result);
    QSignalSpy ended(m_thread.get(), &InternetThread::signal_setEthModeFinished);
    startWork(eth, [result] { return result; });
    QVERIFY(m_thread->wait(5000));
    QCOMPARE(ended.size(), 1);
    QCOMPARE(ended.constFirst(), (QVariantList{eth, result}));
}

void tst_InternetThread::theEndIsToldOnTheThreadAndQueuedToTheGui()
{
    const Ends ends(m_thread.get());
    QStringList onGui;
    connect(m_thread.get(), &InternetThread::signal_setEthModeFinished, this,
            [&onGui](const QString &eth, int result) { onGui << "%1 %2"_q.arg(eth).arg(result); });
    startWork("eth2"_q, [] { return 3; });
    QVERIFY(m_thread->wait(5000));
    QCOMPARE(ends.lines(), QStringList{"eth2 3"_q});
    QVERIFY(ends.areOnWorker());
    QCOMPARE(onGui, QStringList());
    QTRY_COMPARE(onGui, QStringList{"eth2 3"_q});
}

void tst_InternetThread::aPlainStartDoesWhatIsStoredOnce()
{
    QSignalSpy finished(m_thread.get(), &InternetThread::signal_setEthModeFinished);
    m_thread->setThreadFun([] { return 5; });
    m_thread->setCurrentETH(QStringLiteral("eth2"));
    static_cast<QThread *>(m_thread.get())->start();
    QVERIFY(m_thread->wait());
    static_cast<QThread *>(m_thread.get())->start();
    QVERIFY(m_thread->wait());
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0), (QVariantList{QStringLiteral("eth2"), 5}));
}

void tst_InternetThread::theThreadIsUsedAgain()
{
    const Ends ends(m_thread.get());
    for (int i = 0; i < 20; ++i) {
        startWork(i % 2 ? "eth0"_q : "eth2"_q, [i] { return i; });
        QVERIFY(m_thread->wait(5000));
        QCOMPARE(ends.lines().size(), i + 1);
        QCOMPARE(ends.lines().constLast(), "%1 %2"_q.arg(i % 2 ? "eth0"_q : "eth2"_q).arg(i));
    }
    QVERIFY(ends.areOnWorker());
    QCoreApplication::processEvents();
    QVERIFY(m_thread->wait(5000));
    QCOMPARE(ends.lines().size(), 20);
}

void tst_InternetThread::theNameHoldsForOneRun()
{
    const Ends ends(m_thread.get());
    startWork("eth0"_q, [] { return 4; });
    QVERIFY(m_thread->wait(5000));
    m_thread->start();
    QVERIFY(m_thread->wait(5000));
    QCOMPARE(ends.lines(), (QStringList{"eth0 4"_q, " 4"_q}));
}

void tst_InternetThread::theLastWorkSetBeforeAStartCounts()
{
    const Ends ends(m_thread.get());
    m_thread->setCurrentETH("eth2"_q);
    m_thread->setThreadFun([] { return 1; });
    startWork("eth0"_q, [] { return 2; });
    QVERIFY(m_thread->wait(5000));
    QCOMPARE(ends.lines(), QStringList{"eth0 2"_q});
}

void tst_InternetThread::whatIsSetWhileItRunsIsForTheNextStart()
{
    const Ends ends(m_thread.get());
    QSemaphore isRunning;
    QSemaphore mayEnd;
    startWork("eth0"_q, [&] {
        isRunning.release();
        mayEnd.acquire();
        return 1;
    });
    QVERIFY(isRunning.tryAcquire(1, 5000));
    startWork("eth2"_q, [&ends] { return 10 + ends.lines().size(); });
    QCoreApplication::processEvents();
    QCOMPARE(ends.lines(), QStringList());
    mayEnd.release();
    // The second finds the first one ended.
    QTRY_COMPARE(ends.lines(), (QStringList{"eth0 1"_q, "eth2 11"_q}));
    QTRY_VERIFY(!m_thread->isRunning());
    QCoreApplication::processEvents();
    QVERIFY(m_thread->wait(5000));
    QCOMPARE(ends.lines().size(), 2);
    QVERIFY(ends.areOnWorker());
}

void tst_InternetThread::startsInARowLoseNoneAndDoubleNone_data()
{
    QTest::addColumn<int>("waits"); // for the end of the thread after every how many starts
    QTest::newRow("all at once") << 1000;
    QTest::newRow("one after the other") << 1;
    QTest::newRow("two by two") << 2;
    QTest::newRow("now and then") << 7;
}

// The thread ends whenever it has nothing to do, and a start may come at any moment of that.
void tst_InternetThread::startsInARowLoseNoneAndDoubleNone()
{
    QFETCH(int, waits);
    const int count = 400;
    const Ends ends(m_thread.get());
    QStringList expected;
    for (int i = 0; i < count; ++i) {
        const QString eth = i % 3 ? "eth0"_q : "eth2"_q;
        startWork(eth, [i] { return i; });
        expected << "%1 %2"_q.arg(eth).arg(i);
        if (i % waits == waits - 1)
            QVERIFY(waitForLines(ends, i + 1));
        else if (i % 5 == 0)
            QThread::yieldCurrentThread();
    }
    QTRY_COMPARE(ends.lines().size(), count);
    QTRY_VERIFY(!m_thread->isRunning());
    QCoreApplication::processEvents();
    QVERIFY(m_thread->wait(5000));
    QCOMPARE(ends.lines(), expected);
}

void tst_InternetThread::aStartAtTheVeryEndIsNotLost()
{
    // Ends no sooner than it may, when it has found nothing more to do.
    struct Lingerer : InternetThread
    {
        ~Lingerer() override { wait(); }
        void run() override
        {
            InternetThread::run();
            isAtItsEnd.release();
            mayEnd.acquire();
        }
        QSemaphore isAtItsEnd;
        QSemaphore mayEnd;
    } lingerer;
    const Ends ends(&lingerer);
    lingerer.setThreadFun([] { return 1; });
    lingerer.setCurrentETH("eth0"_q);
    lingerer.start();
    QVERIFY(lingerer.isAtItsEnd.tryAcquire(1, 5000));
    lingerer.setCurrentETH("eth2"_q);
    lingerer.start();
    lingerer.mayEnd.release(2);
    QTRY_COMPARE(ends.lines(), (QStringList{"eth0 1"_q, "eth2 1"_q}));
    QTRY_VERIFY(lingerer.isFinished());
    QCoreApplication::processEvents();
    QVERIFY(lingerer.isFinished());
    QCOMPARE(ends.lines().size(), 2);
}

void tst_InternetThread::startsFromSeveralThreadsLoseNone()
{
    const int count = 100;
    std::atomic<int> runs{0};
    m_thread->setThreadFun([&runs] { return ++runs; });
    const auto startOften = [this] {
        for (int i = 0; i < count; ++i)
            m_thread->start();
    };
    struct Starter : QThread
    {
        explicit Starter(std::function<void()> work)
            : m_work(std::move(work))
        {
        }
        void run() override { m_work(); }
        const std::function<void()> m_work;
    } first(startOften), second(startOften);
    first.start();
    second.start();
    QTRY_COMPARE(runs.load(), 2 * count);
    QVERIFY(first.wait(5000));
    QVERIFY(second.wait(5000));
    QTRY_VERIFY(!m_thread->isRunning());
    QCOMPARE(runs.load(), 2 * count);
}

void tst_InternetThread::emptyWorkThrows()
{
    struct Catcher : InternetThread
    {
        ~Catcher() override { wait(); }
        void run() override
        {
            try {
                InternetThread::run();
            } catch (const std::bad_function_call &) {
                hasThrown = true;
            }
        }
        std::atomic<bool> hasThrown{false};
    } catcher;
    const Ends ends(&catcher);
    catcher.setCurrentETH("eth0"_q);
    catcher.start();
    QVERIFY(catcher.wait(5000));
    QVERIFY(catcher.hasThrown);
    QCOMPARE(ends.lines(), QStringList());
}

void tst_InternetThread::destroyingWaitsForTheWork()
{
    const Ends ends(m_thread.get());
    QSemaphore isRunning;
    startWork("eth0"_q, [&isRunning] {
        isRunning.release();
        QThread::msleep(50); // destroying has begun by then
        return 5;
    });
    QVERIFY(isRunning.tryAcquire(1, 5000));
    m_thread.reset();
    QCOMPARE(ends.lines(), QStringList{"eth0 5"_q});
}

void tst_InternetThread::destroyingDropsTheWorkThatWaits()
{
    const Ends ends(m_thread.get());
    QSemaphore isRunning;
    std::atomic<bool> hasRunSecond{false};
    startWork("eth0"_q, [&isRunning] {
        isRunning.release();
        QThread::msleep(50); // destroying has begun by then
        return 5;
    });
    QVERIFY(isRunning.tryAcquire(1, 5000));
    startWork("eth2"_q, [&hasRunSecond] {
        hasRunSecond = true;
        return 6;
    });
    m_thread.reset();
    QCOMPARE(ends.lines(), QStringList{"eth0 5"_q});
    QCoreApplication::processEvents();
    QVERIFY(!hasRunSecond);
}

void tst_InternetThread::destroyingAnIdleThreadIsQuick()
{
    m_thread.reset(); // never started
    init();
    startWork("eth0"_q, [] { return 0; });
    QVERIFY(m_thread->wait(5000));
    m_thread.reset(); // ended, its end not delivered yet
    QCoreApplication::processEvents();
}

QTEST_GUILESS_MAIN(tst_InternetThread)

#include "tst_internetthread.moc"
