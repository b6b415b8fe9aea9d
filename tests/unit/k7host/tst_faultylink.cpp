// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include <faultylink.h>

#include <QElapsedTimer>
#include <QSemaphore>
#include <QSet>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <functional>
#include <limits>

using namespace K7Host;

namespace {

constexpr quint32 Seed = 11;
const auto AllButLate = LinkFault::Lost | LinkFault::Duplicate | LinkFault::Garbled;
const auto AllFaults = AllButLate | LinkFault::Late | LinkFault::Storm;

int countDifferent(const QVector<quint32> &keys)
{
    QSet<quint32> different;
    for (const quint32 key : keys)
        different << key;
    return different.size();
}

/// Writes down its events. The test emits its records.
class StubLink : public DeviceLink
{
public:
    void keyPressed(quint32 code) override { write("keyPressed", code); }
    void keyReleased(quint32 code) override { write("keyReleased", code); }
    void refresh() override
    {
        write("refresh");
        if (onRefresh)
            onRefresh();
    }
    void consoleClosed() override
    {
        write("consoleClosed");
        if (onClosed)
            onClosed();
    }
    void leverMoved(quint16 value, bool isBottomToTop) override
    {
        write("leverMoved", int(value), isBottomToTop);
    }
    void lampChanged(Lamp lamp, bool isOn, quint8 brightness) override
    {
        write("lampChanged", static_cast<int>(lamp), isOn, int(brightness));
    }
    void peripheralScreensChanged(int count, int operationScreen, const QVector<quint16> &sizes) override
    {
        write("peripheralScreensChanged", count, operationScreen, sizes.size(), int(sizes.value(0)));
    }
    void addressesRequested(quint8 port) override { write("addressesRequested", int(port)); }
    void addressesEntered(const QString &interfaceName, const QString &ip, const QString &mask,
                          const QString &gateway) override
    {
        write("addressesEntered", interfaceName, ip, mask, gateway);
    }
    void addressChangeRequested(quint8 port, quint8 mode) override
    {
        write("addressChangeRequested", int(port), int(mode));
    }
    void clockSet(const QString &date, const QString &time) override { write("clockSet", date, time); }
    void timeTypeChanged(int type) override { write("timeTypeChanged", type); }
    void restartRequested(quint8 type) override { write("restartRequested", int(type)); }

    int count(const char *name) const
    {
        int found = 0;
        for (const QVariantList &event : events)
            found += event.constFirst() == QVariant(QString::fromLatin1(name)) ? 1 : 0;
        return found;
    }

    QVector<QVariantList> events; // name and arguments
    std::function<void()> onRefresh;
    std::function<void()> onClosed;

private:
    template <typename... Arguments>
    void write(const char *name, Arguments... arguments)
    {
        events << QVariantList{QString::fromLatin1(name), QVariant(arguments)...};
    }
};

using Color = std::shared_ptr<Korvo::ECButtonColor>;

/// The newest record of each kind that came.
struct Kinds
{
    std::shared_ptr<Korvo::ECButtonColor> color;
    std::shared_ptr<Korvo::ECOLEDText> text;
    std::shared_ptr<Korvo::ECTBarValue> lever;
    std::shared_ptr<Korvo::ECDeviceIPData> ip;
    std::shared_ptr<Korvo::DVIInSignal> dvi;
    std::shared_ptr<Korvo::PeripheralControlVisibleState> visibility;

