// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/widgets/switchcontrol.h>

#include <QAccessible>
#include <QAnimationDriver>
#include <QImage>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QTest>
#include <QTouchDevice>
#include <QWheelEvent>
#include <QWindow>

#include <functional>
#include <memory>

using Korvo::Widgets::SwitchControl;

namespace {

class AnimatingStyle : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override
    {
        if (hint == SH_Widget_Animate || hint == SH_Widget_Animation_Duration)
            return duration;
        return QProxyStyle::styleHint(hint, option, widget, result);
    }

    int duration = 0;
};

// Moves animations when told to, so that they can be met half way.
class AnimationClock : public QAnimationDriver
{
public:
    AnimationClock() { install(); }
    ~AnimationClock() override { uninstall(); }

    qint64 elapsed() const override { return m_ms; }

    void tick(int ms)
    {
        // What has just been started counts from here: it joins in one turn, its timer starts in the next.
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        m_ms += ms;
        advance();
    }

protected:
    void start() override
    {
        m_ms = 0;
        QAnimationDriver::start();
    }

private:
    qint64 m_ms = 0;
};

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *watched)
    {
        QCoreApplication::processEvents();
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count() const
    {
        QCoreApplication::processEvents();
        return m_count;
    }

private:
    int m_count = 0;
};

// A switch amid a window, so that a press can be slid off it.
class Desk
{
public:
    explicit Desk(Qt::LayoutDirection direction = Qt::LeftToRight)
    {
        window.resize(240, 180);
        window.setLayoutDirection(direction);
        control.setStyle(&style);
        control.setGeometry(QRect(QPoint(90, 75), control.sizeHint()));
        window.show();
        window.activateWindow();
        isReady = QTest::qWaitForWindowActive(&window);
        control.setFocus();
    }

    // In pixels from the middle of the switch.
    void press(int x, int y = 0) { QTest::mousePress(handle(), Qt::LeftButton, Qt::NoModifier, at(x, y)); }
    void move(int x, int y = 0) { QTest::mouseMove(handle(), at(x, y)); }
    void release(int x, int y = 0)
    {
        QTest::mouseRelease(handle(), Qt::LeftButton, Qt::NoModifier, at(x, y));
    }
    void drag(int from, int to)
    {
        press(from);
        move((from + to) / 2);
        move(to);
        release(to);
    }
    void click()
    {
        press(0);
        release(0);
    }
    void tap()
    {
        static QTouchDevice *const screen = QTest::createTouchDevice();
        QTest::touchEvent(handle(), screen).press(0, at(0, 0), handle());
        QTest::touchEvent(handle(), screen).release(0, at(0, 0), handle());
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(handle(), key, modifiers);
    }

    QWindow *handle() const { return window.windowHandle(); }
    QPoint at(int x, int y) const
    {
        return control.geometry().topLeft() + QPoint(control.width() / 2 + x, control.height() / 2 + y);
    }

    AnimatingStyle style;
    QWidget window;
    SwitchControl control{&window};
    bool isReady = false;
};

using Act = std::function<void(Desk &)>;

// Just beside the middle of the knob, and well outside.
const int offSide = -16;
const int onSide = 16;
const int outside = 60;

