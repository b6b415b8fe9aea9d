// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>
#include <QVariant>

QT_BEGIN_NAMESPACE
class QActionGroup;
QT_END_NAMESPACE

namespace K7Host {

/// A menu of which one entry at most is chosen.
class ChoiceMenu : public QMenu
{
    Q_OBJECT

public:
    explicit ChoiceMenu(const QString &title, QWidget *parent = nullptr);

    /// Adds an entry that stands for \a value.
    void addChoice(const QString &text, const QVariant &value);
    /// Checks the entry of \a value, or none when there is none, and tells nobody.
    void setChosen(const QVariant &value);

Q_SIGNALS:
    /// Somebody clicked the entry of \a value. It is checked now.
    void chosen(const QVariant &value);

private:
    QActionGroup *const m_choices; // one action an entry, whose data is its value
};

} // namespace K7Host
