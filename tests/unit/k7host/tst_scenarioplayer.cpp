// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "fakekeyboard.h"

#include <consolesession.h>
#include <hand.h>
#include <messageboxes.h>
#include <scenarioplayer.h>
#include <simulatedprocessor.h>
#include <traffic.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/keyboard/constants.h>

#include <QBuffer>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

using namespace K7Host;

namespace {

QString text(const char *string)
{
    return QString::fromUtf8(string);
}

class Notes : public TrafficListener
{
public:
    void noted(const ScenarioLine &line) override
    {
        ScenarioLine untimed = line;
        untimed.ms.reset();
        lines << QString::fromUtf8(toJson(untimed));
    }

    QStringList lines;
};

/// As a half that answers every call by a signal.
class EchoingObserver : public SessionObserver
{
public:
    explicit EchoingObserver(FakeKeyboardPlugin *plugin)
        : m_plugin(plugin)
    {
    }
    void called(const HostCall & /*call*/, Half /*half*/, Korvo::IKorvoECKeyboard * /*keyboard*/,
                std::optional<bool> /*result*/) override
    {
        emit m_plugin->signalTimeTypeChanged(1);
    }

private:
    FakeKeyboardPlugin *const m_plugin;
};

const char Pressed[] = R"({"dir":"out","signal":"ecButtonPressed","args":[16711738]})";
const char Released[] = R"({"dir":"out","signal":"ecButtonRelease","args":[16711738]})";

} // namespace

/// Plays on a console of fakes whose left half has one key, number 58.
class tst_ScenarioPlayer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void anEmptyScenarioEndsAtOnce();
    void recordsReachTheHalfThatTheyAreFor();
    void inputReachesTheKeyAndIsNotedBeforeWhatItCauses();
    void whatCannotBeDoneEndsTheScenario();
    void waitWaits();
    void waitForTakesASignalOfTheLastInput();
    void waitForTakesALaterSignal();
    void waitForTakesEachSignalOnce();
    void aSignalFromBeforeTheLastInputDoesNotCount();
    void aSignalThatDoesNotComeEndsTheScenario();
    void anAnswerMayComeBeforeOrAfterItsBox_data();
    void anAnswerMayComeBeforeOrAfterItsBox();
    void anAnswerWithoutABoxEndsTheScenario();
    void anAnswerThatTheBoxDoesNotHaveEndsTheScenario();
    void stepsGoOnWhileABoxIsOpen();
    void picturesAreSavedUnderTheirNames();
    void aPictureThatCannotBeSavedEndsTheScenario();
    void linesOfATraceWaitForTheirTimes_data();
    void linesOfATraceWaitForTheirTimes();
    void linesOfATraceWaitForTheSignalsBeforeThem();
    void aSignalThatDoesNotComeAgainIsGivenUp();
    void recordsBetweenTwoSignalsOfOneBreathStayThere();
    void whatCameOutIsNotPlayed();
    void nothingComesBetweenPressAndReleaseOfAClick();
    void nothingIsPlayedInTheLoopOfABoxThatWasAnswered();
    void manySignalsOneInTheOtherNeedNoStack();
    void aStoppedPlayerSaysNothing();

private:
    void start(const QByteArray &lines);
    void play(const QByteArray &lines);
    void emitPressed() { emit m_plugin->ecButtonPressed(0xff003a); }
    void emitReleased() { emit m_plugin->ecButtonRelease(0xff003a); }

    QScopedPointer<FakeKeyboardPlugin> m_plugin;
    QScopedPointer<SimulatedProcessor> m_link;
    QScopedPointer<ConsoleSession> m_session;
    QScopedPointer<QWidget> m_window;
    QPointer<Korvo::EC::K7DropButton> m_key;
    QScopedPointer<Notes> m_notes;
    QScopedPointer<Traffic> m_traffic;
    QScopedPointer<Hand> m_hand;
    QScopedPointer<MessageBoxes> m_boxes;
    QScopedPointer<ScenarioPlayer> m_player;
    QStringList m_pictures;
    bool m_canSave = true;
    bool m_hasFinished = false;
    QString m_fault;
};

