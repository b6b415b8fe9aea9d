// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "languagemenu.h"

#include "applicationlanguage.h"

#include <QActionGroup>
#include <QMenu>
#include <QShortcut>

namespace K7Host {

LanguageMenu::LanguageMenu(ApplicationLanguage *language, QWidget *parent)
    : QToolButton(parent)
    , m_language(language)
    , m_choices(new QActionGroup(this))
{
    setObjectName(QStringLiteral("languageMenu"));
    setAccessibleName(QStringLiteral("Language"));
    setPopupMode(QToolButton::InstantPopup);
    setToolButtonStyle(Qt::ToolButtonTextOnly);

    auto *menu = new QMenu(this);
    const QStringList available = language->available();
    for (const QString &name : available) {
        QAction *choice = m_choices->addAction(language->nameOf(name));
        choice->setCheckable(true);
        choice->setData(name);
        menu->addAction(choice);
    }
    setMenu(menu);

    connect(m_choices, &QActionGroup::triggered, this, [this, language](const QAction *choice) {
        if (!language->choose(choice->data().toString()))
            showLanguage(language->current()); // the click has checked the other one
    });
    connect(language, &ApplicationLanguage::changed, this, &LanguageMenu::showLanguage);
    showLanguage(language->current());

    auto *next = new QShortcut(Qt::CTRL + Qt::Key_L, this);
    next->setContext(Qt::ApplicationShortcut);
    connect(next, &QShortcut::activated, language, &ApplicationLanguage::chooseNext);
}

void LanguageMenu::showLanguage(const QString &language)
{
    setText(m_language->nameOf(language));
    const QList<QAction *> choices = m_choices->actions();
    for (QAction *choice : choices)
        choice->setChecked(choice->data().toString() == language);
}

} // namespace K7Host
