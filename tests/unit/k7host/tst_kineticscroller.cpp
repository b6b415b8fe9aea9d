// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "../korvoeckeyboardk7/fingers.h"
#include "wholeconsole.h"

#include <applytheme.h>
#include <keypad.h>
#include <keypadtrigger.h>
#include <kineticscroller.h>
#include <scaledview.h>
#include <traffic.h>

#include <korvo/widgets/datewidget.h>
#include <korvo/widgets/slidereditframe.h>
#include <korvo/widgets/switchcontrol.h>
#include <korvo/widgets/tumblertime.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QProxyStyle>
#include <QScroller>
#include <QSlider>
#include <QStyleOptionSlider>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <memory>

using namespace K7Host;

namespace {

constexpr int Quickly = 10; // milliseconds from one move to the next
constexpr int AfterARest = 300;

/// Moving things can be switched off.
class StyleOfChoice : public QProxyStyle
{
public:
    StyleOfChoice()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_Widget_Animation_Duration ? duration
                                                    : QProxyStyle::styleHint(hint, option, widget, data);
    }

    int duration = 200;
};

/// What the console says, but for what it asks for every ten seconds.
class Sayings : public TrafficListener
{
public:
    void noted(const ScenarioLine &line) override
    {
        const auto *signal = std::get_if<SignalLine>(&line.content);
        if (signal && signal->signal != QLatin1String("signalReqECDeviceIP"))
            texts << signal->signal;
    }

    QStringList texts;
};

/// A console that a finger scrolls, as large as it is or reduced.
class Desk
{
public:
    explicit Desk(qreal shownFactor)
        : factor(shownFactor)
        , console(QStringLiteral(KORVO_PLUGINS))
    {
        if (console.fault)
            return;
        traffic.addListener(&sayings);
        console.session->addObserver(&traffic);
        if (factor < 1)
            view.reset(new ScaledView(console.window.data(), factor));
        keypadTrigger.reset(new KeypadTrigger(console.window.data()));
        scroller.reset(new KineticScroller(console.window.data()));
        shown()->show();
    }
    ~Desk()
    {
        if (console.session)
            console.session->removeObserver(&traffic);
    }
    Q_DISABLE_COPY(Desk)

    QWidget *shown() const { return view ? static_cast<QWidget *>(view.data()) : console.window.data(); }
    QScrollBar *bar() const { return console.panelArea()->verticalScrollBar(); }
    QScrollBar *screensBar() const
    {
        return console.child<QScrollArea>("screenScrollArea")->horizontalScrollBar();
    }

    /// In the panel. Of several with that name, one that need not be at its top.
    QWidget *find(const QString &name) const
    {
        if (name == QLatin1String("viewport"))
            return console.panelArea()->viewport();
        if (name == QLatin1String("screen"))
            return console.child("screenButtonFrame")->findChild<QAbstractButton *>();
        const QWidget *around = console.panel();
        if (name == QLatin1String("slider"))
            around = console.child("widget_lcd");
        else if (name == QLatin1String("editor"))
            around = console.child("spinBox_width");
        return around->findChild<QWidget *>(name);
    }

    /// In the pixels of the shown window; even ones of the console, so that nothing is rounded.
    QPoint place(const QWidget *widget, const QPoint &at) const
    {
        const QPoint inWindow = widget->mapTo(console.window.data(), at);
        return QPoint(inWindow.x() & ~1, inWindow.y() & ~1) * factor;
    }
    QPoint middle(const QWidget *widget) const { return place(widget, widget->rect().center()); }