void tst_ScenarioPlayer::init()
{
    m_plugin.reset(new FakeKeyboardPlugin);
    m_link.reset(new SimulatedProcessor);
    m_session.reset(new ConsoleSession(m_plugin.data(), m_link.data()));
    m_session->prepare();
    m_window.reset(new QWidget);
    for (const auto &half : {m_plugin->left, m_plugin->right})
        half->setParent(m_window.data());
    m_key = new Korvo::EC::K7DropButton(m_plugin->left.data());
    m_key->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, 58);
    m_key->setGeometry(10, 10, 50, 50);
    connect(m_key.data(), &QAbstractButton::pressed, this, &tst_ScenarioPlayer::emitPressed);
    connect(m_key.data(), &QAbstractButton::released, this, &tst_ScenarioPlayer::emitReleased);
    m_plugin->right->move(m_plugin->left->width(), 0);
    m_window->resize(m_plugin->left->width() + m_plugin->right->width(), m_plugin->left->height());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));

    m_notes.reset(new Notes);
    m_traffic.reset(new Traffic);
    m_traffic->addListener(m_notes.data());
    m_session->addObserver(m_traffic.data());
    m_hand.reset(new Hand(m_session->halves()));
    m_boxes.reset(new MessageBoxes(m_session->halves()));
    m_pictures.clear();
    m_canSave = true;
    m_hasFinished = false;
    m_fault.clear();
}

void tst_ScenarioPlayer::cleanup()
{
    m_player.reset();
    m_boxes.reset();
    m_hand.reset();
    for (const auto &half : {m_plugin->left, m_plugin->right})
        half->setParent(nullptr);
    delete m_key;
    m_window.reset();
    m_session.reset();
    m_link.reset();
    m_plugin.reset();
}

void tst_ScenarioPlayer::start(const QByteArray &lines)
{
    QByteArray file = lines;
    QBuffer buffer(&file);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    Scenario scenario;
    const auto fault = readScenario(&buffer, text("test"), &scenario);
    QVERIFY2(!fault, qPrintable(fault ? fault->text : QString()));
    const auto save = [this](const QString &name) {
        m_pictures << name;
        return m_canSave ? std::nullopt
                         : std::make_optional(Fault{ExitBadArguments, text("the disk is full")});
    };
    m_player.reset(new ScenarioPlayer(
        scenario, {m_session.data(), m_hand.data(), m_boxes.data(), m_traffic.data(), save}));
    m_session->addObserver(m_player.data());
    connect(m_player.data(), &ScenarioPlayer::finished, this, [this] {
        QVERIFY(!m_hasFinished);
        m_hasFinished = true;
    });
    connect(m_player.data(), &ScenarioPlayer::failed, this, [this](const Fault &failure) {
        QCOMPARE(failure.exitCode, ExitBadArguments);
        QVERIFY(m_fault.isEmpty());
        m_fault = failure.text;
    });
    m_player->start();
}

void tst_ScenarioPlayer::play(const QByteArray &lines)
{
    start(lines);
    QTRY_VERIFY(m_hasFinished || !m_fault.isEmpty());
    QVERIFY(m_hasFinished != !m_fault.isEmpty());
}

void tst_ScenarioPlayer::anEmptyScenarioEndsAtOnce()
{
    start("# nothing\n");
    QVERIFY(!m_hasFinished); // not before somebody can listen
    QTRY_VERIFY(m_hasFinished);
    QCOMPARE(m_notes->lines, QStringList());
}

void tst_ScenarioPlayer::recordsReachTheHalfThatTheyAreFor()
{
    play(R"({"op":"updateTBarValue","record":{"Value":1}}
            {"op":"updateECOledText","half":"left","record":null}
            {"op":"updateKeyboard","half":"right"})");
    QCOMPARE(m_fault, QString());
    QCOMPARE(m_plugin->left->calls, QStringList() << text("updateTBarValue") << text("updateECOledText"));
    QCOMPARE(m_plugin->right->calls, QStringList() << text("updateTBarValue") << text("updateKeyboard"));
    QCOMPARE(m_notes->lines.size(), 4);
    QVERIFY(m_notes->lines.at(0).contains(text(R"("half":"left")")));
    QVERIFY(m_notes->lines.at(1).contains(text(R"("half":"right")")));
}

