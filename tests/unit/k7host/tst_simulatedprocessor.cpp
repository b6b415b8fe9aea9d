// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include <networkaddress.h>
#include <simulatedprocessor.h>

#include <QMutex>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <functional>
#include <utility>

using namespace K7Host;

class tst_SimulatedProcessor : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void nothingIsSentUnasked();
    void refreshSendsEveryRecord();
    void refreshSendsTheCurrentState();
    void aPressIsAnsweredWithWhatChanged_data();
    void aPressIsAnsweredWithWhatChanged();
    void turningThePageSendsLabelsAndColors();
    void releasesChangeNothing();
    void unknownCodesAreIgnored_data();
    void unknownCodesAreIgnored();
    void recordsCarryNothingElse();

    void takeMovesTheLeverRecordByRecord();
    void theNextTakeMovesTheLeverBack();
    void aFrameSendsOnlyWhatChanged();
    void theTimerRunsOnlyWhileTheLeverMoves_data();
    void theTimerRunsOnlyWhileTheLeverMoves();
    void theTimerMovesTheLever();
    void theTimerKeepsItsBeatWhileKeysArePressed();
    void aLockedTBarSendsNoMoreOfTheLever();
    void aLockedPanelAnswersItsOwnKeyOnly();

    void theConsoleKnowsTheFullStateAfterAnyKeys();
    void aKeyPressedByAReceiverIsAnsweredWithNothingOutdated_data();
    void aKeyPressedByAReceiverIsAnsweredWithNothingOutdated();
    void aLeverMovedByAReceiverIsFollowedByNothingOutdated_data();
    void aLeverMovedByAReceiverIsFollowedByNothingOutdated();
    void aRefreshAskedForByAReceiverSendsEverything();

    void refreshSendsTheSignalsToo();
    void aSwitchedDviSignalIsTold_data();
    void aSwitchedDviSignalIsTold();
    void addressRequestsAreAnsweredAfterAWhile_data();
    void addressRequestsAreAnsweredAfterAWhile();
    void requestsForOtherPortsAreIgnored_data();
    void requestsForOtherPortsAreIgnored();
    void oneAnswerIsForAllWhoAskMeanwhile();
    void changedAddressesTakeTheLinkDownForAWhile_data();
    void changedAddressesTakeTheLinkDownForAWhile();
    void refusedAddressesLeaveTheOldOnes();
    void aSecondChangeWhileTheLinkIsDownHoldsInTheEnd();
    void theHardwareFollowsTheConsole();
    void theClockRunsOnFromWhatIsEntered();
    void aRestartGoesDarkAndComesBack();
    void aShutdownStaysDarkUntilItIsSwitchedOn();
    void unknownRestartTypesAreIgnored();
    void whileItIsDarkNothingIsAnswered_data();
    void whileItIsDarkNothingIsAnswered();
    void goingDarkStopsWhatIsPending();
    void aTransitionGoesOnAfterARestart();
    void timersRunOnlyWhileSomethingIsPending();
    void afterTheConsoleIsClosedNothingIsSent();
    void itCanGoWithAnswersPending();

private:
    using Ip = std::shared_ptr<Korvo::ECDeviceIPData>;

    void press(quint32 key) { m_processor->keyPressed(KeyCodeOffset + key); }
    void advanceFrame() { QVERIFY(QMetaObject::invokeMethod(m_processor.data(), "advanceFrame")); }
    QTimer *timer(const char *name) const;
    bool isTimerActive(const char *name = "frame") const { return timer(name)->isActive(); }
    QStringList activeTimers() const;
    QVector<Ip> ips() const;
    void waitForIps(int count);
    void forget();

    QScopedPointer<SimulatedProcessor> m_processor;
    QVector<std::shared_ptr<Korvo::ECButtonColor>> m_colors;
    QVector<std::shared_ptr<Korvo::ECOLEDText>> m_texts;
    QVector<std::shared_ptr<Korvo::ECTBarValue>> m_levers;
    QVector<std::shared_ptr<Korvo::DVIInSignal>> m_dviSignals;
    QVector<std::shared_ptr<Korvo::PeripheralControlVisibleState>> m_visibilities;
    mutable QMutex m_ipMutex; // guards the next two, which come from other threads too
    QVector<Ip> m_ips;
    QVector<const QThread *> m_ipThreads;
    std::function<void()> m_receiver; // called once, after the first record
};

namespace {

using Levers = QVector<QPair<int, bool>>;

constexpr quint32 Cut = 104;
constexpr quint32 Take = 105;
constexpr quint32 LockTBar = 127;
constexpr quint32 LockPanel = 128;

KeyColors toMap(const QVector<std::shared_ptr<Korvo::ECButtonColor>> &records)
{
    KeyColors colors;
    for (const auto &record : records)
        colors.insert(record->ButtonKey, qRgb(record->R, record->G, record->B));
    return colors;
}

LabelTexts toMap(const QVector<std::shared_ptr<Korvo::ECOLEDText>> &records)
{
    LabelTexts texts;
    for (const auto &record : records)
        texts.insert(record->OledKey, QString::fromUtf8(record->OledText));
    return texts;
}

Levers toList(const QVector<std::shared_ptr<Korvo::ECTBarValue>> &records)
{
    Levers levers;
    for (const auto &record : records)
        levers.append({static_cast<int>(record->Value), record->IsBottomToTop != 0});
    return levers;
}

QString text(const char *string)
{
    return QString::fromUtf8(string);
}

ConsoleModel modelAfter(const QVector<quint32> &keys)
{
    ConsoleModel model;
    for (const quint32 key : keys)
        model.press(key);
    return model;
}

} // namespace

