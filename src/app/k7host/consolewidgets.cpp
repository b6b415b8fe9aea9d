// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolewidgets.h"

#include <korvo/keyboard/constants.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QVariant>

#include <algorithm>

using Korvo::Constants::PROPERTY_KORVOECKEY;

namespace K7Host {

namespace {

const char KeyNameProperty[] = "key";
const QLatin1Char Slash('/');

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString ownName(const QWidget *widget)
{
    return widget->objectName().isEmpty() ? shortClassName(widget) : widget->objectName();
}

/// How a widget may be called when it stands before the slash.
QStringList ancestorNames(const QWidget *widget)
{
    QStringList names;
    if (!widget->objectName().isEmpty())
        names << widget->objectName();
    names << shortClassName(widget);
    return names;
}

bool isAncestorCalled(const QWidget *widget, const QString &name)
{
    return ancestorNames(widget).contains(name) || name == QLatin1String(widget->metaObject()->className());
}

void collect(QWidget *widget, QList<QWidget *> *all)
{
    if (qobject_cast<QMessageBox *>(widget))
        return;
    all->append(widget);
    const QObjectList &children = widget->children();
    for (QObject *child : children) {
        if (child->isWidgetType())
            collect(static_cast<QWidget *>(child), all);
    }
}

} // namespace

ConsoleWidgets::ConsoleWidgets(const Halves &halves)
    : m_halves(halves)
{
}

bool ConsoleWidgets::isHalf(const QObject *object) const
{
    return std::any_of(m_halves.cbegin(), m_halves.cend(),
                       [object](const auto &half) { return half.toStrongRef().data() == object; });
}

bool ConsoleWidgets::contain(const QObject *object) const
{
    while (object && !isHalf(object)) {
        if (qobject_cast<const QMessageBox *>(object))
            return false;
        object = object->parent();
    }
    return object;
}

QList<QWidget *> ConsoleWidgets::all() const
{
    QList<QWidget *> result;
    for (const auto &half : m_halves) {
        if (const auto keyboard = half.toStrongRef())
            collect(keyboard.data(), &result);
    }
    return result;
}

ConsoleWidgets::Found ConsoleWidgets::find(const InputLine &line) const
{
    if (line.keyId)
        return findKey(*line.keyId, PROPERTY_KORVOECKEY, whom(line));
    if (!line.keyName.isEmpty())
        return findKey(line.keyName, KeyNameProperty, whom(line));
    return line.widget.isEmpty() ? Found() : findWidget(line.widget);
}

ConsoleWidgets::Found ConsoleWidgets::findKey(const QVariant &value, const char *property,
                                              const QString &called) const
{
    QList<QWidget *> keys = all();
    const auto isOther = [&](const QWidget *widget) {
        return !isConsoleKey(widget) || widget->property(property).toString() != value.toString();
    };
    keys.erase(std::remove_if(keys.begin(), keys.end(), isOther), keys.end());
    if (keys.isEmpty())
        return {nullptr, QStringLiteral("there is no %1").arg(called)};
    if (keys.size() > 1)
        return {nullptr, QStringLiteral("%1 is there %2 times").arg(called).arg(keys.size())};
    return {keys.constFirst(), {}};
}

ConsoleWidgets::Found ConsoleWidgets::findWidget(const QString &address) const
{
    const QList<QWidget *> widgets = matching(address);
    if (widgets.isEmpty())
        return {nullptr, QStringLiteral("there is no widget %1").arg(quoted(address))};
    if (widgets.size() == 1)
        return {widgets.constFirst(), {}};

    QString fault = QStringLiteral("%1 is the name of %2 widgets").arg(quoted(address)).arg(widgets.size());
    const QList<QWidget *> others = all();
    for (const QWidget *widget : widgets) {
        const QString better = addressAmong(others, widget);
        if (!better.isEmpty())
            return {nullptr,
                    fault + QStringLiteral(": put an ancestor before it, such as %1").arg(quoted(better))};
    }
    return {nullptr, fault};
}

QList<QWidget *> ConsoleWidgets::matching(const QString &address) const
{
    const int slash = address.lastIndexOf(Slash);
    const QString name = address.mid(slash + 1);
    const QString ancestor = slash < 0 ? QString() : address.left(slash);
    const auto isMeant = [&](const QWidget *widget) {
        if (ownName(widget) != name)
            return false;
        bool isFound = slash < 0;
        while (!isFound && !isHalf(widget)) {
            widget = widget->parentWidget();
            isFound = isAncestorCalled(widget, ancestor);
        }
        return isFound;
    };
    QList<QWidget *> widgets = all();
    widgets.erase(std::remove_if(widgets.begin(), widgets.end(),
                                 [&](const QWidget *widget) { return !isMeant(widget); }),
                  widgets.end());
    return widgets;
}

/// Empty when there are others under every address of the widget.
QString ConsoleWidgets::addressAmong(const QList<QWidget *> &widgets, const QWidget *widget) const
{
    QString name = ownName(widget);
    const auto isCalledSo = [&name](const QWidget *other) { return ownName(other) == name; };
    if (std::count_if(widgets.cbegin(), widgets.cend(), isCalledSo) == 1)
        return name;

    for (const QWidget *around = widget; !isHalf(around);) {
        around = around->parentWidget();
        const QStringList names = ancestorNames(around);
        for (const QString &ancestor : names) {
            QString address = ancestor + Slash + name;
            if (matching(address).size() == 1)
                return address;
        }
    }
    return {};
}

ConsoleWidgets::Address ConsoleWidgets::addressOf(QWidget *widget) const
{
    const QList<QWidget *> widgets = all();
    while (widget && contain(widget)) {
        if (isConsoleKey(widget)) {
            const quint32 id = widget->property(PROPERTY_KORVOECKEY).toUInt();
            if (findKey(id, PROPERTY_KORVOECKEY, {}).widget)
                return {id, {}, widget};
        }
        const QString address = addressAmong(widgets, widget);
        if (!address.isEmpty())
            return {{}, address, widget};
        widget = widget->parentWidget();
    }
    return {};
}

QWidget *ConsoleWidgets::focusWidget() const
{
    QWidget *window = openPopup();
    const bool isPopup = window;
    for (const auto &half : m_halves) {
        const auto keyboard = half.toStrongRef();
        if (keyboard && !isPopup && (!window || keyboard->isActiveWindow()))
            window = keyboard->window();
    }
    QWidget *focused = window ? window->focusWidget() : nullptr;
    return focused ? focused : window;
}

QWidget *ConsoleWidgets::openPopup() const
{
    QWidget *popup = QApplication::activePopupWidget();
    return contain(popup) ? popup : nullptr;
}

QWidget *ConsoleWidgets::rootOf(QWidget *widget) const
{
    while (widget && !isHalf(widget) && !widget->isWindow())
        widget = widget->parentWidget();
    return widget && contain(widget) ? widget : nullptr;
}

bool isConsoleKey(const QWidget *widget)
{
    return qobject_cast<const QAbstractButton *>(widget) && widget->property(PROPERTY_KORVOECKEY).isValid();
}

QString whom(const InputLine &line)
{
    if (line.keyId)
        return QStringLiteral("key %1").arg(*line.keyId);
    if (!line.keyName.isEmpty())
        return QStringLiteral("key ") + quoted(line.keyName);
    return line.widget.isEmpty() ? QStringLiteral("the console") : quoted(line.widget);
}

QString shortClassName(const QObject *object)
{
    const QString name = QLatin1String(object->metaObject()->className());
    return name.mid(name.lastIndexOf(QLatin1Char(':')) + 1);
}

} // namespace K7Host
