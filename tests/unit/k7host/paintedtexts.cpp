// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "paintedtexts.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>
#include <QWidget>

namespace K7Host {

namespace {

/// Paints nothing, and notes the texts.
class TextEngine : public QPaintEngine
{
public:
    explicit TextEngine(const QRectF &area)
        : QPaintEngine(AllFeatures)
        , m_area(area)
    {
    }

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
    void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
    void drawPath(const QPainterPath &) override {}
    void drawTextItem(const QPointF &at, const QTextItem &item) override;
    Type type() const override { return User; }

    QVector<PaintedText> texts;

private:
    const QRectF m_area;
};

void TextEngine::drawTextItem(const QPointF &at, const QTextItem &item)
{
    if (item.text().trimmed().isEmpty())
        return;
    const QTransform toDevice = painter()->combinedTransform();
    PaintedText text;
    text.text = item.text();
    QRectF ink = QFontMetricsF(item.font()).tightBoundingRect(item.text()).translated(at);
    ink.setLeft(at.x());
    ink.setWidth(item.width());
    text.ink = toDevice.mapRect(ink);
    text.room = m_area;
    if (painter()->hasClipping())
        text.room &= toDevice.mapRect(painter()->clipBoundingRect());
    texts << text;
}

class TextDevice : public QPaintDevice
{
public:
    explicit TextDevice(const QWidget *widget)
        : m_widget(widget)
        , m_engine(widget->rect())
    {
    }

    QPaintEngine *paintEngine() const override { return &m_engine; }
    const QVector<PaintedText> &texts() const { return m_engine.texts; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        case PdmWidth:
            return m_widget->width();
        case PdmHeight:
            return m_widget->height();
        case PdmDpiX:
        case PdmPhysicalDpiX:
            return m_widget->logicalDpiX();
        case PdmDpiY:
        case PdmPhysicalDpiY:
            return m_widget->logicalDpiY();
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    const QWidget *const m_widget;
    mutable TextEngine m_engine;
};

} // namespace

QRectF pixelsOf(const QRectF &area, qreal factor)
{
    return QTransform::fromScale(factor, factor).mapRect(area).toAlignedRect();
}

QVector<PaintedText> paintedTexts(QWidget *widget)
{
    TextDevice device(widget);
    widget->render(&device, QPoint(), QRegion(), QWidget::RenderFlags());
    return device.texts();
}

} // namespace K7Host