Q_DECLARE_METATYPE(KeyColors)
Q_DECLARE_METATYPE(LabelTexts)
Q_DECLARE_METATYPE(Levers)

void tst_SimulatedProcessor::init()
{
    forget();
    m_receiver = nullptr;
    m_processor.reset(new SimulatedProcessor);
    const auto callReceiver = [this] {
        if (const auto receiver = std::exchange(m_receiver, nullptr))
            receiver();
    };
    connect(m_processor.data(), &DeviceLink::buttonColorReported, this,
            [this, callReceiver](const std::shared_ptr<Korvo::ECButtonColor> &record) {
                m_colors << record;
                callReceiver();
            });
    connect(m_processor.data(), &DeviceLink::oledTextReported, this,
            [this, callReceiver](const std::shared_ptr<Korvo::ECOLEDText> &record) {
                m_texts << record;
                callReceiver();
            });
    connect(m_processor.data(), &DeviceLink::tBarValueReported, this,
            [this, callReceiver](const std::shared_ptr<Korvo::ECTBarValue> &record) {
                m_levers << record;
                callReceiver();
            });
    connect(m_processor.data(), &DeviceLink::dviSignalReported, this,
            [this](const std::shared_ptr<Korvo::DVIInSignal> &record) { m_dviSignals << record; });
    connect(m_processor.data(), &DeviceLink::peripheralVisibilityReported, this,
            [this](const std::shared_ptr<Korvo::PeripheralControlVisibleState> &record) {
                m_visibilities << record;
            });
    connect(
        m_processor.data(), &DeviceLink::deviceIPReported, this,
        [this](const Ip &record) {
            const QMutexLocker locker(&m_ipMutex);
            m_ips << record;
            m_ipThreads << QThread::currentThread();
        },
        Qt::DirectConnection);
}

void tst_SimulatedProcessor::cleanup()
{
    m_processor.reset();
}

QTimer *tst_SimulatedProcessor::timer(const char *name) const
{
    return m_processor->findChild<QTimer *>(text(name));
}

QStringList tst_SimulatedProcessor::activeTimers() const
{
    QStringList names;
    const auto timers = m_processor->findChildren<QTimer *>();
    for (const QTimer *timer : timers) {
        if (timer->isActive())
            names << timer->objectName();
    }
    names.sort();
    return names;
}

QVector<tst_SimulatedProcessor::Ip> tst_SimulatedProcessor::ips() const
{
    const QMutexLocker locker(&m_ipMutex);
    return m_ips;
}

/// Waits until there are \a count address records, and takes their timers' time away.
void tst_SimulatedProcessor::waitForIps(int count)
{
    for (const char *name : {"answer0", "answer1", "link0", "link1"})
        timer(name)->setInterval(0);
    QTRY_COMPARE(ips().size(), count);
}

void tst_SimulatedProcessor::forget()
{
    m_colors.clear();
    m_texts.clear();
    m_levers.clear();
    m_dviSignals.clear();
    m_visibilities.clear();
    const QMutexLocker locker(&m_ipMutex);
    m_ips.clear();
    m_ipThreads.clear();
}

void tst_SimulatedProcessor::nothingIsSentUnasked()
{
    QVERIFY(m_colors.isEmpty());
    QVERIFY(m_texts.isEmpty());
    QVERIFY(m_levers.isEmpty());
    QVERIFY(!isTimerActive());
}

void tst_SimulatedProcessor::refreshSendsEveryRecord()
{
    for (int i = 0; i < 2; ++i) {
        forget();
        m_processor->refresh();
        QCOMPARE(m_colors.size(), 136);
        QCOMPARE(m_texts.size(), 93);
        QCOMPARE(toMap(m_colors), ConsoleModel().keyColors());
        QCOMPARE(toMap(m_texts), ConsoleModel().labelTexts());
        QCOMPARE(toList(m_levers), (Levers{{0, true}}));
    }
}

void tst_SimulatedProcessor::refreshSendsTheCurrentState()
{
    press(38);
    press(Take);
    advanceFrame();
    forget();
    m_processor->refresh();
    QCOMPARE(toMap(m_colors).value(38), qRgb(0, 255, 0));
    QCOMPARE(toMap(m_colors).value(Take), qRgb(255, 0, 0));
    QCOMPARE(toMap(m_texts).value(93), QStringLiteral("4 %"));
    QCOMPARE(toList(m_levers), (Levers{{48, true}}));
}

