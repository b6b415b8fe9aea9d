// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "markers.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QStyle>
#include <QVariant>

namespace Korvo::ECKeyboard::K7::Internal {

void setMarker(QWidget *widget, const char *name, bool on)
{
    const QVariant current = widget->property(name);
    if (current.type() == QVariant::Bool && current.toBool() == on)
        return;

    widget->setProperty(name, on);
    if (widget->testAttribute(Qt::WA_WState_Polished)) {
        widget->style()->unpolish(widget);
        widget->style()->polish(widget);
        widget->update();
    }
}

void mark(QWidget *widget, const char *name)
{
    setMarker(widget, name, true);
}

void markAll(const QButtonGroup *group, const char *name)
{
    const QList<QAbstractButton *> buttons = group->buttons();
    for (QAbstractButton *button : buttons)
        mark(button, name);
}

} // namespace Korvo::ECKeyboard::K7::Internal
