// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "languagemenu.h"

#include "applicationlanguage.h"

namespace K7Host {

LanguageMenu::LanguageMenu(ApplicationLanguage *language, QWidget *parent)
    : ChoiceMenu(QStringLiteral("&Language"), parent)
{
    const QStringList available = language->available();
    for (const QString &name : available)
        addChoice(language->nameOf(name), name);
    setChosen(language->current());

    connect(this, &ChoiceMenu::chosen, language, [this, language](const QVariant &name) {
        if (!language->choose(name.toString()))
            setChosen(language->current()); // the click has checked the other one
    });
    connect(language, &ApplicationLanguage::changed, this, &ChoiceMenu::setChosen);
}

} // namespace K7Host
