// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/ec/export.h>

#include <QHash>
#include <QPointer>
#include <QTouchEvent>
#include <QWidget>

namespace Korvo::EC {

/// Hands touches on to the widgets that the fingers came down on, each finger to its own until it is lifted.
///
/// Qt does so too, but not while another finger, or a hand, rests on a frame around the widget: it then takes
/// the new finger for one more of the frame's. GUI thread only.
class KORVO_EC_EXPORT TouchRouter
{
public:
    using Points = QList<QTouchEvent::TouchPoint>;
    /// Whether the fingers that come down on a widget are routed to it.
    using Wanted = bool (*)(const QWidget *);

    /// Routes to the innermost wanted widget at or around a point of \a root; does not own \a root.
    TouchRouter(QWidget *root, Wanted wanted);

    /// Sends on what is for wanted widgets, and returns the other points. Positions are those of the root.
    Points route(const QTouchEvent &event);

    /// Ends all touches that were routed, as cancelled.
    void cancel();

private:
    QWidget *wantedAt(const QPoint &pos) const;
    bool isTouched(const QWidget *target) const;
    void send(QWidget *target, const QTouchEvent &whole, const Points &points, bool isFirst) const;

    QWidget *const m_root;
    const Wanted m_wanted;
    QHash<int, QPointer<QWidget>> m_targets; // by finger; null when its widget was deleted
};

} // namespace Korvo::EC
