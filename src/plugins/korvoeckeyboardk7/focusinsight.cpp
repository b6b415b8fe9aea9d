// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "focusinsight.h"

#include <QFocusEvent>
#include <QScrollArea>

namespace Korvo::Internal {

namespace {

constexpr int Margin = 50; // pixels that are shown above and below

} // namespace

FocusInSight::FocusInSight(QScrollArea *area)
    : QObject(area)
    , m_area(area)
{
    const auto controls = area->viewport()->findChildren<QWidget *>();
    for (QWidget *control : controls) {
        if (control->focusPolicy() & Qt::TabFocus)
            control->installEventFilter(this);
    }
}

bool FocusInSight::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
            bringInSight(static_cast<QWidget *>(watched));
    }
    return QObject::eventFilter(watched, event);
}

// Not ensureWidgetVisible(): of a field it brings only the cursor in sight.
void FocusInSight::bringInSight(const QWidget *control)
{
    const QRect place(control->mapTo(m_area->widget(), QPoint()), control->size());
    m_area->ensureVisible(place.center().x(), place.center().y(), place.width() / 2,
                          place.height() / 2 + Margin);
}

} // namespace Korvo::Internal