void tst_SimulatedProcessor::aPressIsAnsweredWithWhatChanged_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<KeyColors>("expectedColors");
    QTest::addColumn<LabelTexts>("expectedTexts");
    QTest::newRow("an idle input goes on preview")
        << 0xff0026U << KeyColors{{37, qRgb(0, 0, 0)}, {38, qRgb(0, 255, 0)}}
        << LabelTexts{{29, QStringLiteral("CAM 3 z1")}};
    QTest::newRow("the input on preview stays") << 0xff0025U << KeyColors{} << LabelTexts{};
    QTest::newRow("no page to turn up to") << 0xff0034U << KeyColors{} << LabelTexts{};
    QTest::newRow("the first screen, of key id 0")
        << 0xff0000U << KeyColors{{0, qRgb(0, 0, 0)}} << LabelTexts{};
    QTest::newRow("CUT") << 0xff0068U
                         << KeyColors{{36, qRgb(0, 255, 0)}, {37, qRgb(255, 0, 0)}, {54, qRgb(0, 255, 0)}}
                         << LabelTexts{{29, QStringLiteral("CAM 1 z1")}};
}

void tst_SimulatedProcessor::aPressIsAnsweredWithWhatChanged()
{
    QFETCH(quint32, code);
    QFETCH(KeyColors, expectedColors);
    QFETCH(LabelTexts, expectedTexts);
    m_processor->keyPressed(code);
    QCOMPARE(m_colors.size(), expectedColors.size());
    QCOMPARE(toMap(m_colors), expectedColors);
    QCOMPARE(m_texts.size(), expectedTexts.size());
    QCOMPARE(toMap(m_texts), expectedTexts);
    QVERIFY(m_levers.isEmpty());
}

void tst_SimulatedProcessor::turningThePageSendsLabelsAndColors()
{
    press(53);
    const KeyColors expectedColors{
        {36, qRgb(0, 0, 0)}, {37, qRgb(0, 0, 0)}, {52, qRgb(0, 0, 255)}, {53, qRgb(0, 0, 0)}};
    QCOMPARE(m_colors.size(), expectedColors.size());
    QCOMPARE(toMap(m_colors), expectedColors);
    QCOMPARE(m_texts.size(), 17);
    QCOMPARE(toMap(m_texts).value(51), QStringLiteral("Page 2/2"));
}

void tst_SimulatedProcessor::releasesChangeNothing()
{
    for (quint32 key = 0; key < 256; ++key)
        m_processor->keyReleased(KeyCodeOffset + key);
    QVERIFY(m_colors.isEmpty());
    QVERIFY(m_texts.isEmpty());
    QVERIFY(m_levers.isEmpty());
    m_processor->refresh();
    QCOMPARE(toMap(m_colors), ConsoleModel().keyColors());
    QVERIFY(!isTimerActive());
}

void tst_SimulatedProcessor::unknownCodesAreIgnored_data()
{
    QTest::addColumn<quint32>("code");
    QTest::newRow("0") << 0U;
    QTest::newRow("a key id without the offset") << 38U;
    QTest::newRow("below the first key") << KeyCodeOffset - 1;
    QTest::newRow("above the last key") << KeyCodeOffset + 138;
    QTest::newRow("every key") << KeyCodeOffset + 255;
    QTest::newRow("a silent key") << KeyCodeOffset + 101;
    QTest::newRow("largest") << 0xffffffffU;
}

void tst_SimulatedProcessor::unknownCodesAreIgnored()
{
    QFETCH(quint32, code);
    m_processor->keyPressed(code);
    m_processor->keyReleased(code);
    QVERIFY(m_colors.isEmpty());
    QVERIFY(m_texts.isEmpty());
    QVERIFY(m_levers.isEmpty());
}

void tst_SimulatedProcessor::recordsCarryNothingElse()
{
    m_processor->refresh();
    QVERIFY(!m_colors.isEmpty());
    for (const auto &record : qAsConst(m_colors)) {
        QCOMPARE(record->ECKey, quint16(0));
        QCOMPARE(record->ButtonState, quint8(0));
        QCOMPARE(record->brightness, quint8(0));
    }
    QVERIFY(!m_texts.isEmpty());
    for (const auto &record : qAsConst(m_texts)) {
        QCOMPARE(record->ECKey, quint16(0));
        QCOMPARE(record->OledText[sizeof record->OledText - 1], '\0');
    }
}

void tst_SimulatedProcessor::takeMovesTheLeverRecordByRecord()
{
    m_processor->refresh();
    press(Take);
    for (int frame = 0; frame < 30; ++frame)
        advanceFrame();
    Levers expected;
    for (int frame = 0; frame <= 25; ++frame)
        expected.append({48 * frame, true});
    QCOMPARE(toList(m_levers), expected);
    QCOMPARE(toMap(m_colors).value(36), qRgb(0, 255, 0));
    QCOMPARE(toMap(m_colors).value(37), qRgb(255, 0, 0));
}

void tst_SimulatedProcessor::theNextTakeMovesTheLeverBack()
{
    press(Take);
    for (int frame = 0; frame < 25; ++frame)
        advanceFrame();
    QCOMPARE(toList(m_levers).constLast(), qMakePair(1200, true));
    forget();
    press(Take);
    QCOMPARE(toList(m_levers), (Levers{{0, false}}));
    for (int frame = 0; frame < 25; ++frame)
        advanceFrame();
    QCOMPARE(m_levers.size(), 26);
    QCOMPARE(toList(m_levers).constLast(), qMakePair(1200, false));
}

