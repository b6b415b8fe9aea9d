// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QToolButton>

QT_BEGIN_NAMESPACE
class QActionGroup;
QT_END_NAMESPACE

namespace K7Host {

class ApplicationLanguage;

/// A button that shows the console's language and opens a menu of those that it can speak, each in its own
/// name. While it is visible, Ctrl+L goes on to the next one, wherever in the application the focus is.
class LanguageMenu : public QToolButton
{
    Q_OBJECT

public:
    /// \a language is not null and outlives the button.
    explicit LanguageMenu(ApplicationLanguage *language, QWidget *parent = nullptr);

private:
    void showLanguage(const QString &language);

    const ApplicationLanguage *const m_language;
    QActionGroup *const m_choices; // one action a language, whose data is its name
};

} // namespace K7Host
