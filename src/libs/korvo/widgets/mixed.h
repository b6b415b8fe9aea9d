// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

namespace Korvo::Widgets {

/// \a from with \a share, 0 to 1, of \a to in it; alpha too.
inline QColor mixed(const QColor &from, const QColor &to, qreal share)
{
    const auto part = [share](qreal a, qreal b) { return a + (b - a) * share; };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()), part(from.alphaF(), to.alphaF()));
}

} // namespace Korvo::Widgets
