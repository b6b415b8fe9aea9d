// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/ec/k7dropbutton.h>

#include <QApplication>
#include <QButtonGroup>
#include <QDialog>
#include <QFrame>
#include <QHBoxLayout>
#include <QMap>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTouchDevice>

#include <functional>
#include <memory>
#include <random>

using Korvo::EC::K7DropButton;

namespace {

constexpr int keySize = 60;
constexpr int gapSize = 20;
constexpr int keyCount = 4;

enum Holder { Mouse, Finger, Keyboard };

enum WayOut {
    Lifted,
    SlidOff,
    ReleasedOutside,
    Cancelled,
    Escaped,
    Disabled,
    AncestorDisabled,
    Hidden,
    AncestorHidden,
    WindowHidden,
    WindowClosed,
    Reparented,
    AncestorReparented,
    OtherWindowActivated,
    WindowDeactivated,
    ModalDialogOpened,
    PopupOpened,
    FocusLost,
    Deleted,
    AncestorDeleted,
};

/// What the receivers of one key and of its group were told.
struct Told
{
    QStringList log;
    int pressed = 0;
    int released = 0;
    int clicked = 0;
    int groupPressed = 0;
    int groupReleased = 0;
    bool isInOrder = true; // never two presses at once, never a release without a press

    void keyPressed()
    {
        log << QStringLiteral("pressed");
        ++pressed;
        isInOrder = isInOrder && pressed == released + 1;
    }
    void keyReleased()
    {
        log << QStringLiteral("released");
        ++released;
        isInOrder = isInOrder && released == pressed;
    }
    void keyClicked()
    {
        log << QStringLiteral("clicked");
        ++clicked;
    }
    void groupKeyPressed()
    {
        log << QStringLiteral("group pressed");
        ++groupPressed;
        isInOrder = isInOrder && groupPressed == groupReleased + 1;
    }
    void groupKeyReleased()
    {
        log << QStringLiteral("group released");
        ++groupReleased;
        isInOrder = isInOrder && groupReleased == groupPressed;
    }
    bool isHeld() const { return pressed > released; }
    bool isBalanced() const { return isInOrder && pressed == released && groupPressed == groupReleased; }
};

/// Fingers on one window, as a touch screen reports them: all that are down, whenever one changes.
class Fingers
{
public:
    explicit Fingers(QWindow *window)
        : m_window(window)
        , m_sequence(QTest::touchEvent(window, device(), false))
    {
    }

    static QTouchDevice *device()
    {
        static QTouchDevice *const screen = QTest::createTouchDevice();
        return screen;
    }

    bool isDown(int finger) const { return m_down.contains(finger); }
    void press(int finger, const QPoint &pos)
    {
        m_sequence.press(finger, pos, m_window);
        send(finger, pos);
    }
    void move(int finger, const QPoint &pos)
    {
        m_sequence.move(finger, pos, m_window);
        send(finger, pos);
    }
    void lift(int finger) { lift(finger, m_down.value(finger)); }
    void lift(int finger, const QPoint &pos)
    {
        m_sequence.release(finger, pos, m_window);
        send(finger, pos);
        m_down.remove(finger);
    }
    void liftAll()
    {
        const QList<int> fingers = m_down.keys();
        for (int finger : fingers)
            lift(finger);
    }

private:
    void send(int changed, const QPoint &pos)
    {
        m_down.insert(changed, pos);
        const QList<int> fingers = m_down.keys();
        for (int finger : fingers) {
            if (finger != changed)
                m_sequence.stationary(finger);
        }
        m_sequence.commit();
    }

    QWindow *m_window;
    QTest::QTouchEventSequence m_sequence;
    QMap<int, QPoint> m_down;
};

/// Four keys in a row, each in a frame of its own within one more frame; the first two share a group.
class Panel : public QWidget
{
public:
    explicit Panel(bool isExclusive = false)
        : frame(new QFrame(this))
        , group(new QButtonGroup(this))
    {
        group->setExclusive(isExclusive);
        frame->setGeometry(0, 0, keyCount * (keySize + gapSize) + gapSize, keySize + 2 * gapSize);
        resize(frame->width(), frame->height() + gapSize);
        for (int i = 0; i < keyCount; ++i)
            addKey(i);
        connect(group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonPressed), this,
                [this](QAbstractButton *key) { toldOf(key)->groupKeyPressed(); });
        connect(group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonReleased), this,
                [this](QAbstractButton *key) { toldOf(key)->groupKeyReleased(); });
        show();
        activateWindow();
    }

    // A key that is still held says so: while there is someone to tell it to.
    ~Panel() override { delete frame; }

    QPoint center(int i) const
    {
        return QPoint(gapSize + i * (keySize + gapSize) + keySize / 2, gapSize + keySize / 2);
    }
    QPoint outside() const { return QPoint(width() / 2, height() - 3); }

    QFrame *frame;
    QButtonGroup *group;
    QPointer<QFrame> cells[keyCount];
    QPointer<K7DropButton> keys[keyCount];
    Told told[keyCount];

