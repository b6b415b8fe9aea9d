// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "picturecomparison.h"

#include <QPoint>

namespace {

constexpr int LargestStep = 8; // of 255, in a channel
constexpr int LargestCount = 8;
constexpr QRgb Changed = qRgb(255, 0, 0);

bool isSamePixel(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) <= LargestStep && qAbs(qGreen(a) - qGreen(b)) <= LargestStep &&
           qAbs(qBlue(a) - qBlue(b)) <= LargestStep;
}

/// Paler than it was, so that red stands out on any of it.
QRgb greyedOut(QRgb pixel)
{
    const int grey = 64 + qGray(pixel) / 2;
    return qRgb(grey, grey, grey);
}

const QRgb *line(const QImage &image, int y)
{
    return reinterpret_cast<const QRgb *>(image.constScanLine(y));
}

} // namespace

PictureComparison comparePictures(const QImage &golden, const QImage &now)
{
    const QImage before = golden.convertToFormat(QImage::Format_RGB32);
    const QImage after = now.convertToFormat(QImage::Format_RGB32);
    PictureComparison result;
    result.isSame = before == after;
    if (result.isSame)
        return result;

    const QSize both = before.size().boundedTo(after.size());
    const QSize all = before.size().expandedTo(after.size());
    QImage difference(all, QImage::Format_RGB32);
    for (int y = 0; y < all.height(); ++y) {
        auto *const marked = reinterpret_cast<QRgb *>(difference.scanLine(y));
        const int width = y < both.height() ? both.width() : 0;
        for (int x = 0; x < all.width(); ++x) {
            if (x < width && isSamePixel(line(before, y)[x], line(after, y)[x])) {
                marked[x] = greyedOut(line(before, y)[x]);
                continue;
            }
            marked[x] = Changed;
            ++result.count;
            result.where |= QRect(x, y, 1, 1);
        }
    }
    result.isSame = before.size() == after.size() && result.count <= LargestCount;
    if (!result.isSame)
        result.difference = difference;
    return result;
}
