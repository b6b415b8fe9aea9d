// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QGraphicsProxyWidget>
#include <QHash>
#include <QPointer>
#include <QTouchEvent>

namespace K7Host {

/// Puts a widget into a scene and hands touches on to the child widgets that the fingers came down on; the
/// base class knows only of touches on the widget as a whole. A finger that no widget takes acts as the
/// mouse.
class TouchProxy : public QGraphicsProxyWidget
{
    Q_OBJECT

public:
    explicit TouchProxy(QWidget *widget);

protected:
    bool event(QEvent *event) override;

private:
    bool handOut(const QTouchEvent &event);
    void cancel();
    QWidget *touchTargetAt(const QPointF &pos) const;
    bool isTouched(const QWidget *target) const;

    QHash<int, QPointer<QWidget>> m_targets; // by finger, for as long as it is down
};

} // namespace K7Host
