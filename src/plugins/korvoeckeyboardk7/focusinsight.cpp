// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "focusinsight.h"

#include <QFocusEvent>
#include <QScrollArea>

namespace Korvo::Internal {

FocusInSight::FocusInSight(QScrollArea *area)
    : QObject(area)
    , m_area(area)
{
    const auto controls = area->widget()->findChildren<QWidget *>();
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
            m_area->ensureWidgetVisible(static_cast<QWidget *>(watched));
    }
    return QObject::eventFilter(watched, event);
}

} // namespace Korvo::Internal
