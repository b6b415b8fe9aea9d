// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <simulatedprocessor.h>

#include <QTest>
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

private:
    void press(quint32 key) { m_processor->keyPressed(KeyCodeOffset + key); }
    void advanceFrame() { QVERIFY(QMetaObject::invokeMethod(m_processor.data(), "advanceFrame")); }
    bool isTimerActive() const;
    void forget();

    QScopedPointer<SimulatedProcessor> m_processor;
    QVector<std::shared_ptr<Korvo::ECButtonColor>> m_colors;
    QVector<std::shared_ptr<Korvo::ECOLEDText>> m_texts;
    QVector<std::shared_ptr<Korvo::ECTBarValue>> m_levers;
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
}

void tst_SimulatedProcessor::cleanup()
{
    m_processor.reset();
}

bool tst_SimulatedProcessor::isTimerActive() const
{
    return m_processor->findChild<QTimer *>()->isActive();
}

void tst_SimulatedProcessor::forget()
{
    m_colors.clear();
    m_texts.clear();
    m_levers.clear();
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
    QTimer *timer = m_processor->findChild<QTimer *>();
    QVERIFY(timer);
    QCOMPARE(timer->interval(), 40);
    timer->setInterval(0);
    press(Take);
    QTRY_VERIFY(!timer->isActive());
    QCOMPARE(m_levers.size(), 25);
    QCOMPARE(toList(m_levers).constLast(), qMakePair(1200, true));
}

void tst_SimulatedProcessor::theTimerKeepsItsBeatWhileKeysArePressed()
{
    const QTimer *timer = m_processor->findChild<QTimer *>();
    QVERIFY(timer);
    press(Take);
    const int id = timer->timerId();
    press(38);
    m_processor->refresh();
    QCOMPARE(timer->timerId(), id); // another one if it had been started again
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

QTEST_GUILESS_MAIN(tst_SimulatedProcessor)

#include "tst_simulatedprocessor.moc"
