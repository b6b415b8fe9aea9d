// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRectF>
#include <QString>
#include <QVector>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace K7Host {

/// A line of text as a widget paints it.
///
/// A view that is reduced, and a display of more pixels, scale what was laid out once: lines break and end
/// where they do at the console's own size, and only the letters are fitted to the pixels that there are.
struct PaintedText
{
    QString text;
    QRectF ink;  ///< from its start to its end, as high as its letters, in the widget
    QRectF room; ///< what the widget leaves of them: itself, less what the painter cuts off
};

/// The pixels that something within \a area covers when it is shown at \a factor.
QRectF pixelsOf(const QRectF &area, qreal factor);

/// All that \a widget itself paints; its children are left out. Blank texts are too.
QVector<PaintedText> paintedTexts(QWidget *widget);

} // namespace K7Host
