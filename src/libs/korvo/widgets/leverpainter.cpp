// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "leverpainter.h"

#include "mixed.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>

namespace Korvo::Widgets {

namespace {

const qreal margin = 7;
const qreal rightMargin = 14; // panels a little narrower than the lever cut none of it off
const qreal gap = 4;
const qreal longTick = 9;
const qreal pointerWidth = 7;
const qreal arrowHeight = 12;
const qreal slitWidth = 12;
const qreal crossbarHeight = 26;
const qreal stemHeight = 16;
const qreal stemWidth = 30;
const qreal shadowHeight = 4;

// Moves edges onto whole device pixels, as long as the painter neither turns nor shears.
class PixelGrid
{
public:
    explicit PixelGrid(const QTransform &transform)
    {
        if (transform.type() > QTransform::TxScale)
            return;
        m_scale = QPointF(transform.m11(), transform.m22());
        m_offset = QPointF(transform.dx(), transform.dy());
    }

    qreal x(qreal value) const
    {
        return (qRound(value * m_scale.x() + m_offset.x()) - m_offset.x()) / m_scale.x();
    }
    qreal y(qreal value) const
    {
        return (qRound(value * m_scale.y() + m_offset.y()) - m_offset.y()) / m_scale.y();
    }

    QRectF rect(const QRectF &rect) const
    {
        return QRectF(QPointF(x(rect.left()), y(rect.top())), QPointF(x(rect.right()), y(rect.bottom())));
    }

    // A line of \a thickness, at least one device pixel of it, centred on \a y.
    QRectF line(qreal left, qreal right, qreal centre, qreal thickness) const
    {
        const qreal onDevice = qMax(qreal(1), qreal(qRound(thickness * m_scale.y()))) / m_scale.y();
        return QRectF(x(left), y(centre - onDevice / 2), x(right) - x(left), onDevice);
    }

private:
    QPointF m_scale{1, 1};
    QPointF m_offset;
};

class LeverPainter
{
    Q_DISABLE_COPY(LeverPainter)

public:
    LeverPainter(QPainter *painter, const LeverGeometry &geometry, const LeverLook &look)
        : m_painter(painter)
        , m_geometry(geometry)
        , m_look(look)
        , m_grid(painter->deviceTransform())
        , m_y(m_grid.y(geometry.yAt(look.percent)))
    {
        m_painter->save();
        m_painter->setPen(Qt::NoPen);
    }
    ~LeverPainter() { m_painter->restore(); }

    void paintStillParts()
    {
        paintScale();
        paintRail();
        if (m_look.hasArrows)
            paintArrows();
    }
    void paintHandle();
    void paintPointer();

private:
    void paintScale();
    void paintLabel(int percent);
    void paintRail();
    void paintArrows();
    void fillRounded(const QRectF &rect, qreal radius, const QBrush &brush);
    void fillTriangle(const QPointF &a, const QPointF &b, const QPointF &c, const QColor &color);