void tst_SimulatedProcessor::aFrameSendsOnlyWhatChanged()
{
    press(Take);
    QCOMPARE(toMap(m_colors), (KeyColors{{Take, qRgb(255, 0, 0)}}));
    QCOMPARE(toMap(m_texts), (LabelTexts{{93, QStringLiteral("0 %")}}));
    QVERIFY(m_levers.isEmpty()); // it stands at 0
    forget();
    advanceFrame();
    QVERIFY(m_colors.isEmpty());
    QCOMPARE(toMap(m_texts), (LabelTexts{{93, QStringLiteral("4 %")}}));
    QCOMPARE(toList(m_levers), (Levers{{48, true}}));
}

void tst_SimulatedProcessor::theTimerRunsOnlyWhileTheLeverMoves_data()
{
    QTest::addColumn<QVector<quint32>>("keys");
    QTest::addColumn<bool>("expectedActive");
    using Keys = QVector<quint32>;
    QTest::newRow("an input") << Keys{38} << false;
    QTest::newRow("CUT") << Keys{Cut} << false;
    QTest::newRow("TAKE") << Keys{Take} << true;
    QTest::newRow("another key meanwhile") << Keys{Take, 38} << true;
    QTest::newRow("CUT midway") << Keys{Take, Cut} << false;
    QTest::newRow("lever locked") << Keys{LockTBar, Take} << false;
    QTest::newRow("lever locked midway") << Keys{Take, LockTBar} << false;
    QTest::newRow("lever unlocked midway") << Keys{Take, LockTBar, LockTBar} << true;
    QTest::newRow("program frozen midway") << Keys{Take, 88} << false;
    QTest::newRow("panel locked midway") << Keys{Take, LockPanel} << true;
    QTest::newRow("no length") << Keys{136, 136, 136, 136, 136, Take} << false;
}

void tst_SimulatedProcessor::theTimerRunsOnlyWhileTheLeverMoves()
{
    QFETCH(QVector<quint32>, keys);
    for (const quint32 key : keys)
        press(key);
    QTEST(isTimerActive(), "expectedActive");
    for (int frame = 0; frame < 25; ++frame)
        advanceFrame();
    QVERIFY(!isTimerActive());
}

void tst_SimulatedProcessor::theTimerMovesTheLever()
{
    QCOMPARE(timer("frame")->interval(), 40);
    timer("frame")->setInterval(0);
    press(Take);
    QTRY_VERIFY(!isTimerActive());
    QCOMPARE(m_levers.size(), 25);
    QCOMPARE(toList(m_levers).constLast(), qMakePair(1200, true));
}

void tst_SimulatedProcessor::theTimerKeepsItsBeatWhileKeysArePressed()
{
    press(Take);
    const int id = timer("frame")->timerId();
    press(38);
    m_processor->refresh();
    QCOMPARE(timer("frame")->timerId(), id); // another one if it had been started again
}

void tst_SimulatedProcessor::aLockedTBarSendsNoMoreOfTheLever()
{
    press(Take);
    advanceFrame();
    forget();
    press(LockTBar);
    press(Cut);
    press(Take);
    advanceFrame();
    QCOMPARE(toMap(m_colors), (KeyColors{{LockTBar, qRgb(255, 0, 0)}}));
    QVERIFY(m_texts.isEmpty());
    QVERIFY(m_levers.isEmpty());
    press(LockTBar);
    advanceFrame();
    QCOMPARE(toList(m_levers), (Levers{{96, true}}));
}

void tst_SimulatedProcessor::aLockedPanelAnswersItsOwnKeyOnly()
{
    press(LockPanel);
    QCOMPARE(toMap(m_colors), (KeyColors{{LockPanel, qRgb(255, 0, 0)}}));
    forget();
    for (quint32 key = 0; key < 256; ++key) {
        if (key != LockPanel)
            press(key);
    }
    QVERIFY(m_colors.isEmpty());
    QVERIFY(m_texts.isEmpty());
    QVERIFY(m_levers.isEmpty());
    press(LockPanel);
    QCOMPARE(toMap(m_colors), (KeyColors{{LockPanel, qRgb(0, 0, 0)}}));
}

void tst_SimulatedProcessor::theConsoleKnowsTheFullStateAfterAnyKeys()
{
    m_processor->refresh();
    quint32 number = 1;
    for (int i = 0; i < 2000; ++i) {
        number = number * 1103515245 + 12345; // any keys, but the same ones each time
        const quint32 key = (number >> 16) % 140;
        press(key);
        if (key == LockPanel)
            press(key); // else half of the keys were ignored
        if (i % 3 == 0)
            advanceFrame();
    }
    const KeyColors colors = toMap(m_colors);
    const LabelTexts texts = toMap(m_texts);
    const auto lever = toList(m_levers).constLast();
    QVERIFY(colors != ConsoleModel().keyColors());

    forget();
    m_processor->refresh();
    QCOMPARE(toMap(m_colors), colors);
    QCOMPARE(toMap(m_texts), texts);
    QCOMPARE(toList(m_levers), Levers{lever});
}

