// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "inputrecorder.h"

#include "hand.h"
#include "traffic.h"

#include <korvo/widgets/switchcontrol.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace K7Host {

namespace {

// Systems deliver the mouse events that they make from a touch up to some hundred milliseconds after it.
constexpr int MouseAfterTouchMs = 500;

bool isTouchTaker(const QWidget *widget)
{
    // A scroll area and its viewport ask for touches, and refuse them.
    const bool isScrollArea = qobject_cast<const QAbstractScrollArea *>(widget) ||
                              qobject_cast<const QAbstractScrollArea *>(widget->parentWidget());
    return widget->testAttribute(Qt::WA_AcceptTouchEvents) && !isScrollArea;
}

bool isModifier(int key)
{
    switch (key) {
    case 0:
    case Qt::Key_unknown:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
        return true;
    default:
        return false;
    }
}

bool isPrintable(const QKeyEvent &event)
{
    const QString text = event.text();
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !text.isEmpty() && !isCommand &&
           std::all_of(text.cbegin(), text.cend(), [](QChar character) { return character.isPrint(); });
}

/// Whether holding a key down on \a widget is the same as pressing it once.
bool ignoresRepetition(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) ||
           qobject_cast<const Korvo::Widgets::SwitchControl *>(widget);
}

bool isPress(const QMouseEvent &event)
{
    return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
}

/// Exact also in a reduced window, unless a popup is between both.
QPoint mappedToOwner(const QWidget *widget, const QWidget *owner, const QPoint &at)
{
    return widget == owner || owner->isAncestorOf(widget) ? widget->mapTo(owner, at)
                                                          : owner->mapFromGlobal(widget->mapToGlobal(at));
}

} // namespace

InputRecorder::InputRecorder(const ConsoleWidgets::Halves &halves, Traffic *traffic, const Hand *hand)
    : m_widgets(halves)
    , m_traffic(traffic)
    , m_hand(hand)
{
    qApp->installEventFilter(this);
}

bool InputRecorder::eventFilter(QObject *watched, QEvent *event)
{
    if (watched->isWindowType())
        m_lastReceiver.clear(); // new input comes to a window first
    auto *widget = watched->isWidgetType() ? static_cast<QWidget *>(watched) : nullptr;
    if (!widget)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        noteMouse(widget, *static_cast<QMouseEvent *>(event));
        break;
    case QEvent::Wheel:
        noteWheel(widget, *static_cast<QWheelEvent *>(event));
        break;
    case QEvent::KeyPress:
        noteKey(widget, *static_cast<QKeyEvent *>(event));
        break;
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        noteTouch(widget, *static_cast<QTouchEvent *>(event));
        break;
    default:
        break;
    }
    return false;
}

bool InputRecorder::isRecorded(const QObject *watched) const
{
    return !(m_hand && m_hand->isActing()) && m_widgets.contain(watched);
}

InputRecorder::Contact InputRecorder::contactWith(QWidget *widget) const
{
    const ConsoleWidgets::Address address = m_widgets.addressOf(widget);
    Contact contact;
    contact.widget = widget;
    contact.owner = address.owner;
    contact.line.keyId = address.keyId;
    contact.line.widget = address.widget;
    return contact;
}

void InputRecorder::note(Contact *contact, InputLine::Action action, const QPoint &at, bool isDouble)
{
    if (!contact->widget || !contact->owner)
        return;
    const bool isKey = contact->line.keyId.has_value();
    const bool isOutside = !contact->widget->rect().contains(at);
    if (isKey && action == InputLine::Move && (contact->hasLeft || !isOutside))
        return;
    contact->hasLeft |= isOutside;
    InputLine line = contact->line;
    line.action = action;
    line.isDouble = isDouble && !isKey; // a key goes down in either case
    if (!isKey || isOutside)
        line.at = mappedToOwner(contact->widget, contact->owner, at);
    m_traffic->note(Direction::In, line);
}

void InputRecorder::noteMouse(QWidget *widget, const QMouseEvent &event)
{
    const bool isMove = event.type() == QEvent::MouseMove;
    const bool isLeft = isMove ? event.buttons().testFlag(Qt::LeftButton) : event.button() == Qt::LeftButton;
    if (!isLeft || !isRecorded(widget) || isPassedOn(widget, event, event.globalPos()) ||
        isOfNotedTouch(widget, event))
        return;
    if (isPress(event) || m_mouse.widget != widget)
        m_mouse = contactWith(widget);
    const auto action = isMove ? InputLine::Move : isPress(event) ? InputLine::Press : InputLine::Release;
    note(&m_mouse, action, event.pos(), event.type() == QEvent::MouseButtonDblClick);
    if (action == InputLine::Release)
        m_mouse = Contact();
}

void InputRecorder::noteWheel(QWidget *widget, const QWheelEvent &event)
{
    if (event.angleDelta().isNull() || !isRecorded(widget) || isPassedOn(widget, event, event.globalPos()))
        return;
    Contact contact = contactWith(widget);
    contact.line.delta = event.angleDelta();
    note(&contact, InputLine::Wheel, event.pos());
}