QImage picture(SwitchControl *control)
{
    QImage image(control->size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    control->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(Desk &)>)
Q_DECLARE_METATYPE(std::shared_ptr<QEvent>)

class tst_switchcontrol : public QObject
{
    Q_OBJECT

private slots:
    void aNewSwitchIsOff();
    void settingFromCodeIsSilent();
    void aMoveByHandIsToldOnce_data();
    void aMoveByHandIsToldOnce();
    void whatIsNoMoveIsNotTold_data();
    void whatIsNoMoveIsNotTold();
    void theKnobGoesToTheNearerSide_data();
    void theKnobGoesToTheNearerSide();
    void arrowsFollowTheLanguage_data();
    void arrowsFollowTheLanguage();
    void aPressEndsQuietly_data();
    void aPressEndsQuietly();
    void keysDoNotDisturbAPress();
    void settingTheSameDoesNotDisturbAPress();
    void theParentGetsWhatIsNotTaken_data();
    void theParentGetsWhatIsNotTaken();
    void aDisabledSwitchTakesNoInput_data();
    void aDisabledSwitchTakesNoInput();
    void eachStateHasAPictureOfItsOwn();
    void aMarkTellsTheStateToo();
    void aSwitchIsMirrored();
    void theFocusIsSeen();
    void itFillsTheRoomItHas();
    void aVisibleKnobSlides();
    void aSlideCanBeTurnedRound();
    void aHiddenKnobJumps();
    void hidingEndsASlide();
    void whatChangesNothingPaintsNothing();
    void aStyleSheetSetsColorsAndBackground();
    void assistiveTechnologyReadsAndTogglesIt();
};

void tst_switchcontrol::aNewSwitchIsOff()
{
    SwitchControl control;
    QVERIFY(!control.isToggled());
    QCOMPARE(control.focusPolicy(), Qt::StrongFocus);
    QVERIFY(control.sizeHint().width() >= 50 && control.sizeHint().height() >= 36);
    QCOMPARE(control.minimumSizeHint(), control.sizeHint());
}

void tst_switchcontrol::settingFromCodeIsSilent()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    for (const bool on : {true, true, false, false, true}) {
        desk.control.setToggle(on);
        QCOMPARE(desk.control.isToggled(), on);
    }
    QCOMPARE(toggled.count(), 0);
}

void tst_switchcontrol::aMoveByHandIsToldOnce_data()
{
    QTest::addColumn<bool>("start");
    QTest::addColumn<Act>("act");
    for (const bool start : {false, true}) {
        const auto row = [start](const char *name, const Act &act) {
            QTest::newRow(qPrintable(QLatin1String(start ? "on, " : "off, ") + QLatin1String(name)))
                << start << act;
        };
        const int from = start ? onSide : offSide;
        row("click", [](Desk &desk) { desk.click(); });
        row("click on the knob", [from](Desk &desk) {
            desk.press(from);
            desk.release(from);
        });
        row("shaky click", [from](Desk &desk) {
            desk.press(from);
            desk.move(from / 2);
            desk.release(from / 2);
        });
        row("off and back on", [from](Desk &desk) {
            desk.press(-from);
            desk.move(-from, outside);
            desk.move(-from);
            desk.release(-from);
        });
        row("tap", [](Desk &desk) { desk.tap(); });
        row("drag", [from](Desk &desk) { desk.drag(from, -from); });
        row("drag beyond the end", [from](Desk &desk) { desk.drag(from, -from * 4); });
        row("Space", [](Desk &desk) { desk.key(Qt::Key_Space); });
        row("Return", [](Desk &desk) { desk.key(Qt::Key_Return); });
        row("Enter of the pad", [](Desk &desk) { desk.key(Qt::Key_Enter, Qt::KeypadModifier); });
        row("arrow", [start](Desk &desk) { desk.key(start ? Qt::Key_Left : Qt::Key_Right); });
        row("held Space", [](Desk &desk) {
            QTest::keyPress(desk.handle(), Qt::Key_Space);
            for (int i = 0; i < 3; ++i) {
                QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
                QCoreApplication::sendEvent(&desk.control, &repeat);
                QVERIFY(repeat.isAccepted());
            }
            QTest::keyRelease(desk.handle(), Qt::Key_Space);
        });
    }
}

void tst_switchcontrol::aMoveByHandIsToldOnce()
{
    QFETCH(bool, start);
    QFETCH(Act, act);
    Desk desk;
    QVERIFY(desk.isReady);
    desk.control.setToggle(start);
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    act(desk);
    QCOMPARE(toggled.count(), 1);
    QCOMPARE(toggled.first().first().toBool(), !start);
    QCOMPARE(desk.control.isToggled(), !start);
}

