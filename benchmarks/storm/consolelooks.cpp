// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolelooks.h"

#include <korvo/keyboard/constants.h>
#include <korvo/widgets/tbar.h>

#include <QLabel>
#include <QVariant>
#include <QWidget>

using Korvo::Widgets::tbar;

ConsoleLooks looksOf(const QWidget *window)
{
    ConsoleLooks looks;
    const auto widgets = window->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (const auto *lever = qobject_cast<const tbar *>(widget))
            looks.insert(widget, QString::number(lever->curValue()));
        else if (!widget->property(Korvo::Constants::PROPERTY_KORVOECKEY).isValid())
            continue;
        else if (const auto *label = qobject_cast<const QLabel *>(widget))
            looks.insert(widget, label->text());
        else
            looks.insert(widget, widget->styleSheet());
    }
    return looks;
}

int differenceOf(const ConsoleLooks &before, const ConsoleLooks &after)
{
    int count = 0;
    for (auto look = before.cbegin(); look != before.cend(); ++look)
        count += after.value(look.key()) != look.value();
    return count;
}
