// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tbar.h"

#include <QFont>
#include <QRect>

class QPainter;

namespace Korvo::Widgets {

constexpr double percentPerTick = 5; // from line to line of the scale

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

    /// The crossbar and the stem of the handle when it stands at the height \a y.
    QRectF crossbar(qreal y) const;
    QRectF stem(qreal y) const;

    /// All that looks different when the lever comes to \a percent, or leaves it: from the scale to the rail.
    QRect reach(double percent) const;

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
    QColor ground; ///< behind it; invalid where that is not the lever's own
};

/// Paint a lever: first the parts that stay where they are, of which percentages change but colours, then the
/// handle with its pointer. Edges are on whole device pixels whatever the painter's scale; the handle has the
/// same shape wherever it stands.
void paintStillParts(QPainter *painter, const LeverGeometry &geometry, const LeverLook &look);
void paintHandle(QPainter *painter, const LeverGeometry &geometry, const LeverLook &look);

} // namespace Korvo::Widgets
