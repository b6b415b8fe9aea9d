// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <fingers.h>
#include <settingsfolder.h>
#include <support.h>

#include <consolesession.h>
#include <consolewindow.h>
#include <latencymeter.h>
#include <scaledview.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/keyboard/constants.h>
#include <korvo/widgets/tbar.h>

#include <QEvent>
#include <QEventLoop>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace K7Host;
using Korvo::EC::K7DropButton;

namespace {

constexpr qint64 Ms = 1000000;
// Keys of the left half, and labels of both.
constexpr quint32 Key = 38;
constexpr quint32 OtherKey = 39;
constexpr quint32 Label = 14;
constexpr quint32 EveryKey = 255;

class QuietLink : public DeviceLink
{
public:
    void keyPressed(quint32 code) override { codes << code; }
    void keyReleased(quint32 /*code*/) override {}
    void refresh() override {}
    void consoleClosed() override {}
    void leverMoved(quint16 /*value*/, bool /*isBottomToTop*/) override {}
    void lampChanged(Lamp /*lamp*/, bool /*isOn*/, quint8 /*brightness*/) override {}
    void peripheralScreensChanged(int /*count*/, int /*operationScreen*/,
                                  const QVector<quint16> & /*sizes*/) override
    {
    }
    void addressesRequested(quint8 /*port*/) override {}
    void addressesEntered(const QString & /*interfaceName*/, const QString & /*ip*/, const QString & /*mask*/,
                          const QString & /*gateway*/) override
    {
    }
    void addressChangeRequested(quint8 /*port*/, quint8 /*mode*/) override {}
    void clockSet(const QString & /*date*/, const QString & /*time*/) override {}
    void timeTypeChanged(int /*type*/) override {}
    void restartRequested(quint8 /*type*/) override {}

    QVector<quint32> codes;
};

/// Whatever is watched takes its time for events of one type.
class Delay : public QObject
{
public:
    Delay(qint64 *now, QEvent::Type type, qint64 duration)
        : m_now(now)
        , m_type(type)
        , m_duration(duration)
    {
    }
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == m_type)
            *m_now += m_duration;
        return false;
    }

private:
    qint64 *const m_now;
    const QEvent::Type m_type;
    const qint64 m_duration;
};

std::shared_ptr<Korvo::ECTBarValue> leverRecord(quint32 value, quint8 isBottomToTop = 1)
{
    auto record = std::make_shared<Korvo::ECTBarValue>();
    record->Value = value;
    record->IsBottomToTop = isBottomToTop;
    return record;
}

/// All that waits, and what is posted meanwhile.
void takeAll()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents();
}

HostCall green(quint32 key)
{
    return colorRecord(key, 0, 255, 0);
}

HostCall red(quint32 key)
{
    return colorRecord(key, 255, 0, 0);
}

} // namespace

Q_DECLARE_METATYPE(HostCall)

/// The console's own halves in the host's window, under a clock that stands still unless it is moved on.
class tst_LatencyMeter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aPressIsMeasuredFromTheWindowToItsCode_data();
    void aPressIsMeasuredFromTheWindowToItsCode();
    void aPressThatComesToTheKeyItselfIsMeasured();
    void aSecondClickIsAPressToo();
    void onlyPressesCount();
    void fingersThatComeDownTogetherBeginTogether();
    void aFingerThatComesLaterBeginsLater();
    void aPressElsewhereIsOverBeforeTheNextOne_data();
    void aPressElsewhereIsOverBeforeTheNextOne();
    void aPressWithoutACodeDoesNotCount_data();
    void aPressWithoutACodeDoesNotCount();
    void aClickWithoutAnEventDoesNotCount();
    void aPressInTheReducedViewIsMeasured_data();
    void aPressInTheReducedViewIsMeasured();

    void aRecordIsMeasuredUntilItIsOnTheScreen_data();
    void aRecordIsMeasuredUntilItIsOnTheScreen();
    void theTimeToPaintCounts();
    void whatOtherWindowsPaintAfterwardsDoesNotCount();
    void aRecordThatChangesNothingDoesNotCount_data();
    void aRecordThatChangesNothingDoesNotCount();
    void recordsThatAreNotForKeysDoNotCount();
    void aKeyThatWaitsKeepsItsFirstRecord();
    void everyRecordCountsByItself();
    void aBroadcastCountsOnceAHalf();
    void aBroadcastIsCompleteWithTheLastKey();
    void whatIsHiddenIsNotWaitedFor();
    void whatIsHiddenBeforeItIsPaintedIsNotWaitedFor();
    void whatIsCoveredIsNotWaitedFor();
    void aMinimizedWindowIsNotWaitedFor();
    void aPictureIsNotTheScreen();
    void aRecordFromAnotherThreadIsMeasuredFromItsCall();
    void aRecordFromAnotherThreadThatChangesNothingOnlyQueues();
    void aRecordThatIsPaintedBeforeItsThreadGoesOnIsMeasured();
    void ofManyRecordsFromAnotherThreadOneAtATimeIsMeasured();
    void recordsForAHalfThatGoesAreNotMeasured();
    void aHalfMayGoWhileItIsWaitedFor();
    void aRecordInTheReducedViewIsMeasuredUntilTheViewIsPainted();

    void aRecordIsMeasuredUntilItReturns_data();
    void aRecordIsMeasuredUntilItReturns();
    void recordsOfAllKindsAreCounted();
    void theMostThatWaitAreTold();
    void waitingIsOverWhenAllIsTaken();
    void paintsAreCountedByWindow();
    void wakeUpsAreCounted();
    void aPauseIsNotMeasured();

    void changesAreTold();
    void resetForgetsTheFigures();
    void theSummaryIsATable();
    void theSummarySaysWhereThereAreNone();