private:
    void addKey(int i)
    {
        cells[i] = new QFrame(frame);
        cells[i]->setGeometry(QRect(center(i) - QPoint(keySize / 2, keySize / 2), QSize(keySize, keySize)));
        auto *key = new K7DropButton(cells[i]);
        key->resize(keySize, keySize);
        key->setFocusPolicy(Qt::StrongFocus);
        key->setCheckable(true);
        if (i < 2)
            group->addButton(key);
        keys[i] = key;
        m_order.append(key);
        Told *mine = &told[i];
        connect(key, &QAbstractButton::pressed, this, [mine] { mine->keyPressed(); });
        connect(key, &QAbstractButton::released, this, [mine] { mine->keyReleased(); });
        connect(key, &QAbstractButton::clicked, this, [mine] { mine->keyClicked(); });
    }
    Told *toldOf(QAbstractButton *key) { return &told[m_order.indexOf(key)]; }

    QVector<QAbstractButton *> m_order; // compared only: a key may be gone
};

/// Presses and lifts key 0 of a panel in one of the three manners, through the window system.
class Hand
{
public:
    Hand(Panel *panel, Holder holder)
        : m_panel(panel)
        , m_holder(holder)
        , m_fingers(panel->windowHandle())
    {
    }

    void press()
    {
        const QPoint pos = m_panel->center(0);
        if (m_holder == Mouse) {
            QTest::mousePress(m_panel->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
        } else if (m_holder == Finger) {
            m_fingers.press(0, pos);
        } else {
            m_panel->keys[0]->setFocus();
            QTest::keyPress(m_panel->windowHandle(), Qt::Key_Space);
        }
    }

    void slideTo(const QPoint &pos)
    {
        if (m_holder == Mouse)
            QTest::mouseMove(m_panel->windowHandle(), pos);
        else
            m_fingers.move(0, pos);
    }

    void lift() { liftAt(m_panel->center(0)); }

    void liftAt(const QPoint &pos)
    {
        if (m_holder == Mouse)
            QTest::mouseRelease(m_panel->windowHandle(), Qt::LeftButton, Qt::NoModifier, pos);
        else if (m_holder == Finger)
            m_fingers.lift(0, pos);
        else
            QTest::keyRelease(m_panel->windowHandle(), Qt::Key_Space);
    }

private:
    Panel *m_panel;
    Holder m_holder;
    Fingers m_fingers;
};

void cancelTouch(QWidget *window)
{
    QTouchEvent cancel(QEvent::TouchCancel, Fingers::device());
    QCoreApplication::sendEvent(window->windowHandle(), &cancel);
}

bool activate(QWidget *window)
{
    window->activateWindow();
    return QTest::qWaitForWindowActive(window);
}

bool take(WayOut way, Panel *panel, Hand *hand, QWidget *other)
{
    K7DropButton *key = panel->keys[0];
    switch (way) {
    case Lifted:
        hand->lift();
        break;
    case SlidOff:
        hand->slideTo(panel->outside());
        break;
    case ReleasedOutside:
        hand->liftAt(panel->outside());
        break;
    case Cancelled:
        cancelTouch(panel);
        break;
    case Escaped:
        key->setFocus();
        QTest::keyClick(panel->windowHandle(), Qt::Key_Escape);
        break;
    case Disabled:
        key->setEnabled(false);
        break;
    case AncestorDisabled:
        panel->frame->setEnabled(false);
        break;
    case Hidden:
        key->hide();
        break;
    case AncestorHidden:
        panel->frame->hide();
        break;
    case WindowHidden:
        panel->hide();
        break;
    case WindowClosed:
        panel->close();
        break;
    case Reparented:
        key->setParent(panel->cells[3]);
        break;
    case AncestorReparented:
        panel->cells[0]->setParent(panel);
        break;
    case OtherWindowActivated:
        other->show();
        return activate(other);
    case WindowDeactivated: {
        QEvent deactivated(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(panel, &deactivated);
        break;
    }
    case ModalDialogOpened:
        other->setWindowModality(Qt::ApplicationModal);
        other->show();
        break;
    case PopupOpened:
        other->setWindowFlags(Qt::Popup);
        other->show();
        break;
    case FocusLost:
        panel->keys[1]->setFocus();
        break;
    case Deleted:
        delete key;
        break;
    case AncestorDeleted:
        delete panel->cells[0];
        break;
    }
    return true;
}

bool isPossible(WayOut way, Holder holder)
{
    switch (way) {
    case SlidOff:
    case ReleasedOutside:
        return holder != Keyboard;
    case Cancelled:
        return holder == Finger;
    case FocusLost:
        return holder == Keyboard;
    default:
        return true;
    }
}

} // namespace

class tst_K7DropButton : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void everyWayOutGivesOneRelease_data();
    void everyWayOutGivesOneRelease();
    void aTapPressesReleasesAndClicksInThisOrder_data();
    void aTapPressesReleasesAndClicksInThisOrder();
    void aTapTogglesACheckableKey_data();
    void aTapTogglesACheckableKey();
    void aKeyGoesDownWhenItIsTouched_data();
    void aKeyGoesDownWhenItIsTouched();

    void fingersHoldTheirOwnKeysAndLiftInAnyOrder();
    void aSecondFingerOnAHeldKeyIsIgnored();
    void aSecondFingerPressesOnceTheFirstHasSlidOff();
    void slidingBackDoesNotPressAgain_data();
    void slidingBackDoesNotPressAgain();
    void slidingOntoAKeyDoesNotPressIt();
    void aDisabledKeyTakesNoTouch();
    void aKeyThatIsDisabledUnderAFingerIsNotPressedByTheRestOfTheTouch();
    void aFingerHoldsOnWhenAnotherKeyTakesTheFocus();
    void theMouseHoldsOnWhenAnotherKeyTakesTheFocus();

