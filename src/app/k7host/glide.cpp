// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "glide.h"

#include <QEvent>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QScroller>

namespace K7Host {

namespace {

constexpr qreal GlideDeceleration = 0.3; // metres per second, each second
constexpr qreal GlideRange = 1e6;        // pixels; the ends are the scroll bar's

} // namespace

QScrollBar *barOf(const QScrollArea *area, Qt::Orientation orientation)
{
    return orientation == Qt::Vertical ? area->verticalScrollBar() : area->horizontalScrollBar();
}

int along(Qt::Orientation orientation, const QPoint &place)
{
    return orientation == Qt::Vertical ? place.y() : place.x();
}

Glide::Glide()
    : m_scroller(QScroller::scroller(this))
{
    QScrollerProperties properties = m_scroller->scrollerProperties();
    properties.setScrollMetric(QScrollerProperties::DragStartDistance, 0.0);
    properties.setScrollMetric(QScrollerProperties::DecelerationFactor, GlideDeceleration);
    m_scroller->setScrollerProperties(properties);
}

bool Glide::moves(const QWidget *widget) const
{
    return m_scroller->state() == QScroller::Scrolling && m_area && m_area->isAncestorOf(widget);
}

/// The whole gesture is told at once, when it is over: in a scroller that is told of a drag a timer runs.
void Glide::start(QScrollArea *area, Qt::Orientation orientation, const QVector<DragSample> &samples)
{
    stop();
    m_area = area;
    m_orientation = orientation;
    m_start = m_last = barOf(area, orientation)->value();
    QScroller::Input input = QScroller::InputPress;
    for (const DragSample &sample : samples) {
        m_scroller->handleInput(input, position(sample), sample.ms);
        input = QScroller::InputMove;
    }
    m_scroller->handleInput(QScroller::InputRelease, position(samples.constLast()), samples.constLast().ms);
    if (m_scroller->state() != QScroller::Scrolling)
        stop(); // it was too slow
}

void Glide::stop()
{
    m_area.clear();
    m_scroller->stop();
}

bool Glide::event(QEvent *event)
{
    if (event->type() == QEvent::ScrollPrepare) {
        auto *prepare = static_cast<QScrollPrepareEvent *>(event);
        prepare->setContentPosRange({-GlideRange, -GlideRange, 2 * GlideRange, 2 * GlideRange});
        prepare->setContentPos({0, 0});
        prepare->accept();
        return true;
    }
    if (event->type() != QEvent::Scroll)
        return QObject::event(event);
    if (m_scroller->state() == QScroller::Scrolling)
        moveTo(static_cast<QScrollEvent *>(event)->contentPos());
    return true;
}

QPointF Glide::position(const DragSample &sample) const
{
    return m_orientation == Qt::Vertical ? QPointF(0, sample.place) : QPointF(sample.place, 0);
}

void Glide::moveTo(const QPointF &position)
{
    QScrollBar *bar = m_area ? barOf(m_area, m_orientation) : nullptr;
    if (!bar || !m_area->isVisible() || bar->value() != m_last)
        return stop(); // somebody else has moved it
    const int wanted = m_start + along(m_orientation, position.toPoint());
    bar->setValue(wanted);
    m_last = bar->value();
    if (m_last != wanted)
        stop(); // at its end
}

} // namespace K7Host