private:
    void waitUntilShown(QWidget *window);
    template <typename Widget>
    Widget *part(quint32 id) const;
    K7DropButton *key(quint32 id) const { return part<K7DropButton>(id); }
    QPoint placeOf(quint32 id) const
    {
        const QWidget *widget = key(id);
        return widget->mapTo(m_window.data(), widget->rect().center());
    }
    void hand(const HostCall &call) { m_session->call(call); }
    qint64 pixelCount() const { return m_meter->recordToPixel().count(); }

    SettingsFolder m_settings;
    qint64 m_now = 0;
    qint64 m_tick = 0; // by which the clock moves on when it is asked
    QScopedPointer<LivePlugin> m_plugin;
    QScopedPointer<QuietLink> m_link;
    QScopedPointer<ConsoleSession> m_session;
    QScopedPointer<LatencyMeter> m_meter;
    QScopedPointer<ConsoleWindow> m_window;
};

void tst_LatencyMeter::init()
{
    m_now = 1000 * Ms;
    m_plugin.reset(new LivePlugin);
    m_link.reset(new QuietLink);
    m_session.reset(new ConsoleSession(&m_plugin->plugin, m_link.data()));
    m_session->prepare();
    m_meter.reset(new LatencyMeter(m_session->halves(), [this] { return m_now += m_tick; }));
    m_session->addObserver(m_meter.data());
    m_session->call(IdleLook());
    m_window.reset(new ConsoleWindow(m_session->halves()));
}

void tst_LatencyMeter::cleanup()
{
    m_window.reset();
    m_session.reset();
    m_meter.reset();
    m_link.reset();
    m_plugin.reset();
}

void tst_LatencyMeter::waitUntilShown(QWidget *window)
{
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    settle(window);
    QCOMPARE(pixelCount(), 0);
}

template <typename Widget>
Widget *tst_LatencyMeter::part(quint32 id) const
{
    const auto widgets = m_window->findChildren<Widget *>();
    for (Widget *widget : widgets) {
        const QVariant own = widget->property(Korvo::Constants::PROPERTY_KORVOECKEY);
        if (own.isValid() && own.toUInt() == id)
            return widget;
    }
    qFatal("there is no %u", id);
    return nullptr;
}

void tst_LatencyMeter::aPressIsMeasuredFromTheWindowToItsCode_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("mouse") << QEvent::MouseButtonPress;
    QTest::newRow("finger") << QEvent::TouchBegin;
    QTest::newRow("space") << QEvent::KeyPress;
}

void tst_LatencyMeter::aPressIsMeasuredFromTheWindowToItsCode()
{
    QFETCH(QEvent::Type, type);
    waitUntilShown(m_window.data());
    Delay atWindow(&m_now, type, 2 * Ms);
    Delay atKey(&m_now, type, 3 * Ms);
    m_window->windowHandle()->installEventFilter(&atWindow);
    key(Key)->installEventFilter(&atKey);
    key(Key)->setFocus();

    Fingers fingers(m_window.data());
    if (type == QEvent::MouseButtonPress)
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, {}, placeOf(Key));
    else if (type == QEvent::TouchBegin)
        fingers.press(1, key(Key));
    else
        QTest::keyPress(m_window->windowHandle(), Qt::Key_Space);

    QCOMPARE(m_link->codes, QVector<quint32>{Key + KeyCodeOffset});
    QCOMPARE(m_meter->touchToCode().count(), 1);
    QCOMPARE(m_meter->touchToCode().worst(), 5 * Ms);
}