    void mouseEventsMadeFromATouchDoNotPress_data();
    void mouseEventsMadeFromATouchDoNotPress();
    void aPenWhoseMouseEventsAreSynthesizedPresses();
    void aLostMouseReleaseIsMadeUpForByTheNextPress();
    void aLostFingerIsMadeUpForByItsNextPress();
    void aDoubleClickPressesTwice();
    void otherMouseButtonsDoNothing_data();
    void otherMouseButtonsDoNothing();
    void otherInputsCannotPressAHeldKey_data();
    void otherInputsCannotPressAHeldKey();

    void keyboardPressesOnce_data();
    void keyboardPressesOnce();

    void codeThatClicksAHeldKeyKeepsTheBalance();
    void codeThatChangesDownKeepsTheBalance_data();
    void codeThatChangesDownKeepsTheBalance();
    void autoRepeatKeepsTheBalance();

    void receiversMayMakeTheKeyComeUp_data();
    void receiversMayMakeTheKeyComeUp();
    void receiversMayDeleteTheKey_data();
    void receiversMayDeleteTheKey();
    void aTapWithinAReceiversEventLoopEndsAfterIt();

    void aRandomWalkKeepsTheBalance_data();
    void aRandomWalkKeepsTheBalance();
};

void tst_K7DropButton::initTestCase()
{
    QVERIFY(Fingers::device() != nullptr);
    QApplication::setQuitOnLastWindowClosed(false);
}

void tst_K7DropButton::everyWayOutGivesOneRelease_data()
{
    QTest::addColumn<int>("holder");
    QTest::addColumn<int>("way");
    QTest::addColumn<bool>("isExclusive");

    const QMap<Holder, const char *> holders = {{Mouse, "mouse"}, {Finger, "finger"}, {Keyboard, "keyboard"}};
    const QMap<WayOut, const char *> ways = {
        {Lifted, "lifted"},
        {SlidOff, "slid off"},
        {ReleasedOutside, "released outside without a move"},
        {Cancelled, "touch cancelled"},
        {Escaped, "Escape"},
        {Disabled, "disabled"},
        {AncestorDisabled, "ancestor disabled"},
        {Hidden, "hidden"},
        {AncestorHidden, "ancestor hidden"},
        {WindowHidden, "window hidden"},
        {WindowClosed, "window closed"},
        {Reparented, "reparented"},
        {AncestorReparented, "ancestor reparented"},
        {OtherWindowActivated, "other window activated"},
        {WindowDeactivated, "window deactivated"},
        {ModalDialogOpened, "modal dialog opened"},
        {PopupOpened, "popup opened"},
        {FocusLost, "focus lost"},
        {Deleted, "deleted"},
        {AncestorDeleted, "ancestor deleted"},
    };
    for (auto holder = holders.begin(); holder != holders.end(); ++holder) {
        for (auto way = ways.begin(); way != ways.end(); ++way) {
            if (!isPossible(way.key(), holder.key()))
                continue;
            for (bool isExclusive : {false, true})
                QTest::addRow("%s, %s%s", holder.value(), way.value(), isExclusive ? ", exclusive" : "")
                    << int(holder.key()) << int(way.key()) << isExclusive;
        }
    }
}

void tst_K7DropButton::everyWayOutGivesOneRelease()
{
    QFETCH(int, holder);
    QFETCH(int, way);
    QFETCH(bool, isExclusive);

    QDialog other;
    Panel panel(isExclusive);
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Hand hand(&panel, Holder(holder));
    const Told &told = panel.told[0];

    hand.press();
    QCOMPARE(told.log, QStringList({QStringLiteral("pressed"), QStringLiteral("group pressed")}));

    QVERIFY(take(WayOut(way), &panel, &hand, &other));
    QCOMPARE(told.released, 1);
    QCOMPARE(told.groupReleased, 1);

    // What ends the press on the other side comes late, and changes nothing any more.
    if (panel.keys[0] && panel.isVisible() && way != ReleasedOutside && way != Lifted)
        hand.lift();
    other.close();
    QCoreApplication::processEvents();
    QCOMPARE(told.clicked, way == Lifted ? 1 : 0);
    QCOMPARE(told.pressed, 1);
    QVERIFY2(told.isBalanced(), qPrintable(told.log.join(QStringLiteral(", "))));
    if (panel.keys[0])
        QVERIFY(!panel.keys[0]->isDown());

    if (panel.keys[0] && !panel.keys[0]->isHidden() && panel.keys[0]->isEnabled() && way != ReleasedOutside) {
        panel.frame->show();
        panel.cells[0]->show();
        panel.show();
        QVERIFY(activate(&panel));
        hand.press();
        QCOMPARE(told.pressed, 2);
        hand.lift();
        QVERIFY(told.isBalanced());
    }
}

void tst_K7DropButton::aTapPressesReleasesAndClicksInThisOrder_data()
{
    QTest::addColumn<int>("holder");
    QTest::newRow("mouse") << int(Mouse);
    QTest::newRow("finger") << int(Finger);
    QTest::newRow("keyboard") << int(Keyboard);
}

