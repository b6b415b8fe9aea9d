// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "colorsight.h"

#include <QtGlobal>

#include <array>
#include <cmath>

namespace ColorSight {

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

Triple linearLight(const QColor &color)
{
    return {linear(color.redF()), linear(color.greenF()), linear(color.blueF())};
}

Triple multiplied(const Matrix &matrix, const Triple &vector)
{
    Triple result{};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column)
            result[row] += matrix[row][column] * vector[column];
    }
    return result;
}

/// Machado, Oliveira and Fernandes (2009), severity 1.0, on linear light.
Triple seenBy(Vision vision, const Triple &light)
{
    static constexpr Matrix protanopia{
        {{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}};
    static constexpr Matrix deuteranopia{
        {{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}};
    if (vision == Vision::Normal)
        return light;
    Triple seen = multiplied(vision == Vision::Protanopia ? protanopia : deuteranopia, light);
    for (double &channel : seen)
        channel = qBound(0.0, channel, 1.0);
    return seen;
}

double labCurve(double value)
{
    return value > 216.0 / 24389 ? std::cbrt(value) : (value * 24389 / 27 + 16) / 116;
}

/// CIE L*a*b* under D65.
Triple lab(const Triple &light)
{
    static constexpr Matrix toXyz{{{0.4124564, 0.3575761, 0.1804375},
                                   {0.2126729, 0.7151522, 0.0721750},
                                   {0.0193339, 0.1191920, 0.9503041}}};
    const Triple xyz = multiplied(toXyz, light);
    const double x = labCurve(xyz[0] / 0.95047);
    const double y = labCurve(xyz[1]);
    const double z = labCurve(xyz[2] / 1.08883);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

} // namespace

double luminance(const QColor &color)
{
    const Triple light = linearLight(color);
    return 0.2126 * light[0] + 0.7152 * light[1] + 0.0722 * light[2];
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return qMax(a, b) / qMin(a, b);
}

double lightness(const QColor &color)
{
    return lab(linearLight(color))[0];
}

double distance(const QColor &one, const QColor &other, Vision vision)
{
    const Triple a = lab(seenBy(vision, linearLight(one)));
    const Triple b = lab(seenBy(vision, linearLight(other)));
    return std::sqrt((a[0] - b[0]) * (a[0] - b[0]) + (a[1] - b[1]) * (a[1] - b[1]) +
                     (a[2] - b[2]) * (a[2] - b[2]));
}

} // namespace ColorSight