    bool areAllThere() const { return color && text && lever && ip && dvi && visibility; }
};

template <typename Record>
void keepNewest(const DeviceLink *link, void (DeviceLink::*reported)(std::shared_ptr<Record>),
                std::shared_ptr<Record> *newest)
{
    QObject::connect(link, reported, link,
                     [newest](const std::shared_ptr<Record> &record) { *newest = record; });
}

void keepNewest(const DeviceLink *link, Kinds *kinds)
{
    keepNewest(link, &DeviceLink::buttonColorReported, &kinds->color);
    keepNewest(link, &DeviceLink::oledTextReported, &kinds->text);
    keepNewest(link, &DeviceLink::tBarValueReported, &kinds->lever);
    keepNewest(link, &DeviceLink::deviceIPReported, &kinds->ip);
    keepNewest(link, &DeviceLink::dviSignalReported, &kinds->dvi);
    keepNewest(link, &DeviceLink::peripheralVisibilityReported, &kinds->visibility);
}

/// Emits records in a thread of its own: \a count, or until it goes.
class EmittingThread : public QThread
{
public:
    explicit EmittingThread(DeviceLink *link, int count = std::numeric_limits<int>::max())
        : m_link(link)
        , m_count(count)
    {
        start();
    }
    ~EmittingThread() override
    {
        requestInterruption();
        wait();
    }

    void run() override
    {
        for (int i = 0; i < m_count && !isInterruptionRequested(); ++i)
            emit m_link->buttonColorReported(std::make_shared<Korvo::ECButtonColor>());
    }

private:
    DeviceLink *const m_link;
    const int m_count;
};

Color colorOf(quint32 key)
{
    auto color = std::make_shared<Korvo::ECButtonColor>();
    color->ButtonKey = key;
    return color;
}

QString text(const char *string)
{
    return QString::fromUtf8(string);
}

} // namespace

Q_DECLARE_METATYPE(LinkFaults)

class tst_FaultyLink : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void eventsPassAtOnceAndUnharmed();
    void withoutFaultsTheLinkNeverFails();
    void nothingIsEmittedBeforeTheFirstRefresh();
    void badAndGoodTimesTakeTurns();
    void inGoodTimesEveryRecordPasses_data();
    void inGoodTimesEveryRecordPasses();

    void lostRecordsAreMissing();
    void duplicatesComeAtOnce();
    void lateRecordsOvertakeOneAnother();
    void garbledRecordsAreCopies();
    void everyKindOfRecordSuffers();
    void aStormInventsAndRepeatsRecords();
    void theStormTimerRunsInBadTimesOnly_data();
    void theStormTimerRunsInBadTimesOnly();
    void faultsAddUp();
    void theSameSeedLeadsToTheSameFate();

    void recoveryDiscardsWhatIsUnderWay();
    void recoveryByAReceiverDiscardsTheOtherCopies();
    void recoveryAsksForEveryRecordOnceTheLinkIsGood();
    void aRefreshInBadTimesSuffers();
    void whatIsUnderWayIsBounded_data();
    void whatIsUnderWayIsBounded();
    void otherEventsHaveTheirTurnBetweenLateRecords();

    void recordsOfOtherThreadsAreEmittedThere();
    void lateRecordsOfOtherThreadsAreEmittedOnTheGuiThread();
    void recoveringAndClosingWaitForWhatIsEmittedElsewhere_data();
    void recoveringAndClosingWaitForWhatIsEmittedElsewhere();
    void onceItHasRecoveredNoThreadEmitsHarm();
    void onceItIsClosedNoThreadEmits();
    void closingStopsEverything();
    void aRefreshAfterClosingBeginsAnew();
    void aReceiverMayClose();
    void itCanGoWithRecordsUnderWay();

private:
    void open(LinkFaults faults, quint32 seed = Seed);
    void send(int count);
    QVector<quint32> keys() const;
    QTimer *timer(const char *name) const;
    QStringList activeTimers() const;

    QScopedPointer<StubLink> m_other;
    QScopedPointer<FaultyLink> m_link;
    QVector<Color> m_colors; // what came
};

/// A link whose turns wait for the test.
void tst_FaultyLink::open(LinkFaults faults, quint32 seed)
{
    cleanup();
    m_other.reset(new StubLink);
    m_link.reset(new FaultyLink(m_other.data(), faults, seed));
    connect(m_link.data(), &DeviceLink::buttonColorReported, m_link.data(),
            [this](const Color &color) { m_colors << color; });
    m_link->refresh();
    timer("turn")->stop();
}

void tst_FaultyLink::cleanup()
{
    m_link.reset();
    m_other.reset();
    m_colors.clear();
}