void tst_K7DropButton::aTapPressesReleasesAndClicksInThisOrder()
{
    QFETCH(int, holder);
    Panel panel;
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Hand hand(&panel, Holder(holder));
    hand.press();
    hand.lift();
    QCOMPARE(panel.told[0].log, QStringList({QStringLiteral("pressed"), QStringLiteral("group pressed"),
                                             QStringLiteral("released"), QStringLiteral("group released"),
                                             QStringLiteral("clicked")}));
}

void tst_K7DropButton::aTapTogglesACheckableKey_data()
{
    aTapPressesReleasesAndClicksInThisOrder_data();
}

void tst_K7DropButton::aTapTogglesACheckableKey()
{
    QFETCH(int, holder);
    Panel panel;
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Hand hand(&panel, Holder(holder));
    hand.press();
    QVERIFY(!panel.keys[0]->isChecked());
    hand.lift();
    QVERIFY(panel.keys[0]->isChecked());
    hand.press();
    hand.lift();
    QVERIFY(!panel.keys[0]->isChecked());
}

void tst_K7DropButton::aKeyGoesDownWhenItIsTouched_data()
{
    aTapPressesReleasesAndClicksInThisOrder_data();
}

void tst_K7DropButton::aKeyGoesDownWhenItIsTouched()
{
    QFETCH(int, holder);
    Panel panel;
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Hand hand(&panel, Holder(holder));
    QVERIFY(!panel.keys[0]->isDown());
    hand.press();
    QVERIFY(panel.keys[0]->isDown());
    hand.lift();
    QVERIFY(!panel.keys[0]->isDown());
}

void tst_K7DropButton::fingersHoldTheirOwnKeysAndLiftInAnyOrder()
{
    Panel panel;
    Fingers fingers(panel.windowHandle());
    for (int i = 0; i < 3; ++i)
        fingers.press(i, panel.center(i));
    for (int i = 0; i < 3; ++i)
        QVERIFY(panel.told[i].isHeld());

    for (int i : {1, 2, 0}) {
        fingers.lift(i);
        QVERIFY(!panel.told[i].isHeld());
        QCOMPARE(panel.told[i].clicked, 1);
    }
    for (const Told &told : panel.told)
        QVERIFY(told.isBalanced());
    QCOMPARE(panel.told[3].pressed, 0);
}

void tst_K7DropButton::aSecondFingerOnAHeldKeyIsIgnored()
{
    Panel panel;
    const Told &told = panel.told[0];
    Fingers fingers(panel.windowHandle());
    fingers.press(0, panel.center(0));
    fingers.press(1, panel.center(0) + QPoint(5, 5));
    fingers.move(1, panel.outside());
    fingers.lift(1);
    QCOMPARE(told.pressed, 1);
    QVERIFY(told.isHeld());

    fingers.press(1, panel.center(0));
    fingers.lift(0);
    QCOMPARE(told.clicked, 1);
    fingers.lift(1);
    QCOMPARE(told.pressed, 1);
    QVERIFY(told.isBalanced());
}

void tst_K7DropButton::aSecondFingerPressesOnceTheFirstHasSlidOff()
{
    Panel panel;
    const Told &told = panel.told[0];
    Fingers fingers(panel.windowHandle());
    fingers.press(0, panel.center(0));
    fingers.move(0, panel.outside());
    fingers.press(1, panel.center(0));
    QCOMPARE(told.pressed, 2);
    fingers.lift(0);
    QVERIFY(told.isHeld());
    fingers.lift(1);
    QCOMPARE(told.clicked, 1);
    QVERIFY(told.isBalanced());
}

void tst_K7DropButton::slidingBackDoesNotPressAgain_data()
{
    QTest::addColumn<int>("holder");
    QTest::newRow("mouse") << int(Mouse);
    QTest::newRow("finger") << int(Finger);
}

void tst_K7DropButton::slidingBackDoesNotPressAgain()
{
    QFETCH(int, holder);
    Panel panel;
    Hand hand(&panel, Holder(holder));
    hand.press();
    hand.slideTo(panel.center(0) + QPoint(10, 10));
    QVERIFY(panel.told[0].isHeld());
    hand.slideTo(panel.center(1));
    QVERIFY(!panel.told[0].isHeld());
    hand.slideTo(panel.center(0));
    hand.lift();
    QCOMPARE(panel.told[0].pressed, 1);
    QCOMPARE(panel.told[0].clicked, 0);
    QCOMPARE(panel.told[1].pressed, 0);
    QVERIFY(panel.told[0].isBalanced());
    QVERIFY(!panel.keys[0]->isDown());
}

void tst_K7DropButton::slidingOntoAKeyDoesNotPressIt()
{
    Panel panel;
    Fingers fingers(panel.windowHandle());
    fingers.press(0, panel.outside());
    fingers.move(0, panel.center(0));
    fingers.lift(0);
    QCOMPARE(panel.told[0].log, QStringList());
}

void tst_K7DropButton::aDisabledKeyTakesNoTouch()
{
    Panel panel;
    Fingers fingers(panel.windowHandle());
    panel.keys[0]->setEnabled(false);
    fingers.press(0, panel.center(0));
    panel.keys[0]->setEnabled(true);
    fingers.move(0, panel.center(0) + QPoint(1, 1));
    fingers.lift(0);
    QCOMPARE(panel.told[0].log, QStringList());

    panel.keys[0]->setEnabled(false);
    QTouchEvent begin(QEvent::TouchBegin, Fingers::device(), Qt::NoModifier, Qt::TouchPointPressed,
                      {QTouchEvent::TouchPoint(7)});
    QVERIFY(!QCoreApplication::sendEvent(panel.keys[0], &begin));

    panel.keys[0]->setEnabled(true);
    fingers.press(0, panel.center(0));
    fingers.lift(0);
    QCOMPARE(panel.told[0].clicked, 1);
}