    /// What can be seen of the controls.
    QStringList state() const
    {
        QStringList state;
        const auto widgets = console.panel()->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            QString text = widget->objectName() + QLatin1Char(' ');
            if (const auto *button = qobject_cast<QAbstractButton *>(widget))
                text += QStringLiteral("%1 %2").arg(button->isChecked()).arg(button->isDown());
            if (const auto *control = qobject_cast<Korvo::Widgets::SwitchControl *>(widget))
                text += QString::number(control->isToggled());
            if (const auto *slider = qobject_cast<QSlider *>(widget))
                text += QStringLiteral("%1 %2").arg(slider->value()).arg(slider->isSliderDown());
            if (const auto *box = qobject_cast<QComboBox *>(widget))
                text += box->currentText();
            if (const auto *field = qobject_cast<QLineEdit *>(widget))
                text += QStringLiteral("%1 %2 %3")
                            .arg(field->text(), field->selectedText())
                            .arg(field->cursorPosition());
            if (widget->hasFocus())
                text += QStringLiteral(" focus");
            if (widget->property("isTouched").toBool())
                text += QStringLiteral(" touched");
            state << text;
        }
        state << (popup() ? QStringLiteral("popup") : QString());
        state << (console.window->findChild<Keypad *>()->isVisible() ? QStringLiteral("keypad") : QString());
        return state;
    }

    /// Also in a reduced window, where it is part of that.
    static QWidget *popup()
    {
        const auto windows = QApplication::topLevelWidgets();
        const auto found = std::find_if(windows.cbegin(), windows.cend(), [](const QWidget *window) {
            return window->windowType() == Qt::Popup && window->isVisible();
        });
        return found == windows.cend() ? nullptr : *found;
    }

    const qreal factor;
    WholeConsole console;
    Sayings sayings;
    Traffic traffic;
    QScopedPointer<ScaledView> view; // goes before the window
    QScopedPointer<KeypadTrigger> keypadTrigger;
    QScopedPointer<KineticScroller> scroller;
};

enum class By { Mouse, Finger };

/// One that is on the desk, or the mouse.
class Pointer
{
public:
    Pointer(const Desk *desk, By by)
        : m_desk(desk)
        , m_by(by)
        , m_fingers(desk->shown())
    {
    }
    Q_DISABLE_COPY(Pointer)

    void press(const QPoint &place)
    {
        m_place = place;
        if (m_by == By::Finger)
            m_fingers.press(0, place);
        else
            mouse(QTest::MousePress);
    }
    /// By pixels of the console.
    void moveBy(const QPoint &way, int ms = Quickly)
    {
        m_place += (QPointF(way) * m_desk->factor).toPoint();
        QTest::lastMouseTimestamp += ms;
        if (m_by == By::Finger)
            m_fingers.move(0, m_place);
        else
            mouse(QTest::MouseMove);
    }
    void lift(int ms = Quickly)
    {
        QTest::lastMouseTimestamp += ms;
        if (m_by == By::Finger)
            m_fingers.lift(0);
        else
            mouse(QTest::MouseRelease);
    }
    void tap(const QPoint &place)
    {
        press(place);
        lift();
    }
    /// Five equal moves.
    void flick(const QPoint &place, const QPoint &way)
    {
        press(place);
        for (int i = 0; i < 5; ++i)
            moveBy(way / 5);
        lift(1);
    }

private:
    void mouse(QTest::MouseAction action)
    {
        QTest::mouseEvent(action, m_desk->shown()->windowHandle(), Qt::LeftButton, {}, m_place);
    }

    const Desk *const m_desk;
    const By m_by;
    Fingers m_fingers;
    QPoint m_place; // in the shown window
};

const char *nameOf(By by)
{
    return by == By::Finger ? "finger" : "mouse";
}

/// Of the state, what is not as before.
QStringList changes(const QStringList &before, QStringList after)
{
    for (const QString &line : before)
        after.removeOne(line);
    return after;
}

QRect handleOf(const QSlider *slider)
{
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.subControls = QStyle::SC_All;
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = option.sliderValue = slider->value();
    option.state.setFlag(QStyle::State_Horizontal);
    return slider->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider);
}

struct Use
{
    By by;
    qreal factor;
};

// Each way of input and each kind of window, without all of their combinations: a row is a whole console.
constexpr Use Uses[] = {{By::Finger, 1}, {By::Mouse, 0.5}};

} // namespace

Q_DECLARE_METATYPE(By)