void tst_ScenarioPlayer::inputReachesTheKeyAndIsNotedBeforeWhatItCauses()
{
    play(R"({"op":"click","key":58}
            {"op":"press","key":58,"finger":1}
            {"op":"release","key":58,"finger":1})");
    QCOMPARE(m_fault, QString());
    const QStringList expected{text(R"({"dir":"in","op":"press","key":58})"),
                               text(Pressed),
                               text(R"({"dir":"in","op":"release","key":58})"),
                               text(Released),
                               text(R"({"dir":"in","op":"press","key":58,"finger":1})"),
                               text(Pressed),
                               text(R"({"dir":"in","op":"release","key":58,"finger":1})"),
                               text(Released)};
    QCOMPARE(m_notes->lines, expected);
}

void tst_ScenarioPlayer::whatCannotBeDoneEndsTheScenario()
{
    play("# one\n{\"op\":\"click\",\"widget\":\"nobody\"}\n{\"op\":\"updateKeyboard\"}");
    QVERIFY2(m_fault.startsWith(text("test:2: ")) && m_fault.contains(text("nobody")), qPrintable(m_fault));
    QCoreApplication::processEvents();
    QCOMPARE(m_plugin->left->calls, QStringList());
    QVERIFY(!m_hasFinished);
}

void tst_ScenarioPlayer::waitWaits()
{
    QElapsedTimer clock;
    clock.start();
    play(R"({"op":"wait","ms":60})");
    QVERIFY(m_hasFinished);
    QVERIFY(clock.elapsed() >= 60);
}

void tst_ScenarioPlayer::waitForTakesASignalOfTheLastInput()
{
    play(R"({"op":"click","key":58}
            {"op":"wait","ms":1}
            {"op":"waitFor","signal":"ecButtonPressed","ms":0}
            {"op":"waitFor","signal":"ecButtonRelease","ms":0})");
    QCOMPARE(m_fault, QString());
}

void tst_ScenarioPlayer::waitForTakesALaterSignal()
{
    start(R"({"op":"waitFor","signal":"ecButtonPressed","ms":60000}
             {"op":"updateKeyboard","half":"left"})");
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    emitReleased();
    QCoreApplication::processEvents();
    QVERIFY(!m_hasFinished);
    emitPressed();
    QTRY_VERIFY(m_hasFinished);
    QCOMPARE(m_plugin->left->calls, QStringList{text("updateKeyboard")});
}

void tst_ScenarioPlayer::waitForTakesEachSignalOnce()
{
    play(R"({"op":"click","key":58}
            {"op":"waitFor","signal":"ecButtonPressed","ms":0}
            {"op":"waitFor","signal":"ecButtonPressed","ms":5})");
    QCOMPARE(m_fault, text("test:3: no ecButtonPressed in this time"));
}

void tst_ScenarioPlayer::aSignalFromBeforeTheLastInputDoesNotCount()
{
    play(R"({"op":"click","key":58}
            {"op":"updateTBarValue","record":{}}
            {"op":"waitFor","signal":"ecButtonPressed","ms":5})");
    QCOMPARE(m_fault, text("test:3: no ecButtonPressed in this time"));
}

void tst_ScenarioPlayer::aSignalThatDoesNotComeEndsTheScenario()
{
    play(R"({"op":"waitFor","signal":"signalIPModeChanged","ms":5}
            {"op":"updateKeyboard"})");
    QCOMPARE(m_fault, text("test:1: no signalIPModeChanged in this time"));
    QCoreApplication::processEvents();
    QCOMPARE(m_plugin->left->calls, QStringList());
}

void tst_ScenarioPlayer::anAnswerMayComeBeforeOrAfterItsBox_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("before") << QByteArray(R"({"op":"answer","button":"No"}
                                             {"op":"click","key":58})");
    QTest::newRow("after") << QByteArray(R"({"op":"click","key":58}
                                            {"op":"answer","button":"No"})");
}

void tst_ScenarioPlayer::anAnswerMayComeBeforeOrAfterItsBox()
{
    QFETCH(QByteArray, lines);
    int answer = 0;
    connect(m_key.data(), &QAbstractButton::clicked, this, [this, &answer] {
        answer = QMessageBox::question(m_plugin->left.data(), QString(), text("Really?"));
    });
    play(lines);
    QCOMPARE(m_fault, QString());
    QTRY_COMPARE(answer, int(QMessageBox::No));
}