void tst_LatencyMeter::aPressThatComesToTheKeyItselfIsMeasured()
{
    waitUntilShown(m_window.data());
    Delay atKey(&m_now, QEvent::MouseButtonPress, 3 * Ms);
    key(Key)->installEventFilter(&atKey);
    key(OtherKey)->installEventFilter(&atKey);
    QTest::mousePress(key(Key), Qt::LeftButton);
    m_now += 100 * Ms;
    QTest::mousePress(key(OtherKey), Qt::LeftButton);
    QCOMPARE(m_meter->touchToCode().count(), 2);
    QCOMPARE(m_meter->touchToCode().worst(), 3 * Ms);
}

void tst_LatencyMeter::aSecondClickIsAPressToo()
{
    waitUntilShown(m_window.data());
    QTest::mouseClick(key(Key), Qt::LeftButton);
    QTest::mouseDClick(key(Key), Qt::LeftButton);
    QCOMPARE(m_link->codes.size(), 2);
    QCOMPARE(m_meter->touchToCode().count(), 2);
}

void tst_LatencyMeter::onlyPressesCount()
{
    waitUntilShown(m_window.data());
    QTest::mouseClick(key(Key), Qt::LeftButton);
    QTest::mouseMove(key(Key), QPoint(3, 3));
    QTest::mouseClick(key(Key), Qt::RightButton);
    QCOMPARE(m_link->codes.size(), 1);
    QCOMPARE(m_meter->touchToCode().count(), 1);
}

void tst_LatencyMeter::fingersThatComeDownTogetherBeginTogether()
{
    waitUntilShown(m_window.data());
    Delay atKeys(&m_now, QEvent::TouchBegin, 3 * Ms);
    key(Key)->installEventFilter(&atKeys);
    key(OtherKey)->installEventFilter(&atKeys);
    QTest::touchEvent(m_window.data(), Fingers::device())
        .press(1, placeOf(Key), m_window.data())
        .press(2, placeOf(OtherKey), m_window.data());
    QCOMPARE(m_link->codes.size(), 2);
    QCOMPARE(m_meter->touchToCode().count(), 2);
    // The second one waited for the first one's key.
    QCOMPARE(m_meter->touchToCode().worst(), 6 * Ms);
    QVERIFY(m_meter->touchToCode().median() < 4 * Ms);
}

void tst_LatencyMeter::aFingerThatComesLaterBeginsLater()
{
    waitUntilShown(m_window.data());
    Delay atKey(&m_now, QEvent::TouchBegin, 3 * Ms);
    key(OtherKey)->installEventFilter(&atKey);
    Fingers fingers(m_window.data());
    fingers.press(1, key(Key));
    m_now += 100 * Ms;
    fingers.press(2, key(OtherKey));
    QCOMPARE(m_link->codes.size(), 2);
    QCOMPARE(m_meter->touchToCode().count(), 2);
    QCOMPARE(m_meter->touchToCode().worst(), 3 * Ms);
}

void tst_LatencyMeter::aPressElsewhereIsOverBeforeTheNextOne_data()
{
    QTest::addColumn<bool>("isReleased");
    QTest::addColumn<bool>("isLoopReached");
    QTest::addColumn<bool>("isNextAtWindow");
    QTest::newRow("it was released") << true << false << false;
    QTest::newRow("the event loop was reached") << false << true << false;
    QTest::newRow("the next one comes from the window system") << false << false << true;
}

void tst_LatencyMeter::aPressElsewhereIsOverBeforeTheNextOne()
{
    QFETCH(bool, isReleased);
    QFETCH(bool, isLoopReached);
    QFETCH(bool, isNextAtWindow);
    waitUntilShown(m_window.data());
    QTest::mousePress(m_window.data(), Qt::LeftButton);
    if (isReleased)
        QTest::mouseRelease(m_window.data(), Qt::LeftButton);
    if (isLoopReached)
        QCoreApplication::processEvents();

    m_now += 100 * Ms;
    Delay atKey(&m_now, QEvent::MouseButtonPress, 3 * Ms);
    key(Key)->installEventFilter(&atKey);
    if (isNextAtWindow)
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, {}, placeOf(Key));
    else
        QTest::mousePress(key(Key), Qt::LeftButton);
    QCOMPARE(m_meter->touchToCode().count(), 1);
    QCOMPARE(m_meter->touchToCode().worst(), 3 * Ms);
}

