// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "leverpainter.h"

#include <QPixmap>

#include <functional>

class QWidget;

namespace Korvo::Widgets {

/// A lever in pictures: painted once, a move only copies their pixels. Drawing takes some fifty times as
/// long, and a record that moves the lever may come with every frame.
class LeverPictures
{
public:
    /// A painter that scales or turns would blur them: there the lever is drawn.
    static bool suit(const QPainter &painter);

    bool areEmpty() const { return m_atRest.isNull(); }

    /// Paints them for \a lever in \a look, at any percentage, over what \a paintGround paints.
    /// On an opaque ground they are opaque, so that no pixel has to be blended.
    void paintAnew(const QWidget *lever, const LeverGeometry &geometry, const LeverLook &look,
                   const std::function<void(QPainter *)> &paintGround);

    /// Shows the lever at \a percent; \a geometry as they were painted for. As much as the painter's clip
    /// lets through is copied.
    void copyTo(QPainter *painter, const LeverGeometry &geometry, double percent) const;

private:
    void copyTravelled(QPainter *painter, const LeverGeometry &geometry, const QRectF &column,
                       qreal end) const;

    QPixmap m_atRest;    // all but the handle, nothing travelled
    QPixmap m_travelled; // the same all travelled, of the columns where that shows
    QPixmap m_handle;    // with the pointer beside it
    QRect m_travelledPlace;
    QRect m_handlePlace; // at 0 percent
};

} // namespace Korvo::Widgets
