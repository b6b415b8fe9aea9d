// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

class QAbstractButton;
class QPainter;

namespace Korvo::EC {

/// Paints \a key, all of it, in its state and in the colours of its palette: the picture that its style sheet
/// names, and on it its icon, or else its lettering. GUI thread only.
void paintKey(QPainter *painter, const QAbstractButton *key);

} // namespace Korvo::EC
