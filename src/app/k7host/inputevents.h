// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QEvent>
#include <QPoint>
#include <QString>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace K7Host {

/// Input events that widgets cannot tell from the window system's: spontaneous, through the application and
/// its filters, on to the parents when they are ignored, and moving the focus. They are delivered to the
/// given widget at once, whatever window or other widget is above it, whether it is shown reduced, and
/// however long the last click is ago: two presses make a double click only when they are sent as one.
///
/// A widget may be gone when these return. GUI thread only.

/// \a type is a press, double click, release or move of the left button; \a at is in the widget.
void sendMouse(QWidget *widget, QEvent::Type type, const QPoint &at);

/// \a delta is in eighths of a degree.
void sendWheel(QWidget *widget, const QPoint &at, const QPoint &delta);

/// One key goes down in \a widget, and comes up again in whatever has the focus then. \a key is a Qt::Key
/// with its modifiers.
void sendKey(QWidget *widget, int key);

/// The same for a key with that character on it.
void sendCharacter(QWidget *widget, QChar character);

} // namespace K7Host
