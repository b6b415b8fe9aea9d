// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "touchproxy.h"

#include <QCoreApplication>
#include <QSet>
#include <QWidget>

#include <algorithm>

namespace K7Host {

namespace {

using Points = QList<QTouchEvent::TouchPoint>;

Qt::TouchPointStates statesOf(const Points &points)
{
    Qt::TouchPointStates states;
    for (const QTouchEvent::TouchPoint &point : points)
        states |= point.state();
    return states;
}

QEvent::Type typeOf(const Points &points, bool isFirst)
{
    if (isFirst)
        return QEvent::TouchBegin;
    return statesOf(points) == Qt::TouchPointReleased ? QEvent::TouchEnd : QEvent::TouchUpdate;
}

QTouchEvent::TouchPoint mapped(QTouchEvent::TouchPoint point, const QWidget *target, const QWidget *window)
{
    const QPointF offset = target->mapTo(window, QPoint());
    point.setPos(point.pos() - offset);
    point.setStartPos(point.startPos() - offset);
    point.setLastPos(point.lastPos() - offset);
    return point;
}

} // namespace

TouchProxy::TouchProxy(QWidget *widget)
{
    setWidget(widget);
    setAcceptTouchEvents(true);
}

bool TouchProxy::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        event->setAccepted(handOut(*static_cast<QTouchEvent *>(event)));
        return true;
    case QEvent::TouchCancel:
        cancel();
        return true;
    default:
        return QGraphicsProxyWidget::event(event);
    }
}

/// True when at least one widget takes what its fingers do.
bool TouchProxy::handOut(const QTouchEvent &event)
{
    QHash<QWidget *, Points> pointsOf;
    QSet<QWidget *> begun;
    for (const QTouchEvent::TouchPoint &point : event.touchPoints()) {
        if (point.state() == Qt::TouchPointPressed) {
            QWidget *target = touchTargetAt(point.pos());
            if (!isTouched(target))
                begun.insert(target);
            m_targets.insert(point.id(), target);
        }
        if (QWidget *target = m_targets.value(point.id()))
            pointsOf[target].append(mapped(point, target, widget()));
        if (point.state() == Qt::TouchPointReleased)
            m_targets.remove(point.id());
    }

    bool isTaken = false;
    for (auto it = pointsOf.cbegin(); it != pointsOf.cend(); ++it) {
        const QPointer<QWidget> target = it.key();
        QTouchEvent part(typeOf(it.value(), begun.contains(it.key())), event.device(), event.modifiers(),
                         statesOf(it.value()), it.value());
        part.setTimestamp(event.timestamp());
        part.setTarget(target);
        part.setWindow(event.window());
        isTaken |= QCoreApplication::sendEvent(target, &part) && part.isAccepted();
    }
    return isTaken;
}

void TouchProxy::cancel()
{
    const QHash<int, QPointer<QWidget>> targets = m_targets;
    m_targets.clear();
    for (const QPointer<QWidget> &target : targets) {
        if (!target)
            continue;
        QTouchEvent event(QEvent::TouchCancel);
        QCoreApplication::sendEvent(target, &event);
    }
}

/// The innermost widget there that wants touches; null without one.
QWidget *TouchProxy::touchTargetAt(const QPointF &pos) const
{
    QWidget *target = widget()->childAt(pos.toPoint());
    while (target && !target->testAttribute(Qt::WA_AcceptTouchEvents))
        target = target->parentWidget();
    return target;
}

bool TouchProxy::isTouched(const QWidget *target) const
{
    return std::find(m_targets.cbegin(), m_targets.cend(), target) != m_targets.cend();
}

} // namespace K7Host