void tst_K7DropButton::aKeyThatIsDisabledUnderAFingerIsNotPressedByTheRestOfTheTouch()
{
    Panel panel;
    Fingers fingers(panel.windowHandle());
    fingers.press(0, panel.center(0));
    panel.keys[0]->setEnabled(false);
    fingers.move(0, panel.center(0) + QPoint(1, 1));
    panel.keys[0]->setEnabled(true);
    fingers.move(0, panel.center(0));
    fingers.lift(0);
    QCOMPARE(panel.told[0].pressed, 1);
    QCOMPARE(panel.told[0].clicked, 0);
    QVERIFY(panel.told[0].isBalanced());
}

void tst_K7DropButton::aFingerHoldsOnWhenAnotherKeyTakesTheFocus()
{
    Panel panel;
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Fingers fingers(panel.windowHandle());
    fingers.press(0, panel.center(0));
    QVERIFY(panel.keys[0]->hasFocus());
    fingers.press(1, panel.center(1));
    QVERIFY(panel.keys[1]->hasFocus());
    QVERIFY(panel.told[0].isHeld());
    fingers.lift(0);
    fingers.lift(1);
    QCOMPARE(panel.told[0].clicked, 1);
    QVERIFY(panel.told[0].isBalanced());
}

void tst_K7DropButton::theMouseHoldsOnWhenAnotherKeyTakesTheFocus()
{
    Panel panel;
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Hand hand(&panel, Mouse);
    hand.press();
    panel.keys[1]->setFocus();
    QVERIFY(panel.keys[1]->hasFocus());
    QVERIFY(panel.told[0].isHeld());
    hand.lift();
    QCOMPARE(panel.told[0].clicked, 1);
}

void tst_K7DropButton::mouseEventsMadeFromATouchDoNotPress_data()
{
    QTest::addColumn<int>("source");
    QTest::addColumn<bool>("isDuring");
    QTest::newRow("Qt, during") << int(Qt::MouseEventSynthesizedByQt) << true;
    QTest::newRow("Qt, after") << int(Qt::MouseEventSynthesizedByQt) << false;
    QTest::newRow("system, during") << int(Qt::MouseEventSynthesizedBySystem) << true;
    QTest::newRow("system, after") << int(Qt::MouseEventSynthesizedBySystem) << false;
    QTest::newRow("untold, during") << int(Qt::MouseEventNotSynthesized) << true;
}

void tst_K7DropButton::mouseEventsMadeFromATouchDoNotPress()
{
    QFETCH(int, source);
    QFETCH(bool, isDuring);

    Panel panel;
    K7DropButton *key = panel.keys[0];
    Fingers fingers(panel.windowHandle());
    fingers.press(0, panel.center(0));
    if (!isDuring)
        fingers.lift(0);
    const QPointF pos(keySize / 2.0, keySize / 2.0);
    QMouseEvent down(QEvent::MouseButtonPress, pos, pos, key->mapToGlobal(pos.toPoint()), Qt::LeftButton,
                     Qt::LeftButton, Qt::NoModifier, Qt::MouseEventSource(source));
    QMouseEvent up(QEvent::MouseButtonRelease, pos, pos, key->mapToGlobal(pos.toPoint()), Qt::LeftButton,
                   Qt::NoButton, Qt::NoModifier, Qt::MouseEventSource(source));
    QCoreApplication::sendEvent(key, &down);
    QCoreApplication::sendEvent(key, &up);
    QCOMPARE(panel.told[0].pressed, 1);
    QCOMPARE(panel.told[0].isHeld(), isDuring);
    fingers.liftAll();
    QCOMPARE(panel.told[0].clicked, 1);
    QVERIFY(panel.told[0].isBalanced());
}

void tst_K7DropButton::aPenWhoseMouseEventsAreSynthesizedPresses()
{
    Panel panel;
    const QPointF pos(keySize / 2.0, keySize / 2.0);
    QMouseEvent down(QEvent::MouseButtonPress, pos, pos, pos, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier,
                     Qt::MouseEventSynthesizedByQt);
    QCoreApplication::sendEvent(panel.keys[0], &down);
    QCOMPARE(panel.told[0].pressed, 1);
}

void tst_K7DropButton::aLostMouseReleaseIsMadeUpForByTheNextPress()
{
    Panel panel;
    const Told &told = panel.told[0];
    QTest::mousePress(panel.keys[0].data(), Qt::LeftButton);
    QTest::mousePress(panel.keys[0].data(), Qt::LeftButton);
    QCOMPARE(told.log.mid(2), QStringList({QStringLiteral("released"), QStringLiteral("group released"),
                                           QStringLiteral("pressed"), QStringLiteral("group pressed")}));
    QTest::mouseRelease(panel.keys[0].data(), Qt::LeftButton);
    QCOMPARE(told.clicked, 1);
    QVERIFY(told.isBalanced());
}

