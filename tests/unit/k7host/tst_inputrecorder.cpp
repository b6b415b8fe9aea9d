// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "../korvoeckeyboardk7/fingers.h"
#include "consoledesk.h"

#include <hand.h>
#include <inputrecorder.h>

#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

using namespace K7Host;
using Korvo::Widgets::tbar;

namespace {

/// What was noted, as the lines of a trace without their times.
class Journal : public TrafficListener
{
public:
    void noted(const ScenarioLine &line) override
    {
        ScenarioLine timeless = line;
        timeless.ms.reset();
        timeless.direction.reset();
        lines << QString::fromUtf8(toJson(timeless));
    }
    QStringList take()
    {
        QStringList result;
        result.swap(lines);
        return result;
    }

    QStringList lines;
};

void addFactors()
{
    QTest::addColumn<qreal>("factor");
    QTest::newRow("window") << 1.0;
    QTest::newRow("reduced") << 0.5;
}

} // namespace

class tst_InputRecorder : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aKeyIsNotedBeforeWhatItCauses();
    void aKeyThatIsSlidOffIsNotedOnce_data();
    void aKeyThatIsSlidOffIsNotedOnce();
    void fingersAreNumberedFromZero_data();
    void fingersAreNumberedFromZero();
    void aDragIsNotedWithItsPlaces_data();
    void aDragIsNotedWithItsPlaces();
    void aPressThatIsIgnoredIsNotedOnce_data();
    void aPressThatIsIgnoredIsNotedOnce();
    void aDoubleClickIsNotedAsOne();
    void theMouseOfATouchIsNotNotedBesides();
    void aTouchThatIsLeftToTheMouseIsNotedAsTheMouse();
    void theWheelIsNotedOnce_data();
    void theWheelIsNotedOnce();
    void whatIsTypedIsNoted_data();
    void whatIsTypedIsNoted();
    void keysThatAreHeldRepeatOnlyInFields();
    void whatTheKeypadTypesIsInputOfTheField();
    void otherButtonsAreNotNoted();
    void theHostsOwnWidgetsAreNotNoted();
    void messageBoxesAreNotNoted();
    void aHandIsNotNotedBesidesWhilePeopleAre();

private:
    void makeDesk(qreal factor);
    QPoint shownAt(const QWidget *widget, const QPoint &at) const;
    void mouse(QTest::MouseAction action, const QWidget *widget, const QPoint &at);

    Traffic m_traffic;
    Journal m_journal;
    qreal m_factor = 1;
    QScopedPointer<ConsoleDesk> m_desk;
    QScopedPointer<InputRecorder> m_recorder;

public:
    tst_InputRecorder() { m_traffic.addListener(&m_journal); }
};

void tst_InputRecorder::init()
{
    makeDesk(1);
}

void tst_InputRecorder::cleanup()
{
    m_recorder.reset();
    m_desk.reset();
}

void tst_InputRecorder::makeDesk(qreal factor)
{
    cleanup();
    m_factor = factor;
    m_desk.reset(new ConsoleDesk(factor));
    m_recorder.reset(new InputRecorder(m_desk->halves(), &m_traffic));
    QVERIFY(m_desk->show());
    m_journal.take();
}

QPoint tst_InputRecorder::shownAt(const QWidget *widget, const QPoint &at) const
{
    return (QPointF(widget->mapTo(&m_desk->window, at)) * m_factor).toPoint();
}

/// As the window system gives it: to the window, which passes it on. Places are even.
void tst_InputRecorder::mouse(QTest::MouseAction action, const QWidget *widget, const QPoint &at)
{
    QTest::mouseEvent(action, m_desk->shown()->windowHandle(), Qt::LeftButton, {}, shownAt(widget, at));
}

void tst_InputRecorder::aKeyIsNotedBeforeWhatItCauses()
{
    connect(m_desk->key, &QAbstractButton::pressed, this,
            [this] { m_journal.lines << QStringLiteral("pressed"); });
    connect(m_desk->key, &QAbstractButton::released, this,
            [this] { m_journal.lines << QStringLiteral("released"); });
    mouse(QTest::MousePress, m_desk->key, {20, 20});
    mouse(QTest::MouseMove, m_desk->key, {30, 30});
    mouse(QTest::MouseRelease, m_desk->key, {30, 30});
    QCOMPARE(m_journal.take(),
             (QStringList{QStringLiteral(R"({"op":"press","key":58})"), QStringLiteral("pressed"),
                          QStringLiteral(R"({"op":"release","key":58})"), QStringLiteral("released")}));
}

