// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "k7dropbutton.h"

#include "k7dropbuttonaccessible.h"
#include "keyface.h"
#include "keynavigation.h"
#include "keypainting.h"
#include "ownpalette.h"
#include "paintlater.h"
#include "windowtouches.h"

#include <QApplication>
#include <QButtonGroup>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTouchEvent>

#include <optional>

namespace Korvo::EC {

namespace {

// Systems deliver the mouse events that they make from a touch up to some hundred milliseconds after it.
constexpr int mouseAfterTouchMs = 500;

bool isPressKey(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Space || event->key() == Qt::Key_Select;
}

/// Where an arrow key goes, if it is one.
std::optional<Direction> directionOf(const QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        return Direction::Left;
    case Qt::Key_Right:
        return Direction::Right;
    case Qt::Key_Up:
        return Direction::Up;
    case Qt::Key_Down:
        return Direction::Down;
    default:
        return std::nullopt;
    }
}

} // namespace

/// Knows who holds the key, and lets go of it through QAbstractButton, which tells the group as well.
/// While the key is held it watches the application for what swallows the end of a press: above all popups.
class K7DropButton::Private : public QObject
{
public:
    enum class By { Nobody, Mouse, Finger, Keyboard };

    struct Holder
    {
        By by = By::Nobody;
        int id = 0; // of the finger; the Qt::Key of the keyboard

        bool operator==(const Holder &other) const { return by == other.by && id == other.id; }
    };

    explicit Private(K7DropButton *key);

    bool isHeld() const { return m_holder.by != By::Nobody; }
    bool isHeldBy(By by) const { return m_holder.by == by; }
    bool isHeldBy(const Holder &who) const { return m_holder == who; }
    bool isAfterTouch(const QMouseEvent *event) const;

    template <typename Send>
    void press(const Holder &who, const Send &send);
    template <typename Send>
    void deliver(const Send &send);
    void follow(const QTouchEvent *event);
    void comeUp(bool click);
    void letGo();
    void leave();
    void announceLight();
    bool paintsItself() const;
    void takeOverPainting();
    bool noteSheet();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Ending { None, TakenBack, Click };
    enum class OnTheWay { Nothing, Pressed, Released };

    template <typename Signal, typename Send>
    void tell(Signal signal, OnTheWay what, const Send &send);
    void follow(const QTouchEvent::TouchPoint &point);
    void takeBack();
    void notePressed();
    void noteReleased();
    void allowPainting();

    K7DropButton *const m_key;
    Holder m_holder;
    bool m_pressedTold = false;              // pressed() was emitted, its released() not yet
    bool m_delivering = false;               // a pressed() is on its way through its receivers
    OnTheWay m_onTheWay = OnTheWay::Nothing; // what the key's receivers are being told, and its group is next
    Ending m_ending = Ending::None;          // how the key came up meanwhile
    QElapsedTimer m_sinceTouch;
    PaintLater *m_paintLater = nullptr; // while it tells something
    QString m_announcedLight;
    QString m_styleSheet; // that the key had when its style last changed
};

K7DropButton::Private::Private(K7DropButton *key)
    : m_key(key)
{
    // First of all receivers. The signals rather than our own calls: click() and auto-repeat emit them too.
    connect(key, &QAbstractButton::pressed, this, &Private::notePressed);
    connect(key, &QAbstractButton::released, this, &Private::noteReleased);
}

void K7DropButton::Private::notePressed()
{
    allowPainting();
    // click() on a held key, or an input on a key that animateClick() holds: the first press ends here.
    if (m_pressedTold) {
        takeBack();
        m_key->setDown(true);
    }
    m_pressedTold = true;
}

void K7DropButton::Private::noteReleased()
{
    allowPainting();
    m_pressedTold = false;
}

/// Before the first receiver, since that may run an event loop.
void K7DropButton::Private::allowPainting()
{
    if (m_paintLater)
        m_paintLater->allow();
}

bool K7DropButton::Private::isAfterTouch(const QMouseEvent *event) const
{
    const bool isSynthesized = event->source() == Qt::MouseEventSynthesizedBySystem ||
                               event->source() == Qt::MouseEventSynthesizedByQt;
    return isSynthesized && m_sinceTouch.isValid() && !m_sinceTouch.hasExpired(mouseAfterTouchMs);
}

template <typename Send>
void K7DropButton::Private::press(const Holder &who, const Send &send)
{
    if (m_delivering)
        return;
    const QPointer<K7DropButton> guard(m_key);
    if (isHeldBy(who))
        letGo(); // its end was lost
    if (!guard || isHeld())
        return;

    m_holder = who;
    qApp->installEventFilter(this);
    deliver([&] {
        tell(&QAbstractButton::pressed, OnTheWay::Pressed, send);
        if (guard && !m_key->isDown() && !m_pressedTold)
            comeUp(false); // not hit, or the key opened its menu
    });
}

