// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "touchproxy.h"

#include <QAbstractScrollArea>
#include <QWidget>

namespace K7Host {

namespace {

bool takesTouches(const QWidget *widget)
{
    // A scroll area and its viewport ask for touches, and refuse them: what is in it is used as with the
    // mouse.
    const bool isScrollArea = qobject_cast<const QAbstractScrollArea *>(widget) ||
                              qobject_cast<const QAbstractScrollArea *>(widget->parentWidget());
    return widget->testAttribute(Qt::WA_AcceptTouchEvents) && !isScrollArea;
}

} // namespace

TouchProxy::TouchProxy(QWidget *widget)
    : m_router(widget, takesTouches)
{
    setWidget(widget);
    setAcceptTouchEvents(true);
}

bool TouchProxy::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd: {
        const auto *touch = static_cast<QTouchEvent *>(event);
        event->setAccepted(m_router.route(*touch).size() < touch->touchPoints().size());
        return true;
    }
    case QEvent::TouchCancel:
        m_router.cancel();
        return true;
    default:
        return QGraphicsProxyWidget::event(event);
    }
}

bool TouchProxy::focusNextPrevChild(bool next)
{
    const QWidget *before = widget()->focusWidget();
    QGraphicsProxyWidget::focusNextPrevChild(next);
    if (widget()->focusWidget() == before)
        emit tabbedOut(next);
    return true;
}

} // namespace K7Host
