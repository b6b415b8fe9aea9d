// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakekeyboard.h"

#include <consolesession.h>

#include <QTest>
#include <QThread>

using K7Host::ConsoleSession;
using K7Host::DeviceLink;
using K7Host::FakeKeyboard;
using K7Host::FakeKeyboardPlugin;
using K7Host::HostCall;
using K7Host::Lamp;
using K7Host::SessionObserver;

namespace {

class RecordingLink : public DeviceLink
{
public:
    void keyPressed(quint32 code) override { pressed << code; }
    void keyReleased(quint32 code) override { released << code; }
    void refresh() override { ++refreshCount; }
    void consoleClosed() override { write("consoleClosed"); }
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
        QVariantList numbers;
        for (const quint16 size : sizes)
            numbers << int(size);
        write("peripheralScreensChanged", count, operationScreen, QVariant(numbers));
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

    QVector<QVariantList> events; // name and arguments
    QVector<quint32> pressed;
    QVector<quint32> released;
    int refreshCount = 0;

private:
    template <typename... Arguments>
    void write(const char *name, Arguments... arguments)
    {
        events << QVariantList{QString::fromLatin1(name), QVariant(arguments)...};
    }
};

template <typename Record>
std::shared_ptr<void> emitRecord(DeviceLink *link, void (DeviceLink::*report)(std::shared_ptr<Record>))
{
    const auto record = std::make_shared<Record>();
    (link->*report)(record);
    return record;
}

/// Counts what it is told, and may leave while it is.
class Counter : public SessionObserver
{
public:
    void calling(const HostCall & /*call*/, K7Host::Half /*half*/,
                 Korvo::IKorvoECKeyboard * /*keyboard*/) override
    {
        ++begun;
        if (leaves)
            leaves->removeObserver(this);
    }
    void called(const HostCall & /*call*/, K7Host::Half /*half*/, Korvo::IKorvoECKeyboard * /*keyboard*/,
                std::optional<bool> /*result*/) override
    {
        ++ended;
    }
    void emitted(const K7Host::SignalLine & /*signal*/) override { ++signalCount; }

    ConsoleSession *leaves = nullptr;
    int begun = 0;
    int ended = 0;
    int signalCount = 0;
};

using Emit = std::shared_ptr<void> (*)(DeviceLink *);
using EmitEvent = void (*)(FakeKeyboardPlugin *);

} // namespace

Q_DECLARE_METATYPE(Emit)
Q_DECLARE_METATYPE(EmitEvent)

class tst_ConsoleSession : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startMakesTheConsoleReadyAndThenAsksForRecords();
    void startAsksTheLinkOnce();
    void halvesAreLeftThenRight();
    void keysOfThePluginReachTheLink();
    void aChangedModeAsksForEveryRecord();
    void everyEventReachesTheLink_data();
    void everyEventReachesTheLink();
    void eventsBeforeTheStartReachTheLink();
    void theLinkIsToldThatTheConsoleGoes();
    void bothHalvesGetEveryRecord_data();
    void bothHalvesGetEveryRecord();
    void nullRecordsArePassedOn();
    void recordsArriveInTheThreadTheyComeFrom();
    void aHalfThatIsGoneIsLeftOut();
    void recordsBeforeTheStartReachNobody();
    void aClosedSessionPassesNothingOn();
    void observersComeAndGoAtAnyTime();
    void aCallTellsThoseWhomItBeganWith();

private:
    QScopedPointer<FakeKeyboardPlugin> m_plugin;
    QScopedPointer<RecordingLink> m_link;
    QScopedPointer<ConsoleSession> m_session;
};

void tst_ConsoleSession::init()
{
    m_plugin.reset(new FakeKeyboardPlugin);
    m_link.reset(new RecordingLink);
    m_session.reset(new ConsoleSession(m_plugin.data(), m_link.data()));
}

void tst_ConsoleSession::cleanup()
{
    m_session.reset();
    m_link.reset();
    m_plugin.reset();
}