void tst_LatencyMeter::aPressWithoutACodeDoesNotCount_data()
{
    QTest::addColumn<quint32>("mute");
    QTest::addColumn<bool>("isAtWindow");
    QTest::newRow("90") << 90u << true;
    QTest::newRow("101") << 101u << true;
    QTest::newRow("90, at the key itself") << 90u << false;
    QTest::newRow("101, at the key itself") << 101u << false;
}

void tst_LatencyMeter::aPressWithoutACodeDoesNotCount()
{
    QFETCH(quint32, mute);
    QFETCH(bool, isAtWindow);
    waitUntilShown(m_window.data());
    const auto click = [&](quint32 id) {
        if (isAtWindow)
            QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, placeOf(id));
        else
            QTest::mouseClick(key(id), Qt::LeftButton);
    };
    const QSignalSpy pressed(key(mute), &QAbstractButton::pressed);
    click(mute);
    QCOMPARE(pressed.size(), 1);
    QVERIFY(m_link->codes.isEmpty());

    m_now += 100 * Ms;
    Delay atKey(&m_now, QEvent::MouseButtonPress, 3 * Ms);
    key(Key)->installEventFilter(&atKey);
    click(Key);
    QCOMPARE(m_meter->touchToCode().count(), 1);
    QCOMPARE(m_meter->touchToCode().worst(), 3 * Ms);
}

void tst_LatencyMeter::aClickWithoutAnEventDoesNotCount()
{
    waitUntilShown(m_window.data());
    key(Key)->click();
    QTest::mousePress(key(OtherKey), Qt::LeftButton);
    key(Key)->click();
    key(OtherKey)->click();
    QCOMPARE(m_link->codes.size(), 4);
    QCOMPARE(m_meter->touchToCode().count(), 1);
}

void tst_LatencyMeter::aPressInTheReducedViewIsMeasured_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::newRow("mouse") << QEvent::MouseButtonPress;
    QTest::newRow("finger") << QEvent::TouchBegin;
}

void tst_LatencyMeter::aPressInTheReducedViewIsMeasured()
{
    QFETCH(QEvent::Type, type);
    ScaledView view(m_window.data(), 0.5);
    waitUntilShown(&view);
    Delay atWindow(&m_now, type, 2 * Ms);
    Delay atKey(&m_now, type, 3 * Ms);
    view.windowHandle()->installEventFilter(&atWindow);
    key(Key)->installEventFilter(&atKey);

    const QPoint place = placeOf(Key) / 2;
    if (type == QEvent::MouseButtonPress)
        QTest::mousePress(view.windowHandle(), Qt::LeftButton, {}, place);
    else
        QTest::touchEvent(&view, Fingers::device()).press(1, place, &view);
    QCOMPARE(m_link->codes, QVector<quint32>{Key + KeyCodeOffset});
    QCOMPARE(m_meter->touchToCode().count(), 1);
    QCOMPARE(m_meter->touchToCode().worst(), 5 * Ms);
}

void tst_LatencyMeter::aRecordIsMeasuredUntilItIsOnTheScreen_data()
{
    QTest::addColumn<HostCall>("call");
    QTest::newRow("colour") << green(Key);
    QTest::newRow("text") << HostCall(textRecord(Label, "CAM 1"));
    QTest::newRow("lever") << HostCall(leverRecord(600));
    QTest::newRow("direction of the lever") << HostCall(leverRecord(0, 0));
}

void tst_LatencyMeter::aRecordIsMeasuredUntilItIsOnTheScreen()
{
    QFETCH(HostCall, call);
    waitUntilShown(m_window.data());
    hand(call);
    m_now += 7 * Ms;
    QCOMPARE(pixelCount(), 0);
    QTRY_COMPARE(pixelCount(), 1);
    QCOMPARE(m_meter->recordToPixel().worst(), 7 * Ms);

    m_window->repaint(); // nobody waits for it
    settle(m_window.data());
    QCOMPARE(pixelCount(), 1);
}

void tst_LatencyMeter::theTimeToPaintCounts()
{
    waitUntilShown(m_window.data());
    Delay atKey(&m_now, QEvent::Paint, 4 * Ms);
    key(Key)->installEventFilter(&atKey);
    hand(green(Key));
    QTRY_COMPARE(pixelCount(), 1);
    QCOMPARE(m_meter->recordToPixel().worst(), 4 * Ms);
}

void tst_LatencyMeter::whatOtherWindowsPaintAfterwardsDoesNotCount()
{
    QWidget other;
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    waitUntilShown(m_window.data());
    Delay atOther(&m_now, QEvent::Paint, 50 * Ms);
    other.installEventFilter(&atOther);
    const qint64 before = m_now;
    hand(green(Key));
    other.update();
    settle(&other);
    QCOMPARE(m_now - before, 50 * Ms);
    QCOMPARE(pixelCount(), 1);
    QCOMPARE(m_meter->recordToPixel().worst(), 0);
}