class tst_KineticScroller : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void dragScrollsWhateverItBeginsOn_data();
    void dragScrollsWhateverItBeginsOn();
    void fieldInUseKeepsTheFocus();
    void tapPresses_data();
    void tapPresses();
    void pressShowsAtOnce();
    void tapOpensTheListToChooseFrom_data();
    void tapOpensTheListToChooseFrom();
    void shakyTapIsOne();
    void dragAcrossIsTheWidgets();

    void dragAcrossOpensNoList();

    void flickGoesOn_data();
    void flickGoesOn();
    void itComesToRest();
    void liftAfterARestDoesNot();
    void nothingGoesOnWithoutAnimations();
    void touchStopsAndPressesNothing_data();
    void touchStopsAndPressesNothing();
    void caughtPageFollowsTheFingerAgain();
    void secondQuickDragScrollsToo();
    void endsHold_data();
    void endsHold();
    void othersThatScrollStopIt_data();
    void othersThatScrollStopIt();

    void sliderIsSetByDraggingAcross_data();
    void sliderIsSetByDraggingAcross();
    void handleKeepsADrag();
    void wheelOfTheTimeKeepsADrag_data();
    void wheelOfTheTimeKeepsADrag();
    void scrollBarStaysOne();
    void rowOfScreensIsDraggedAcross_data();
    void rowOfScreensIsDraggedAcross();
    void keysAreLeftAlone();
    void lostReleaseIsForgotten();

private:
    void use(qreal factor);
    QWidget *show(const QString &name);
    bool isAtRest() const;

    StyleOfChoice *m_style = nullptr; // the application's
    std::unique_ptr<Desk> m_desk;
    int m_start = 0; // value of the panel's scroll bar before the test does anything
};

void tst_KineticScroller::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("korvo.k7.*.debug=false"));
    QVERIFY(!applyTheme(QStringLiteral(KORVO_THEME)));
    m_style = new StyleOfChoice;
    QApplication::setStyle(m_style);
}

void tst_KineticScroller::cleanup()
{
    m_style->duration = 200;
    if (QWidget *popup = Desk::popup())
        popup->close();
    const auto scrollers = QScroller::activeScrollers();
    for (QScroller *scroller : scrollers)
        scroller->stop();
}

/// One desk for as many tests as possible.
void tst_KineticScroller::use(qreal factor)
{
    if (!m_desk || m_desk->factor != factor) {
        m_desk.reset();
        m_desk = std::make_unique<Desk>(factor);
        QVERIFY(!m_desk->console.fault);
        QVERIFY(QTest::qWaitForWindowActive(m_desk->shown()));
        m_desk->console.child<QComboBox>("screenNumberCombox")->setCurrentIndex(15);
    }
    m_desk->console.window->setFocus();
    m_desk->bar()->setValue(0);
    QCoreApplication::processEvents();
    QVERIFY(m_desk->bar()->maximum() > 200);
    m_desk->sayings.texts.clear();
    m_start = 0;
}

/// Brings it in sight, with room to scroll either way.
QWidget *tst_KineticScroller::show(const QString &name)
{
    QWidget *widget = m_desk->find(name);
    if (!widget)
        qFatal("there is no %s", qPrintable(name));
    m_desk->console.panelArea()->ensureWidgetVisible(widget, 0, 300);
    m_desk->bar()->setValue(qBound(90, m_desk->bar()->value(), m_desk->bar()->maximum() - 90));
    m_start = m_desk->bar()->value();
    QCoreApplication::processEvents();
    return widget;
}

/// Nothing moves, and nothing runs that could move it.
bool tst_KineticScroller::isAtRest() const
{
    return QScroller::activeScrollers().isEmpty();
}

void tst_KineticScroller::dragScrollsWhateverItBeginsOn_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<By>("by");
    QTest::addColumn<qreal>("factor");

    const struct
    {
        const char *name;
        QPoint at;
    } places[] = {
        {"viewport", {4, 500}},
        {"label_peripheral", {20, 10}},
        {"frame_3", {4, 300}},
        {"switch_logo", {20, 18}},
        {"switch_logo", {50, 18}},
        {"peripheralApply", {40, 18}},
        {"pushButton_hundred", {40, 18}},
        {"pushButton_24", {40, 18}},
        {"screen", {20, 18}},
        {"screenNumberCombox", {40, 18}},
        {"currentPanelCheckBox", {18, 18}},
        {"slider", {8, 18}},
        {"editor", {20, 18}},
        {"octet_2", {20, 18}},
        {"lineEdit_IP", {2, 18}},
        {"toolButton", {40, 18}},
    };
    for (const Use &use : Uses) {
        const By by = use.by;
        const qreal factor = use.factor;
        for (const auto &place : places) {
            QTest::addRow("%s %d, %s, %g", place.name, place.at.x(), nameOf(by), factor)
                << QString::fromLatin1(place.name) << place.at << by << factor;
        }
    }
}

