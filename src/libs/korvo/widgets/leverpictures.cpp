// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "leverpictures.h"

#include <QPainter>
#include <QWidget>

#include <cmath>

namespace Korvo::Widgets {

namespace {

constexpr qreal metersPerInch = 0.0254;

/// Of \a place in \a lever; figures get the size that they have on its screen.
QPixmap pictureOf(const QWidget *lever, const QRect &place, const QColor &ground,
                  const std::function<void(QPainter *)> &paint)
{
    const bool isOpaque = ground.alpha() == 255;
    QImage picture(place.size(), isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    picture.setDotsPerMeterX(qRound(lever->logicalDpiX() / metersPerInch));
    picture.setDotsPerMeterY(qRound(lever->logicalDpiY() / metersPerInch));
    picture.fill(ground);
    QPainter painter(&picture);
    painter.translate(-place.topLeft());
    paint(&painter);
    painter.end();
    return QPixmap::fromImage(picture);
}

} // namespace

bool LeverPictures::suit(const QPainter &painter)
{
    const QTransform &transform = painter.deviceTransform();
    return transform.type() <= QTransform::TxTranslate && transform.dx() == qRound(transform.dx()) &&
           transform.dy() == qRound(transform.dy());
}

void LeverPictures::paintAnew(const QWidget *lever, const LeverGeometry &geometry, const LeverLook &look,
                              const std::function<void(QPainter *)> &paintGround)
{
    const QRect all = lever->rect();
    LeverLook shown = look;
    shown.percent = 0;
    m_atRest =
        pictureOf(lever, all, look.ground.isValid() ? look.ground : Qt::transparent, [&](QPainter *painter) {
            paintGround(painter);
            paintStillParts(painter, geometry, shown);
        });
    m_handlePlace = geometry.reach(0);
    m_handle = pictureOf(lever, m_handlePlace, Qt::transparent,
                         [&](QPainter *painter) { paintHandle(painter, geometry, shown); });

    shown.percent = 100;
    m_travelledPlace = all & geometry.ticks.united(geometry.slit).toAlignedRect();
    m_travelledPlace.setTop(all.top());
    m_travelledPlace.setBottom(all.bottom());
    m_travelled = pictureOf(lever, m_travelledPlace, Qt::transparent,
                            [&](QPainter *painter) { paintStillParts(painter, geometry, shown); });
}

void LeverPictures::copyTo(QPainter *painter, const LeverGeometry &geometry, double percent) const
{
    painter->drawPixmap(0, 0, m_atRest);
    if (percent > 0) {
        const double lastTick = percent - std::fmod(percent, percentPerTick);
        copyTravelled(painter, geometry, geometry.ticks, geometry.yAt(lastTick + percentPerTick / 2));
        copyTravelled(painter, geometry, geometry.slit, geometry.yAt(percent)); // ends behind the handle
    }
    const int way = qRound(geometry.yAt(percent)) - qRound(geometry.yAt(0));
    painter->drawPixmap(m_handlePlace.topLeft() + QPoint(0, way), m_handle);
}

/// In \a column, from where the lever starts to \a end.
void LeverPictures::copyTravelled(QPainter *painter, const LeverGeometry &geometry, const QRectF &column,
                                  qreal end) const
{
    QRect part = column.toAlignedRect();
    part.setTop(m_travelledPlace.top());
    part.setBottom(m_travelledPlace.bottom());
    if (geometry.yAt(0) > geometry.yAt(100))
        part.setTop(qRound(end));
    else
        part.setBottom(qRound(end) - 1);
    part &= m_travelledPlace;
    if (!part.isEmpty())
        painter->drawPixmap(part, m_travelled, part.translated(-m_travelledPlace.topLeft()));
}

} // namespace Korvo::Widgets