void tst_K7DropButton::aLostFingerIsMadeUpForByItsNextPress()
{
    Panel panel;
    QTouchEvent::TouchPoint point(7);
    point.setState(Qt::TouchPointPressed);
    point.setPos(QPointF(10, 10));
    for (int i = 0; i < 2; ++i) {
        QTouchEvent begin(QEvent::TouchBegin, Fingers::device(), Qt::NoModifier, Qt::TouchPointPressed,
                          {point});
        QCoreApplication::sendEvent(panel.keys[0], &begin);
    }
    QCOMPARE(panel.told[0].pressed, 2);
    QCOMPARE(panel.told[0].released, 1);
    QVERIFY(panel.told[0].isInOrder);
}

void tst_K7DropButton::aDoubleClickPressesTwice()
{
    Panel panel;
    QTest::mouseClick(panel.windowHandle(), Qt::LeftButton, Qt::NoModifier, panel.center(0));
    QTest::mouseDClick(panel.windowHandle(), Qt::LeftButton, Qt::NoModifier, panel.center(0));
    QCOMPARE(panel.told[0].pressed, 3);
    QCOMPARE(panel.told[0].clicked, 3);
    QVERIFY(panel.told[0].isBalanced());
}

void tst_K7DropButton::otherMouseButtonsDoNothing_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void tst_K7DropButton::otherMouseButtonsDoNothing()
{
    QFETCH(int, button);
    Panel panel;
    QTest::mouseClick(panel.windowHandle(), Qt::MouseButton(button), Qt::NoModifier, panel.center(0));
    QCOMPARE(panel.told[0].log, QStringList());

    QTest::mousePress(panel.keys[0].data(), Qt::LeftButton);
    QTest::mouseClick(panel.keys[0].data(), Qt::MouseButton(button));
    QVERIFY(panel.told[0].isHeld());
    QTest::mouseRelease(panel.keys[0].data(), Qt::LeftButton);
    QCOMPARE(panel.told[0].clicked, 1);
    QVERIFY(panel.told[0].isBalanced());
}

void tst_K7DropButton::otherInputsCannotPressAHeldKey_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::newRow("mouse, finger") << int(Mouse) << int(Finger);
    QTest::newRow("mouse, keyboard") << int(Mouse) << int(Keyboard);
    QTest::newRow("finger, mouse") << int(Finger) << int(Mouse);
    QTest::newRow("finger, keyboard") << int(Finger) << int(Keyboard);
    QTest::newRow("keyboard, mouse") << int(Keyboard) << int(Mouse);
    QTest::newRow("keyboard, finger") << int(Keyboard) << int(Finger);
}

void tst_K7DropButton::otherInputsCannotPressAHeldKey()
{
    QFETCH(int, first);
    QFETCH(int, second);
    Panel panel;
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Hand holding(&panel, Holder(first));
    Hand trying(&panel, Holder(second));
    holding.press();
    trying.press();
    trying.lift();
    QCOMPARE(panel.told[0].pressed, 1);
    QVERIFY(panel.told[0].isHeld());
    holding.lift();
    QCOMPARE(panel.told[0].pressed, 1);
    QCOMPARE(panel.told[0].clicked, 1);
    QVERIFY(panel.told[0].isBalanced());
}

void tst_K7DropButton::keyboardPressesOnce_data()
{
    QTest::addColumn<int>("qtKey");
    QTest::addColumn<int>("expectedPresses");
    QTest::newRow("Space") << int(Qt::Key_Space) << 1;
    QTest::newRow("Select") << int(Qt::Key_Select) << 1;
    QTest::newRow("Return") << int(Qt::Key_Return) << 0;
    QTest::newRow("Enter") << int(Qt::Key_Enter) << 0;
    QTest::newRow("Escape") << int(Qt::Key_Escape) << 0;
    QTest::newRow("A") << int(Qt::Key_A) << 0;
}

void tst_K7DropButton::keyboardPressesOnce()
{
    QFETCH(int, qtKey);
    QFETCH(int, expectedPresses);
    Panel panel;
    const Told &told = panel.told[0];
    K7DropButton *key = panel.keys[0];

    QKeyEvent down(QEvent::KeyPress, qtKey, Qt::NoModifier);
    QKeyEvent up(QEvent::KeyRelease, qtKey, Qt::NoModifier);
    QKeyEvent repeatedDown(QEvent::KeyPress, qtKey, Qt::NoModifier, QString(), true);
    QKeyEvent repeatedUp(QEvent::KeyRelease, qtKey, Qt::NoModifier, QString(), true);
    for (QKeyEvent *event : {&down, &repeatedUp, &repeatedDown, &repeatedUp, &repeatedDown})
        QCoreApplication::sendEvent(key, event);
    QCOMPARE(told.pressed, expectedPresses);
    QCOMPARE(told.released, 0);
    QCoreApplication::sendEvent(key, &up);
    QCOMPARE(told.pressed, expectedPresses);
    QCOMPARE(told.clicked, expectedPresses);
    QVERIFY(told.isBalanced());
}

void tst_K7DropButton::codeThatClicksAHeldKeyKeepsTheBalance()
{
    Panel panel;
    Fingers fingers(panel.windowHandle());
    fingers.press(0, panel.center(0));
    panel.keys[0]->click();
    fingers.lift(0);
    QCOMPARE(panel.told[0].pressed, 2);
    QCOMPARE(panel.told[0].clicked, 1);
    QVERIFY(panel.told[0].isBalanced());

    panel.keys[0]->animateClick();
    fingers.press(0, panel.center(0));
    QTRY_COMPARE(panel.told[0].clicked, 2);
    fingers.lift(0);
    QVERIFY(panel.told[0].isBalanced());
}

