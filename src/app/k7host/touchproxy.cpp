// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "touchproxy.h"

#include <QCoreApplication>
#include <QWidget>

namespace K7Host {

namespace {

bool takesTouches(const QWidget *widget)
{
    return widget->testAttribute(Qt::WA_AcceptTouchEvents);
}

} // namespace

TouchProxy::TouchProxy(QWidget *widget)
    : m_router(widget, takesTouches)
{
    setWidget(widget);
    setAcceptTouchEvents(true);
}

bool TouchProxy::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd: {
        // The scene keeps only the mouse from what a modal dialog blocks.
        if (isBlockedByModalPanel()) {
            event->ignore();
            return true;
        }
        const auto *touch = static_cast<QTouchEvent *>(event);
        event->setAccepted(m_router.route(*touch).size() < touch->touchPoints().size());
        return true;
    }
    case QEvent::TouchCancel:
        m_router.cancel();
        return true;
    default:
        return QGraphicsProxyWidget::event(event);
    }
}

QVariant TouchProxy::itemChange(GraphicsItemChange change, const QVariant &value)
{
    if (change == ItemChildAddedChange)
        watch(value.value<QGraphicsItem *>());
    return QGraphicsProxyWidget::itemChange(change, value);
}

/// The child is about to be made: it has no widget before it is shown, nor is it known whether it is modal.
void TouchProxy::watch(QGraphicsItem *child)
{
    const QGraphicsObject *object = child->toGraphicsObject();
    if (!object)
        return;
    connect(object, &QGraphicsObject::visibleChanged, this, [this, child] {
        auto *proxy = qgraphicsitem_cast<QGraphicsProxyWidget *>(child);
        if (proxy && proxy->widget() && proxy->isVisible())
            placeDialog(proxy);
    });
}

void TouchProxy::placeDialog(QGraphicsProxyWidget *dialog)
{
    if (!dialog->widget()->isModal()) {
        dialog->setPanelModality(NonModal);
        return;
    }
    dialog->setPanelModality(SceneModal);
    dialog->setPos(dialog->pos() + rect().center() -
                   mapRectFromItem(dialog, dialog->windowFrameRect()).center());
    dialog->setActive(true);
    // Keys that are held come up.
    m_router.cancel();
    QEvent deactivate(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(widget(), &deactivate);
}

} // namespace K7Host