void tst_KineticScroller::dragScrollsWhateverItBeginsOn()
{
    QFETCH(QString, name);
    QFETCH(QPoint, at);
    QFETCH(By, by);
    QFETCH(qreal, factor);
    use(factor);
    QWidget *widget = show(name);
    const QStringList before = m_desk->state();
    const int start = m_desk->bar()->value();

    Pointer pointer(m_desk.get(), by);
    pointer.press(m_desk->place(widget, at));
    pointer.moveBy({0, -4});
    pointer.moveBy({2, -20});
    QCOMPARE(m_desk->bar()->value(), start + 24);
    QCOMPARE(m_desk->state(), before);
    pointer.moveBy({0, 60});
    QCOMPARE(m_desk->bar()->value(), start - 36);
    pointer.lift(AfterARest);
    QCOMPARE(m_desk->state(), before);
    QCOMPARE(m_desk->sayings.texts, QStringList());
}

void tst_KineticScroller::fieldInUseKeepsTheFocus()
{
    use(1);
    QWidget *octet = show(QStringLiteral("octet_2"));
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.tap(m_desk->middle(octet));
    QTRY_VERIFY(m_desk->console.window->findChild<Keypad *>()->isVisible());
    for (const QPoint &place :
         {m_desk->middle(octet), m_desk->middle(m_desk->find(QStringLiteral("viewport")))}) {
        pointer.press(place);
        pointer.moveBy({0, -20});
        QVERIFY(octet->hasFocus());
        pointer.lift(AfterARest);
        QVERIFY(octet->hasFocus());
    }
}

void tst_KineticScroller::tapPresses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QPoint>("at");
    QTest::addColumn<QString>("change");
    QTest::addColumn<By>("by");
    QTest::addColumn<qreal>("factor");

    const struct
    {
        const char *name;
        QPoint at;
        const char *change; // in the state
    } places[] = {
        {"switch_logo", {20, 18}, "switch_logo"},
        {"pushButton_24", {40, 18}, "pushButton_24 1"},
        {"screen", {20, 18}, "focus"},
        {"screenNumberCombox", {40, 18}, "popup"},
        {"currentPanelCheckBox", {18, 18}, "currentPanelCheckBox 1"},
        {"slider", {60, 18}, "slider"},
        {"editor", {20, 18}, "keypad"},
        {"octet_2", {20, 18}, "keypad"},
        {"lineEdit_IP", {2, 18}, "keypad"},
        {"toolButton", {40, 18}, "popup"},
    };
    for (const Use &use : Uses) {
        const By by = use.by;
        const qreal factor = use.factor;
        for (const auto &place : places) {
            QTest::addRow("%s, %s, %g", place.name, nameOf(by), factor)
                << QString::fromLatin1(place.name) << place.at << QString::fromLatin1(place.change) << by
                << factor;
        }
    }
}

void tst_KineticScroller::tapPresses()
{
    QFETCH(QString, name);
    QFETCH(QPoint, at);
    QFETCH(QString, change);
    QFETCH(By, by);
    QFETCH(qreal, factor);
    use(factor);
    QWidget *widget = show(name);
    m_desk->console.child<QAbstractButton>("pushButton_12")->setChecked(true);
    m_desk->find(QStringLiteral("slider"))->setProperty("value", 15);
    m_desk->console.child<QAbstractButton>("currentPanelCheckBox")->setChecked(false);
    const QStringList before = m_desk->state();
    const int start = m_desk->bar()->value();

    Pointer pointer(m_desk.get(), by);
    pointer.tap(m_desk->place(widget, at));
    QTRY_VERIFY(!changes(before, m_desk->state()).filter(change).isEmpty());
    QVERIFY(changes(before, m_desk->state()).filter(QStringLiteral("touched")).isEmpty());
    QCOMPARE(m_desk->bar()->value(), start);
}