void tst_K7DropButton::codeThatChangesDownKeepsTheBalance_data()
{
    everyWayOutGivesOneRelease_data();
}

void tst_K7DropButton::codeThatChangesDownKeepsTheBalance()
{
    QFETCH(int, holder);
    QFETCH(int, way);
    QFETCH(bool, isExclusive);

    QDialog other;
    Panel held(isExclusive);
    QVERIFY(QTest::qWaitForWindowActive(&held));
    Hand hand(&held, Holder(holder));
    hand.press();
    held.keys[0]->setDown(false);
    QVERIFY(take(WayOut(way), &held, &hand, &other));
    QCOMPARE(held.told[0].released, 1);
    QVERIFY(held.told[0].isBalanced());
    other.close();
    cancelTouch(&held);

    QDialog another;
    Panel idle(isExclusive);
    QVERIFY(QTest::qWaitForWindowActive(&idle));
    Hand idleHand(&idle, Holder(holder));
    idle.keys[0]->setDown(true);
    if (way != Lifted && way != SlidOff && way != ReleasedOutside)
        QVERIFY(take(WayOut(way), &idle, &idleHand, &another));
    QCOMPARE(idle.told[0].log, QStringList());
}

void tst_K7DropButton::autoRepeatKeepsTheBalance()
{
    Panel panel;
    const Told &told = panel.told[0];
    K7DropButton *key = panel.keys[0];
    key->setAutoRepeat(true);
    key->setAutoRepeatDelay(1);
    key->setAutoRepeatInterval(1);
    Fingers fingers(panel.windowHandle());
    fingers.press(0, panel.center(0));
    QTRY_VERIFY(told.clicked > 2);
    QVERIFY(told.isHeld());

    const auto hider = connect(key, &QAbstractButton::released, key, &QWidget::hide);
    QTRY_VERIFY(key->isHidden());
    QVERIFY2(told.isBalanced(), qPrintable(told.log.join(QStringLiteral(", "))));
    disconnect(hider);
    fingers.lift(0);
    QVERIFY(told.isBalanced());
}

void tst_K7DropButton::receiversMayMakeTheKeyComeUp_data()
{
    QTest::addColumn<int>("holder");
    QTest::addColumn<int>("way");
    QTest::addColumn<QByteArray>("signal");
    for (int holder : {Mouse, Finger, Keyboard}) {
        for (int way : {Escaped, Disabled, AncestorDisabled, Hidden, AncestorHidden, WindowHidden, Reparented,
                        WindowDeactivated, ModalDialogOpened, PopupOpened, FocusLost}) {
            for (const char *signal : {"pressed", "toggled", "released", "clicked"})
                QTest::addRow("holder %d, way %d, %s", holder, way, signal)
                    << holder << way << QByteArray(signal);
        }
    }
}

void tst_K7DropButton::receiversMayMakeTheKeyComeUp()
{
    QFETCH(int, holder);
    QFETCH(int, way);
    QFETCH(QByteArray, signal);

    QDialog other;
    Panel panel;
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Hand hand(&panel, Holder(holder));
    const Told &told = panel.told[0];
    K7DropButton *key = panel.keys[0];
    const auto comeUp = [&] { take(WayOut(way), &panel, &hand, &other); };
    if (signal == "pressed")
        connect(key, &QAbstractButton::pressed, this, comeUp);
    else if (signal == "toggled")
        connect(key, &QAbstractButton::toggled, this, comeUp);
    else if (signal == "released")
        connect(key, &QAbstractButton::released, this, comeUp);
    else
        connect(key, &QAbstractButton::clicked, this, comeUp);

    // The group listens last: it must not see the release before the press.
    hand.press();
    if (panel.isVisible())
        hand.lift();
    else
        cancelTouch(&panel);
    other.close();
    QCOMPARE(told.pressed, 1);
    QCOMPARE(told.groupPressed, 1);
    QVERIFY2(told.isBalanced(), qPrintable(told.log.join(QStringLiteral(", "))));
}

void tst_K7DropButton::receiversMayDeleteTheKey_data()
{
    QTest::addColumn<int>("holder");
    QTest::addColumn<int>("way");
    QTest::addColumn<QByteArray>("signal");
    for (int holder : {Mouse, Finger, Keyboard}) {
        for (int way : {Lifted, SlidOff, ReleasedOutside, Cancelled, Escaped, FocusLost}) {
            if (!isPossible(WayOut(way), Holder(holder)))
                continue;
            for (const char *signal : {"pressed", "released", "group pressed", "group released"})
                QTest::addRow("holder %d, way %d, %s", holder, way, signal)
                    << holder << way << QByteArray(signal);
        }
    }
}