void tst_InputRecorder::aKeyThatIsSlidOffIsNotedOnce_data()
{
    addFactors();
}

void tst_InputRecorder::aKeyThatIsSlidOffIsNotedOnce()
{
    QFETCH(qreal, factor);
    makeDesk(factor);
    mouse(QTest::MousePress, m_desk->key, {20, 20});
    mouse(QTest::MouseMove, m_desk->key, {60, 20});
    mouse(QTest::MouseMove, m_desk->key, {90, 20});
    mouse(QTest::MouseMove, m_desk->key, {94, 20});
    mouse(QTest::MouseMove, m_desk->key, {20, 20});
    mouse(QTest::MouseRelease, m_desk->key, {90, 20});
    QCOMPARE(m_journal.take(), (QStringList{QStringLiteral(R"({"op":"press","key":58})"),
                                            QStringLiteral(R"({"op":"move","key":58,"at":[90,20]})"),
                                            QStringLiteral(R"({"op":"release","key":58,"at":[90,20]})")}));
}

void tst_InputRecorder::fingersAreNumberedFromZero_data()
{
    addFactors();
}

void tst_InputRecorder::fingersAreNumberedFromZero()
{
    QFETCH(qreal, factor);
    makeDesk(factor);
    Fingers fingers(m_desk->shown());
    fingers.press(11, shownAt(m_desk->key, {40, 40}));
    fingers.press(12, shownAt(m_desk->other, {40, 40}));
    fingers.move(12, shownAt(m_desk->other, {40, 90}));
    fingers.lift(11);
    fingers.press(13, shownAt(m_desk->key, {40, 40}));
    fingers.lift(12);
    fingers.lift(13);
    QCOMPARE(m_journal.take(),
             (QStringList{QStringLiteral(R"({"op":"press","key":58,"finger":0})"),
                          QStringLiteral(R"({"op":"press","key":59,"finger":1})"),
                          QStringLiteral(R"({"op":"move","key":59,"finger":1,"at":[40,90]})"),
                          QStringLiteral(R"({"op":"release","key":58,"finger":0})"),
                          QStringLiteral(R"({"op":"press","key":58,"finger":0})"),
                          QStringLiteral(R"({"op":"release","key":59,"finger":1,"at":[40,90]})"),
                          QStringLiteral(R"({"op":"release","key":58,"finger":0})")}));
}

void tst_InputRecorder::aDragIsNotedWithItsPlaces_data()
{
    addFactors();
}

void tst_InputRecorder::aDragIsNotedWithItsPlaces()
{
    QFETCH(qreal, factor);
    makeDesk(factor);
    const auto *lever = m_desk->add<tbar>("lever", {300, 100, 152, 380});
    mouse(QTest::MouseMove, lever, {76, 100}); // nothing is pressed
    mouse(QTest::MousePress, lever, {76, 190});
    mouse(QTest::MouseMove, lever, {76, 100});
    mouse(QTest::MouseRelease, lever, {76, 100});
    QCOMPARE(m_journal.take(),
             (QStringList{QStringLiteral(R"({"op":"press","widget":"lever","at":[76,190]})"),
                          QStringLiteral(R"({"op":"move","widget":"lever","at":[76,100]})"),
                          QStringLiteral(R"({"op":"release","widget":"lever","at":[76,100]})")}));
}

void tst_InputRecorder::aPressThatIsIgnoredIsNotedOnce_data()
{
    addFactors();
}