/// Also what waits for the end of the tap looks touched.
void tst_KineticScroller::pressShowsAtOnce()
{
    use(1);
    for (const char *name : {"pushButton_24", "switch_logo", "screenNumberCombox"}) {
        QWidget *widget = show(QString::fromLatin1(name));
        widget->setFocus();
        QCoreApplication::processEvents();
        const QImage before = widget->grab().toImage();
        Pointer pointer(m_desk.get(), By::Mouse);
        pointer.press(m_desk->middle(widget));
        QVERIFY2(widget->grab().toImage() != before, name);
        pointer.moveBy({0, 30});
        pointer.lift(AfterARest);
        QVERIFY2(widget->grab().toImage() == before, name);
    }
}

void tst_KineticScroller::tapOpensTheListToChooseFrom_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::newRow("window") << 1.0;
    QTest::newRow("reduced") << 0.5;
}

void tst_KineticScroller::tapOpensTheListToChooseFrom()
{
    QFETCH(qreal, factor);
    use(factor);
    auto *box = qobject_cast<QComboBox *>(show(QStringLiteral("screenNumberCombox")));
    const int interval = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0); // so long does a list ignore a second click
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.tap(m_desk->middle(box));
    QTRY_VERIFY(box->view()->isVisible());
    const QRect row = box->view()->visualRect(box->model()->index(13, 0));
    QTest::mouseClick(box->view()->viewport(), Qt::LeftButton, {}, row.center());
    QApplication::setDoubleClickInterval(interval);
    QTRY_COMPARE(box->currentIndex(), 13);
    QVERIFY(!box->view()->isVisible());
    box->setCurrentIndex(15);
}

/// A finger is never quite still.
void tst_KineticScroller::shakyTapIsOne()
{
    use(1);
    auto *button = qobject_cast<QAbstractButton *>(show(QStringLiteral("pushButton_24")));
    auto *other = m_desk->console.child<QAbstractButton>("pushButton_12");
    for (QAbstractButton *tapped : {other, button}) {
        const int start = m_desk->bar()->value();
        Pointer pointer(m_desk.get(), By::Finger);
        pointer.press(m_desk->middle(tapped));
        pointer.moveBy({2, 5});
        pointer.moveBy({-3, -8});
        pointer.lift();
        QVERIFY(tapped->isChecked());
        QCOMPARE(m_desk->bar()->value(), start);
    }
}

/// It marks text, for one.
void tst_KineticScroller::dragAcrossIsTheWidgets()
{
    use(1);
    auto *octet = qobject_cast<QLineEdit *>(show(QStringLiteral("octet_2")));
    octet->setText(QStringLiteral("168"));
    Pointer pointer(m_desk.get(), By::Mouse);
    // The first press marks all, as without momentum.
    pointer.tap(m_desk->middle(octet));
    QTRY_COMPARE(octet->selectedText(), QStringLiteral("168"));
    pointer.press(m_desk->place(octet, {2, octet->height() / 2}));
    QCOMPARE(octet->selectedText(), QStringLiteral("168"));
    pointer.moveBy({octet->width() / 2, 0});
    QCOMPARE(octet->selectionStart(), 0);
    QVERIFY(octet->selectedText().size() < 3);
    pointer.moveBy({0, 40}); // it is the field's now
    QCOMPARE(m_desk->bar()->value(), m_start);
    pointer.lift();
}

void tst_KineticScroller::dragAcrossOpensNoList()
{
    use(1);
    QWidget *box = show(QStringLiteral("screenNumberCombox"));
    const QStringList before = m_desk->state();
    Pointer pointer(m_desk.get(), By::Finger);
    pointer.press(m_desk->middle(box));
    pointer.moveBy({30, 0});
    QVERIFY(!box->property("isTouched").toBool());
    pointer.lift();
    QVERIFY(!Desk::popup());
    QCOMPARE(changes(before, m_desk->state()).filter(QStringLiteral("focus")).size(), 1);
}

void tst_KineticScroller::flickGoesOn_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qreal>("factor");
    for (const char *name : {"viewport", "pushButton_24", "screenNumberCombox"}) {
        for (const qreal factor : {1.0, 0.5})
            QTest::addRow("%s, %g", name, factor) << QString::fromLatin1(name) << factor;
    }
}

