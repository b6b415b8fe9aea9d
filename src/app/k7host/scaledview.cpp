// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "scaledview.h"

#include "scaledviewaccessible.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGraphicsScene>

namespace K7Host {

namespace {

/// The first or last widget of a window that Tab stops at, null when there is none.
QWidget *endOfTabs(const QWidget *window, bool isFirst)
{
    QWidget *end = nullptr;
    for (QWidget *widget = window->nextInFocusChain(); widget != window;
         widget = widget->nextInFocusChain()) {
        const bool isStop = (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() &&
                            widget->isEnabled() && !widget->focusProxy();
        if (isStop && isFirst)
            return widget;
        if (isStop)
            end = widget;
    }
    return end;
}

} // namespace

ScaledView::ScaledView(QWidget *window, qreal factor)
    : QGraphicsView(new QGraphicsScene)
    , m_factor(factor)
    , m_proxy(new TouchProxy(window))
{
    ScaledViewAccessible::install();
    scene()->setParent(this);
    scene()->addItem(m_proxy);
    viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
    setWindowTitle(window->windowTitle());
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    // The window alone decides on its size.
    m_proxy->setMinimumSize(0, 0);
    m_proxy->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    // Only this view keeps the application running.
    window->setAttribute(Qt::WA_QuitOnClose, false);
    connect(m_proxy, &QGraphicsWidget::geometryChanged, this, [this] {
        followSize();
        emit nativeSizeChanged();
    });
    connect(m_proxy, &TouchProxy::tabbedOut, this,
            [this](bool forwards) { (m_neighbor ? m_neighbor.data() : this)->enterByTab(forwards); });
    setFactor(factor);
    m_proxy->setFocus();
}

ScaledView::~ScaledView()
{
    // It would delete the window.
    m_proxy->setWidget(nullptr);
}

QWidget *ScaledView::shownWindow() const
{
    return m_proxy->widget();
}

void ScaledView::setFactor(qreal factor)
{
    m_factor = factor;
    setTransform(QTransform::fromScale(factor, factor));
    followSize();
}

// The scene keeps the ends of touches and of activity to itself, but keys that are held must come up.

bool ScaledView::event(QEvent *event)
{
    const bool isEnd = event->type() == QEvent::WindowDeactivate || event->type() == QEvent::WindowBlocked ||
                       event->type() == QEvent::Hide;
    if (isEnd) {
        QEvent deactivate(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(m_proxy->widget(), &deactivate);
    }
    return QGraphicsView::event(event);
}

bool ScaledView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::TouchCancel)
        return scene()->sendEvent(m_proxy, event);
    return QGraphicsView::viewportEvent(event);
}

void ScaledView::enterByTab(bool forwards)
{
    activateWindow();
    setFocus();
    if (QWidget *stop = endOfTabs(m_proxy->widget(), forwards))
        stop->setFocus(forwards ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

void ScaledView::followSize()
{
    setSceneRect(m_proxy->geometry());
    setFixedSize((m_proxy->size() * m_factor).toSize());
}

} // namespace K7Host
