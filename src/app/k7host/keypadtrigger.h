// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QWidget;
QT_END_NAMESPACE

namespace K7Host {

class Keypad;

/// Brings up a keypad in a window, beside a field for numbers that is touched, and takes it away again.
///
/// A field is the innermost widget at or around an editor whose dynamic property "Brisa_VK" is "Vk_Number" or
/// "Vk_NumberFloat"; an editor is a QLineEdit, that of a spin box too. The keypad comes when an editor, or
/// the frame of a group of editors, is touched or clicked and has the focus then: not when it gets the focus
/// by other ways. It stays while the focus moves on to other editors in fields, and follows it and the field.
/// It goes with the focus, the field or its being usable, by Enter, by its own key, and by Escape, which then
/// does nothing else. It never covers any of the field: it does not come where there is no room for that.
///
/// Fields in other windows, such as dialogs, are left alone. GUI thread only.
class KeypadTrigger : public QObject
{
    Q_OBJECT

public:
    /// A child of \a window, which is not null and gets the keypad as a child too.
    explicit KeypadTrigger(QWidget *window);
    ~KeypadTrigger() override;

    /// Sees the events of the whole application.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void noteTouch(QWidget *widget);
    bool takeKey(QKeyEvent *event);
    void settle();
    void followField();
    void close();

    QWidget *const m_window;
    QPointer<Keypad> m_keypad;   // the window may delete it first
    QPointer<QWidget> m_field;   // the keypad stands beside it; null also when it was deleted meanwhile
    QPointer<QWidget> m_touched; // waits for settle()
    QTimer m_settling;
    bool m_isOpen = false;
};

} // namespace K7Host
