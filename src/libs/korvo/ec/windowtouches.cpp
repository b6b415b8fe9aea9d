// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "windowtouches.h"

#include "k7dropbutton.h"

#include <QApplication>
#include <QWindow>

namespace Korvo::EC {

namespace {

bool isKey(const QWidget *widget)
{
    return qobject_cast<const K7DropButton *>(widget);
}

} // namespace

void WindowTouches::routeTo(const K7DropButton *key)
{
    QWidget *window = key->nativeParentWidget();
    if (!window || !window->windowHandle())
        return;
    auto *touches = window->findChild<WindowTouches *>(QString(), Qt::FindDirectChildrenOnly);
    if (!touches)
        touches = new WindowTouches(window);
    // A window's handle may be another one each time that it is shown.
    window->windowHandle()->installEventFilter(touches);
}

WindowTouches::WindowTouches(QWidget *window)
    : QObject(window)
    , m_router(window, isKey)
{
}

bool WindowTouches::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return take(static_cast<QTouchEvent *>(event));
    case QEvent::TouchCancel:
        m_router.cancel();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// True when the whole event was for keys. What is left for others stays in it.
bool WindowTouches::take(QTouchEvent *event)
{
    if (QApplication::activePopupWidget())
        return false; // it takes all input
    const TouchRouter::Points others = m_router.route(*event);
    event->setTouchPoints(others);
    event->setAccepted(others.isEmpty());
    return others.isEmpty();
}

} // namespace Korvo::EC