void tst_switchcontrol::whatIsNoMoveIsNotTold_data()
{
    QTest::addColumn<Act>("act");
    QTest::newRow("slid off downwards") << Act([](Desk &desk) {
        desk.press(0);
        desk.move(0, outside);
        desk.release(0, outside);
    });
    QTest::newRow("slid off sideways") << Act([](Desk &desk) { desk.drag(onSide, outside); });
    QTest::newRow("knob slid off downwards") << Act([](Desk &desk) {
        desk.press(offSide);
        desk.move(offSide, outside);
        desk.release(offSide, outside);
    });
    QTest::newRow("knob dragged into its end") << Act([](Desk &desk) { desk.drag(offSide, -outside); });
    QTest::newRow("knob dragged back") << Act([](Desk &desk) {
        desk.press(offSide);
        desk.move(onSide);
        desk.move(offSide);
        desk.release(offSide);
    });
    QTest::newRow("pressed only") << Act([](Desk &desk) { desk.press(0); });
    QTest::newRow("dragged only") << Act([](Desk &desk) {
        desk.press(offSide);
        desk.move(onSide);
    });
    QTest::newRow("other button") << Act(
        [](Desk &desk) { QTest::mouseClick(desk.handle(), Qt::RightButton, Qt::NoModifier, desk.at(0, 0)); });
    QTest::newRow("beside it") << Act([](Desk &desk) { desk.drag(outside, 0); });
    QTest::newRow("arrow to where it is") << Act([](Desk &desk) { desk.key(Qt::Key_Left); });
    QTest::newRow("shortcut") << Act([](Desk &desk) { desk.key(Qt::Key_Space, Qt::ControlModifier); });
    QTest::newRow("letter") << Act([](Desk &desk) { desk.key(Qt::Key_A); });
}

void tst_switchcontrol::whatIsNoMoveIsNotTold()
{
    QFETCH(Act, act);
    Desk desk;
    QVERIFY(desk.isReady);
    const QImage before = picture(&desk.control);
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    act(desk);
    QCOMPARE(toggled.count(), 0);
    QVERIFY(!desk.control.isToggled());

    // What was left pressed or dragged ends here.
    desk.control.hide();
    desk.release(0);
    desk.control.show();
    desk.control.setFocus();
    QCOMPARE(picture(&desk.control), before);
}

void tst_switchcontrol::theKnobGoesToTheNearerSide_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<bool>("start");
    QTest::addColumn<int>("way");
    QTest::addColumn<bool>("expected");
    const int ltr = Qt::LeftToRight;
    const int rtl = Qt::RightToLeft;
    QTest::newRow("a bit on") << ltr << false << 12 << false;
    QTest::newRow("more on") << ltr << false << 17 << true;
    QTest::newRow("a bit off") << ltr << true << -12 << true;
    QTest::newRow("more off") << ltr << true << -17 << false;
    QTest::newRow("mirrored, a bit on") << rtl << false << -12 << false;
    QTest::newRow("mirrored, more on") << rtl << false << -17 << true;
    QTest::newRow("mirrored, a bit off") << rtl << true << 12 << true;
    QTest::newRow("mirrored, more off") << rtl << true << 17 << false;
}

void tst_switchcontrol::theKnobGoesToTheNearerSide()
{
    QFETCH(int, direction);
    QFETCH(bool, start);
    QFETCH(int, way);
    QFETCH(bool, expected);
    Desk desk{Qt::LayoutDirection(direction)};
    QVERIFY(desk.isReady);
    desk.control.setToggle(start);
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    const int from = (start == (direction == Qt::LeftToRight)) ? onSide : offSide;

    desk.press(from);
    const QImage pressed = picture(&desk.control);
    desk.move(from + way);
    QVERIFY(picture(&desk.control) != pressed);
    desk.release(from + way);
    QCOMPARE(desk.control.isToggled(), expected);
    QCOMPARE(toggled.count(), start == expected ? 0 : 1);

    SwitchControl same;
    same.setLayoutDirection(Qt::LayoutDirection(direction));
    same.resize(desk.control.size());
    same.setToggle(expected);
    desk.control.clearFocus();
    QCOMPARE(picture(&desk.control), picture(&same));
}

