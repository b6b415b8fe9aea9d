// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "touchrouter.h"

#include <QCoreApplication>
#include <QVector>

#include <algorithm>

namespace Korvo::EC {

namespace {

using Points = TouchRouter::Points;

/// What goes to one widget.
struct Part
{
    QPointer<QWidget> target;
    bool isFirst = false; // no other finger was on it before
    Points points;
};

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

QTouchEvent::TouchPoint translated(QTouchEvent::TouchPoint point, const QPointF &offset)
{
    point.setPos(point.pos() - offset);
    point.setStartPos(point.startPos() - offset);
    point.setLastPos(point.lastPos() - offset);
    return point;
}

} // namespace

TouchRouter::TouchRouter(QWidget *root, Wanted wanted)
    : m_root(root)
    , m_wanted(wanted)
{
}

TouchRouter::Points TouchRouter::route(const QTouchEvent &event)
{
    QVector<Part> parts;
    Points others;
    const Points &points = event.touchPoints();
    for (const QTouchEvent::TouchPoint &point : points) {
        bool isFirst = false;
        if (point.state() == Qt::TouchPointPressed) {
            m_targets.remove(point.id()); // its end was lost
            if (QWidget *target = wantedAt(point.pos().toPoint())) {
                isFirst = !isTouched(target);
                m_targets.insert(point.id(), target);
            }
        }
        const auto routed = m_targets.constFind(point.id());
        if (routed == m_targets.cend()) {
            others.append(point);
            continue;
        }
        QPointer<QWidget> target = *routed;
        if (point.state() == Qt::TouchPointReleased)
            m_targets.remove(point.id());

        auto part = std::find_if(parts.begin(), parts.end(),
                                 [&target](const Part &known) { return known.target == target; });
        if (part == parts.end())
            part = parts.insert(part, {target, isFirst, {}});
        part->points.append(point);
    }

    for (const Part &part : qAsConst(parts)) {
        if (part.target)
            send(part.target, event, part.points, part.isFirst);
    }
    return others;
}

void TouchRouter::cancel()
{
    const QHash<int, QPointer<QWidget>> targets = m_targets;
    m_targets.clear();
    for (const QPointer<QWidget> &target : targets) {
        QTouchEvent event(QEvent::TouchCancel);
        if (target)
            QCoreApplication::sendEvent(target, &event);
    }
}

QWidget *TouchRouter::wantedAt(const QPoint &pos) const
{
    QWidget *widget = m_root->childAt(pos);
    while (widget && !m_wanted(widget))
        widget = widget == m_root ? nullptr : widget->parentWidget();
    return widget;
}

bool TouchRouter::isTouched(const QWidget *target) const
{
    return std::find(m_targets.cbegin(), m_targets.cend(), target) != m_targets.cend();
}

void TouchRouter::send(QWidget *target, const QTouchEvent &whole, const Points &points, bool isFirst) const
{
    const QPointF offset = target->mapTo(m_root, QPoint());
    Points own;
    for (const QTouchEvent::TouchPoint &point : points)
        own.append(translated(point, offset));

    QTouchEvent event(typeOf(own, isFirst), whole.device(), whole.modifiers(), statesOf(own), own);
    event.setTimestamp(whole.timestamp());
    event.setTarget(target);
    event.setWindow(whole.window());
    // What Qt does itself with touches from the window system only.
    if (isFirst && (target->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus)
        target->setFocus(Qt::MouseFocusReason);
    // Qt drops what follows a touch that was not accepted, or that it believes to be over: a finger that it
    // has joined to the target may have been lifted.
    if (!isFirst)
        target->setAttribute(Qt::WA_WState_AcceptedTouchBeginEvent);
    QCoreApplication::sendEvent(target, &event);
}

} // namespace Korvo::EC