void tst_ScenarioPlayer::anAnswerWithoutABoxEndsTheScenario()
{
    play("\n{\"op\":\"answer\",\"button\":\"No\"}\n{\"op\":\"click\",\"key\":58}");
    QCOMPARE(m_fault, text("test:2: no message box opened"));
}

void tst_ScenarioPlayer::anAnswerThatTheBoxDoesNotHaveEndsTheScenario()
{
    QMessageBox box(QMessageBox::Warning, QString(), text("Mind the gap."), QMessageBox::Ok);
    box.show();
    play(R"({"op":"answer","button":"Yes"})");
    QCOMPARE(m_fault, text("test:1: the message box has no button \"Yes\""));
}

void tst_ScenarioPlayer::stepsGoOnWhileABoxIsOpen()
{
    QStringList callsWhileOpen;
    connect(m_key.data(), &QAbstractButton::clicked, this, [this, &callsWhileOpen] {
        QMessageBox::information(m_plugin->left.data(), QString(), text("Now"));
        callsWhileOpen = m_plugin->left->calls;
    });
    play(R"({"op":"click","key":58}
            {"op":"updateKeyboard","half":"left"}
            {"op":"wait","ms":20}
            {"op":"answer","button":"Ok"})");
    QCOMPARE(m_fault, QString());
    QTRY_COMPARE(callsWhileOpen, QStringList{text("updateKeyboard")});
}

void tst_ScenarioPlayer::picturesAreSavedUnderTheirNames()
{
    play(R"({"op":"screenshot","file":"a.png"}
            {"op":"screenshot","file":"b.png"})");
    QCOMPARE(m_fault, QString());
    QCOMPARE(m_pictures, QStringList() << text("a.png") << text("b.png"));
}

void tst_ScenarioPlayer::aPictureThatCannotBeSavedEndsTheScenario()
{
    m_canSave = false;
    play(R"({"op":"screenshot","file":"a.png"}
            {"op":"screenshot","file":"b.png"})");
    QCOMPARE(m_fault, text("test:1: the disk is full"));
    QCOMPARE(m_pictures, QStringList{text("a.png")});
}

void tst_ScenarioPlayer::linesOfATraceWaitForTheirTimes_data()
{
    QTest::addColumn<double>("firstMs");
    QTest::newRow("from the beginning") << 0.0;
    QTest::newRow("a part of it") << 600000.0;
}

void tst_ScenarioPlayer::linesOfATraceWaitForTheirTimes()
{
    QFETCH(double, firstMs);
    const double pauseMs = m_traffic->now() + 80;
    const auto line = [](double ms, const char *half) {
        return R"({"t":)" + QByteArray::number(ms) + R"(,"dir":"in","op":"updateKeyboard","half":")" + half +
               "\"}\n";
    };
    QElapsedTimer clock;
    clock.start();
    play(line(firstMs, "left") + line(firstMs + pauseMs, "right"));
    QCOMPARE(m_fault, QString());
    QVERIFY(clock.elapsed() >= 75); // the clock of the traffic began earlier
    QCOMPARE(m_plugin->left->calls, QStringList{text("updateKeyboard")});
    QCOMPARE(m_plugin->right->calls, QStringList{text("updateKeyboard")});
}

void tst_ScenarioPlayer::linesOfATraceWaitForTheSignalsBeforeThem()
{
    start(QByteArray(Pressed) + R"(
        {"dir":"in","op":"updateKeyboard","half":"left"})");
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
    QCOMPARE(m_plugin->left->calls, QStringList());
    emitPressed();
    QTRY_VERIFY(m_hasFinished);
    QCOMPARE(m_plugin->left->calls, QStringList{text("updateKeyboard")});
}

void tst_ScenarioPlayer::aSignalThatDoesNotComeAgainIsGivenUp()
{
    QElapsedTimer clock;
    clock.start();
    play(R"({"t":0,"dir":"out","signal":"ecButtonPressed","args":[16711738]}
            {"t":0,"dir":"in","op":"updateKeyboard","half":"left"})");
    QCOMPARE(m_fault, QString());
    QCOMPARE(m_plugin->left->calls, QStringList{text("updateKeyboard")});
    QVERIFY(clock.elapsed() >= ScenarioPlayer::GraceMs);
}