/// Sends what emits \a signal, and knows meanwhile whether all of its receivers have been reached.
template <typename Signal, typename Send>
void K7DropButton::Private::tell(Signal signal, OnTheWay what, const Send &send)
{
    const QPointer<K7DropButton> guard(m_key);
    const OnTheWay before = m_onTheWay;
    m_onTheWay = what;
    const auto last = connect(m_key, signal, this, [this] { m_onTheWay = OnTheWay::Nothing; });
    PaintLater *const outer = m_paintLater;
    PaintLater paintLater(m_key);
    m_paintLater = &paintLater;
    send();
    if (!guard)
        return;
    m_paintLater = outer;
    disconnect(last);
    m_onTheWay = before;
}

/// Sends what emits pressed(). A receiver that makes the key come up takes effect once all have seen it down.
template <typename Send>
void K7DropButton::Private::deliver(const Send &send)
{
    if (m_delivering) {
        send();
        return;
    }

    const QPointer<K7DropButton> guard(m_key);
    m_delivering = true;
    send();
    if (!guard)
        return;
    m_delivering = false;
    if (m_ending != Ending::None)
        comeUp(m_ending == Ending::Click);
}

void K7DropButton::Private::follow(const QTouchEvent *event)
{
    m_sinceTouch.start();
    const QPointer<K7DropButton> guard(m_key);
    const QList<QTouchEvent::TouchPoint> &points = event->touchPoints();
    for (const QTouchEvent::TouchPoint &point : points) {
        follow(point);
        if (!guard)
            return;
    }
}

void K7DropButton::Private::follow(const QTouchEvent::TouchPoint &point)
{
    const Holder finger = {By::Finger, point.id()};
    const QPoint pos = point.pos().toPoint();
    const bool isInside = m_key->hitButton(pos);
    if (point.state() == Qt::TouchPointPressed) {
        // Qt hands a finger near another one to that one's key, even if it is hidden or disabled by now.
        if (isInside && m_key->isEnabled() && m_key->isVisible())
            press(finger, [this, pos] {
                QMouseEvent down(QEvent::MouseButtonPress, pos, Qt::LeftButton, Qt::LeftButton,
                                 Qt::NoModifier);
                m_key->pressButton(&down);
            });
    } else if (!isHeldBy(finger)) {
        return;
    } else if (point.state() == Qt::TouchPointReleased) {
        comeUp(isInside);
    } else if (!isInside) {
        letGo();
    }
}

void K7DropButton::Private::letGo()
{
    if (isHeld())
        comeUp(false);
}

void K7DropButton::Private::comeUp(bool click)
{
    if (m_delivering) {
        if (m_ending != Ending::TakenBack)
            m_ending = click ? Ending::Click : Ending::TakenBack;
        return;
    }

    m_ending = Ending::None;
    m_holder = Holder();
    qApp->removeEventFilter(this);
    if (!click) {
        takeBack();
        return;
    }
    m_key->setDown(m_pressedTold); // setDown() by others must not swallow a released(), or add one
    tell(&QAbstractButton::released, OnTheWay::Released, [this] {
        QKeyEvent up(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
        m_key->QToolButton::keyReleaseEvent(&up);
    });
}

/// Escape makes QAbstractButton take a press back, whoever pressed. Its other ways touch the key after
/// released(), when a receiver may have deleted it.
void K7DropButton::Private::takeBack()
{
    m_key->setDown(m_pressedTold);
    tell(&QAbstractButton::released, OnTheWay::Released, [this] {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        m_key->QToolButton::keyPressEvent(&escape);
    });
}

/// The key is being deleted, perhaps by one whom it is just telling something.
void K7DropButton::Private::leave()
{
    m_delivering = false;
    if (m_onTheWay == OnTheWay::Pressed && m_key->group()) {
        m_key->group()->removeButton(m_key); // it will never hear of the press
    } else if (m_onTheWay == OnTheWay::Released && !m_pressedTold) {
        m_pressedTold = true;
        m_key->blockSignals(true); // only the group has not heard of the release
    }
    if (m_pressedTold)
        comeUp(false);
}

/// After each change of the style sheet, so nothing is done unless somebody listens.
void K7DropButton::Private::announceLight()
{
    if (!QAccessible::isActive())
        return;
    const QString light = lightOf(m_key);
    if (light == m_announcedLight)
        return;
    m_announcedLight = light;
    QAccessibleEvent event(m_key, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

bool K7DropButton::Private::paintsItself() const
{
    return hasOwnPalette("Korvo::EC::K7DropButton") && pictureOf(m_key->styleSheet());
}

/// When it paints itself nothing behind it has to be painted.
void K7DropButton::Private::takeOverPainting()
{
    m_key->setAttribute(Qt::WA_OpaquePaintEvent, paintsItself());
}

/// After each change of the style. True when another picture of the key is all that has changed.
bool K7DropButton::Private::noteSheet()
{
    const QString before = m_styleSheet;
    m_styleSheet = m_key->styleSheet();
    if (m_styleSheet == before)
        KeyFace::forgetAll(); // it is the application's style, and may mean other pictures
    takeOverPainting();
    return m_styleSheet != before && pictureOf(before) && paintsItself();
}

bool K7DropButton::Private::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_key || !watched->isWidgetType())
        return false;
    switch (event->type()) {
    case QEvent::Show:
        if (static_cast<QWidget *>(watched)->windowType() == Qt::Popup)
            letGo();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        // The mouse presses elsewhere: its release was lost.
        if (isHeldBy(By::Mouse) && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton)
            letGo();
        break;
    default:
        break;
    }
    return false;
}

K7DropButton::K7DropButton(QWidget *parent)
    : QToolButton(parent)
    , m_d(std::make_unique<Private>(this))
{
    K7DropButtonAccessible::install();
    setAttribute(Qt::WA_AcceptTouchEvents);
}

K7DropButton::~K7DropButton()
{
    m_d->leave();
}

bool K7DropButton::event(QEvent *event)
{
    const QPointer<K7DropButton> guard(this);
    switch (event->type()) {
    case QEvent::TouchBegin:
        if (!isEnabled())
            break;
        m_d->follow(static_cast<QTouchEvent *>(event));
        return true;
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        // Of a touch that the key took: also when it is disabled since, lest a mouse press is made of it.
        m_d->follow(static_cast<QTouchEvent *>(event));
        return true;
    case QEvent::EnabledChange:
        m_d->letGo();
        if (guard && !isEnabled())
            setDown(false); // or QAbstractButton says released() of what was never pressed
        break;
    case QEvent::Show:
        WindowTouches::routeTo(this);
        break;
    case QEvent::Polish:
        QToolButton::event(event);
        m_d->takeOverPainting(); // again: the style gives it back
        return true;
    case QEvent::StyleChange:
        m_d->announceLight();
        if (m_d->noteSheet()) {
            update(); // nothing else depends on the picture
            return true;
        }
        break;
    case QEvent::TouchCancel:
    case QEvent::Hide:
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
        m_d->letGo();
        break;
    default:
        break;
    }
    return !guard || QToolButton::event(event);
}

void K7DropButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        event->ignore();
    else if (!m_d->isAfterTouch(event))
        m_d->press({Private::By::Mouse, 0}, [this, event] { pressButton(event); });
}

