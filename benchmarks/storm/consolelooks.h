// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QString>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/// What records have made of the keys, the labels and the lever below a window.
using ConsoleLooks = QHash<const QWidget *, QString>;

ConsoleLooks looksOf(const QWidget *window);

/// How many look otherwise in \a after.
int differenceOf(const ConsoleLooks &before, const ConsoleLooks &after);
