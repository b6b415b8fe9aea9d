// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QPoint>
#include <QPointer>
#include <QWidget>

namespace K7Host {

/// Fingers on a touch screen. It reports all that are down on a window, whenever one of them changes, to the
/// window; who gets what of it is decided there, as with any screen. GUI thread only.
class TouchScreen
{
public:
    TouchScreen() = default;

    bool isDown(int finger) const { return m_fingers.contains(finger); }

    /// \a at is in \a widget, which may be shown reduced. A finger that is down already is put elsewhere.
    void press(int finger, const QWidget *widget, const QPoint &at);
    /// The finger is down; it may leave the widget, not the window.
    void move(int finger, const QWidget *widget, const QPoint &at);
    void release(int finger, const QWidget *widget, const QPoint &at);

private:
    Q_DISABLE_COPY(TouchScreen)

    struct Finger
    {
        QPointer<QWidget> window; // a native one
        QPoint at;                // in the window
    };

    void report(QWidget *window, int changed, const QPoint &at, Qt::TouchPointState state) const;

    QMap<int, Finger> m_fingers; // those that are down
};

} // namespace K7Host
