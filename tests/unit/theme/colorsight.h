// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>

/// How colours are seen: by contrast, by distance, and by people with a colour-vision deficiency.
namespace ColorSight {

enum class Vision { Normal, Protanopia, Deuteranopia };

/// Relative luminance, 0 to 1 (WCAG 2).
double luminance(const QColor &color);

/// Contrast ratio, 1 to 21 (WCAG 2); the order does not matter.
double contrast(const QColor &one, const QColor &other);

/// CIE 1976 lightness, 0 to 100.
double lightness(const QColor &color);

/// CIE 1976 colour difference as somebody with \a vision sees it; about 2.3 can just be seen side by side.
double distance(const QColor &one, const QColor &other, Vision vision);

} // namespace ColorSight
