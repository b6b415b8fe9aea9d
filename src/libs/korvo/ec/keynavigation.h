// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/ec/export.h>

#include <QRect>
#include <QVector>

namespace Korvo::EC {

class K7DropButton;

enum class Direction { Left, Right, Up, Down };

/// The index of the one of \a places that an arrow key goes to from \a start, -1 when there is none.
///
/// That is the nearest one in \a direction of the same row, or column for up and down: of those that share
/// at least half of the smaller one's extent. Without one it is the nearest within 45 degrees, where what
/// lies aside counts double. Nothing wraps round. Of equally good places the first one holds.
KORVO_EC_EXPORT int nearestPlace(const QRect &start, const QVector<QRect> &places, Direction direction);

/// Moves the focus to the nearest key of the same window in \a direction. Keys that are hidden, disabled or
/// take no focus by the keyboard are passed over. False when there is none, and the focus stays.
KORVO_EC_EXPORT bool moveFocus(const K7DropButton *from, Direction direction);

} // namespace Korvo::EC
