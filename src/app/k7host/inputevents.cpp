// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "inputevents.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

namespace K7Host {

namespace {

void sendAsByHand(QWidget *widget, QEvent *event)
{
    QSpontaneKeyEvent::setSpontaneous(event);
    qApp->notify(widget, event);
}

/// What a keyboard gives as the text of a key.
QString textOf(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return QStringLiteral("\r");
    case Qt::Key_Backspace:
        return QStringLiteral("\b");
    case Qt::Key_Delete:
        return QStringLiteral("\x7f");
    case Qt::Key_Escape:
        return QStringLiteral("\x1b");
    case Qt::Key_Tab:
        return QStringLiteral("\t");
    default:
        break;
    }
    const bool isPlain = !(modifiers & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    if (!isPlain || key >= Qt::Key_Escape)
        return {};
    const QChar character(static_cast<ushort>(key));
    return modifiers.testFlag(Qt::ShiftModifier) ? character : character.toLower();
}

QWidget *focusBeside(const QWidget *widget)
{
    QWidget *focused = widget->window()->focusWidget();
    return focused ? focused : widget->window();
}

void sendKeyStroke(QWidget *widget, int key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    const QPointer<QWidget> receiver(widget);
    QKeyEvent override(QEvent::ShortcutOverride, key, modifiers, text);
    override.ignore();
    sendAsByHand(widget, &override);
    if (receiver) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        sendAsByHand(receiver, &press);
    }
    if (receiver) {
        QKeyEvent release(QEvent::KeyRelease, key, modifiers, text);
        sendAsByHand(focusBeside(receiver), &release);
    }
}

} // namespace

void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &at)
{
    const bool isMove = type == QEvent::MouseMove;
    const bool isUp = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, widget->mapTo(widget->window(), at), widget->mapToGlobal(at),
                      isMove ? Qt::NoButton : Qt::LeftButton, isUp ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    sendAsByHand(widget, &event);
}

void sendWheel(QWidget *widget, const QPoint &at, const QPoint &delta)
{
    const bool isVertical = delta.y() != 0;
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), delta, isVertical ? delta.y() : delta.x(),
                      isVertical ? Qt::Vertical : Qt::Horizontal, Qt::NoButton, Qt::NoModifier);
    sendAsByHand(widget, &event);
}

void sendKey(QWidget *widget, int key)
{
    const Qt::KeyboardModifiers modifiers(key & static_cast<int>(Qt::KeyboardModifierMask));
    key &= ~static_cast<int>(Qt::KeyboardModifierMask);
    sendKeyStroke(widget, key, modifiers, textOf(key, modifiers));
}

void sendCharacter(QWidget *widget, QChar character)
{
    const bool isUpper = character.isUpper();
    sendKeyStroke(widget, character.toUpper().unicode(), isUpper ? Qt::ShiftModifier : Qt::NoModifier,
                  character);
}

} // namespace K7Host