void tst_K7DropButton::receiversMayDeleteTheKey()
{
    QFETCH(int, holder);
    QFETCH(int, way);
    QFETCH(QByteArray, signal);

    QDialog other;
    Panel panel;
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Hand hand(&panel, Holder(holder));
    K7DropButton *key = panel.keys[0];
    const auto killer = [&panel] { delete panel.keys[0]; };
    if (signal == "pressed")
        connect(key, &QAbstractButton::pressed, this, killer);
    else if (signal == "released")
        connect(key, &QAbstractButton::released, this, killer);
    else if (signal == "group pressed")
        connect(panel.group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonPressed), this, killer);
    else
        connect(panel.group, QOverload<QAbstractButton *>::of(&QButtonGroup::buttonReleased), this, killer);

    hand.press();
    if (panel.keys[0])
        take(WayOut(way), &panel, &hand, &other);
    else
        hand.lift();
    QVERIFY(panel.keys[0].isNull());
    QCOMPARE(panel.told[0].pressed, 1);
    QVERIFY2(panel.told[0].isBalanced(), qPrintable(panel.told[0].log.join(QStringLiteral(", "))));
}

void tst_K7DropButton::aTapWithinAReceiversEventLoopEndsAfterIt()
{
    Panel panel;
    Fingers fingers(panel.windowHandle());
    connect(panel.keys[0].data(), &QAbstractButton::pressed, this, [&] {
        fingers.lift(0);
        fingers.press(0, panel.center(0));
        fingers.lift(0);
        QCOMPARE(panel.told[0].released, 0);
    });
    fingers.press(0, panel.center(0));
    QCOMPARE(panel.told[0].pressed, 1);
    QCOMPARE(panel.told[0].clicked, 1);
    QVERIFY(panel.told[0].isBalanced());
}

void tst_K7DropButton::aRandomWalkKeepsTheBalance_data()
{
    QTest::addColumn<uint>("seed");
    for (uint seed = 1; seed <= 300; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_K7DropButton::aRandomWalkKeepsTheBalance()
{
    QFETCH(uint, seed);
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return int(random() % uint(limit)); };

    QDialog modal;
    modal.setWindowModality(Qt::ApplicationModal);
    QWidget popup(nullptr, Qt::Popup);
    QWidget other;
    other.show();
    Panel panel(seed % 2 == 0);
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    Fingers fingers(panel.windowHandle());
    QWindow *window = panel.windowHandle();
    const auto somewhere = [&] { return below(4) == 0 ? panel.outside() : panel.center(below(keyCount)); };

    const auto sendKey = [&](QTest::KeyAction action, Qt::Key key) {
        if (panel.isActiveWindow()) // others get no keys
            QTest::sendKeyEvent(action, window, key, QString(), Qt::NoModifier);
    };

    const std::function<void()> steps[] = {
        [&] {
            const int finger = below(3);
            if (!fingers.isDown(finger))
                fingers.press(finger, somewhere());
        },
        [&] {
            const int finger = below(3);
            if (fingers.isDown(finger))
                fingers.move(finger, somewhere());
        },
        [&] {
            const int finger = below(3);
            if (fingers.isDown(finger))
                fingers.lift(finger);
        },
        [&] { QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, somewhere()); },
        [&] { QTest::mouseMove(window, somewhere()); },
        [&] { QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, somewhere()); },
        [&] { sendKey(QTest::Press, below(2) ? Qt::Key_Space : Qt::Key_Select); },
        [&] { sendKey(QTest::Release, below(2) ? Qt::Key_Space : Qt::Key_Select); },
        [&] { sendKey(QTest::Click, below(2) ? Qt::Key_Escape : Qt::Key_Tab); },
        [&] { panel.keys[below(keyCount)]->setFocus(); },
        [&] { panel.keys[below(keyCount)]->setVisible(below(3) != 0); },
        [&] { panel.keys[below(keyCount)]->setEnabled(below(3) != 0); },
        [&] { panel.cells[below(keyCount)]->setVisible(below(3) != 0); },
        [&] { panel.frame->setVisible(below(4) != 0); },
        [&] { panel.frame->setEnabled(below(4) != 0); },
        [&] { panel.keys[below(keyCount)]->click(); },
        [&] { panel.keys[below(keyCount)]->setDown(below(2) != 0); },
        [&] { modal.setVisible(below(2) != 0); },
        [&] { popup.setVisible(below(2) != 0); },
        [&] { (below(2) ? &panel : &other)->activateWindow(); },
        [&] { QCoreApplication::processEvents(); },
        [&] { cancelTouch(&panel); },
    };
    const int inputSteps = 8;

    for (int i = 0; i < 80; ++i) {
        const int step = below(3) != 0 ? below(inputSteps) : below(int(std::size(steps)));
        steps[step]();
        for (int k = 0; k < keyCount; ++k) {
            const Told &told = panel.told[k];
            QVERIFY2(told.isInOrder,
                     qPrintable(QStringLiteral("step %1: ").arg(i) + told.log.join(QLatin1Char(','))));
            if (!panel.keys[k]->isVisible() || !panel.keys[k]->isEnabled())
                QVERIFY2(!told.isHeld(), qPrintable(QStringLiteral("step %1").arg(i)));
        }
    }

    modal.hide();
    popup.hide();
    fingers.liftAll();
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, panel.outside());
    for (Qt::Key key : {Qt::Key_Space, Qt::Key_Select})
        sendKey(QTest::Release, key);
    for (const Told &told : panel.told)
        QVERIFY2(told.isBalanced(), qPrintable(told.log.join(QLatin1Char(','))));
}

QTEST_MAIN(tst_K7DropButton)

#include "tst_k7dropbutton.moc"