void tst_SimulatedProcessor::aKeyPressedByAReceiverIsAnsweredWithNothingOutdated_data()
{
    using Keys = QVector<quint32>;
    QTest::addColumn<quint32>("first");
    QTest::addColumn<quint32>("second");     // pressed in the answer to the first one
    QTest::addColumn<Keys>("expectedNever"); // keys that must not turn green on the way
    QTest::newRow("another input") << 38U << 39U << Keys{38};
    QTest::newRow("a key that changes nothing") << 38U << 250U << Keys{};
    QTest::newRow("a page") << 38U << 53U << Keys{38};
    QTest::newRow("take") << 38U << Take << Keys{};
    QTest::newRow("a page and back") << 53U << 52U << Keys{};
    QTest::newRow("lock") << Take << LockPanel << Keys{};
}

void tst_SimulatedProcessor::aKeyPressedByAReceiverIsAnsweredWithNothingOutdated()
{
    QFETCH(quint32, first);
    QFETCH(quint32, second);
    QFETCH(QVector<quint32>, expectedNever);
    KeyColors colors = ConsoleModel().keyColors();
    LabelTexts texts = ConsoleModel().labelTexts();
    m_receiver = [this, second] { press(second); };
    press(first);
    QVERIFY(!m_receiver);

    addAll(&colors, toMap(m_colors));
    addAll(&texts, toMap(m_texts));
    const ConsoleModel expected = modelAfter({first, second});
    QCOMPARE(colors, expected.keyColors());
    QCOMPARE(texts, expected.labelTexts());
    for (const auto &record : qAsConst(m_colors))
        QVERIFY(!(expectedNever.contains(record->ButtonKey) && record->G == 255));
}

void tst_SimulatedProcessor::aLeverMovedByAReceiverIsFollowedByNothingOutdated_data()
{
    QTest::addColumn<int>("steps"); // that the transition is longer
    QTest::addColumn<Levers>("expectedLevers");
    QTest::newRow("told with a text of the frame") << 0 << Levers{{1200, true}};
    QTest::newRow("told with the lever itself") << 45 << Levers{{9, true}, {1200, true}};
}

void tst_SimulatedProcessor::aLeverMovedByAReceiverIsFollowedByNothingOutdated()
{
    QFETCH(int, steps);
    QFETCH(Levers, expectedLevers);
    for (int i = 0; i < steps; ++i)
        press(135);
    press(Take);
    if (steps > 0)
        advanceFrame(); // to 0.4 percent, which the label does not show
    forget();
    m_receiver = [this] { press(Cut); };
    advanceFrame();
    QVERIFY(!m_receiver);
    QCOMPARE(toList(m_levers), expectedLevers);
    press(250);
    QCOMPARE(m_levers.size(), expectedLevers.size());
}

void tst_SimulatedProcessor::aRefreshAskedForByAReceiverSendsEverything()
{
    m_receiver = [this] {
        forget();
        m_processor->refresh();
    };
    press(38);
    QCOMPARE(m_colors.size(), 136);
    QCOMPARE(m_texts.size(), 93);
    QCOMPARE(m_levers.size(), 1);
    QCOMPARE(toMap(m_colors), modelAfter({38}).keyColors());
}

void tst_SimulatedProcessor::refreshSendsTheSignalsToo()
{
    m_processor->refresh();
    QCOMPARE(m_visibilities.size(), 1);
    QCOMPARE(m_visibilities.first()->visible, quint8(1));
    QCOMPARE(m_dviSignals.size(), 2);
    QCOMPARE(m_dviSignals.at(0)->Index, quint8(0));
    QCOMPARE(m_dviSignals.at(0)->Signal, quint8(1));
    QCOMPARE(m_dviSignals.at(1)->Index, quint8(1));
    QCOMPARE(m_dviSignals.at(1)->Signal, quint8(0));
    waitForIps(2);
    QVERIFY(ips().at(0)->Index != ips().at(1)->Index);
}

void tst_SimulatedProcessor::aSwitchedDviSignalIsTold_data()
{
    QTest::addColumn<int>("input");
    QTest::addColumn<bool>("hasSignal");
    QTest::addColumn<int>("expectedCount");
    QTest::newRow("0 loses it") << 0 << false << 1;
    QTest::newRow("1 gets one") << 1 << true << 1;
    QTest::newRow("0 keeps it") << 0 << true << 0;
    QTest::newRow("1 has none still") << 1 << false << 0;
    QTest::newRow("no such input") << 2 << true << 0;
    QTest::newRow("negative") << -1 << true << 0;
}