void tst_LatencyMeter::aRecordThatChangesNothingDoesNotCount_data()
{
    QTest::addColumn<HostCall>("call");
    QTest::newRow("colour") << green(Key);
    QTest::newRow("text") << HostCall(textRecord(Label, "CAM 1"));
    QTest::newRow("lever") << HostCall(leverRecord(600));
    QTest::newRow("no such key") << green(4711);
    QTest::newRow("null") << HostCall(std::shared_ptr<Korvo::ECButtonColor>());
}

void tst_LatencyMeter::aRecordThatChangesNothingDoesNotCount()
{
    QFETCH(HostCall, call);
    waitUntilShown(m_window.data());
    hand(call);
    settle(m_window.data());
    const qint64 before = pixelCount();
    hand(call);
    m_window->repaint();
    settle(m_window.data());
    QCOMPARE(pixelCount(), before);
}

void tst_LatencyMeter::recordsThatAreNotForKeysDoNotCount()
{
    waitUntilShown(m_window.data());
    auto visible = std::make_shared<Korvo::PeripheralControlVisibleState>();
    visible->visible = 1;
    hand(visible);
    hand(std::make_shared<Korvo::ECDeviceIPData>());
    hand(std::make_shared<Korvo::DVIInSignal>());
    settle(m_window.data());
    QCOMPARE(pixelCount(), 0);
}

void tst_LatencyMeter::aKeyThatWaitsKeepsItsFirstRecord()
{
    waitUntilShown(m_window.data());
    hand(green(Key));
    m_now += 10 * Ms;
    hand(red(Key));
    m_now += Ms;
    settle(m_window.data());
    QCOMPARE(pixelCount(), 1);
    QCOMPARE(m_meter->recordToPixel().worst(), 11 * Ms);
}

void tst_LatencyMeter::everyRecordCountsByItself()
{
    waitUntilShown(m_window.data());
    hand(green(Key));
    m_now += 10 * Ms;
    hand(green(OtherKey));
    m_now += Ms;
    settle(m_window.data());
    QCOMPARE(pixelCount(), 2);
    QCOMPARE(m_meter->recordToPixel().worst(), 11 * Ms);
    QVERIFY(m_meter->recordToPixel().median() < 2 * Ms);
}

void tst_LatencyMeter::aBroadcastCountsOnceAHalf()
{
    waitUntilShown(m_window.data());
    hand(green(EveryKey));
    settle(m_window.data());
    QCOMPARE(pixelCount(), 2);
    m_session->call(red(EveryKey), Half::Right);
    settle(m_window.data());
    QCOMPARE(pixelCount(), 3);
}

void tst_LatencyMeter::aBroadcastIsCompleteWithTheLastKey()
{
    waitUntilShown(m_window.data());
    key(Key)->setUpdatesEnabled(false);
    m_session->call(green(EveryKey), Half::Left);
    settle(m_window.data());
    QCOMPARE(pixelCount(), 0);
    m_now += 20 * Ms;
    key(Key)->setUpdatesEnabled(true);
    settle(m_window.data());
    QCOMPARE(pixelCount(), 1);
    QCOMPARE(m_meter->recordToPixel().worst(), 20 * Ms);
}

void tst_LatencyMeter::whatIsHiddenIsNotWaitedFor()
{
    waitUntilShown(m_window.data());
    key(Key)->hide();
    settle(m_window.data());
    hand(green(Key));
    key(Key)->show();
    settle(m_window.data());
    QCOMPARE(pixelCount(), 0);
}

void tst_LatencyMeter::whatIsHiddenBeforeItIsPaintedIsNotWaitedFor()
{
    waitUntilShown(m_window.data());
    hand(green(Key));
    key(Key)->hide();
    settle(m_window.data());
    key(Key)->show();
    settle(m_window.data());
    QCOMPARE(pixelCount(), 0);
    hand(red(Key));
    settle(m_window.data());
    QCOMPARE(pixelCount(), 1);
}

void tst_LatencyMeter::whatIsCoveredIsNotWaitedFor()
{
    waitUntilShown(m_window.data());
    QWidget cover(m_window.data());
    cover.setAutoFillBackground(true);
    cover.setAttribute(Qt::WA_OpaquePaintEvent);
    cover.resize(m_window->size());
    cover.show();
    settle(m_window.data());
    hand(green(Key));
    settle(m_window.data());
    cover.hide();
    settle(m_window.data());
    QCOMPARE(pixelCount(), 0);
}

