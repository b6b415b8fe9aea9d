// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "latescrollarea.h"

#include <QEvent>

namespace Korvo::Internal {

void LateScrollArea::setWidget(QWidget *widget)
{
    if (testAttribute(Qt::WA_WState_Polished)) {
        QScrollArea::setWidget(widget);
        return;
    }
    m_widget = widget;
    widget->setParent(viewport());
}

bool LateScrollArea::event(QEvent *event)
{
    const bool isHandled = QScrollArea::event(event);
    if (event->type() == QEvent::Polish && m_widget) {
        QScrollArea::setWidget(m_widget);
        m_widget.clear();
    }
    return isHandled;
}

} // namespace Korvo::Internal
