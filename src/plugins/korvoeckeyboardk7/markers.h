// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QButtonGroup;
class QWidget;
QT_END_NAMESPACE

/// Dynamic properties that style sheets select on. They are set here and never read back.
namespace Korvo::ECKeyboard::K7::Internal {

/// Sets the marker \a name of \a widget to \a on and makes it take effect; costs nothing when it is so
/// already.
void setMarker(QWidget *widget, const char *name, bool on);

/// Sets the marker to true.
void mark(QWidget *widget, const char *name);

/// The same for every button of \a group.
void markAll(const QButtonGroup *group, const char *name);

} // namespace Korvo::ECKeyboard::K7::Internal