/// As when a receiver of the first signal answers it at once.
void tst_ScenarioPlayer::recordsBetweenTwoSignalsOfOneBreathStayThere()
{
    connect(m_key.data(), &QAbstractButton::pressed, this, &tst_ScenarioPlayer::emitReleased);
    const QStringList lines{
        text(R"({"dir":"in","op":"press","key":58})"),
        text(Pressed),
        text(R"({"dir":"in","op":"updateKeyboard","half":"left","result":true})"),
        text(R"({"dir":"in","op":"updateKeyboard","half":"right","result":true})"),
        text(Released),
        text(R"({"dir":"in","op":"updateKeyboard","half":"left","result":true})"),
        text(R"({"dir":"in","op":"release","key":58})"),
        text(Released),
    };
    play(lines.join(QLatin1Char('\n')).toUtf8());
    QCOMPARE(m_fault, QString());
    QCOMPARE(m_notes->lines, lines);
}

void tst_ScenarioPlayer::whatCameOutIsNotPlayed()
{
    play(R"({"t":0,"dir":"out","signal":"ecButtonPressed","args":[16711738]}
            {"t":0,"dir":"out","message":{"title":"a","text":"b","informative":""}}
            {"gap":3})");
    QCOMPARE(m_notes->lines, QStringList());
    QVERIFY(m_hasFinished);
}

void tst_ScenarioPlayer::nothingComesBetweenPressAndReleaseOfAClick()
{
    // As the console's other threads do: as soon as the event loop runs.
    connect(m_key.data(), &QAbstractButton::pressed, this,
            [this] { QTimer::singleShot(0, this, [this] { emit m_plugin->signalTimeTypeChanged(1); }); });
    const QStringList lines{
        text(R"({"dir":"in","op":"press","key":58})"),
        text(Pressed),
        text(R"({"dir":"in","op":"release","key":58})"),
        text(Released),
        text(R"({"dir":"out","signal":"signalTimeTypeChanged","args":[1]})"),
    };
    play(lines.join(QLatin1Char('\n')).toUtf8());
    QCOMPARE(m_fault, QString());
    QCOMPARE(m_notes->lines, lines);
}

void tst_ScenarioPlayer::nothingIsPlayedInTheLoopOfABoxThatWasAnswered()
{
    int loopLevel = 0;
    QPushButton opener(m_plugin->left.data());
    opener.setObjectName(text("opener"));
    opener.setGeometry(100, 10, 50, 50);
    opener.show();
    connect(&opener, &QAbstractButton::clicked, this,
            [this] { QMessageBox::information(m_plugin->left.data(), QString(), text("Now")); });
    connect(m_key.data(), &QAbstractButton::pressed, this,
            [&loopLevel] { loopLevel = QThread::currentThread()->loopLevel(); });
    play(R"({"op":"answer","button":"Ok"}
            {"op":"click","widget":"opener"}
            {"op":"press","key":58}
            {"op":"wait","ms":20}
            {"op":"updateTBarValue","record":{}}
            {"op":"release","key":58})");
    QCOMPARE(m_fault, QString());
    QCOMPARE(loopLevel, QThread::currentThread()->loopLevel());
    QCOMPARE(m_notes->lines.indexOf(text(Released)), m_notes->lines.size() - 1);
}

void tst_ScenarioPlayer::manySignalsOneInTheOtherNeedNoStack()
{
    constexpr int Count = 20000;
    QByteArray lines;
    for (int i = 0; i < Count; ++i) {
        lines += "{\"dir\":\"in\",\"op\":\"updateTBarValue\",\"half\":\"left\",\"record\":null}\n";
        lines += "{\"dir\":\"out\",\"signal\":\"signalTimeTypeChanged\",\"args\":[1]}\n";
    }
    EchoingObserver echo(m_plugin.data());
    m_session->addObserver(&echo);
    play(lines);
    QCOMPARE(m_fault, QString());
    QCOMPARE(m_plugin->left->calls.size(), Count);
}

void tst_ScenarioPlayer::aStoppedPlayerSaysNothing()
{
    start(R"({"op":"updateKeyboard"})");
    m_player->stop();
    QCoreApplication::processEvents();
    QVERIFY(!m_hasFinished);
    QCOMPARE(m_plugin->left->calls, QStringList());
}

QTEST_MAIN(tst_ScenarioPlayer)

#include "tst_scenarioplayer.moc"