void tst_ConsoleSession::startMakesTheConsoleReadyAndThenAsksForRecords()
{
    class JournalLink : public RecordingLink
    {
    public:
        explicit JournalLink(QStringList *journal)
            : m_journal(journal)
        {
        }
        void refresh() override { *m_journal << QStringLiteral("refresh"); }

    private:
        QStringList *const m_journal;
    };

    FakeKeyboardPlugin plugin;
    JournalLink link(&plugin.journal);
    ConsoleSession session(&plugin, &link);
    QCOMPARE(plugin.journal, QStringList());

    session.start();
    const QStringList expectedJournal{QStringLiteral("initStyleSheet"), QStringLiteral("keyboards"),
                                      plugin.left->displayName() + QStringLiteral(" applyNoramlStyleSheet"),
                                      plugin.right->displayName() + QStringLiteral(" applyNoramlStyleSheet"),
                                      QStringLiteral("refresh")};
    QCOMPARE(plugin.journal, expectedJournal);
}

void tst_ConsoleSession::startAsksTheLinkOnce()
{
    QCOMPARE(m_link->refreshCount, 0);
    m_session->start();
    QCOMPARE(m_link->refreshCount, 1);
}

void tst_ConsoleSession::halvesAreLeftThenRight()
{
    QVERIFY(m_session->halves().isEmpty());
    m_session->start();
    QCOMPARE(m_session->halves().size(), 2);
    QVERIFY(m_session->halves().at(0) == m_plugin->left);
    QVERIFY(m_session->halves().at(1) == m_plugin->right);
}

void tst_ConsoleSession::keysOfThePluginReachTheLink()
{
    m_session->start();
    emit m_plugin->ecButtonPressed(0xff0026);
    QCOMPARE(m_link->pressed, QVector<quint32>{0xff0026});
    QCOMPARE(m_link->released, QVector<quint32>{});
    emit m_plugin->ecButtonRelease(0xff0027);
    QCOMPARE(m_link->pressed, QVector<quint32>{0xff0026});
    QCOMPARE(m_link->released, QVector<quint32>{0xff0027});
    QCOMPARE(m_link->refreshCount, 1);
}

void tst_ConsoleSession::aChangedModeAsksForEveryRecord()
{
    m_session->start();
    emit m_plugin->signalKorvoPluginModeChanged();
    QCOMPARE(m_link->refreshCount, 2);
}