void tst_InputRecorder::aPressThatIsIgnoredIsNotedOnce()
{
    QFETCH(qreal, factor);
    makeDesk(factor);
    auto *frame = m_desk->add<QFrame>("frame", {200, 200, 300, 300});
    const auto *label = m_desk->add<QLabel>("label", {50, 50, 100, 100}, frame);
    for (int i = 0; i < 2; ++i) {
        mouse(QTest::MousePress, label, {10, 20});
        mouse(QTest::MouseRelease, label, {10, 20});
    }
    const QString press = QStringLiteral(R"({"op":"press","widget":"label","at":[10,20]})");
    const QString release = QStringLiteral(R"({"op":"release","widget":"label","at":[10,20]})");
    // A scene keeps the end of what was ignored to itself.
    QCOMPARE(m_journal.take(),
             m_factor < 1 ? (QStringList{press, press}) : (QStringList{press, release, press, release}));
}

void tst_InputRecorder::aDoubleClickIsNotedAsOne()
{
    QTest::mouseDClick(m_desk->field, Qt::LeftButton, {}, {10, 10});
    const QStringList lines = m_journal.take();
    QVERIFY2(lines.contains(QStringLiteral(R"({"op":"press","widget":"field","at":[10,10],"double":true})")),
             qPrintable(lines.join(QLatin1Char('\n'))));
    QTest::mouseDClick(m_desk->key, Qt::LeftButton);
    QCOMPARE(m_journal.take().filter(QStringLiteral("double")), QStringList());
}

void tst_InputRecorder::theMouseOfATouchIsNotNotedBesides()
{
    auto *lever = m_desk->add<tbar>("lever", {300, 100, 152, 380});
    Fingers fingers(m_desk->shown());
    fingers.press(1, lever->mapTo(&m_desk->window, {2, 2})); // beside the rail: the lever refuses it
    fingers.lift(1);
    QCOMPARE(m_journal.take(),
             (QStringList{QStringLiteral(R"({"op":"press","widget":"lever","finger":0,"at":[2,2]})"),
                          QStringLiteral(R"({"op":"release","widget":"lever","finger":0,"at":[2,2]})")}));
}

void tst_InputRecorder::aTouchThatIsLeftToTheMouseIsNotedAsTheMouse()
{
    const auto *button = m_desk->add<QPushButton>("button", {300, 100, 100, 40});
    Fingers fingers(m_desk->shown());
    fingers.press(1, button->mapTo(&m_desk->window, {20, 20}));
    fingers.lift(1);
    QCOMPARE(m_journal.take(),
             (QStringList{QStringLiteral(R"({"op":"press","widget":"button","at":[20,20]})"),
                          QStringLiteral(R"({"op":"release","widget":"button","at":[20,20]})")}));
}

void tst_InputRecorder::theWheelIsNotedOnce_data()
{
    QTest::addColumn<bool>("isScrolled");
    QTest::newRow("ignored") << false;
    QTest::newRow("scrolls the page") << true;
}

void tst_InputRecorder::theWheelIsNotedOnce()
{
    QFETCH(bool, isScrolled);
    auto *area = m_desk->add<QScrollArea>("area", {300, 100, 200, 100});
    auto *page = new QWidget;
    page->setFixedSize(100, isScrolled ? 1000 : 50);
    auto *label = new QLabel(page);
    label->setObjectName(QStringLiteral("label"));
    label->resize(100, 50);
    area->setWidget(page);
    for (int i = 0; i < 2; ++i) {
        QWheelEvent event(QPointF(20, 20), label->mapToGlobal({20, 20}), QPoint(), {0, -30}, -30,
                          Qt::Vertical, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(label, &event);
    }
    const QString line = QStringLiteral(R"({"op":"wheel","widget":"label","at":[20,20],"delta":[0,-30]})");
    QCOMPARE(m_journal.take(), (QStringList{line, line}));
}

void tst_InputRecorder::whatIsTypedIsNoted_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("what");
    const auto add = [](const char *name, int key, int modifiers, const char *what) {
        QTest::newRow(name) << key << modifiers << QString::fromLatin1(what);
    };
    add("digit", Qt::Key_5, Qt::NoModifier, R"("text":"5")");
    add("small letter", Qt::Key_A, Qt::NoModifier, R"("text":"a")");
    add("command", Qt::Key_A, Qt::ControlModifier, R"("keys":"Ctrl+A")");
    add("arrow", Qt::Key_Left, Qt::ShiftModifier, R"("keys":"Shift+Left")");
    add("Backspace", Qt::Key_Backspace, Qt::NoModifier, R"("keys":"Backspace")");
    add("Return", Qt::Key_Return, Qt::NoModifier, R"("keys":"Return")");
}

