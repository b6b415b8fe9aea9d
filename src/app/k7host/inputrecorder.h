// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolewidgets.h"

#include <QElapsedTimer>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QTouchEvent>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QMouseEvent;
class QWheelEvent;
QT_END_NAMESPACE

namespace K7Host {

class Hand;
class Traffic;

/// Notes what a person does to the console, each before it takes effect, as lines that a Hand can do again:
/// keys going down and up, by their id, and moves off them; presses, drags and releases on other widgets; the
/// wheel; and what is typed, also on the host's keypad. A touch that its widget leaves to the mouse is noted
/// as the mouse. Input of the left button only; nothing of message boxes and of the host's own widgets.
///
/// Make it before whatever else filters the application's input: what a filter takes away is then no input.
/// GUI thread only.
class InputRecorder : public QObject
{
    Q_OBJECT

public:
    /// \a traffic, and \a hand, whose input is not noted, outlive this object. There may be no hand.
    InputRecorder(const ConsoleWidgets::Halves &halves, Traffic *traffic, const Hand *hand = nullptr);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A button or finger that is down.
    struct Contact
    {
        QPointer<QWidget> widget; // which it came down on
        QPointer<QWidget> owner;  // of the address: the widget, or one around it
        InputLine line;           // who, and which finger
        bool hasLeft = false;     // a key that was slid off does not mind what follows
    };

    bool isRecorded(const QObject *watched) const;
    Contact contactWith(QWidget *widget) const;
    void note(Contact *contact, InputLine::Action action, const QPoint &at, bool isDouble = false);
    void noteMouse(QWidget *widget, const QMouseEvent &event);
    void noteWheel(QWidget *widget, const QWheelEvent &event);
    void noteKey(QWidget *widget, const QKeyEvent &event);
    void noteTouch(QWidget *widget, const QTouchEvent &event);
    void noteTouchPoint(QWidget *widget, const QTouchEvent::TouchPoint &point);
    bool isPassedOn(const QWidget *widget, const QEvent &event, const QPoint &globalPos);
    bool isOfNotedTouch(const QWidget *widget, const QMouseEvent &event);
    bool isOfRefusedTouch(const QWidget *widget, const QMouseEvent &event);
    int freeFinger() const;

    const ConsoleWidgets m_widgets;
    Traffic *const m_traffic;
    const Hand *const m_hand;

    Contact m_mouse;
    QMap<int, Contact> m_fingers; // by the id of their touch point

    // Input that a widget ignores is passed on, and is noted already.
    QEvent::Type m_lastType = QEvent::None;
    QPoint m_lastPos; // global
    QPointer<QWidget> m_lastReceiver;

    // The mouse may follow a touch that was noted: of Qt's making where the touch was refused, and of the
    // system's in any case.
    int m_lastFinger = -1;  // id of its touch point
    int m_mouseFinger = -1; // that was refused, and goes on as the mouse
    QElapsedTimer m_sinceTouch;
    bool m_isMouseOfSystem = false;
};

} // namespace K7Host