void tst_switchcontrol::arrowsFollowTheLanguage_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("onKey");
    QTest::addColumn<int>("offKey");
    QTest::newRow("left to right") << int(Qt::LeftToRight) << int(Qt::Key_Right) << int(Qt::Key_Left);
    QTest::newRow("right to left") << int(Qt::RightToLeft) << int(Qt::Key_Left) << int(Qt::Key_Right);
}

void tst_switchcontrol::arrowsFollowTheLanguage()
{
    QFETCH(int, direction);
    QFETCH(int, onKey);
    QFETCH(int, offKey);
    Desk desk{Qt::LayoutDirection(direction)};
    QVERIFY(desk.isReady);
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    desk.key(Qt::Key(onKey));
    desk.key(Qt::Key(onKey));
    QVERIFY(desk.control.isToggled());
    QCOMPARE(toggled.count(), 1);
    desk.key(Qt::Key(offKey));
    desk.key(Qt::Key(offKey));
    QVERIFY(!desk.control.isToggled());
    QCOMPARE(toggled.count(), 2);
}

void tst_switchcontrol::aPressEndsQuietly_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<bool>("isDragged");
    QTest::addColumn<bool>("isOnAfter");
    const QVector<QPair<const char *, Act>> acts{
        {"hidden",
         [](Desk &desk) {
             desk.control.hide();
             desk.control.show();
         }},
        {"window hidden",
         [](Desk &desk) {
             desk.window.hide();
             desk.window.show();
             QVERIFY(QTest::qWaitForWindowExposed(&desk.window));
         }},
        {"disabled",
         [](Desk &desk) {
             desk.control.setEnabled(false);
             desk.control.setEnabled(true);
         }},
        {"window disabled",
         [](Desk &desk) {
             desk.window.setEnabled(false);
             desk.window.setEnabled(true);
         }},
        {"another window",
         [](Desk &) {
             QWidget other;
             other.show();
             other.activateWindow();
             QVERIFY(QTest::qWaitForWindowActive(&other));
         }},
        {"set from code", [](Desk &desk) { desk.control.setToggle(true); }},
    };
    for (const auto &entry : acts) {
        const bool isOnAfter = QLatin1String(entry.first) == QLatin1String("set from code");
        QTest::newRow(entry.first) << entry.second << false << isOnAfter;
        QTest::newRow(qPrintable(QLatin1String(entry.first) + QLatin1String(" in a drag")))
            << entry.second << true << isOnAfter;
    }
}

void tst_switchcontrol::aPressEndsQuietly()
{
    QFETCH(Act, act);
    QFETCH(bool, isDragged);
    QFETCH(bool, isOnAfter);
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    desk.press(isDragged ? offSide : 0);
    if (isDragged)
        desk.move(onSide);
    act(desk);

    // Straight to the switch: the window may have let go of the mouse.
    const QPointF inside = desk.control.rect().center();
    QMouseEvent move(QEvent::MouseMove, inside, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&desk.control, &move);
    QMouseEvent release(QEvent::MouseButtonRelease, inside, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&desk.control, &release);
    QCOMPARE(toggled.count(), 0);
    QCOMPARE(desk.control.isToggled(), isOnAfter);
    desk.release(0);

    SwitchControl untouched;
    untouched.resize(desk.control.size());
    untouched.setToggle(isOnAfter);
    desk.control.clearFocus();
    QCOMPARE(picture(&desk.control), picture(&untouched));

    desk.click();
    QCOMPARE(toggled.count(), 1);
}

