// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QJsonValue>
#include <QString>

#include <optional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace K7Host {

/// Brings the visible \a widget to \a value with the keys, clicks and wheel that a person would use. What a
/// value is depends on the kind of the widget:
///   - a line edit: a text; an address editor: a dotted address;
///   - a spin box, slider, brightness editor or lever: a number;
///   - a switch, check box or other button that stays down: true or false;
///   - a combo box: the text of an item, or its number from 0;
///   - a date: as it shows, "05/11/2026";
///   - the time wheels: "13:05" or "13:05:09", "01:05 PM" where AM and PM show.
///
/// The reason, to be put behind the widget's name, when the widget is of another kind or has not come to the
/// value. A click may open a message box: this then returns when that is closed. GUI thread only.
std::optional<QString> setValue(QWidget *widget, const QJsonValue &value);

} // namespace K7Host