/// A tool button looks first whether its menu is meant, which takes as long as a third of the press.
void K7DropButton::pressButton(QMouseEvent *event)
{
    if (popupMode() == MenuButtonPopup)
        QToolButton::mousePressEvent(event);
    else
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QAbstractButton::mousePressEvent(event); // clazy:exclude=skipped-base-method
}

void K7DropButton::mouseMoveEvent(QMouseEvent *event)
{
    const bool isHeld = m_d->isHeldBy(Private::By::Mouse);
    event->setAccepted(isHeld);
    if (isHeld && !(event->buttons().testFlag(Qt::LeftButton) && hitButton(event->pos())))
        m_d->letGo();
}

void K7DropButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        event->ignore();
    else if (m_d->isHeldBy(Private::By::Mouse))
        m_d->comeUp(hitButton(event->pos()));
    else if (!isDown())
        QToolButton::mouseReleaseEvent(event);
}

void K7DropButton::keyPressEvent(QKeyEvent *event)
{
    if (isPressKey(event)) {
        // Keys still reach the focus widget when one of its ancestors is hidden.
        if (!event->isAutoRepeat() && isVisible())
            m_d->press({Private::By::Keyboard, event->key()},
                       [this, event] { QToolButton::keyPressEvent(event); });
    } else if (const auto direction = directionOf(event)) {
        moveFocus(this, *direction);
    } else if (!event->matches(QKeySequence::Cancel)) {
        QToolButton::keyPressEvent(event);
    } else if (m_d->isHeld()) {
        m_d->letGo();
    } else {
        event->ignore();
    }
}

void K7DropButton::keyReleaseEvent(QKeyEvent *event)
{
    if (!isPressKey(event))
        QToolButton::keyReleaseEvent(event);
    else if (!event->isAutoRepeat() && m_d->isHeldBy({Private::By::Keyboard, event->key()}))
        m_d->comeUp(true);
}

void K7DropButton::focusOutEvent(QFocusEvent *event)
{
    const QPointer<K7DropButton> guard(this);
    if (m_d->isHeldBy(Private::By::Keyboard))
        m_d->letGo();
    // Not QAbstractButton's: it lets go of the mouse and of fingers too, while the next finger's key takes
    // the focus.
    if (guard)
        QWidget::focusOutEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void K7DropButton::timerEvent(QTimerEvent *event)
{
    m_d->deliver([this, event] { QToolButton::timerEvent(event); });
}

void K7DropButton::paintEvent(QPaintEvent *event)
{
    if (!m_d->paintsItself()) {
        QToolButton::paintEvent(event);
        return;
    }
    QPainter painter(this);
    paintKey(&painter, this);
}

/// A key's style sheet changes with every colour, and the style would look up its picture twice each time.
QString K7DropButton::styledSheet() const
{
    return m_d->paintsItself() ? QString() : styleSheet();
}

} // namespace Korvo::EC