void tst_switchcontrol::keysDoNotDisturbAPress()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    desk.press(0);
    desk.key(Qt::Key_Space);
    QCOMPARE(toggled.count(), 0);
    desk.release(0);
    QCOMPARE(toggled.count(), 1);
}

void tst_switchcontrol::settingTheSameDoesNotDisturbAPress()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    desk.press(0);
    desk.control.setToggle(false);
    desk.release(0);
    QCOMPARE(toggled.count(), 1);
}

void tst_switchcontrol::theParentGetsWhatIsNotTaken_data()
{
    QTest::addColumn<std::shared_ptr<QEvent>>("event");
    const QPointF middle(20, 15);
    const auto row = [](const char *name, QEvent *event) {
        QTest::newRow(name) << std::shared_ptr<QEvent>(event);
    };
    row("wheel", new QWheelEvent(middle, middle, QPoint(), QPoint(0, 120), 120, Qt::Vertical, Qt::NoButton,
                                 Qt::NoModifier));
    row("letter", new QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier));
    row("up", new QKeyEvent(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier));
    row("shortcut", new QKeyEvent(QEvent::KeyPress, Qt::Key_Right, Qt::AltModifier));
    row("right button",
        new QMouseEvent(QEvent::MouseButtonPress, middle, Qt::RightButton, Qt::RightButton, Qt::NoModifier));
}

void tst_switchcontrol::theParentGetsWhatIsNotTaken()
{
    QFETCH(std::shared_ptr<QEvent>, event);
    SwitchControl control;
    const QSignalSpy toggled(&control, &SwitchControl::toggled);
    QCoreApplication::sendEvent(&control, event.get());
    QVERIFY(!event->isAccepted());
    QCOMPARE(toggled.count(), 0);
}

void tst_switchcontrol::aDisabledSwitchTakesNoInput_data()
{
    QTest::addColumn<Act>("act");
    QTest::newRow("click") << Act([](Desk &desk) { desk.click(); });
    QTest::newRow("tap") << Act([](Desk &desk) { desk.tap(); });
    QTest::newRow("drag") << Act([](Desk &desk) { desk.drag(offSide, onSide); });
    QTest::newRow("key") << Act([](Desk &desk) { desk.key(Qt::Key_Space); });
}

void tst_switchcontrol::aDisabledSwitchTakesNoInput()
{
    QFETCH(Act, act);
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    desk.control.setEnabled(false);
    act(desk);
    QCOMPARE(toggled.count(), 0);
    desk.control.setToggle(true);
    QVERIFY(desk.control.isToggled());
    desk.control.setToggle(false);

    desk.control.setEnabled(true);
    desk.control.setFocus();
    act(desk);
    QCOMPARE(toggled.count(), 1);
}

void tst_switchcontrol::eachStateHasAPictureOfItsOwn()
{
    Desk desk;
    QVERIFY(desk.isReady);
    SwitchControl &control = desk.control;
    QVector<QImage> pictures;
    const auto add = [&pictures, &control] {
        const QImage image = picture(&control);
        const bool isNew = !pictures.contains(image);
        pictures << image;
        return isNew;
    };
    for (const bool on : {false, true}) {
        control.setFocus();
        control.setToggle(on);
        QVERIFY(add());
        desk.press(on ? onSide : offSide);
        QVERIFY(add());
        desk.move(on ? 4 : -4);
        QVERIFY(add());
        desk.move(on ? onSide : offSide);
        desk.release(on ? onSide : offSide);
        QCOMPARE(control.isToggled(), on);
        control.clearFocus();
        QVERIFY(add());
        control.setEnabled(false);
        QVERIFY(add());
        control.setEnabled(true);
        QVERIFY(!add());
    }
}

