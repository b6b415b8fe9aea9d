// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "choicemenu.h"

#include <QActionGroup>

namespace K7Host {

ChoiceMenu::ChoiceMenu(const QString &title, QWidget *parent)
    : QMenu(title, parent)
    , m_choices(new QActionGroup(this))
{
    connect(m_choices, &QActionGroup::triggered, this,
            [this](const QAction *choice) { emit chosen(choice->data()); });
}

void ChoiceMenu::addChoice(const QString &text, const QVariant &value)
{
    QAction *choice = m_choices->addAction(text);
    choice->setCheckable(true);
    choice->setData(value);
    addAction(choice);
}

void ChoiceMenu::setChosen(const QVariant &value)
{
    // An exclusive group would keep the one that is checked where no other one is.
    m_choices->setExclusive(false);
    const QList<QAction *> choices = m_choices->actions();
    for (QAction *choice : choices)
        choice->setChecked(choice->data() == value);
    m_choices->setExclusive(true);
}

} // namespace K7Host
