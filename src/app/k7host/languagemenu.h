// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "choicemenu.h"

namespace K7Host {

class ApplicationLanguage;

/// A menu of the languages that the console can speak, each in its own name; the console's is checked.
class LanguageMenu : public ChoiceMenu
{
    Q_OBJECT

public:
    /// \a language is not null and outlives the menu.
    explicit LanguageMenu(ApplicationLanguage *language, QWidget *parent = nullptr);
};

} // namespace K7Host