void tst_switchcontrol::aMarkTellsTheStateToo()
{
    SwitchControl control;
    control.resize(control.sizeHint());
    control.setOnColor(control.trackColor());
    const QRect inner(control.rect().center() - QPoint(16, 5), QSize(9, 11)); // of the track, beside the knob
    const auto isMarked = [](const QImage &track) {
        for (int y = 0; y < track.height(); ++y) {
            for (int x = 0; x < track.width(); ++x) {
                if (track.pixel(x, y) != track.pixel(0, 0))
                    return true;
            }
        }
        return false;
    };
    for (const bool isEnabled : {true, false}) {
        control.setEnabled(isEnabled);
        control.setToggle(false);
        const QImage off = picture(&control).mirrored(true, false);
        control.setToggle(true);
        const QImage on = picture(&control);
        QVERIFY(isMarked(off.copy(inner)));
        QVERIFY(isMarked(on.copy(inner)));
        QVERIFY(on != off); // the side is not all
    }
}

void tst_switchcontrol::aSwitchIsMirrored()
{
    SwitchControl control;
    control.resize(control.sizeHint());
    const auto middleOfKnob = [&control] {
        control.setKnobColor(Qt::red);
        const QImage image = picture(&control);
        int left = 0;
        int right = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                (x < image.width() / 2 ? left : right) += image.pixelColor(x, y) == Qt::red ? 1 : 0;
        }
        return right - left;
    };
    QVERIFY(middleOfKnob() < -50);
    control.setToggle(true);
    QVERIFY(middleOfKnob() > 50);
    control.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(middleOfKnob() < -50);
    control.setToggle(false);
    QVERIFY(middleOfKnob() > 50);
}

void tst_switchcontrol::theFocusIsSeen()
{
    Desk desk;
    QVERIFY(desk.isReady);
    QPalette palette;
    palette.setColor(QPalette::Highlight, Qt::magenta);
    desk.control.setPalette(palette);
    const int middle = desk.control.width() / 2;
    QVERIFY(desk.control.hasFocus());
    QCOMPARE(picture(&desk.control).pixelColor(middle, 1), QColor(Qt::magenta));
    desk.control.clearFocus();
    QCOMPARE(picture(&desk.control).pixelColor(middle, 1), QColor(Qt::black));
}

void tst_switchcontrol::itFillsTheRoomItHas()
{
    SwitchControl control;
    control.setOnColor(Qt::green);
    control.setToggle(true);
    const auto lit = [&control](const QSize &size) {
        control.resize(size);
        const QImage image = picture(&control);
        int count = 0;
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x)
                count += image.pixelColor(x, y) == Qt::green ? 1 : 0;
        }
        return count;
    };
    const int usual = lit(control.sizeHint());
    QVERIFY(usual > 300);
    QVERIFY(lit(control.sizeHint() * 2) > 3 * usual);
    QVERIFY(lit(control.sizeHint() / 2) < usual / 3);
    QVERIFY(lit(QSize(8, 4)) == 0); // no room, and no harm
}

void tst_switchcontrol::aVisibleKnobSlides()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QImage off = picture(&desk.control);
    desk.control.setToggle(true);
    const QImage on = picture(&desk.control);
    QVERIFY(on != off);
    desk.control.setToggle(false);
    QCOMPARE(picture(&desk.control), off);

    AnimationClock clock;
    desk.style.duration = 200;
    desk.control.setToggle(true);
    QVERIFY(desk.control.isToggled());
    QCOMPARE(picture(&desk.control), off); // sets out from there
    clock.tick(60);
    const QImage between = picture(&desk.control);
    QVERIFY(between != off && between != on);
    clock.tick(60);
    QCOMPARE(picture(&desk.control), on);
    QTRY_VERIFY(!clock.isRunning());

    desk.control.setToggle(false);
    clock.tick(0);
    const PaintCounter paints(&desk.control);
    clock.tick(60);
    QCOMPARE(paints.count(), 1);
    clock.tick(60);
    QCOMPARE(paints.count(), 2);
    clock.tick(60);
    QCOMPARE(paints.count(), 2);
}