// With the mouse, whose events have the times that the test gives them; those of touches are real.
void tst_KineticScroller::flickGoesOn()
{
    QFETCH(QString, name);
    QFETCH(qreal, factor);
    use(factor);
    QWidget *widget = show(name);
    const QStringList before = m_desk->state();

    Pointer pointer(m_desk.get(), By::Mouse);
    const int end = m_start > m_desk->bar()->maximum() / 2 ? 1 : -1; // the one further away
    m_desk->bar()->setValue(m_start);
    pointer.flick(m_desk->middle(widget), {0, 40 * end});
    const int lifted = m_start - 40 * end;
    QTRY_VERIFY((lifted - m_desk->bar()->value()) * end > 20); // the same way
    QCOMPARE(m_desk->state(), before);
    QCOMPARE(m_desk->sayings.texts, QStringList());
}

void tst_KineticScroller::itComesToRest()
{
    use(1);
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.press(m_desk->middle(m_desk->find(QStringLiteral("viewport"))));
    for (int i = 0; i < 5; ++i)
        pointer.moveBy({0, -8}, 20);
    pointer.lift(1);
    QVERIFY(!isAtRest());
    QTRY_VERIFY(isAtRest());
    QVERIFY(m_desk->bar()->value() > 50);
    QVERIFY(m_desk->bar()->value() < m_desk->bar()->maximum());
}

void tst_KineticScroller::liftAfterARestDoesNot()
{
    use(1);
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.press(m_desk->middle(m_desk->find(QStringLiteral("viewport"))));
    for (int i = 0; i < 5; ++i)
        pointer.moveBy({0, -8});
    pointer.lift(AfterARest);
    QVERIFY(isAtRest());
    QCOMPARE(m_desk->bar()->value(), 40);
}

void tst_KineticScroller::nothingGoesOnWithoutAnimations()
{
    use(1);
    m_style->duration = 0;
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.flick(m_desk->middle(m_desk->find(QStringLiteral("viewport"))), {0, -40});
    QVERIFY(isAtRest());
    QCOMPARE(m_desk->bar()->value(), 40);
}

void tst_KineticScroller::touchStopsAndPressesNothing_data()
{
    tapPresses_data();
    for (const Use &use : Uses) {
        const By by = use.by;
        const qreal factor = use.factor;
        QTest::addRow("handle, %s, %g", nameOf(by), factor)
            << QStringLiteral("handle") << QPoint(-1, 0) << QString() << by << factor;
        QTest::addRow("wheel of the time, %s, %g", nameOf(by), factor)
            << QStringLiteral("timeWidget") << QPoint(30, 20) << QString() << by << factor;
    }
}

void tst_KineticScroller::touchStopsAndPressesNothing()
{
    QFETCH(QString, name);
    QFETCH(QPoint, at);
    QFETCH(By, by);
    QFETCH(qreal, factor);
    use(factor);
    const bool isHandle = name == QLatin1String("handle");
    QWidget *widget = show(isHandle ? QStringLiteral("slider") : name);
    if (isHandle)
        at = handleOf(qobject_cast<QSlider *>(widget)).center();
    const QStringList before = m_desk->state();

    const int end = m_start > m_desk->bar()->maximum() / 2 ? 1 : -1;
    Pointer(m_desk.get(), By::Mouse)
        .flick(m_desk->place(m_desk->find(QStringLiteral("viewport")), {4, 500}), {0, 30 * end});
    QVERIFY(!isAtRest());
    Pointer pointer(m_desk.get(), by);
    pointer.press(m_desk->place(widget, at));
    QVERIFY(isAtRest());
    const int stopped = m_desk->bar()->value();
    pointer.lift(AfterARest);
    QCoreApplication::processEvents();
    QCOMPARE(m_desk->bar()->value(), stopped);
    QCOMPARE(m_desk->state(), before);
    QCOMPARE(m_desk->sayings.texts, QStringList());
}

void tst_KineticScroller::caughtPageFollowsTheFingerAgain()
{
    use(1);
    const QPoint place = m_desk->middle(m_desk->find(QStringLiteral("viewport")));
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.flick(place, {0, -30});
    pointer.press(place);
    const int stopped = m_desk->bar()->value();
    pointer.moveBy({0, 20});
    QCOMPARE(m_desk->bar()->value(), qMax(0, stopped - 20));
    pointer.lift(AfterARest);
    QVERIFY(isAtRest());
}