void tst_SimulatedProcessor::aSwitchedDviSignalIsTold()
{
    QFETCH(int, input);
    QFETCH(bool, hasSignal);
    int changed = 0;
    connect(m_processor.data(), &SimulatedProcessor::hardwareChanged, this, [&changed] { ++changed; });
    m_processor->setDviSignal(input, hasSignal);
    QTEST(m_dviSignals.size(), "expectedCount");
    QTEST(changed, "expectedCount");
    if (!m_dviSignals.isEmpty()) {
        QCOMPARE(int(m_dviSignals.first()->Index), input);
        QCOMPARE(m_dviSignals.first()->Signal != 0, hasSignal);
    }
}

void tst_SimulatedProcessor::addressRequestsAreAnsweredAfterAWhile_data()
{
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("expectedIp");
    QTest::addColumn<QString>("expectedGateway");
    QTest::addColumn<bool>("expectedFromElsewhere");
    QTest::newRow("0, from another thread") << 0 << text("192.168.2.13") << text("192.168.2.1") << true;
    QTest::newRow("1, from the same thread") << 1 << text("192.168.1.13") << text("192.168.1.1") << false;
}

void tst_SimulatedProcessor::addressRequestsAreAnsweredAfterAWhile()
{
    QFETCH(int, port);
    QFETCH(bool, expectedFromElsewhere);
    m_processor->addressesRequested(static_cast<quint8>(port));
    QVERIFY(ips().isEmpty());
    QTimer *answer = timer(port == 0 ? "answer0" : "answer1");
    QVERIFY(answer->isActive());
    QCOMPARE(answer->interval(), 40);
    QTRY_COMPARE(ips().size(), 1);
    QVERIFY(!answer->isActive());
    const Ip record = ips().constFirst();
    QCOMPARE(int(record->Index), port);
    QCOMPARE(record->Status, quint8(1));
    QTEST(addressText(record->IP), "expectedIp");
    QCOMPARE(addressText(record->Mask), text("255.255.255.0"));
    QTEST(addressText(record->Gateway), "expectedGateway");
    const QMutexLocker locker(&m_ipMutex);
    QCOMPARE(m_ipThreads.first() != QThread::currentThread(), expectedFromElsewhere);
}

void tst_SimulatedProcessor::requestsForOtherPortsAreIgnored_data()
{
    QTest::addColumn<int>("port");
    QTest::newRow("2") << 2;
    QTest::newRow("255") << 255;
}

void tst_SimulatedProcessor::requestsForOtherPortsAreIgnored()
{
    QFETCH(int, port);
    m_processor->addressesRequested(static_cast<quint8>(port));
    m_processor->addressChangeRequested(static_cast<quint8>(port), 1);
    QCOMPARE(activeTimers(), QStringList());
    QVERIFY(ips().isEmpty());
}

void tst_SimulatedProcessor::oneAnswerIsForAllWhoAskMeanwhile()
{
    m_processor->addressesRequested(1);
    const int id = timer("answer1")->timerId();
    m_processor->addressesRequested(1);
    QCOMPARE(timer("answer1")->timerId(), id); // those who ask often wait no longer
    m_processor->addressesRequested(0);
    QTRY_COMPARE(ips().size(), 2);
    QCOMPARE(activeTimers(), QStringList());
}

void tst_SimulatedProcessor::changedAddressesTakeTheLinkDownForAWhile_data()
{
    QTest::addColumn<QString>("interfaceName");
    QTest::addColumn<int>("port");
    QTest::newRow("eth2") << text("eth2") << 0;
    QTest::newRow("eth0") << text("eth0") << 1;
}

