// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "touchscreen.h"

#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QTest>
#include <QTouchDevice>

namespace K7Host {

namespace {

QTouchDevice *touchDevice()
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    return device;
}

/// The native window that shows a place in a widget, and where it does.
QPair<QWidget *, QPoint> nativePlace(const QWidget *widget, const QPoint &at)
{
    QWidget *window = widget->window();
    const QPoint inWindow = widget->mapTo(window, at);
    const QGraphicsProxyWidget *proxy = window->graphicsProxyWidget();
    if (!proxy || !proxy->scene() || proxy->scene()->views().isEmpty())
        return {window, inWindow};
    const QGraphicsView *view = proxy->scene()->views().at(0);
    const QPoint inView = view->mapFromScene(proxy->mapToScene(inWindow));
    return {view->window(), view->viewport()->mapTo(view->window(), inView)};
}

/// The same place seen from the native window that has the finger.
QPoint placeIn(const QWidget *window, const QWidget *widget, const QPoint &at)
{
    const auto place = nativePlace(widget, at);
    return place.first == window ? place.second
                                 : window->mapFromGlobal(place.first->mapToGlobal(place.second));
}

} // namespace

void TouchScreen::press(int finger, const QWidget *widget, const QPoint &at)
{
    const auto place = nativePlace(widget, at);
    m_fingers.insert(finger, {place.first, place.second});
    report(place.first, finger, place.second, Qt::TouchPointPressed);
}

void TouchScreen::move(int finger, const QWidget *widget, const QPoint &at)
{
    Finger &moved = m_fingers[finger];
    if (!moved.window)
        return;
    moved.at = placeIn(moved.window, widget, at);
    report(moved.window, finger, moved.at, Qt::TouchPointMoved);
}

void TouchScreen::release(int finger, const QWidget *widget, const QPoint &at)
{
    const Finger lifted = m_fingers.take(finger);
    if (lifted.window)
        report(lifted.window, finger, placeIn(lifted.window, widget, at), Qt::TouchPointReleased);
}

void TouchScreen::report(QWidget *window, int changed, const QPoint &at, Qt::TouchPointState state) const
{
    // A new one each time: a finger may go on while another one is still being reported.
    QTest::QTouchEventSequence sequence = QTest::touchEvent(window, touchDevice(), false);
    for (auto finger = m_fingers.cbegin(); finger != m_fingers.cend(); ++finger) {
        if (finger.key() != changed && finger->window == window)
            sequence.move(finger.key(), finger->at, window).stationary(finger.key());
    }
    if (state == Qt::TouchPointPressed)
        sequence.press(changed, at, window);
    else if (state == Qt::TouchPointMoved)
        sequence.move(changed, at, window);
    else
        sequence.release(changed, at, window);
    sequence.commit(false);
}

} // namespace K7Host