/// Its press is the second of a double click.
void tst_KineticScroller::secondQuickDragScrollsToo()
{
    use(1);
    m_style->duration = 0;
    QWidget *button = show(QStringLiteral("pushButton_12"));
    const QStringList before = m_desk->state();
    const QPoint place = m_desk->middle(button);
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.flick(place, {0, 40});
    QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
    pointer.flick(place, {0, 40});
    QCOMPARE(m_desk->bar()->value(), m_start - 80);
    QCOMPARE(m_desk->state(), before);
}

void tst_KineticScroller::endsHold_data()
{
    QTest::addColumn<bool>("isTop");
    QTest::newRow("top") << true;
    QTest::newRow("bottom") << false;
}

void tst_KineticScroller::endsHold()
{
    QFETCH(bool, isTop);
    use(1);
    QScrollBar *bar = m_desk->bar();
    const int end = isTop ? bar->minimum() : bar->maximum();
    bar->setValue(end + (isTop ? 120 : -120));
    QList<int> values;
    const QObject watcher; // goes before the values
    connect(bar, &QScrollBar::valueChanged, &watcher, [&values](int value) { values << value; });
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.flick(m_desk->middle(m_desk->find(QStringLiteral("viewport"))), {0, isTop ? 50 : -50});
    QTRY_COMPARE(bar->value(), end);
    QTRY_VERIFY(isAtRest());
    // On the way, and never back.
    QVERIFY(values.size() > 2);
    QVERIFY(isTop ? std::is_sorted(values.crbegin(), values.crend())
                  : std::is_sorted(values.cbegin(), values.cend()));
}

void tst_KineticScroller::othersThatScrollStopIt_data()
{
    QTest::addColumn<bool>("isWheel");
    QTest::newRow("wheel") << true;
    QTest::newRow("program") << false;
}

void tst_KineticScroller::othersThatScrollStopIt()
{
    QFETCH(bool, isWheel);
    use(1);
    QWidget *viewport = m_desk->find(QStringLiteral("viewport"));
    const QPoint place = m_desk->middle(viewport);
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.flick(place, {0, -30});
    QTRY_VERIFY(m_desk->bar()->value() > 35);
    if (isWheel) {
        QWindow *window = m_desk->shown()->windowHandle();
        QWheelEvent event(place, window->mapToGlobal(place), QPoint(), {0, 120}, 120, Qt::Vertical,
                          Qt::NoButton, Qt::NoModifier);
        qApp->notify(window, &event);
        QVERIFY(isAtRest());
    } else {
        m_desk->bar()->setValue(3);
        QTRY_VERIFY(isAtRest());
        QCOMPARE(m_desk->bar()->value(), 3);
    }
}

void tst_KineticScroller::sliderIsSetByDraggingAcross_data()
{
    QTest::addColumn<bool>("isHandle");
    QTest::addColumn<qreal>("factor");
    for (const qreal factor : {1.0, 0.5}) {
        QTest::addRow("handle, %g", factor) << true << factor;
        QTest::addRow("beside it, %g", factor) << false << factor;
    }
}

void tst_KineticScroller::sliderIsSetByDraggingAcross()
{
    QFETCH(bool, isHandle);
    QFETCH(qreal, factor);
    use(factor);
    auto *slider = qobject_cast<QSlider *>(show(QStringLiteral("slider")));
    slider->setValue(5);
    const QPoint handle = handleOf(slider).center();
    Pointer pointer(m_desk.get(), By::Finger);
    pointer.press(m_desk->place(slider, isHandle ? handle : handle + QPoint(80, 0)));
    QCOMPARE(slider->value(), 5);
    pointer.moveBy({40, 2});
    pointer.moveBy({60, 2});
    const int reached = slider->value();
    QVERIFY(reached > (isHandle ? 7 : 10));
    pointer.moveBy({0, 200});
    pointer.lift();
    QCOMPARE(slider->value(), reached);
    QCOMPARE(m_desk->bar()->value(), m_start);
}