/// Sends colours for the keys from 0 on.
void tst_FaultyLink::send(int count)
{
    for (int key = 0; key < count; ++key)
        emit m_other->buttonColorReported(colorOf(static_cast<quint32>(key)));
}

/// Of the colours that came; a null one counts as 1000.
QVector<quint32> tst_FaultyLink::keys() const
{
    QVector<quint32> keys;
    for (const Color &color : m_colors)
        keys << (color ? color->ButtonKey : 1000);
    return keys;
}

QTimer *tst_FaultyLink::timer(const char *name) const
{
    return m_link->findChild<QTimer *>(text(name));
}

QStringList tst_FaultyLink::activeTimers() const
{
    QStringList names;
    const auto timers = m_link->findChildren<QTimer *>();
    for (const QTimer *timer : timers) {
        if (timer->isActive())
            names << timer->objectName();
    }
    names.sort();
    return names;
}

void tst_FaultyLink::eventsPassAtOnceAndUnharmed()
{
    open(AllFaults);
    QVERIFY(m_link->isBad());
    m_other->events.clear();
    for (int i = 0; i < 20; ++i) {
        m_link->keyPressed(0xff0026);
        m_link->keyReleased(0xff0026);
        m_link->refresh();
        m_link->leverMoved(1200, true);
        m_link->lampChanged(Lamp::Lcd, true, 15);
        m_link->peripheralScreensChanged(1, 0, {1920, 1080});
        m_link->addressesRequested(1);
        m_link->addressesEntered(text("eth0"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
        m_link->addressChangeRequested(1, 2);
        m_link->clockSet(text("2030-1-2"), text("3:4:5"));
        m_link->timeTypeChanged(1);
        m_link->restartRequested(1);
        m_link->consoleClosed();
        const QVector<QVariantList> expected{
            {text("keyPressed"), 0xff0026U},
            {text("keyReleased"), 0xff0026U},
            {text("refresh")},
            {text("leverMoved"), 1200, true},
            {text("lampChanged"), 2, true, 15},
            {text("peripheralScreensChanged"), 1, 0, 2, 1920},
            {text("addressesRequested"), 1},
            {text("addressesEntered"), text("eth0"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1")},
            {text("addressChangeRequested"), 1, 2},
            {text("clockSet"), text("2030-1-2"), text("3:4:5")},
            {text("timeTypeChanged"), 1},
            {text("restartRequested"), 1},
            {text("consoleClosed")}};
        QCOMPARE(m_other->events, expected);
        m_other->events.clear();
    }
}

void tst_FaultyLink::withoutFaultsTheLinkNeverFails()
{
    open({});
    m_link->refresh();
    m_link->fail();
    QVERIFY(!m_link->isBad());
    send(100);
    QCOMPARE(m_colors.size(), 100);
    m_link->recover();
    QCOMPARE(m_other->count("refresh"), 3);
    QCOMPARE(activeTimers(), QStringList());
}

void tst_FaultyLink::nothingIsEmittedBeforeTheFirstRefresh()
{
    open(LinkFault::Duplicate);
    m_link.reset(new FaultyLink(m_other.data(), LinkFault::Duplicate, Seed));
    Kinds kinds;
    keepNewest(m_link.data(), &kinds);
    m_other->events.clear();
    m_link->fail();
    m_link->recover();
    send(10);
    QVERIFY(!kinds.color);
    QVERIFY(!m_link->isBad());
    QCOMPARE(activeTimers(), QStringList());
    QVERIFY(m_other->events.isEmpty());
}

void tst_FaultyLink::badAndGoodTimesTakeTurns()
{
    open(LinkFault::Lost);
    m_link->consoleClosed();
    m_link->refresh();
    QTimer *turn = timer("turn");
    QVERIFY(m_link->isBad());
    QVERIFY(turn->isActive());
    QCOMPARE(turn->interval(), 2000);
    QCOMPARE(m_other->count("refresh"), 2);

    turn->setInterval(0);
    QTRY_VERIFY(!m_link->isBad());
    QVERIFY(turn->isActive());
    QCOMPARE(turn->interval(), 2000);
    QCOMPARE(m_other->count("refresh"), 3);

    turn->setInterval(0);
    QTRY_VERIFY(m_link->isBad());
    QCOMPARE(turn->interval(), 2000);
    QCOMPARE(m_other->count("refresh"), 3);
    QCOMPARE(activeTimers(), QStringList{text("turn")});
}

void tst_FaultyLink::inGoodTimesEveryRecordPasses_data()
{
    QTest::addColumn<LinkFaults>("faults");
    QTest::newRow("no faults") << LinkFaults();
    QTest::newRow("all faults") << LinkFaults(AllFaults);
}

void tst_FaultyLink::inGoodTimesEveryRecordPasses()
{
    QFETCH(LinkFaults, faults);
    open(faults);
    m_link->recover();
    Kinds arrived;
    keepNewest(m_link.data(), &arrived);
    for (int i = 0; i < 50; ++i) {
        Kinds sent;
        sent.color = std::make_shared<Korvo::ECButtonColor>();
        sent.text = std::make_shared<Korvo::ECOLEDText>();
        sent.lever = std::make_shared<Korvo::ECTBarValue>();
        sent.ip = std::make_shared<Korvo::ECDeviceIPData>();
        sent.dvi = std::make_shared<Korvo::DVIInSignal>();
        sent.visibility = std::make_shared<Korvo::PeripheralControlVisibleState>();
        emit m_other->buttonColorReported(sent.color);
        emit m_other->oledTextReported(sent.text);
        emit m_other->tBarValueReported(sent.lever);
        emit m_other->deviceIPReported(sent.ip);
        emit m_other->dviSignalReported(sent.dvi);
        emit m_other->peripheralVisibilityReported(sent.visibility);
        QCOMPARE(arrived.color, sent.color);
        QCOMPARE(arrived.text, sent.text);
        QCOMPARE(arrived.lever, sent.lever);
        QCOMPARE(arrived.ip, sent.ip);
        QCOMPARE(arrived.dvi, sent.dvi);
        QCOMPARE(arrived.visibility, sent.visibility);
    }
    QCOMPARE(m_colors.size(), 50);
}

void tst_FaultyLink::lostRecordsAreMissing()
{
    open(LinkFault::Lost);
    send(100);
    const auto arrived = keys();
    QVERIFY(arrived.size() > 50 && arrived.size() < 95);
    QVERIFY(std::is_sorted(arrived.cbegin(), arrived.cend()));
    QCOMPARE(countDifferent(arrived), arrived.size());
    QCOMPARE(activeTimers(), QStringList());
}

void tst_FaultyLink::duplicatesComeAtOnce()
{
    open(LinkFault::Duplicate);
    send(100);
    const auto arrived = keys();
    QVERIFY(arrived.size() > 120 && arrived.size() < 200);
    QVERIFY(std::is_sorted(arrived.cbegin(), arrived.cend()));
    QCOMPARE(countDifferent(arrived), 100);
    QCOMPARE(activeTimers(), QStringList());
}

void tst_FaultyLink::lateRecordsOvertakeOneAnother()
{
    open(LinkFault::Late);
    QElapsedTimer clock;
    clock.start();
    send(100);
    QVERIFY(m_colors.size() < 10);
    QCOMPARE(m_link->underWay(), 100 - m_colors.size());
    QCOMPARE(activeTimers(), QStringList{text("late")});
    QTRY_COMPARE(m_colors.size(), 100);
    QVERIFY2(clock.elapsed() >= 400, qPrintable(QString::number(clock.elapsed()))); // of 500
    QCOMPARE(activeTimers(), QStringList());
    const auto arrived = keys();
    QVERIFY(!std::is_sorted(arrived.cbegin(), arrived.cend()));
    QCOMPARE(countDifferent(arrived), 100);
}

void tst_FaultyLink::garbledRecordsAreCopies()
{
    open(LinkFault::Garbled);
    QVector<Color> sent;
    for (quint32 key = 0; key < 100; ++key)
        sent << colorOf(key);
    for (const Color &color : qAsConst(sent))
        emit m_other->buttonColorReported(color);
    QCOMPARE(m_colors.size(), 100);
    int nulls = 0;
    int copies = 0;
    int foreign = 0;
    for (int i = 0; i < 100; ++i) {
        const Color &arrived = m_colors.at(i);
        QCOMPARE(sent.at(i)->ButtonKey, quint32(i));
        nulls += arrived ? 0 : 1;
        copies += arrived && arrived != sent.at(i) ? 1 : 0;
        foreign += arrived && arrived->ButtonKey != quint32(i) ? 1 : 0;
    }
    QVERIFY(nulls > 0);
    QVERIFY(foreign > 0);
    QVERIFY(copies > foreign && copies < 100 - nulls);
    QCOMPARE(activeTimers(), QStringList());
}

void tst_FaultyLink::everyKindOfRecordSuffers()
{
    open(LinkFault::Lost);
    int arrived = 0;
    const auto countOnly = [this, &arrived](auto reported) {
        connect(m_link.data(), reported, m_link.data(), [&arrived] { ++arrived; });
    };
    countOnly(&DeviceLink::oledTextReported);
    countOnly(&DeviceLink::tBarValueReported);
    countOnly(&DeviceLink::deviceIPReported);
    countOnly(&DeviceLink::dviSignalReported);
    countOnly(&DeviceLink::peripheralVisibilityReported);
    const auto arrivedOf = [&arrived](auto emitOne) {
        arrived = 0;
        for (int i = 0; i < 100; ++i)
            emitOne();
        return arrived;
    };
    const QVector<int> counts{
        arrivedOf([this] { emit m_other->oledTextReported({}); }),
        arrivedOf([this] { emit m_other->tBarValueReported({}); }),
        arrivedOf([this] { emit m_other->deviceIPReported({}); }),
        arrivedOf([this] { emit m_other->dviSignalReported({}); }),
        arrivedOf([this] { emit m_other->peripheralVisibilityReported({}); }),
    };
    for (const int count : counts)
        QVERIFY2(count > 50 && count < 95, qPrintable(QString::number(count)));
}

void tst_FaultyLink::aStormInventsAndRepeatsRecords()
{
    open(LinkFault::Storm);
    Kinds kinds;
    keepNewest(m_link.data(), &kinds);
    const Color sent = colorOf(12345);
    emit m_other->buttonColorReported(sent);
    QCOMPARE(m_colors, QVector<Color>{sent});

    QTimer *storm = timer("storm");
    QCOMPARE(storm->interval(), 20);
    storm->setInterval(0);
    QTRY_VERIFY(kinds.areAllThere());
    QTRY_VERIFY(m_colors.count(sent) > 100);
    // What it invents is no record that came before.
    QTRY_VERIFY(m_colors.size() - m_colors.count(sent) > 100);
    QCOMPARE(m_link->underWay(), 0);
}

void tst_FaultyLink::theStormTimerRunsInBadTimesOnly_data()
{
    QTest::addColumn<LinkFaults>("faults");
    QTest::addColumn<bool>("expectedStorm");
    QTest::newRow("storm") << LinkFaults(LinkFault::Storm) << true;
    QTest::newRow("storm and another") << (LinkFault::Storm | LinkFault::Lost) << true;
    QTest::newRow("others") << (LinkFault::Late | LinkFault::Lost | LinkFault::Garbled) << false;
}

void tst_FaultyLink::theStormTimerRunsInBadTimesOnly()
{
    QFETCH(LinkFaults, faults);
    QFETCH(bool, expectedStorm);
    open(faults);
    QTimer *storm = timer("storm");
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(storm->isActive(), expectedStorm);
        m_link->recover();
        QVERIFY(!storm->isActive());
        QVERIFY(QMetaObject::invokeMethod(m_link.data(), "blow"));
        QVERIFY(m_colors.isEmpty());
        m_link->fail();
    }
}

void tst_FaultyLink::faultsAddUp()
{
    open(LinkFault::Lost | LinkFault::Duplicate | LinkFault::Late);
    send(200);
    QTRY_COMPARE(m_link->underWay(), 0);
    const auto arrived = keys();
    const int different = countDifferent(arrived);
    QVERIFY(different > 100 && different < 190);
    QVERIFY(arrived.size() > different + 20);
    QVERIFY(!std::is_sorted(arrived.cbegin(), arrived.cend()));
}

void tst_FaultyLink::theSameSeedLeadsToTheSameFate()
{
    const auto fate = [this](quint32 seed) {
        open(AllButLate | LinkFault::Storm, seed);
        for (int i = 0; i < 5; ++i) {
            send(50);
            QMetaObject::invokeMethod(m_link.data(), "blow");
        }
        return keys();
    };
    const auto expected = fate(1);
    QVERIFY(expected.size() > 250);
    QCOMPARE(fate(1), expected);
    QVERIFY(fate(2) != expected);
}

void tst_FaultyLink::recoveryDiscardsWhatIsUnderWay()
{
    open(LinkFault::Late);
    send(100);
    m_colors.clear();
    QVERIFY(m_link->underWay() > 0);
    m_link->recover();
    QCOMPARE(m_link->underWay(), 0);
    QCOMPARE(activeTimers(), QStringList{text("turn")});
    QVERIFY(QMetaObject::invokeMethod(m_link.data(), "deliverDue"));
    QVERIFY(m_colors.isEmpty());
    send(10);
    QCOMPARE(m_colors.size(), 10);
}

void tst_FaultyLink::recoveryByAReceiverDiscardsTheOtherCopies()
{
    open(LinkFault::Duplicate);
    int recoveries = 0;
    connect(m_link.data(), &DeviceLink::buttonColorReported, m_link.data(), [this, &recoveries] {
        if (m_link->isBad()) {
            ++recoveries;
            m_link->recover();
        }
    });
    for (int i = 0; i < 100; ++i) {
        m_link->fail();
        send(1);
    }
    QCOMPARE(recoveries, 100);
    QCOMPARE(m_colors.size(), 100);
}

void tst_FaultyLink::recoveryAsksForEveryRecordOnceTheLinkIsGood()
{
    open(AllFaults);
    m_other->events.clear();
    m_other->onRefresh = [this] {
        QVERIFY(!m_link->isBad());
        send(100);
    };
    m_colors.clear();
    m_link->recover();
    QCOMPARE(m_other->count("refresh"), 1);
    QCOMPARE(m_colors.size(), 100);
    m_link->recover(); // is good
    QCOMPARE(m_other->count("refresh"), 2);
    QCOMPARE(m_colors.size(), 200);
}

void tst_FaultyLink::aRefreshInBadTimesSuffers()
{
    open(LinkFault::Lost);
    m_other->onRefresh = [this] { send(100); };
    m_link->refresh();
    QVERIFY(m_link->isBad());
    QVERIFY(m_colors.size() > 50 && m_colors.size() < 95);
}

void tst_FaultyLink::whatIsUnderWayIsBounded_data()
{
    QTest::addColumn<bool>("isFromElsewhere");
    QTest::newRow("from the GUI thread") << false;
    QTest::newRow("from another thread") << true;
}

void tst_FaultyLink::whatIsUnderWayIsBounded()
{
    QFETCH(bool, isFromElsewhere);
    open(LinkFault::Late | LinkFault::Duplicate);
    disconnect(m_link.data(), nullptr, m_link.data(), nullptr);
    std::atomic<int> arrived{0};
    connect(
        m_link.data(), &DeviceLink::buttonColorReported, m_link.data(), [&arrived] { ++arrived; },
        Qt::DirectConnection);
    if (isFromElsewhere) {
        const EmittingThread thread(m_other.data());
        QTRY_COMPARE(m_link->underWay(), 4096);
        for (int i = 0; i < 1000; ++i)
            QVERIFY(m_link->underWay() <= 4096);
    } else {
        send(20000);
        QCOMPARE(m_link->underWay(), 4096);
    }
    QTRY_COMPARE(m_link->underWay(), 0);
    QVERIFY(arrived.load() >= 4096);
}

void tst_FaultyLink::otherEventsHaveTheirTurnBetweenLateRecords()
{
    open(LinkFault::Late);
    send(4000);
    QTest::qSleep(600); // all of them are due
    m_colors.clear();
    QVERIFY(QMetaObject::invokeMethod(m_link.data(), "deliverDue"));
    QCOMPARE(m_colors.size(), 64);
    QCOMPARE(activeTimers(), QStringList{text("late")});
    QTRY_COMPARE(m_link->underWay(), 0);
}

void tst_FaultyLink::recordsOfOtherThreadsAreEmittedThere()
{
    open(AllButLate);
    disconnect(m_link.data(), nullptr, m_link.data(), nullptr);
    std::atomic<int> there{0};
    std::atomic<int> elsewhere{0};
    connect(
        m_link.data(), &DeviceLink::buttonColorReported, m_link.data(),
        [this, &there, &elsewhere] { QThread::currentThread() == thread() ? ++elsewhere : ++there; },
        Qt::DirectConnection);
    {
        const EmittingThread thread(m_other.data());
        QTRY_VERIFY(there.load() > 100);
        m_link->recover();
        const int before = there.load();
        QTRY_VERIFY(there.load() > before + 100);
    }
    QCOMPARE(elsewhere.load(), 0);
}

void tst_FaultyLink::lateRecordsOfOtherThreadsAreEmittedOnTheGuiThread()
{
    open(LinkFault::Late);
    const QThread *emittedIn = nullptr;
    disconnect(m_link.data(), nullptr, m_link.data(), nullptr);
    connect(
        m_link.data(), &DeviceLink::buttonColorReported, m_link.data(),
        [&emittedIn] { emittedIn = QThread::currentThread(); }, Qt::DirectConnection);
    QVERIFY(EmittingThread(m_other.data(), 1).wait());
    QCOMPARE(m_link->underWay(), 1);
    QTRY_COMPARE(m_link->underWay(), 0);
    QCOMPARE(emittedIn, thread());
}

void tst_FaultyLink::recoveringAndClosingWaitForWhatIsEmittedElsewhere_data()
{
    QTest::addColumn<bool>("isClosing");
    QTest::newRow("recovering") << false;
    QTest::newRow("closing") << true;
}

void tst_FaultyLink::recoveringAndClosingWaitForWhatIsEmittedElsewhere()
{
    QFETCH(bool, isClosing);
    open(LinkFault::Duplicate);
    disconnect(m_link.data(), nullptr, m_link.data(), nullptr);
    QSemaphore begun;
    QSemaphore never;
    std::atomic<bool> hasEnded{false};
    connect(
        m_link.data(), &DeviceLink::buttonColorReported, m_link.data(),
        [&begun, &never, &hasEnded] {
            begun.release();
            never.tryAcquire(1, 100); // a receiver that takes its time
            hasEnded = true;
        },
        Qt::DirectConnection);
    const EmittingThread thread(m_other.data(), 1);
    QVERIFY(begun.tryAcquire(1, 5000));
    isClosing ? m_link->consoleClosed() : m_link->recover();
    QVERIFY(hasEnded.load());
}

void tst_FaultyLink::onceItHasRecoveredNoThreadEmitsHarm()
{
    open(LinkFault::Garbled);
    disconnect(m_link.data(), nullptr, m_link.data(), nullptr);
    std::atomic<bool> isGood{false};
    QSemaphore harmed;
    std::atomic<int> harmedLate{0};
    connect(
        m_link.data(), &DeviceLink::buttonColorReported, m_link.data(),
        [&isGood, &harmed, &harmedLate](const Color &color) {
            if (color)
                return;
            harmed.release();
            QThread::yieldCurrentThread(); // the other thread may go on
            if (isGood)
                ++harmedLate;
        },
        Qt::DirectConnection);
    const EmittingThread thread(m_other.data());
    for (int i = 0; i < 200; ++i) {
        isGood = false;
        m_link->fail();
        harmed.tryAcquire(harmed.available());
        QVERIFY(harmed.tryAcquire(1, 5000));
        m_link->recover();
        isGood = true;
    }
    QCOMPARE(harmedLate.load(), 0);
}

void tst_FaultyLink::onceItIsClosedNoThreadEmits()
{
    open(AllFaults);
    disconnect(m_link.data(), nullptr, m_link.data(), nullptr);
    std::atomic<bool> isClosed{false};
    QSemaphore emitted;
    std::atomic<int> emittedLate{0};
    connect(
        m_link.data(), &DeviceLink::buttonColorReported, m_link.data(),
        [&isClosed, &emitted, &emittedLate] {
            emitted.release();
            QThread::yieldCurrentThread(); // the other thread may go on
            if (isClosed)
                ++emittedLate;
        },
        Qt::DirectConnection);
    const EmittingThread thread(m_other.data());
    for (int i = 0; i < 200; ++i) {
        isClosed = false;
        m_link->refresh();
        emitted.tryAcquire(emitted.available());
        QVERIFY(emitted.tryAcquire(1, 5000));
        m_link->consoleClosed();
        isClosed = true;
        QCOMPARE(m_link->underWay(), 0);
    }
    QCOMPARE(emittedLate.load(), 0);
}

void tst_FaultyLink::closingStopsEverything()
{
    open(LinkFault::Late | LinkFault::Storm);
    m_link->fail();
    send(100);
    QCOMPARE(activeTimers(), (QStringList{text("late"), text("storm"), text("turn")}));
    m_link->consoleClosed();
    m_colors.clear();
    QCOMPARE(activeTimers(), QStringList());
    QCOMPARE(m_link->underWay(), 0);
    QCOMPARE(m_other->count("consoleClosed"), 1);
    send(10);
    for (const char *slot : {"deliverDue", "blow", "takeTurns"})
        QVERIFY(QMetaObject::invokeMethod(m_link.data(), slot));
    m_link->fail();
    m_link->recover();
    QVERIFY(m_colors.isEmpty());
    QCOMPARE(activeTimers(), QStringList());
    QCOMPARE(m_other->count("refresh"), 1);
}

void tst_FaultyLink::aRefreshAfterClosingBeginsAnew()
{
    open(LinkFault::Lost);
    m_link->recover();
    m_link->consoleClosed();
    m_link->refresh();
    QVERIFY(m_link->isBad());
    QCOMPARE(activeTimers(), QStringList{text("turn")});
    send(100);
    QVERIFY(m_colors.size() > 50 && m_colors.size() < 95);
}

void tst_FaultyLink::aReceiverMayClose()
{
    open(LinkFault::Duplicate | LinkFault::Storm);
    connect(m_link.data(), &DeviceLink::buttonColorReported, m_link.data(),
            [this] { m_link->consoleClosed(); });
    send(10);
    QCOMPARE(m_colors.size(), 1);
    m_link->refresh();
    for (int i = 0; i < 10; ++i)
        QVERIFY(QMetaObject::invokeMethod(m_link.data(), "blow"));
    QCOMPARE(m_colors.size(), 2);
}

void tst_FaultyLink::itCanGoWithRecordsUnderWay()
{
    for (int i = 0; i < 20; ++i) {
        open(AllFaults, static_cast<quint32>(i));
        disconnect(m_link.data(), nullptr, m_link.data(), nullptr);
        QScopedPointer<EmittingThread> thread(new EmittingThread(m_other.data()));
        m_other->onClosed = [&thread] { thread.reset(); };
        QTRY_VERIFY(m_link->underWay() > 0);
        m_link.reset();
        QVERIFY(!thread);
        emit m_other->buttonColorReported({});
    }
}

QTEST_GUILESS_MAIN(tst_FaultyLink)

#include "tst_faultylink.moc"