void tst_LatencyMeter::aMinimizedWindowIsNotWaitedFor()
{
    waitUntilShown(m_window.data());
    hand(green(OtherKey));
    m_window->showMinimized();
    settle(m_window.data());
    hand(green(Key));
    settle(m_window.data());
    const qint64 before = pixelCount(); // the first one may have been painted before
    m_window->showNormal();
    settle(m_window.data());
    QCOMPARE(pixelCount(), before);
}

void tst_LatencyMeter::aPictureIsNotTheScreen()
{
    waitUntilShown(m_window.data());
    hand(green(Key));
    QVERIFY(!m_window->picture(0.5).isNull());
    m_now += 10 * Ms;
    Delay atKey(&m_now, QEvent::Paint, 4 * Ms);
    key(Key)->installEventFilter(&atKey);
    settle(m_window.data());
    QCOMPARE(pixelCount(), 1);
    QCOMPARE(m_meter->recordToPixel().worst(), 14 * Ms);
}

void tst_LatencyMeter::aRecordFromAnotherThreadIsMeasuredFromItsCall()
{
    waitUntilShown(m_window.data());
    runElsewhere([this] { m_session->call(green(Key), Half::Left); });
    m_now += 5 * Ms;
    QCoreApplication::sendPostedEvents(m_session->halves().constFirst().toStrongRef().data());
    Delay atKey(&m_now, QEvent::Paint, 4 * Ms);
    key(Key)->installEventFilter(&atKey);
    QTRY_COMPARE(pixelCount(), 1);
    QCOMPARE(m_meter->recordInQueue().count(), 1);
    QCOMPARE(m_meter->recordInQueue().worst(), 5 * Ms);
    QCOMPARE(m_meter->recordToPixel().worst(), 9 * Ms);
    QCOMPARE(m_meter->changingRecordToReturn().count(), 0);
}

void tst_LatencyMeter::aRecordFromAnotherThreadThatChangesNothingOnlyQueues()
{
    m_session->call(green(Key), Half::Left);
    waitUntilShown(m_window.data());
    m_meter->reset();
    runElsewhere([this] { m_session->call(green(Key), Half::Left); });
    m_window->repaint();
    settle(m_window.data());
    QCOMPARE(m_meter->recordInQueue().count(), 1);
    QCOMPARE(pixelCount(), 0);
}

void tst_LatencyMeter::aRecordThatIsPaintedBeforeItsThreadGoesOnIsMeasured()
{
    waitUntilShown(m_window.data());
    const auto half = m_session->halves().constFirst().toStrongRef();
    const HostCall call = green(Key);
    runElsewhere([&] {
        m_meter->calling(call, Half::Left, half.data());
        perform(call, half.data());
    });
    m_now += 3 * Ms;
    settle(m_window.data());
    m_now += 100 * Ms;
    runElsewhere([&] { m_meter->called(call, Half::Left, half.data(), true); });
    settle(m_window.data());
    m_window->repaint();
    settle(m_window.data());
    QCOMPARE(m_meter->recordInQueue().count(), 1);
    QCOMPARE(m_meter->recordInQueue().worst(), 3 * Ms);
    QCOMPARE(pixelCount(), 1);
    QCOMPARE(m_meter->recordToPixel().worst(), 3 * Ms);
}

void tst_LatencyMeter::ofManyRecordsFromAnotherThreadOneAtATimeIsMeasured()
{
    waitUntilShown(m_window.data());
    m_meter->reset();
    for (int round = 1; round <= 2; ++round) {
        runElsewhere([this] {
            for (quint32 id = Key; id < Key + 10; ++id)
                m_session->call(green(id), Half::Left);
        });
        settle(m_window.data());
        QCOMPARE(m_meter->recordInQueue().count(), round);
        QCOMPARE(m_meter->recordCount(), round * 10);
    }
    QCOMPARE(pixelCount(), 1); // the second time nothing changed
}

void tst_LatencyMeter::recordsForAHalfThatGoesAreNotMeasured()
{
    waitUntilShown(m_window.data());
    runElsewhere([this] { hand(green(Key)); });
    m_window.reset();
    m_plugin.reset();
    QCoreApplication::processEvents();
    QCOMPARE(pixelCount(), 0);
}

void tst_LatencyMeter::aHalfMayGoWhileItIsWaitedFor()
{
    waitUntilShown(m_window.data());
    hand(green(EveryKey));
    m_window.reset();
    m_plugin.reset();
    QCoreApplication::processEvents();
    QCOMPARE(pixelCount(), 0);
    QVERIFY(m_session->halves().constFirst().isNull());
}

