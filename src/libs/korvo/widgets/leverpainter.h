// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tbar.h"

#include <QFont>
#include <QRectF>

class QPainter;

namespace Korvo::Widgets {

/// Where the parts of a lever stand in its area, in logical pixels.
class LeverGeometry
{
public:
    LeverGeometry(const QRectF &area, const QFont &font, bool hasArrows, tbar::TbarDirection direction);

    /// The height on the screen of a percentage, and back; the latter is kept within 0 to 100.
    qreal yAt(double percent) const;
    double percentAt(qreal y) const;

    /// Percent that the lever gains when the handle goes down by \a distance.
    double percentOf(qreal distance) const;

    /// The crossbar and the stem of the handle at \a percent.
    QRectF crossbar(double percent) const;
    QRectF stem(double percent) const;

    QRectF labels;   ///< column of the scale's numbers
    QRectF ticks;    ///< column of the scale's lines
    QRectF pointers; ///< column of the mark that goes with the handle
    QRectF rail;
    QRectF slit; ///< in the rail, where the handle slides
    QRectF upArrow;
    QRectF downArrow;

private:
    qreal m_start = 0; // y of 0 percent
    qreal m_end = 0;   // y of 100 percent
};

/// What a lever shows. A struct of plain values, so that painting depends on nothing else.
struct LeverLook
{
    double percent = 0;
    tbar::TbarDirection direction = tbar::BottomToTop;
    bool hasArrows = false;
    bool isEnabled = true;
    bool isHeld = false;
    QFont font;
    QColor rail;
    QColor travel;
    QColor handle;
    QColor scale;
};

/// Paints a lever, with edges on whole device pixels whatever the painter's scale.
void paintLever(QPainter *painter, const LeverGeometry &geometry, const LeverLook &look);

} // namespace Korvo::Widgets