void tst_SimulatedProcessor::changedAddressesTakeTheLinkDownForAWhile()
{
    QFETCH(QString, interfaceName);
    QFETCH(int, port);
    QTimer *link = timer(port == 0 ? "link0" : "link1");
    QCOMPARE(link->interval(), 1000);
    m_processor->addressesEntered(interfaceName, text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    QVERIFY(ips().isEmpty());
    QVERIFY(!link->isActive());

    link->setInterval(0);
    m_processor->addressChangeRequested(static_cast<quint8>(port), 1);
    QVERIFY(link->isActive());
    QVERIFY(!m_processor->hardware().ports.at(static_cast<std::size_t>(port)).isUp);
    waitForIps(2);
    QVERIFY(!link->isActive());
    for (int i = 0; i < 2; ++i) {
        const Ip record = ips().at(i);
        QCOMPARE(int(record->Index), port);
        QCOMPARE(int(record->Status), i); // down, then up
        QCOMPARE(addressText(record->IP), text("10.0.0.2"));
        QCOMPARE(addressText(record->Mask), text("255.0.0.0"));
        QCOMPARE(addressText(record->Gateway), text("10.0.0.1"));
    }
}

void tst_SimulatedProcessor::refusedAddressesLeaveTheOldOnes()
{
    m_processor->addressesEntered(text("eth0"), text("10.0.0"), text("255.0.0.0"), text("10.0.0.1"));
    m_processor->addressChangeRequested(1, 1);
    QCOMPARE(activeTimers(), QStringList());
    QCOMPARE(ips().size(), 1);
    QCOMPARE(addressText(ips().constFirst()->IP), text("192.168.1.13"));
    QCOMPARE(ips().constFirst()->Status, quint8(1));
}

void tst_SimulatedProcessor::aSecondChangeWhileTheLinkIsDownHoldsInTheEnd()
{
    for (const char *ip : {"10.0.0.2", "10.0.0.3"}) {
        m_processor->addressesEntered(text("eth0"), text(ip), text("255.0.0.0"), text("10.0.0.1"));
        m_processor->addressChangeRequested(1, 1);
    }
    waitForIps(3);
    QCOMPARE(addressText(ips().constLast()->IP), text("10.0.0.3"));
    QCOMPARE(ips().constLast()->Status, quint8(1));
    QCOMPARE(ips().at(1)->Status, quint8(0));
}

void tst_SimulatedProcessor::theHardwareFollowsTheConsole()
{
    int changed = 0;
    connect(m_processor.data(), &SimulatedProcessor::hardwareChanged, this, [&changed] { ++changed; });
    m_processor->lampChanged(Lamp::Gooseneck, true, 12);
    m_processor->peripheralScreensChanged(2, 1, {1920, 1080, 1280, 720});
    m_processor->timeTypeChanged(1);
    QCOMPARE(changed, 3);
    const HardwareState &state = m_processor->hardware();
    QVERIFY(state.lamps.at(0).isOn);
    QCOMPARE(state.lamps.at(0).brightness, 12);
    QCOMPARE(state.screens.sizes, (QVector<QSize>{{1920, 1080}, {1280, 720}}));
    QCOMPARE(state.screens.operationScreen, 1);
    QVERIFY(state.timeType == TimeType::Hours12);
}

void tst_SimulatedProcessor::theClockRunsOnFromWhatIsEntered()
{
    const QDateTime before = QDateTime::currentDateTime();
    m_processor->clockSet(text("2030-1-2"), text("3:4:5"));
    const QDateTime after = QDateTime::currentDateTime();
    const QDateTime entered(QDate(2030, 1, 2), QTime(3, 4, 5), Qt::UTC);
    // The host's clock was at the entered time somewhere in between.
    QVERIFY(m_processor->hardware().clock(before) <= entered);
    QVERIFY(m_processor->hardware().clock(after) >= entered);
    QCOMPARE(m_processor->hardware().clock(after).toMSecsSinceEpoch() -
                 m_processor->hardware().clock(before).toMSecsSinceEpoch(),
             before.msecsTo(after));

    const qint64 offset = m_processor->hardware().clockOffsetMs;
    m_processor->clockSet(text("never"), text("3:4:5"));
    QCOMPARE(m_processor->hardware().clockOffsetMs, offset);
}

void tst_SimulatedProcessor::aRestartGoesDarkAndComesBack()
{
    press(38);
    m_processor->refresh();
    const KeyColors colors = toMap(m_colors);
    const LabelTexts texts = toMap(m_texts);
    waitForIps(2);
    forget();
    m_processor->restartRequested(Korvo::Restart);
    QVERIFY(m_processor->hardware().power == Power::Restarting);
    KeyColors shownColors = colors;
    addAll(&shownColors, toMap(m_colors));
    for (const QRgb color : qAsConst(shownColors))
        QCOMPARE(color, KeyColor::Idle);
    LabelTexts shownTexts = texts;
    addAll(&shownTexts, toMap(m_texts));
    for (const QString &shown : qAsConst(shownTexts))
        QCOMPARE(shown, QString());
    QVERIFY(m_levers.isEmpty());
    QCOMPARE(timer("restart")->interval(), 3000);
    QCOMPARE(activeTimers(), QStringList{text("restart")});

    forget();
    timer("restart")->setInterval(0);
    QTRY_VERIFY(m_processor->hardware().power == Power::On);
    QCOMPARE(m_colors.size(), 136);
    QCOMPARE(toMap(m_colors), colors);
    QCOMPARE(m_texts.size(), 93);
    QCOMPARE(toMap(m_texts), texts);
    QCOMPARE(m_levers.size(), 1);
    QCOMPARE(m_visibilities.size(), 1);
    QCOMPARE(m_dviSignals.size(), 2);
    QTRY_COMPARE(ips().size(), 2);
    QCOMPARE(ips().constFirst()->Status, quint8(1));
    QCOMPARE(activeTimers(), QStringList());
}

void tst_SimulatedProcessor::aShutdownStaysDarkUntilItIsSwitchedOn()
{
    m_processor->switchOn(); // is on
    QVERIFY(m_colors.isEmpty());
    m_processor->restartRequested(Korvo::Shutdown);
    QVERIFY(m_processor->hardware().power == Power::Off);
    QVERIFY(!m_colors.isEmpty());
    QCOMPARE(activeTimers(), QStringList());
    QVERIFY(QMetaObject::invokeMethod(m_processor.data(), "finishRestart"));
    QVERIFY(m_processor->hardware().power == Power::Off);

    forget();
    m_processor->switchOn();
    QVERIFY(m_processor->hardware().power == Power::On);
    QCOMPARE(toMap(m_colors), ConsoleModel().keyColors());
    QCOMPARE(toMap(m_texts), ConsoleModel().labelTexts());
}

void tst_SimulatedProcessor::unknownRestartTypesAreIgnored()
{
    for (const int type : {2, 255})
        m_processor->restartRequested(static_cast<quint8>(type));
    QVERIFY(m_processor->hardware().power == Power::On);
    QCOMPARE(activeTimers(), QStringList());
    QVERIFY(m_colors.isEmpty());
}

void tst_SimulatedProcessor::whileItIsDarkNothingIsAnswered_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("restarting") << int(Korvo::Restart);
    QTest::newRow("off") << int(Korvo::Shutdown);
}

