// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "hostactions.h"

#include "applicationlanguage.h"
#include "instruments.h"

#include <QAction>
#include <QCoreApplication>
#include <QWidget>

namespace K7Host {

namespace {

QAction *makeAction(const QString &text, const QKeySequence &keys, QWidget *window)
{
    auto *action = new QAction(text, window);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::ApplicationShortcut);
    window->addAction(action); // works although its menu is closed, or there is none
    return action;
}

} // namespace

QAction *makeQuitAction(QWidget *window)
{
    QAction *action = makeAction(QStringLiteral("&Quit"), Qt::CTRL + Qt::Key_Q, window);
    QObject::connect(action, &QAction::triggered, qApp, &QCoreApplication::quit);
    return action;
}

QAction *makeNextLanguageAction(ApplicationLanguage *language, QWidget *window)
{
    QAction *action = makeAction(QStringLiteral("&Next"), Qt::CTRL + Qt::Key_L, window);
    QObject::connect(action, &QAction::triggered, language, &ApplicationLanguage::chooseNext);
    return action;
}

QAction *makeInspectorAction(Instruments *instruments, QWidget *window)
{
    QAction *action = makeAction(QStringLiteral("&Inspector"), Qt::CTRL + Qt::Key_I, window);
    action->setCheckable(true);
    action->setChecked(instruments->isInspecting());
    QObject::connect(action, &QAction::triggered, instruments, &Instruments::setInspecting);
    QObject::connect(instruments, &Instruments::inspectingChanged, action, &QAction::setChecked);
    return action;
}

} // namespace K7Host