void tst_switchcontrol::aSlideCanBeTurnedRound()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QImage off = picture(&desk.control);
    AnimationClock clock;
    desk.style.duration = 200;
    const QSignalSpy toggled(&desk.control, &SwitchControl::toggled);
    desk.key(Qt::Key_Space);
    clock.tick(60);
    const QImage between = picture(&desk.control);
    QVERIFY(between != off);
    desk.key(Qt::Key_Space);
    QCOMPARE(picture(&desk.control), between);
    clock.tick(120);
    QCOMPARE(picture(&desk.control), off);
    QCOMPARE(toggled.count(), 2);
}

void tst_switchcontrol::aHiddenKnobJumps()
{
    Desk desk;
    QVERIFY(desk.isReady);
    desk.control.clearFocus();
    desk.control.setToggle(true);
    const QImage on = picture(&desk.control);
    desk.control.setToggle(false);
    desk.control.hide();
    desk.style.duration = 200;
    QVERIFY(picture(&desk.control) != on);
    desk.control.setToggle(true);
    QCOMPARE(picture(&desk.control), on);
}

void tst_switchcontrol::hidingEndsASlide()
{
    Desk desk;
    QVERIFY(desk.isReady);
    desk.control.clearFocus();
    desk.control.setToggle(true);
    const QImage on = picture(&desk.control);
    desk.control.setToggle(false);
    desk.style.duration = 200;
    desk.control.setToggle(true);
    QVERIFY(picture(&desk.control) != on);
    desk.control.hide();
    QCOMPARE(picture(&desk.control), on);
}

void tst_switchcontrol::whatChangesNothingPaintsNothing()
{
    Desk desk;
    QVERIFY(desk.isReady);
    desk.control.setToggle(true);
    const PaintCounter paints(&desk.control);
    desk.control.setToggle(true);
    desk.control.setOnColor(desk.control.onColor());
    desk.key(Qt::Key_Right);
    QCOMPARE(paints.count(), 0);
    desk.control.setToggle(false);
    QCOMPARE(paints.count(), 1);
}

void tst_switchcontrol::aStyleSheetSetsColorsAndBackground()
{
    SwitchControl control;
    control.resize(control.sizeHint());
    const QSignalSpy changed(&control, &SwitchControl::colorsChanged);
    control.setStyleSheet(QStringLiteral("Korvo--Widgets--SwitchControl { background: #102030;"
                                         " qproperty-trackColor: #010203; qproperty-onColor: #040506;"
                                         " qproperty-knobColor: #070809; }"));
    control.ensurePolished();
    QCOMPARE(control.trackColor(), QColor(1, 2, 3));
    QCOMPARE(control.onColor(), QColor(4, 5, 6));
    QCOMPARE(control.knobColor(), QColor(7, 8, 9));
    QCOMPARE(changed.count(), 3);
    QCOMPARE(picture(&control).pixelColor(0, 0), QColor(0x10, 0x20, 0x30));
}

void tst_switchcontrol::assistiveTechnologyReadsAndTogglesIt()
{
    SwitchControl control;
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&control);
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), QAccessible::CheckBox);
    QVERIFY(accessible->state().checkable);
    QVERIFY(!accessible->state().checked);
    control.setToggle(true);
    QVERIFY(accessible->state().checked);

    const QSignalSpy toggled(&control, &SwitchControl::toggled);
    QAccessibleActionInterface *action = accessible->actionInterface();
    QVERIFY(action);
    QVERIFY(action->actionNames().contains(QAccessibleActionInterface::toggleAction()));
    action->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(toggled.count(), 1);
    QVERIFY(!control.isToggled());
    control.setEnabled(false);
    action->doAction(QAccessibleActionInterface::toggleAction());
    QCOMPARE(toggled.count(), 1);
}

QTEST_MAIN(tst_switchcontrol)

#include "tst_switchcontrol.moc"