/// Whoever holds it means it.
void tst_KineticScroller::handleKeepsADrag()
{
    use(1);
    auto *slider = qobject_cast<QSlider *>(show(QStringLiteral("slider")));
    Pointer pointer(m_desk.get(), By::Finger);
    pointer.press(m_desk->place(slider, handleOf(slider).center()));
    QVERIFY(slider->isSliderDown());
    pointer.moveBy({0, -40});
    QVERIFY(slider->isSliderDown());
    pointer.lift();
    QCOMPARE(m_desk->bar()->value(), m_start);
}

void tst_KineticScroller::wheelOfTheTimeKeepsADrag_data()
{
    QTest::addColumn<By>("by");
    QTest::addColumn<qreal>("factor");
    for (const qreal factor : {1.0, 0.5}) {
        QTest::addRow("mouse, %g", factor) << By::Mouse << factor;
        QTest::addRow("finger, %g", factor) << By::Finger << factor;
    }
}

void tst_KineticScroller::wheelOfTheTimeKeepsADrag()
{
    QFETCH(By, by);
    QFETCH(qreal, factor);
    use(factor);
    auto *time = qobject_cast<Korvo::Widgets::TumblerTime *>(show(QStringLiteral("timeWidget")));
    time->setHour(12);
    Pointer pointer(m_desk.get(), by);
    pointer.press(m_desk->place(time, {30, time->height() / 2}));
    pointer.moveBy({0, -30});
    pointer.moveBy({0, -30});
    pointer.lift(AfterARest);
    QTRY_VERIFY(time->getHour() > 12);
    QCOMPARE(m_desk->bar()->value(), m_start);
}

void tst_KineticScroller::scrollBarStaysOne()
{
    use(1);
    QScrollBar *bar = m_desk->bar();
    QVERIFY(bar->isVisible());
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.press(m_desk->place(bar, {bar->width() / 2, 40}));
    pointer.moveBy({0, 60});
    QVERIFY(bar->value() > 20); // with the finger, not against it
    QVERIFY(bar->isSliderDown());
    pointer.lift();
    QVERIFY(isAtRest());
}

void tst_KineticScroller::rowOfScreensIsDraggedAcross_data()
{
    tapOpensTheListToChooseFrom_data();
}

void tst_KineticScroller::rowOfScreensIsDraggedAcross()
{
    QFETCH(qreal, factor);
    use(factor);
    QWidget *screen = show(QStringLiteral("screen"));
    QScrollBar *row = m_desk->screensBar();
    QVERIFY(row->maximum() > 200);
    row->setValue(0);
    const QStringList before = m_desk->state();
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.press(m_desk->place(screen, {40, 18}));
    pointer.moveBy({-30, 4});
    QCOMPARE(row->value(), 30);
    pointer.moveBy({-30, 40});
    QCOMPARE(row->value(), 60);
    pointer.lift(1);
    QTRY_VERIFY(row->value() > 80);
    QCOMPARE(m_desk->bar()->value(), m_start);
    QCOMPARE(m_desk->state(), before);
}

void tst_KineticScroller::keysAreLeftAlone()
{
    use(1);
    auto *key = m_desk->console.child<QAbstractButton>("toolButton_252");
    Pointer pointer(m_desk.get(), By::Finger);
    pointer.press(m_desk->middle(key));
    pointer.moveBy({0, -20});
    QVERIFY(key->isDown());
    QCOMPARE(m_desk->sayings.texts, QStringList{QStringLiteral("ecButtonPressed")});
    pointer.lift();
    QVERIFY(!key->isDown());
    QCOMPARE(m_desk->bar()->value(), 0);
}

/// A box may have taken it.
void tst_KineticScroller::lostReleaseIsForgotten()
{
    use(1);
    QWidget *box = show(QStringLiteral("screenNumberCombox"));
    const QStringList before = m_desk->state();
    Pointer pointer(m_desk.get(), By::Mouse);
    pointer.press(m_desk->middle(box));
    QVERIFY(m_desk->state() != before);
    QEvent left(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(m_desk->console.window.data(), &left);
    QVERIFY(!box->property("isTouched").toBool());
    pointer.lift();
    QVERIFY(!Desk::popup());
}

QTEST_MAIN(tst_KineticScroller)

#include "tst_kineticscroller.moc"
