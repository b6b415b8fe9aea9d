// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QRect>

/// How two pictures differ.
struct PictureComparison
{
    bool isSame = false;
    int count = 0;     ///< pixels that differ; of pictures of two sizes, those that only one of them has too
    QRect where;       ///< around all of them
    QImage difference; ///< the old picture in grey, what changed in red; null when nothing has
};

/// Compares \a now with \a golden, as strictly as somebody who looks for a change.
///
/// The same sources, font and Qt give the same pixels but for the rounding of colours between instruction
/// sets and optimizations: a few steps in gradients, and now and then a pixel at the edge of a letter. So a
/// pixel differs when one of its channels does by more than 8 of 255, and up to 8 pixels may. Any share of
/// the picture would be too much: a console half has room for a hundred keys, and the smallest change that
/// counts, a letter of 11 pixels for another one or moved by one pixel, is no more than a dozen pixels.
PictureComparison comparePictures(const QImage &golden, const QImage &now);