void tst_LatencyMeter::aRecordInTheReducedViewIsMeasuredUntilTheViewIsPainted()
{
    ScaledView view(m_window.data(), 0.5);
    waitUntilShown(&view);
    Delay atView(&m_now, QEvent::Paint, 6 * Ms);
    view.viewport()->installEventFilter(&atView);
    hand(green(Key));
    hand(textRecord(Label, "CAM 1"));
    QTRY_COMPARE(pixelCount(), 2);
    QCOMPARE(m_meter->recordToPixel().worst(), 6 * Ms);

    view.hide();
    hand(red(Key));
    settle(&view);
    view.show();
    settle(&view);
    QCOMPARE(pixelCount(), 2);
}

void tst_LatencyMeter::aRecordIsMeasuredUntilItReturns_data()
{
    QTest::addColumn<HostCall>("call");
    QTest::addColumn<bool>("isChange");
    QTest::newRow("colour") << green(Key) << true;
    QTest::newRow("text") << HostCall(textRecord(Label, "CAM 1")) << true;
    QTest::newRow("the same colour") << HostCall(colorRecord(Key, 0, 0, 0)) << false;
    QTest::newRow("for no key") << green(4711) << false;
    QTest::newRow("for the other half") << HostCall(leverRecord(600)) << false;
}

void tst_LatencyMeter::aRecordIsMeasuredUntilItReturns()
{
    QFETCH(HostCall, call);
    QFETCH(bool, isChange);
    waitUntilShown(m_window.data());
    m_meter->reset();
    // The clock goes on by itself, once between the two times that it is asked.
    m_tick = 3 * Ms;
    m_session->call(call, Half::Left);
    m_tick = 0;
    const LatencyFigures &expected =
        isChange ? m_meter->changingRecordToReturn() : m_meter->idleRecordToReturn();
    const LatencyFigures &other =
        isChange ? m_meter->idleRecordToReturn() : m_meter->changingRecordToReturn();
    QCOMPARE(expected.count(), 1);
    QCOMPARE(expected.worst(), 3 * Ms);
    QCOMPARE(other.count(), 0);
}

void tst_LatencyMeter::recordsOfAllKindsAreCounted()
{
    m_meter->reset();
    hand(green(Key));
    hand(std::make_shared<Korvo::ECDeviceIPData>());
    hand(std::make_shared<Korvo::DVIInSignal>());
    m_session->call(KeyboardUpdate(), Half::Left);
    runElsewhere([this] { hand(green(Key)); });
    QCOMPARE(m_meter->recordCount(), 9); // each half's
    QCOMPARE(m_meter->idleRecordToReturn().count(), 1);
    QCOMPARE(m_meter->changingRecordToReturn().count(), 1);
    m_meter->reset();
    QCOMPARE(m_meter->recordCount(), 0);
    runElsewhere([this] { hand(green(Key)); });
    QCOMPARE(m_meter->recordCount(), 2);
}

void tst_LatencyMeter::theMostThatWaitAreTold()
{
    QCOMPARE(m_meter->mostWaiting(), 0);
    hand(green(Key));
    takeAll();
    QCOMPARE(m_meter->mostWaiting(), 0);
    const auto sendAndTake = [this](int count) {
        runElsewhere([this, count] {
            for (int i = 0; i < count; ++i)
                m_session->call(green(Key), Half::Left);
        });
        takeAll();
    };
    sendAndTake(7);
    QCOMPARE(m_meter->mostWaiting(), 7);
    sendAndTake(5);
    QCOMPARE(m_meter->mostWaiting(), 7);
    m_meter->reset();
    QCOMPARE(m_meter->mostWaiting(), 0);
    sendAndTake(5);
    QCOMPARE(m_meter->mostWaiting(), 5);
}

void tst_LatencyMeter::waitingIsOverWhenAllIsTaken()
{
    for (int i = 0; i < 10; ++i) {
        runElsewhere([this] { hand(green(Key)); });
        takeAll();
    }
    QCOMPARE(m_meter->recordCount(), 20 + 2); // with the idle look
    QCOMPARE(m_meter->mostWaiting(), 2);
}

void tst_LatencyMeter::paintsAreCountedByWindow()
{
    waitUntilShown(m_window.data());
    m_meter->reset();
    QCOMPARE(m_meter->paintRate(), 0.0);
    for (int i = 0; i < 3; ++i) {
        hand(i % 2 ? red(EveryKey) : green(EveryKey));
        settle(m_window.data());
    }
    m_now += 500 * Ms;
    QCOMPARE(m_meter->paintRate(), 6.0);
    m_now += 500 * Ms;
    QCOMPARE(m_meter->paintRate(), 3.0);
}