void tst_SimulatedProcessor::whileItIsDarkNothingIsAnswered()
{
    QFETCH(int, type);
    m_processor->restartRequested(static_cast<quint8>(type));
    const QStringList timers = activeTimers();
    forget();
    for (quint32 key = 0; key < 256; ++key)
        press(key);
    m_processor->addressesRequested(0);
    m_processor->addressesRequested(1);
    m_processor->addressesEntered(text("eth0"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    m_processor->addressChangeRequested(1, 1);
    m_processor->setDviSignal(1, true);
    m_processor->restartRequested(Korvo::Restart);
    m_processor->restartRequested(Korvo::Shutdown);
    advanceFrame();
    QCOMPARE(activeTimers(), timers);
    QVERIFY(m_colors.isEmpty());
    QVERIFY(m_texts.isEmpty());
    QVERIFY(m_dviSignals.isEmpty());
    QVERIFY(ips().isEmpty());

    m_processor->refresh();
    QCOMPARE(m_colors.size(), 136);
    QCOMPARE(toMap(m_colors).value(36), KeyColor::Idle);
    QVERIFY(m_visibilities.isEmpty());
    QVERIFY(ips().isEmpty());
}

void tst_SimulatedProcessor::goingDarkStopsWhatIsPending()
{
    press(Take);
    m_processor->addressesRequested(0);
    m_processor->addressesRequested(1);
    m_processor->addressesEntered(text("eth0"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    m_processor->addressChangeRequested(1, 1);
    QCOMPARE(activeTimers(), (QStringList{text("answer0"), text("answer1"), text("frame"), text("link1")}));
    m_processor->restartRequested(Korvo::Shutdown);
    QCOMPARE(activeTimers(), QStringList());
    forget();
    m_processor->switchOn();
    QTRY_COMPARE(ips().size(), 2);
    const auto records = ips();
    for (const Ip &record : records)
        QCOMPARE(record->Status, quint8(1));
}

void tst_SimulatedProcessor::aTransitionGoesOnAfterARestart()
{
    press(Take);
    advanceFrame();
    m_processor->restartRequested(Korvo::Restart);
    advanceFrame();
    QVERIFY(!isTimerActive());
    forget();
    QVERIFY(QMetaObject::invokeMethod(m_processor.data(), "finishRestart"));
    QVERIFY(isTimerActive());
    QCOMPARE(toMap(m_colors).value(Take), KeyColor::Red);
}

void tst_SimulatedProcessor::timersRunOnlyWhileSomethingIsPending()
{
    QCOMPARE(m_processor->findChildren<QTimer *>().size(), 6);
    m_processor->refresh();
    m_processor->lampChanged(Lamp::Logo, true, 15);
    m_processor->clockSet(text("2030-1-2"), text("3:4:5"));
    m_processor->setDviSignal(1, true);
    QCOMPARE(activeTimers(), QStringList());
}

void tst_SimulatedProcessor::afterTheConsoleIsClosedNothingIsSent()
{
    m_processor->refresh();
    m_processor->addressesRequested(0);
    m_processor->addressesRequested(1);
    m_processor->consoleClosed();
    forget();
    press(38);
    m_processor->setDviSignal(1, true);
    m_processor->addressesEntered(text("eth0"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    m_processor->addressChangeRequested(1, 1);
    m_processor->restartRequested(Korvo::Restart);
    QVERIFY(QMetaObject::invokeMethod(m_processor.data(), "finishRestart"));
    m_processor->addressesRequested(0);
    m_processor->addressesRequested(1);
    for (const char *name : {"answer0", "answer1"})
        timer(name)->setInterval(0);
    QTRY_COMPARE(activeTimers(), QStringList{text("restart")});
    QVERIFY(m_colors.isEmpty());
    QVERIFY(m_texts.isEmpty());
    QVERIFY(m_levers.isEmpty());
    QVERIFY(m_dviSignals.isEmpty());
    QVERIFY(m_visibilities.isEmpty());
    QVERIFY(ips().isEmpty());

    m_processor->refresh();
    QCOMPARE(toMap(m_colors).value(38), KeyColor::Green);
    QTRY_COMPARE(ips().size(), 2);
}

void tst_SimulatedProcessor::itCanGoWithAnswersPending()
{
    for (int i = 0; i < 50; ++i) {
        m_processor->addressesRequested(0);
        m_processor->addressChangeRequested(0, 1);
        m_processor->refresh();
        m_processor->consoleClosed();
        forget(); // a late record would show below
        m_processor.reset();
        QVERIFY(ips().isEmpty());
        init();
    }
}

QTEST_GUILESS_MAIN(tst_SimulatedProcessor)

#include "tst_simulatedprocessor.moc"