    QPainter *const m_painter;
    const LeverGeometry &m_geometry;
    const LeverLook &m_look;
    const PixelGrid m_grid;
    const qreal m_y; // of the handle, on a whole pixel
};

void LeverPainter::fillRounded(const QRectF &rect, qreal radius, const QBrush &brush)
{
    m_painter->setRenderHint(QPainter::Antialiasing, true);
    m_painter->setBrush(brush);
    m_painter->drawRoundedRect(m_grid.rect(rect), radius, radius);
    m_painter->setRenderHint(QPainter::Antialiasing, false);
}

void LeverPainter::fillTriangle(const QPointF &a, const QPointF &b, const QPointF &c, const QColor &color)
{
    QPainterPath path(a);
    path.lineTo(b);
    path.lineTo(c);
    path.closeSubpath();
    m_painter->setRenderHint(QPainter::Antialiasing, true);
    m_painter->fillPath(path, color);
    m_painter->setRenderHint(QPainter::Antialiasing, false);
}

void LeverPainter::paintScale()
{
    const QColor ahead = mixed(m_look.rail, m_look.scale, 0.6);
    for (int percent = 0; percent <= 100; percent += int(percentPerTick)) {
        const bool isLabelled = percent % 50 == 0;
        const qreal length = isLabelled ? longTick : percent % 10 == 0 ? longTick * 0.7 : longTick * 0.4;
        const bool isTravelled = m_look.percent > 0 && percent <= m_look.percent;
        m_painter->fillRect(m_grid.line(m_geometry.ticks.right() - length, m_geometry.ticks.right(),
                                        m_geometry.yAt(percent), isLabelled ? 2 : 1),
                            isTravelled  ? m_look.travel
                            : isLabelled ? m_look.scale
                                         : ahead);
        if (isLabelled)
            paintLabel(percent);
    }
}

void LeverPainter::paintLabel(int percent)
{
    const QFontMetricsF metrics(m_look.font);
    const QRectF digits = metrics.tightBoundingRect(QStringLiteral("0"));
    const QString text = QString::number(percent);
    const qreal baseline = m_geometry.yAt(percent) - digits.center().y();
    m_painter->setFont(m_look.font);
    m_painter->setPen(m_look.scale);
    m_painter->drawText(QPointF(m_geometry.labels.right() - metrics.width(text), m_grid.y(baseline)), text);
    m_painter->setPen(Qt::NoPen);
}

void LeverPainter::paintRail()
{
    const QRectF &rail = m_geometry.rail;
    fillRounded(rail, 7, mixed(m_look.rail, m_look.handle, 0.3));
    fillRounded(rail.adjusted(1, 1, -1, -1), 6, m_look.rail);

    const QRectF &slit = m_geometry.slit;
    fillRounded(slit, slitWidth / 2, mixed(m_look.rail, m_look.handle, 0.38));
    fillRounded(slit.adjusted(1, 1, -1, -1), slitWidth / 2 - 1, mixed(m_look.rail, Qt::black, 0.6));

    if (m_look.percent <= 0)
        return;
    QRectF travelled = slit.adjusted(3, 3, -3, -3);
    if (m_look.direction == tbar::BottomToTop)
        travelled.setTop(m_geometry.yAt(m_look.percent));
    else
        travelled.setBottom(m_geometry.yAt(m_look.percent));
    fillRounded(travelled, travelled.width() / 2, m_look.travel);
}

void LeverPainter::paintArrows()
{
    const QColor unlit = mixed(m_look.rail, m_look.handle, 0.35);
    const bool isUp = m_look.direction == tbar::BottomToTop;
    const QRectF &up = m_geometry.upArrow;
    fillTriangle(up.bottomLeft(), QPointF(up.center().x(), up.top()), up.bottomRight(),
                 isUp ? m_look.travel : unlit);
    const QRectF &down = m_geometry.downArrow;
    fillTriangle(down.topLeft(), QPointF(down.center().x(), down.bottom()), down.topRight(),
                 isUp ? unlit : m_look.travel);
}

void LeverPainter::paintHandle()
{
    // A lever that cannot be moved lies darker, without the grip; what it tells stays as bright.
    QColor body = m_look.isEnabled ? m_look.handle : mixed(m_look.handle, m_look.rail, 0.35);
    if (m_look.isHeld)
        body = mixed(body, Qt::white, 0.4);
    const QColor dark = mixed(body, Qt::black, 0.45);

    const QRectF stem = m_geometry.stem(m_y);
    const QRectF crossbar = m_geometry.crossbar(m_y);
    const QColor shadow(0, 0, 0, 130);
    fillRounded(stem.adjusted(-2, 0, 2, 3), 5, shadow);
    fillRounded(crossbar.adjusted(-2, 0, 2, shadowHeight), 6, shadow);

    fillRounded(stem, 4, mixed(dark, Qt::black, 0.25));
    fillRounded(stem.adjusted(1, 0, -1, -1), 3, dark);

    QLinearGradient shine(crossbar.topLeft(), crossbar.bottomLeft());
    shine.setColorAt(0, mixed(body, Qt::white, 0.35));
    shine.setColorAt(0.12, body);
    shine.setColorAt(1, mixed(body, Qt::black, 0.3));
    fillRounded(crossbar, 5, mixed(dark, Qt::black, 0.4));
    fillRounded(crossbar.adjusted(1, 1, -1, -1), 4, shine);

    const qreal centre = crossbar.center().y();
    if (m_look.isEnabled) {
        for (const qreal offset : {-8.0, -4.0, 4.0, 8.0})
            m_painter->fillRect(m_grid.line(crossbar.left() + 9, crossbar.right() - 9, centre + offset, 1),
                                dark);
    }
    m_painter->fillRect(m_grid.line(crossbar.left() + 1, crossbar.right() - 1, centre, 2),
                        m_look.isEnabled ? mixed(m_look.rail, Qt::black, 0.4)
                                         : mixed(m_look.handle, Qt::white, 0.5));
}

void LeverPainter::paintPointer()
{
    const QRectF &column = m_geometry.pointers;
    fillTriangle(QPointF(column.left(), m_y), QPointF(column.right(), m_y - 6),
                 QPointF(column.right(), m_y + 6), m_look.travel);
}

} // namespace

LeverGeometry::LeverGeometry(const QRectF &area, const QFont &font, bool hasArrows,
                             tbar::TbarDirection direction)
{
    const QRectF inner = area.adjusted(margin, margin, -rightMargin, -margin);
    const auto column = [&inner](qreal left, qreal width) {
        return QRectF(left, inner.top(), width, inner.height());
    };
    labels = column(inner.left(), qCeil(QFontMetricsF(font).width(QStringLiteral("100"))));
    ticks = column(labels.right() + gap, longTick);
    pointers = column(ticks.right() + 2, pointerWidth);
    rail = column(pointers.right() + 2, inner.right() - pointers.right() - 2);

    const qreal arrowSpace = hasArrows ? arrowHeight + 2 * gap : 0;
    const qreal slitLeft = qRound(rail.center().x() - slitWidth / 2);
    slit = QRectF(slitLeft, rail.top() + arrowSpace + 6, slitWidth, rail.height() - 2 * arrowSpace - 12);
    upArrow = QRectF(slit.center().x() - arrowHeight, rail.top() + 2 * gap, 2 * arrowHeight, arrowHeight);
    downArrow = upArrow.translated(0, rail.bottom() - 2 * gap - upArrow.bottom());

    const qreal upper = slit.top() + crossbarHeight / 2;
    const qreal lower = qMax(upper + 1, slit.bottom() - crossbarHeight / 2 - stemHeight);
    m_start = direction == tbar::BottomToTop ? lower : upper;
    m_end = direction == tbar::BottomToTop ? upper : lower;
}

qreal LeverGeometry::yAt(double percent) const
{
    return m_start + (m_end - m_start) * percent / 100;
}

double LeverGeometry::percentAt(qreal y) const
{
    return qBound(0.0, (y - m_start) / (m_end - m_start) * 100, 100.0);
}

double LeverGeometry::percentOf(qreal distance) const
{
    return distance / (m_end - m_start) * 100;
}

QRectF LeverGeometry::crossbar(qreal y) const
{
    return QRectF(rail.left() + 5, y - crossbarHeight / 2, rail.width() - 10, crossbarHeight);
}

QRectF LeverGeometry::stem(qreal y) const
{
    return QRectF(slit.center().x() - stemWidth / 2, y + crossbarHeight / 2 - 4, stemWidth, stemHeight + 2);
}

QRect LeverGeometry::reach(double percent) const
{
    const qreal y = yAt(percent);
    const QRectF handle = crossbar(y).united(stem(y).adjusted(0, 0, 0, shadowHeight));
    return QRectF(QPointF(ticks.left(), handle.top()), QPointF(rail.right(), handle.bottom()))
        .adjusted(-2, -2, 2, 2) // painted on whole pixels of a device that may be coarser
        .toAlignedRect();
}

void paintStillParts(QPainter *painter, const LeverGeometry &geometry, const LeverLook &look)
{
    LeverPainter(painter, geometry, look).paintStillParts();
}

void paintHandle(QPainter *painter, const LeverGeometry &geometry, const LeverLook &look)
{
    LeverPainter lever(painter, geometry, look);
    lever.paintHandle();
    lever.paintPointer();
}

} // namespace Korvo::Widgets
