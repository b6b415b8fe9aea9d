// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "keypadtrigger.h"

#include "keypad.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QMouseEvent>

namespace K7Host {

namespace {

enum class Kind { None, Number, DecimalNumber };

Kind kindOf(const QWidget *widget)
{
    const QString value = widget->property("Brisa_VK").toString();
    if (value == QLatin1String("Vk_Number"))
        return Kind::Number;
    return value == QLatin1String("Vk_NumberFloat") ? Kind::DecimalNumber : Kind::None;
}

QWidget *fieldAround(QWidget *widget)
{
    while (widget && kindOf(widget) == Kind::None)
        widget = widget->isWindow() ? nullptr : widget->parentWidget();
    return widget;
}

/// Also the editor inside a widget that takes the keys for it, as a spin box does.
const QLineEdit *editorOf(const QWidget *focused)
{
    if (const auto *editor = qobject_cast<const QLineEdit *>(focused))
        return editor;
    const auto *inner = focused->findChild<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
    return inner && inner->focusProxy() == focused ? inner : nullptr;
}

/// Touching the frame of a group of editors, such as the octets of an address, means one of them.
bool isTouchable(const QWidget *widget)
{
    return qobject_cast<const QLineEdit *>(widget) ||
           (qobject_cast<const QLineEdit *>(widget->focusProxy()) &&
            widget->isAncestorOf(widget->focusProxy()));
}

bool isTouch(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return static_cast<const QMouseEvent *>(event)->button() == Qt::LeftButton;
    case QEvent::TouchBegin:
        return true;
    default:
        return false;
    }
}

/// The field whose editor takes what is typed into \a focused.
QWidget *fieldTypedInto(QWidget *focused)
{
    const QLineEdit *editor = editorOf(focused);
    const bool takesKeys = editor && editor->isEnabled() && editor->isVisible() && !editor->isReadOnly();
    return takesKeys ? fieldAround(focused) : nullptr;
}

/// What of \a widget the widgets around it leave to be seen, in the coordinates of \a window.
QRect seenPart(const QWidget *widget, const QWidget *window)
{
    QRect seen = widget->rect();
    while (widget != window) {
        seen.translate(widget->pos());
        widget = widget->parentWidget();
        seen &= widget->rect();
    }
    return seen;
}

} // namespace

KeypadTrigger::KeypadTrigger(QWidget *window)
    : QObject(window)
    , m_window(window)
    , m_keypad(new Keypad(window))
{
    // Who has the focus after a touch shows only when it is over; and a field that is being disabled gives
    // its focus away before it says so.
    m_settling.setSingleShot(true);
    m_settling.setInterval(0);
    connect(&m_settling, &QTimer::timeout, this, &KeypadTrigger::settle);
    connect(m_keypad.data(), &Keypad::done, this, &KeypadTrigger::close);
    qApp->installEventFilter(this);
}

KeypadTrigger::~KeypadTrigger()
{
    delete m_keypad;
}

bool KeypadTrigger::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType())
        return false;
    auto *widget = static_cast<QWidget *>(watched);
    if (isTouch(event))
        noteTouch(widget);
    if (!m_isOpen)
        return false;
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
    case QEvent::ParentChange:
        if (widget == m_keypad || widget == m_field || widget->isAncestorOf(m_field))
            followField();
        return false;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::FocusAboutToChange: // all that is said when one in a scene loses it to nobody
    case QEvent::EnabledChange:
    case QEvent::ReadOnlyChange:
        m_settling.start();
        return false;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        return takeKey(static_cast<QKeyEvent *>(event));
    default:
        return false;
    }
}

void KeypadTrigger::noteTouch(QWidget *widget)
{
    QWidget *field = isTouchable(widget) ? fieldAround(widget) : nullptr;
    if (!field)
        return;
    m_touched = field;
    m_settling.start();
}

bool KeypadTrigger::takeKey(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return false;
    event->accept(); // no shortcut's, but the keypad's
    if (event->type() == QEvent::KeyPress)
        close();
    return true;
}

void KeypadTrigger::settle()
{
    const QPointer<QWidget> touched = m_touched;
    m_touched.clear();
    QWidget *focused = focusedIn(m_window);
    QWidget *field = focused ? fieldTypedInto(focused) : nullptr;
    const bool goesOn = m_isOpen && m_field && m_field->isEnabled();
    if (!field || (field != touched && !goesOn))
        return close();
    const bool isDecimal = kindOf(field) == Kind::DecimalNumber;
    m_keypad->setPoint(isDecimal ? focused->locale().decimalPoint() : QLatin1Char('.'));
    m_field = field;
    m_isOpen = true;
    followField();
}

void KeypadTrigger::followField()
{
    if (!m_field || !m_field->isVisible() || !m_window->isAncestorOf(m_field) ||
        seenPart(m_field, m_window).isEmpty())
        return close();
    const QRect field(m_field->mapTo(m_window, QPoint()), m_field->size());
    const auto place = placeBeside(field, m_keypad->sizeHint(), m_window->rect());
    if (!place)
        return close();
    m_keypad->move(*place);
    if (m_keypad->isHidden()) {
        m_keypad->raise();
        m_keypad->show();
    }
}

void KeypadTrigger::close()
{
    m_isOpen = false;
    m_field.clear();
    if (m_keypad)
        m_keypad->hide();
}

} // namespace K7Host