void InputRecorder::noteKey(QWidget *widget, const QKeyEvent &event)
{
    // Others get it only because the one with the focus has ignored it.
    const QWidget *focused = widget->window()->focusWidget();
    const bool isPassedOn = focused ? widget != focused : !widget->isWindow();
    if (isPassedOn || isModifier(event.key()) || !isRecorded(widget) ||
        (event.isAutoRepeat() && ignoresRepetition(widget)))
        return;
    InputLine line = contactWith(widget).line;
    line.action = InputLine::Type;
    if (isPrintable(event))
        line.text = event.text();
    else
        line.keys = QKeySequence(event.key() | static_cast<int>(event.modifiers()))
                        .toString(QKeySequence::PortableText);
    m_traffic->note(Direction::In, line);
}

void InputRecorder::noteTouch(QWidget *widget, const QTouchEvent &event)
{
    if (!isTouchTaker(widget) || !isRecorded(widget))
        return;
    m_sinceTouch.start();
    const QList<QTouchEvent::TouchPoint> &points = event.touchPoints();
    for (const QTouchEvent::TouchPoint &point : points)
        noteTouchPoint(widget, point);
}

void InputRecorder::noteTouchPoint(QWidget *widget, const QTouchEvent::TouchPoint &point)
{
    const auto known = m_fingers.find(point.id());
    if (point.state() == Qt::TouchPointPressed) {
        const bool isIgnored = known != m_fingers.end() && widget->isAncestorOf(known->widget);
        if (isIgnored)
            return;
        Contact contact = contactWith(widget);
        m_fingers.remove(point.id());
        contact.line.finger = freeFinger();
        note(&contact, InputLine::Press, point.pos().toPoint());
        m_fingers.insert(point.id(), contact);
        m_lastFinger = point.id();
    } else if (known != m_fingers.end() && known->widget == widget) {
        const bool isUp = point.state() == Qt::TouchPointReleased;
        if (isUp || point.state() == Qt::TouchPointMoved)
            note(&*known, isUp ? InputLine::Release : InputLine::Move, point.pos().toPoint());
        if (isUp)
            m_fingers.erase(known);
    }
}

/// Whether it is what was noted last, which another widget has ignored, or has handed to its scroll bar.
bool InputRecorder::isPassedOn(const QWidget *widget, const QEvent &event, const QPoint &globalPos)
{
    const auto *bar = qobject_cast<const QScrollBar *>(widget);
    const QWidget *receiver = bar && bar->parentWidget() ? bar->parentWidget()->parentWidget() : widget;
    const bool isSame = !event.spontaneous() && m_lastReceiver && m_lastType == event.type() &&
                        m_lastPos == globalPos && m_lastReceiver != widget &&
                        receiver->isAncestorOf(m_lastReceiver);
    if (!isSame) {
        m_lastType = event.type();
        m_lastPos = globalPos;
        m_lastReceiver = const_cast<QWidget *>(widget);
    }
    return isSame;
}

bool InputRecorder::isOfNotedTouch(const QWidget *widget, const QMouseEvent &event)
{
    if (event.source() == Qt::MouseEventSynthesizedByQt)
        return isOfRefusedTouch(widget, event);
    if (event.source() != Qt::MouseEventSynthesizedBySystem)
        return false;
    if (isPress(event))
        m_isMouseOfSystem = m_sinceTouch.isValid() && !m_sinceTouch.hasExpired(MouseAfterTouchMs);
    return m_isMouseOfSystem;
}

/// Notes the rest of a touch that was refused: it comes as the mouse alone.
bool InputRecorder::isOfRefusedTouch(const QWidget *widget, const QMouseEvent &event)
{
    if (isPress(event)) {
        const auto pressed = m_fingers.constFind(m_lastFinger);
        const bool isRefused = pressed != m_fingers.constEnd() && pressed->widget == widget;
        m_mouseFinger = isRefused ? m_lastFinger : -1;
        return isRefused;
    }
    const int id = m_mouseFinger;
    const bool isUp = event.type() == QEvent::MouseButtonRelease;
    if (isUp)
        m_mouseFinger = -1;
    const auto finger = m_fingers.find(id);
    if (finger == m_fingers.end())
        return id >= 0; // it was taken in the end
    const QWidget *touched = finger->widget;
    const QPoint at = touched && touched != widget ? touched->mapFromGlobal(event.globalPos()) : event.pos();
    note(&*finger, isUp ? InputLine::Release : InputLine::Move, at);
    if (isUp)
        m_fingers.erase(finger);
    return true;
}

int InputRecorder::freeFinger() const
{
    int finger = 0;
    const auto isIt = [&finger](const Contact &contact) { return contact.line.finger == finger; };
    while (std::any_of(m_fingers.cbegin(), m_fingers.cend(), isIt))
        ++finger;
    return finger;
}

} // namespace K7Host
