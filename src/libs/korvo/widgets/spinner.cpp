// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "spinner.h"

#include <QPainter>
#include <QTimerEvent>

namespace Korvo::Widgets {

namespace {

const int frameMs = 40;
const int degreesPerFrame = 12;
const int arcDegrees = 100;

} // namespace

Spinner::Spinner(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Spinner::setColors(const QColor &arc, const QColor &background)
{
    if (m_arc == arc && m_background == background)
        return;
    m_arc = arc;
    m_background = background;
    setAttribute(Qt::WA_OpaquePaintEvent, background.alpha() == 255);
    update();
}

void Spinner::hideEvent(QHideEvent *event)
{
    m_isShown = false;
    m_timer.stop();
    QWidget::hideEvent(event);
}

void Spinner::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_isShown = true;
    update(); // a window that is no longer minimized comes back as it was
}

// Painting keeps it turning: nothing tells an embedded widget that the view around it is out of sight.
void Spinner::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    if (!m_isSeen)
        m_timer.stop();
    m_isSeen = false;
    m_angle = (m_angle + degreesPerFrame) % 360;
    update();
}

void Spinner::paintEvent(QPaintEvent *)
{
    m_isSeen = true;
    if (m_isShown && !m_timer.isActive())
        m_timer.start(frameMs, this);

    QPainter painter(this);
    if (testAttribute(Qt::WA_OpaquePaintEvent))
        painter.fillRect(rect(), m_background);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal width = height() / 8.0;
    const QRectF ring = QRectF(rect()).adjusted(width, width, -width, -width);
    QColor track = m_arc;
    track.setAlphaF(0.25);
    painter.setPen(QPen(track, width));
    painter.drawEllipse(ring);
    painter.setPen(QPen(m_arc, width, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(ring, (90 - m_angle) * 16, -arcDegrees * 16);
}

} // namespace Korvo::Widgets