void tst_LatencyMeter::wakeUpsAreCounted()
{
    m_meter->reset();
    m_now += 1000 * Ms;
    QCOMPARE(m_meter->wakeUpRate(), 0.0);
    QEventLoop loop;
    QTimer timer;
    int rounds = 0;
    connect(&timer, &QTimer::timeout, &loop, [&] {
        if (++rounds == 20)
            loop.quit();
    });
    timer.start(1);
    loop.exec();
    QVERIFY2(m_meter->wakeUpRate() >= 20, qPrintable(QString::number(m_meter->wakeUpRate())));
    QVERIFY2(m_meter->wakeUpRate() <= 60, qPrintable(QString::number(m_meter->wakeUpRate())));
}

void tst_LatencyMeter::aPauseIsNotMeasured()
{
    waitUntilShown(m_window.data());
    m_meter->reset();
    hand(green(EveryKey));
    settle(m_window.data());
    m_now += 1000 * Ms;
    m_meter->setMeasuring(false);
    m_now += 5000 * Ms;
    QTest::mouseClick(key(Key), Qt::LeftButton);
    m_window->repaint();
    m_window->update();
    settle(m_window.data());
    QCOMPARE(m_meter->touchToCode().count(), 0);
    QCOMPARE(m_meter->paintRate(), 1.0);
    m_meter->setMeasuring(true);
    m_meter->setMeasuring(true);
    m_now += 1000 * Ms;
    QCOMPARE(m_meter->paintRate(), 0.5);
    QTest::mouseClick(key(Key), Qt::LeftButton);
    QCOMPARE(m_meter->touchToCode().count(), 1);
}

void tst_LatencyMeter::changesAreTold()
{
    waitUntilShown(m_window.data());
    const QSignalSpy changed(m_meter.data(), &LatencyMeter::changed);
    QTest::mouseClick(key(Key), Qt::LeftButton);
    QCOMPARE(changed.size(), 1);
    m_session->call(green(Key), Half::Left);
    QCOMPARE(changed.size(), 2);
    QTRY_COMPARE(changed.size(), 3);
    m_window->repaint();
    settle(m_window.data());
    QCOMPARE(changed.size(), 3);
}

void tst_LatencyMeter::resetForgetsTheFigures()
{
    waitUntilShown(m_window.data());
    QTest::mouseClick(key(Key), Qt::LeftButton);
    hand(green(Key));
    QTRY_COMPARE(pixelCount(), 1);
    const QSignalSpy changed(m_meter.data(), &LatencyMeter::changed);
    m_meter->reset();
    QCOMPARE(changed.size(), 1);
    QCOMPARE(m_meter->touchToCode().count(), 0);
    QCOMPARE(pixelCount(), 0);
}

void tst_LatencyMeter::theSummaryIsATable()
{
    waitUntilShown(m_window.data());
    m_meter->reset();
    Delay atKey(&m_now, QEvent::MouseButtonPress, 420000);
    key(Key)->installEventFilter(&atKey);
    QTest::mouseClick(key(Key), Qt::LeftButton);
    hand(green(Key));
    m_now += 16 * Ms;
    QTRY_COMPARE(pixelCount(), 1);
    runElsewhere([this] { m_session->call(green(Key), Half::Left); });
    settle(m_window.data());
    QCOMPARE(m_meter->summary().section(QLatin1Char('\n'), 0, 6),
             QStringLiteral("latency                 count      median        99 %       worst\n"
                            "touch to key code           1    0.420 ms    0.420 ms    0.420 ms\n"
                            "record to pixel             1     16.0 ms     16.0 ms     16.0 ms\n"
                            "record, no change           1    0.000 ms    0.000 ms    0.000 ms\n"
                            "record, change              1    0.000 ms    0.000 ms    0.000 ms\n"
                            "record in the queue         1    0.000 ms    0.000 ms    0.000 ms\n"
                            "records              3 in all, at most 1 waiting"));
    QVERIFY(m_meter->summary().endsWith(QStringLiteral(" paints a second\n")));
}

void tst_LatencyMeter::theSummarySaysWhereThereAreNone()
{
    m_meter->reset();
    QCOMPARE(m_meter->summary(),
             QStringLiteral("latency                 count      median        99 %       worst\n"
                            "touch to key code        none\n"
                            "record to pixel          none\n"
                            "record, no change        none\n"
                            "record, change           none\n"
                            "record in the queue      none\n"
                            "records              0 in all, at most 0 waiting\n"
                            "event loop           0.0 wake-ups, 0.0 paints a second\n"));
}

QTEST_MAIN(tst_LatencyMeter)

#include "tst_latencymeter.moc"
