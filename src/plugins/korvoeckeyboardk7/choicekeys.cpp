// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "choicekeys.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QKeyEvent>

namespace Korvo::Internal {

namespace {

/// From one id to the next; 0 for other keys.
int stepOf(const QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        return -1;
    case Qt::Key_Right:
    case Qt::Key_Down:
        return 1;
    default:
        return 0;
    }
}

} // namespace

ChoiceKeys::ChoiceKeys(QAbstractButton *button)
    : QObject(button)
    , m_button(button)
{
    button->installEventFilter(this);
}

bool ChoiceKeys::eventFilter(QObject *watched, QEvent *event)
{
    const QButtonGroup *group = m_button->group();
    const int step = event->type() == QEvent::KeyPress ? stepOf(static_cast<QKeyEvent *>(event)) : 0;
    if (watched != m_button || !group || step == 0)
        return QObject::eventFilter(watched, event);
    QAbstractButton *next = group->button(group->id(m_button) + step);
    if (!next || !next->isVisible() || !next->isEnabled())
        return true;
    if (m_button->isChecked())
        next->click();
    next->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

} // namespace Korvo::Internal
