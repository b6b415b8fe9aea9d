// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "hand.h"

#include "inputevents.h"
#include "setvalue.h"

#include <QApplication>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QKeySequence>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QThread>

namespace K7Host {

namespace {

int loopLevel()
{
    return QThread::currentThread()->loopLevel();
}

QString calledInFaults(const QWidget *widget)
{
    const QString title = widget->isWindow() ? widget->windowTitle() : QString();
    const QString name = title.isEmpty() ? widget->objectName() : title;
    return QLatin1Char('"') + (name.isEmpty() ? shortClassName(widget) : name) + QLatin1Char('"');
}

/// What takes all input that is not for itself; null when nothing does.
const QWidget *blockerOf(const QWidget *widget)
{
    const QWidget *modal = QApplication::activeModalWidget();
    while (widget && widget != modal)
        widget = widget->parentWidget();
    return widget ? nullptr : modal;
}

bool isInside(const QObject *object, const QObject *ancestor)
{
    while (object && object != ancestor)
        object = object->parent();
    return object;
}

QWidget *innermostAt(QWidget *widget, const QPoint &at)
{
    QWidget *child = widget->childAt(at);
    return child ? child : widget;
}

/// A place in \a from as a place in \a to. Exact also in a reduced window, if one is around the other.
QPoint mapped(const QWidget *from, const QWidget *to, const QPoint &at)
{
    const bool isAround = from == to || from->isAncestorOf(to);
    return isAround ? to->mapFrom(from, at) : to->mapFromGlobal(from->mapToGlobal(at));
}

void bringIntoView(QWidget *widget, const QPoint &at)
{
    for (QWidget *around = widget->parentWidget(); around; around = around->parentWidget()) {
        auto *area = qobject_cast<QScrollArea *>(around);
        if (!area || !area->widget() || !area->widget()->isAncestorOf(widget))
            continue;
        if (area->viewport()->rect().contains(widget->mapTo(area->viewport(), at)))
            continue;
        area->ensureWidgetVisible(widget);
        const QPoint inArea = widget->mapTo(area->widget(), at);
        area->ensureVisible(inArea.x(), inArea.y(), 0, 0); // it may be larger than the area
    }
}

/// A click brings a window to the front, and keys go to the one there.
void activateWindowOf(const QWidget *widget)
{
    QWidget *window = widget->window();
    const QGraphicsProxyWidget *proxy = window->graphicsProxyWidget();
    if (proxy && proxy->scene() && !proxy->scene()->views().isEmpty())
        window = proxy->scene()->views().at(0)->window();
    if (!QApplication::activePopupWidget() && QApplication::activeWindow() != window)
        QApplication::setActiveWindow(window);
}

} // namespace

Hand::Hand(const ConsoleWidgets::Halves &halves)
    : m_widgets(halves)
{
}

bool Hand::isActing() const
{
    return m_actingLevel == loopLevel();
}

std::optional<QString> Hand::act(const InputLine &line)
{
    const ConsoleWidgets::Found found = m_widgets.find(line);
    if (!found.fault.isEmpty())
        return found.fault;
    QWidget *widget = found.widget ? found.widget : m_widgets.focusWidget();
    if (!widget)
        return QStringLiteral("there is no console");
    const QScopedValueRollback<std::optional<int>> acting(m_actingLevel, loopLevel());
    if (line.action == InputLine::Move || line.action == InputLine::Release)
        return goOn(line, widget);
    if (auto fault = obstacle(line, widget))
        return fault;
    return begin(line, widget);
}

std::optional<QString> Hand::obstacle(const InputLine &line, QWidget *widget) const
{
    const bool isNamed = m_widgets.find(line).widget;
    const QString called = isNamed ? whom(line) : QStringLiteral("the console");
    if (!widget->isVisible())
        return QStringLiteral("%1 is hidden").arg(called);
    if (const QWidget *blocker = blockerOf(widget))
        return QStringLiteral("%1 is blocked by %2").arg(called, calledInFaults(blocker));
    return {};
}

/// Host windows over the console do not count.
std::optional<QString> Hand::cover(const InputLine &line, QWidget *widget, const QPoint &at) const
{
    QWidget *root = m_widgets.rootOf(widget);
    if (!root || root == widget || !widget->rect().contains(at))
        return {};
    const QWidget *top = root->childAt(widget->mapTo(root, at));
    if (!top || isInside(top, widget) || isInside(widget, top))
        return {};
    return QStringLiteral("%1 is covered by %2").arg(whom(line), calledInFaults(top));
}

std::optional<QString> Hand::begin(const InputLine &line, QWidget *widget)
{
    const QPoint at = line.at.value_or(widget->rect().center());
    activateWindowOf(widget);
    bringIntoView(widget, at);
    if (line.action == InputLine::Type)
        return type(line, widget);
    if (auto fault = cover(line, widget, at))
        return fault;
    if (line.action == InputLine::Set) {
        const auto reason = setValue(widget, line.value);
        return reason ? std::make_optional(QStringLiteral("%1 %2").arg(whom(line), *reason)) : std::nullopt;
    }
    if (line.action == InputLine::Wheel) {
        QWidget *target = innermostAt(widget, at);
        sendWheel(target, target->mapFrom(widget, at), line.delta);
        return {};
    }
    const QPointer<QWidget> guard(widget);
    if (!line.finger && pressIsPopups(widget, at))
        return {};
    press(line, widget, at);
    if (line.action == InputLine::Click && guard)
        release(line, widget, at);
    return {};
}

std::optional<QString> Hand::goOn(const InputLine &line, QWidget *widget)
{
    const QPoint at = line.at.value_or(widget->rect().center());
    if (line.finger && !m_screen.isDown(*line.finger))
        return QStringLiteral("finger %1 is not down").arg(*line.finger);
    if (line.action == InputLine::Release)
        release(line, widget, at);
    else if (line.finger)
        m_screen.move(*line.finger, widget, at);
    else
        sendToPressed(QEvent::MouseMove, widget, at);
    return {};
}

std::optional<QString> Hand::type(const InputLine &line, QWidget *widget) const
{
    if (!isInside(keyReceiver(widget), widget)) {
        QWidget *field = widget;
        while (field->focusProxy())
            field = field->focusProxy();
        if (field->focusPolicy() != Qt::NoFocus)
            field->setFocus(Qt::TabFocusReason);
        if (!isInside(keyReceiver(widget), field))
            return widget->isEnabled() ? std::make_optional(whom(line) + QStringLiteral(" takes no keys"))
                                       : std::nullopt;
    }
    const QPointer<QWidget> guard(widget);
    if (!line.keys.isEmpty())
        sendKey(keyReceiver(widget), QKeySequence(line.keys, QKeySequence::PortableText)[0]);
    for (const QChar character : line.text) {
        if (guard)
            sendCharacter(keyReceiver(widget), character);
    }
    return {};
}

/// Where keys go from the window of \a widget, or from the popup that it has opened.
QWidget *Hand::keyReceiver(const QWidget *widget) const
{
    QWidget *popup = m_widgets.openPopup();
    QWidget *window = isInside(popup, widget) ? popup : widget->window();
    QWidget *focused = window->focusWidget();
    return focused ? focused : window;
}

void Hand::press(const InputLine &line, QWidget *widget, const QPoint &at)
{
    if (line.finger)
        return m_screen.press(*line.finger, widget, at);
    QWidget *target = innermostAt(widget, at);
    m_pressed = target;
    sendMouse(target, line.isDouble ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress,
              target->mapFrom(widget, at));
}

void Hand::release(const InputLine &line, QWidget *widget, const QPoint &at)
{
    if (line.finger)
        return m_screen.release(*line.finger, widget, at);
    sendToPressed(QEvent::MouseButtonRelease, widget, at);
    m_pressed.clear();
}

/// What was pressed has the mouse, unless a popup has opened since.
void Hand::sendToPressed(QEvent::Type type, QWidget *widget, const QPoint &at)
{
    const bool isHeld = m_pressed && m_pressed->window() == widget->window();
    QWidget *target = isHeld ? m_pressed.data() : innermostAt(widget, at);
    if (target->isVisible() && !blockerOf(target))
        sendMouse(target, type, mapped(widget, target, at));
}

/// A press beside an open popup closes that, and reaches what is under it only where the popup lets it.
bool Hand::pressIsPopups(const QWidget *widget, const QPoint &at) const
{
    const QPointer<QWidget> popup = m_widgets.openPopup();
    if (!popup || isInside(widget, popup))
        return false;
    sendMouse(popup, QEvent::MouseButtonPress, mapped(widget, popup, at));
    return popup && (popup->isVisible() || popup->testAttribute(Qt::WA_NoMouseReplay));
}

} // namespace K7Host