void tst_ConsoleSession::everyEventReachesTheLink_data()
{
    QTest::addColumn<EmitEvent>("emitOne");
    QTest::addColumn<QVariantList>("expectedEvent");
    const auto text = [](const char *string) { return QString::fromLatin1(string); };
    const auto row = [](const char *name, EmitEvent emitOne, const QVariantList &expectedEvent) {
        QTest::newRow(name) << emitOne << expectedEvent;
    };
    row("gooseneck",
        [](FakeKeyboardPlugin *plugin) { emit plugin->signalGrooseneckLightStatusChanged(true, 12); },
        {text("lampChanged"), static_cast<int>(Lamp::Gooseneck), true, 12});
    row("front", [](FakeKeyboardPlugin *plugin) { emit plugin->signalFrontLightStatusChanged(false, 10); },
        {text("lampChanged"), static_cast<int>(Lamp::Front), false, 10});
    row("LCD", [](FakeKeyboardPlugin *plugin) { emit plugin->signalSideLightStatusChanged(true, 1); },
        {text("lampChanged"), static_cast<int>(Lamp::Lcd), true, 1});
    row("logo", [](FakeKeyboardPlugin *plugin) { emit plugin->signalLogoLightStatusChanged(true, 15); },
        {text("lampChanged"), static_cast<int>(Lamp::Logo), true, 15});
    row("screens",
        [](FakeKeyboardPlugin *plugin) {
            emit plugin->signalSetPeripheralDataChange(1, -1, {1920, 1080});
        },
        {text("peripheralScreensChanged"), 1, -1, QVariant(QVariantList{1920, 1080})});
    row("time",
        [](FakeKeyboardPlugin *plugin) {
            emit plugin->signalUpdateSystemTime(QStringLiteral("2026-1-2"), QStringLiteral("3:4:5"));
        },
        {text("clockSet"), text("2026-1-2"), text("3:4:5")});
    row("time type", [](FakeKeyboardPlugin *plugin) { emit plugin->signalTimeTypeChanged(1); },
        {text("timeTypeChanged"), 1});
    row("addresses",
        [](FakeKeyboardPlugin *plugin) {
            emit plugin->signalUpdateSystemIP(QStringLiteral("eth0"), QStringLiteral("10.0.0.2"),
                                              QStringLiteral("255.0.0.0"), QStringLiteral("10.0.0.1"));
        },
        {text("addressesEntered"), text("eth0"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1")});
    row("address change", [](FakeKeyboardPlugin *plugin) { emit plugin->signalIPModeChanged(0, 1); },
        {text("addressChangeRequested"), 0, 1});
    row("address request", [](FakeKeyboardPlugin *plugin) { emit plugin->signalReqECDeviceIP(1); },
        {text("addressesRequested"), 1});
    row("lever", [](FakeKeyboardPlugin *plugin) { emit plugin->ecTBarValueChanged(1200, true); },
        {text("leverMoved"), 1200, true});
    row("restart", [](FakeKeyboardPlugin *plugin) { emit plugin->signalRestartControlEvent(1); },
        {text("restartRequested"), 1});
}

void tst_ConsoleSession::everyEventReachesTheLink()
{
    QFETCH(EmitEvent, emitOne);
    QFETCH(QVariantList, expectedEvent);
    m_session->start();
    emitOne(m_plugin.data());
    QCOMPARE(m_link->events, QVector<QVariantList>{expectedEvent});
    QCOMPARE(m_link->refreshCount, 1);

    m_session.reset();
    m_link->events.clear();
    emitOne(m_plugin.data());
    QVERIFY(m_link->events.isEmpty());
}

void tst_ConsoleSession::eventsBeforeTheStartReachTheLink()
{
    // A console tells of its lamps while it makes its halves.
    emit m_plugin->signalSideLightStatusChanged(true, 10);
    QCOMPARE(m_link->events.size(), 1);
}

void tst_ConsoleSession::theLinkIsToldThatTheConsoleGoes()
{
    m_session->start();
    QVERIFY(m_link->events.isEmpty());
    m_session.reset();
    QCOMPARE(m_link->events, (QVector<QVariantList>{{QStringLiteral("consoleClosed")}}));
}

void tst_ConsoleSession::bothHalvesGetEveryRecord_data()
{
    QTest::addColumn<Emit>("emitOne");
    QTest::addColumn<QString>("expectedCall");
    const auto row = [](const char *expectedCall, Emit emitOne) {
        QTest::newRow(expectedCall) << emitOne << QString::fromLatin1(expectedCall);
    };
    row("updateECButtonColor",
        [](DeviceLink *link) { return emitRecord(link, &DeviceLink::buttonColorReported); });
    row("updateECOledText", [](DeviceLink *link) { return emitRecord(link, &DeviceLink::oledTextReported); });
    row("updateTBarValue", [](DeviceLink *link) { return emitRecord(link, &DeviceLink::tBarValueReported); });
    row("updateECDeviceIP", [](DeviceLink *link) { return emitRecord(link, &DeviceLink::deviceIPReported); });
    row("updateDVISignalStatus",
        [](DeviceLink *link) { return emitRecord(link, &DeviceLink::dviSignalReported); });
    row("updatePeripheralVisibleState",
        [](DeviceLink *link) { return emitRecord(link, &DeviceLink::peripheralVisibilityReported); });
}

void tst_ConsoleSession::bothHalvesGetEveryRecord()
{
    QFETCH(Emit, emitOne);
    QFETCH(QString, expectedCall);
    m_session->start();
    for (FakeKeyboard *half : {m_plugin->left.data(), m_plugin->right.data()})
        half->calls.clear();

    const std::shared_ptr<void> record = emitOne(m_link.data());
    for (const FakeKeyboard *half : {m_plugin->left.data(), m_plugin->right.data()}) {
        QCOMPARE(half->calls, QStringList{expectedCall});
        QVERIFY(half->lastRecord == record);
    }
}

void tst_ConsoleSession::nullRecordsArePassedOn()
{
    m_session->start();
    emit m_link->tBarValueReported(nullptr);
    QCOMPARE(m_plugin->left->calls.last(), QStringLiteral("updateTBarValue"));
    QVERIFY(!m_plugin->left->lastRecord);
}

void tst_ConsoleSession::recordsArriveInTheThreadTheyComeFrom()
{
    class Emitter : public QThread
    {
    public:
        explicit Emitter(DeviceLink *link)
            : m_link(link)
        {
        }

    protected:
        void run() override { emit m_link->deviceIPReported(std::make_shared<Korvo::ECDeviceIPData>()); }

    private:
        DeviceLink *const m_link;
    };

    m_session->start();
    Emitter emitter(m_link.data());
    emitter.start();
    QVERIFY(emitter.wait());
    for (const FakeKeyboard *half : {m_plugin->left.data(), m_plugin->right.data()}) {
        QCOMPARE(half->calls.last(), QStringLiteral("updateECDeviceIP"));
        QVERIFY(half->lastThread == &emitter);
    }
}

void tst_ConsoleSession::aHalfThatIsGoneIsLeftOut()
{
    m_session->start();
    m_plugin->left.reset();
    QVERIFY(m_session->halves().first().isNull());
    emit m_link->tBarValueReported(std::make_shared<Korvo::ECTBarValue>());
    QCOMPARE(m_plugin->right->calls.last(), QStringLiteral("updateTBarValue"));
}

void tst_ConsoleSession::recordsBeforeTheStartReachNobody()
{
    m_plugin->keyboards();
    emit m_link->tBarValueReported(std::make_shared<Korvo::ECTBarValue>());
    QCOMPARE(m_plugin->left->calls, QStringList());
}

void tst_ConsoleSession::aClosedSessionPassesNothingOn()
{
    m_session->start();
    m_plugin->left->calls.clear();
    m_session.reset();
    emit m_link->tBarValueReported(std::make_shared<Korvo::ECTBarValue>());
    QCOMPARE(m_plugin->left->calls, QStringList());
    emit m_plugin->ecButtonPressed(0xff0026);
    QCOMPARE(m_link->pressed, QVector<quint32>());
}

void tst_ConsoleSession::observersComeAndGoAtAnyTime()
{
    Counter first;
    Counter second;
    m_session->addObserver(&first);
    m_session->start();
    const int begun = first.begun;
    QVERIFY(begun > 0);

    m_session->addObserver(&second);
    emit m_plugin->ecButtonPressed(1);
    m_session->call(K7Host::IdleLook());
    QCOMPARE(first.signalCount, 1);
    QCOMPARE(second.signalCount, 1);
    QCOMPARE(second.begun, 2);

    m_session->removeObserver(&first);
    emit m_plugin->ecButtonPressed(1);
    m_session->call(K7Host::IdleLook());
    QCOMPARE(first.signalCount, 1);
    QCOMPARE(first.begun, begun + 2);
    QCOMPARE(first.ended, first.begun);
    QCOMPARE(second.signalCount, 2);
    QCOMPARE(second.ended, 4);
}

void tst_ConsoleSession::aCallTellsThoseWhomItBeganWith()
{
    m_session->prepare();
    Counter counter;
    counter.leaves = m_session.data();
    m_session->addObserver(&counter);
    m_session->call(K7Host::IdleLook());
    QCOMPARE(counter.begun, 1);
    QCOMPARE(counter.ended, 1);
}

QTEST_MAIN(tst_ConsoleSession)

#include "tst_consolesession.moc"