void tst_InputRecorder::whatIsTypedIsNoted()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, what);
    m_desk->field->setFocus();
    QTest::keyClick(m_desk->window.windowHandle(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QCOMPARE(m_journal.take(), QStringList(QStringLiteral(R"({"op":"type","widget":"field",%1})").arg(what)));
}

void tst_InputRecorder::keysThatAreHeldRepeatOnlyInFields()
{
    m_desk->key->setFocusPolicy(Qt::StrongFocus);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_desk->key, m_desk->field}) {
        widget->setFocus();
        for (const bool isRepeated : {false, true}) {
            QKeyEvent event(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), isRepeated);
            QCoreApplication::sendEvent(widget, &event);
        }
    }
    const QString typed = QStringLiteral(R"({"op":"type","widget":"field","text":" "})");
    QCOMPARE(m_journal.take(),
             (QStringList{QStringLiteral(R"({"op":"type","key":58,"text":" "})"), typed, typed}));
}

void tst_InputRecorder::whatTheKeypadTypesIsInputOfTheField()
{
    m_desk->field->setFocus();
    QKeyEvent press(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, QStringLiteral("7"));
    QCoreApplication::sendEvent(m_desk->field, &press);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_7, Qt::NoModifier, QStringLiteral("7"));
    QCoreApplication::sendEvent(m_desk->field, &release);
    QCOMPARE(m_journal.take(), QStringList(QStringLiteral(R"({"op":"type","widget":"field","text":"7"})")));
}

void tst_InputRecorder::otherButtonsAreNotNoted()
{
    QTest::mouseClick(m_desk->key, Qt::RightButton);
    QTest::mouseClick(m_desk->key, Qt::MiddleButton);
    QCOMPARE(m_journal.take(), QStringList());
}

void tst_InputRecorder::theHostsOwnWidgetsAreNotNoted()
{
    QPushButton button(&m_desk->window);
    button.setGeometry(300, 300, 100, 40);
    button.show();
    mouse(QTest::MousePress, &button, {20, 20});
    mouse(QTest::MouseRelease, &button, {20, 20});
    QTest::keyClick(&button, Qt::Key_Space);
    QCOMPARE(m_journal.take(), QStringList());
}

void tst_InputRecorder::messageBoxesAreNotNoted()
{
    QMessageBox box(QMessageBox::Question, {}, QStringLiteral("Sure?"), QMessageBox::Yes,
                    m_desk->left.data());
    box.show();
    QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    QCOMPARE(box.result(), int(QMessageBox::Yes));
    QCOMPARE(m_journal.take(), QStringList());
}

void tst_InputRecorder::aHandIsNotNotedBesidesWhilePeopleAre()
{
    Hand hand(m_desk->halves());
    m_recorder.reset(new InputRecorder(m_desk->halves(), &m_traffic, &hand));
    QVERIFY(!hand.act(inputLine(R"({"op":"click","key":58})")));
    QVERIFY(!hand.act(inputLine(R"({"op":"click","key":58,"finger":2})")));
    QVERIFY(!hand.act(inputLine(R"({"op":"type","widget":"field","text":"1"})")));
    QCOMPARE(m_journal.take(), QStringList());

    // A person goes on while the hand's click waits for its end.
    connect(m_desk->key, &QAbstractButton::clicked, this, [this] {
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] {
            QTest::mouseClick(m_desk->other, Qt::LeftButton);
            loop.quit();
        });
        loop.exec();
    });
    QVERIFY(!hand.act(inputLine(R"({"op":"click","key":58})")));
    QCOMPARE(m_journal.take(), (QStringList{QStringLiteral(R"({"op":"press","key":59})"),
                                            QStringLiteral(R"({"op":"release","key":59})")}));
    QTest::mouseClick(m_desk->other, Qt::LeftButton);
    QCOMPARE(m_journal.take().size(), 2);
}

QTEST_MAIN(tst_InputRecorder)

#include "tst_inputrecorder.moc"
