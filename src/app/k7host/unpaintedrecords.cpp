// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "unpaintedrecords.h"

#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QWindow>

#include <algorithm>

namespace K7Host {

namespace {

bool isOnScreen(const QWidget *window)
{
    if (const QGraphicsProxyWidget *proxy = window->graphicsProxyWidget()) {
        const auto views = proxy->scene() ? proxy->scene()->views() : QList<QGraphicsView *>();
        return std::any_of(views.cbegin(), views.cend(),
                           [](const QGraphicsView *view) { return isOnScreen(view->window()); });
    }
    return window->windowHandle() && window->windowHandle()->isExposed();
}

} // namespace

void UnpaintedRecords::add(const WidgetList &widgets, qint64 begin)
{
    const int number = ++m_lastNumber;
    for (const QPointer<QWidget> &widget : widgets) {
        // One that waits keeps its first record: its change is what the operator has waited for longest.
        if (!widget->isVisible() || !isOnScreen(widget->window()) || isWaiting(widget))
            continue;
        m_waiting.insert(widget, {widget, number});
        Record &record = m_records[number];
        record.begin = begin;
        ++record.waiting;
    }
}

void UnpaintedRecords::painted(const QObject *widget)
{
    if (!isWaiting(widget))
        return;
    Record &record = m_records[m_waiting.take(widget).record];
    --record.waiting;
    record.isBeingPainted = true;
    m_isPainting = true;
}

void UnpaintedRecords::handedOver(qint64 now)
{
    m_isPainting = false;
    for (Record &record : m_records) {
        if (record.isBeingPainted)
            record.end = now;
        record.isBeingPainted = false;
    }
}

void UnpaintedRecords::dropUnseen()
{
    for (auto it = m_waiting.begin(); it != m_waiting.end();) {
        const QWidget *widget = it->widget;
        const bool canBePainted = widget && widget->isVisible() && isOnScreen(widget->window()) &&
                                  !widget->visibleRegion().isEmpty();
        if (canBePainted) {
            ++it;
            continue;
        }
        --m_records[it->record].waiting;
        it = m_waiting.erase(it);
    }
}

std::vector<std::pair<qint64, qint64>> UnpaintedRecords::takeComplete()
{
    std::vector<std::pair<qint64, qint64>> times;
    for (auto it = m_records.begin(); it != m_records.end();) {
        if (it->waiting > 0) {
            ++it;
            continue;
        }
        if (it->end)
            times.emplace_back(it->begin, *it->end);
        it = m_records.erase(it);
    }
    return times;
}

bool UnpaintedRecords::isWaiting(const QObject *widget) const
{
    // A hash of addresses: another object may have got the one of a widget that is gone.
    const auto found = m_waiting.constFind(widget);
    return found != m_waiting.cend() && found->widget == widget;
}

} // namespace K7Host
