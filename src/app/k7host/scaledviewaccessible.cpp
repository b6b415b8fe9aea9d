// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "scaledviewaccessible.h"

#include "scaledview.h"

#include <QWidget>

namespace K7Host {

namespace {

QAccessibleInterface *createScaledView(const QString &, QObject *object)
{
    auto *view = qobject_cast<ScaledView *>(object);
    return view ? new ScaledViewAccessible(view) : nullptr;
}

} // namespace

ScaledViewAccessible::ScaledViewAccessible(ScaledView *view)
    : QAccessibleWidget(view, QAccessible::Window)
    , m_view(view)
{
}

void ScaledViewAccessible::install()
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(createScaledView);
        return true;
    }();
    Q_UNUSED(isInstalled)
}

QAccessibleInterface *ScaledViewAccessible::shownWindow() const
{
    QWidget *shown = m_view->shownWindow();
    return shown ? QAccessible::queryAccessibleInterface(shown) : nullptr;
}

int ScaledViewAccessible::childCount() const
{
    return shownWindow() ? 1 : 0;
}

QAccessibleInterface *ScaledViewAccessible::child(int index) const
{
    return index == 0 ? shownWindow() : nullptr;
}

int ScaledViewAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    return child && child == shownWindow() ? 0 : -1;
}

QAccessibleInterface *ScaledViewAccessible::focusChild() const
{
    QWidget *shown = m_view->shownWindow();
    QWidget *focused = m_view->hasFocus() && shown ? shown->focusWidget() : nullptr;
    return focused ? QAccessible::queryAccessibleInterface(focused) : nullptr;
}

} // namespace K7Host
