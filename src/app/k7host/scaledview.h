// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QGraphicsView>

namespace K7Host {

/// A window that shows another one reduced. Input and what opens inside go through the scale.
///
/// QT_SCALE_FACTOR cannot do this: below 1, Qt makes the windows smaller but not what is painted in them.
class ScaledView : public QGraphicsView
{
    Q_OBJECT

public:
    /// \a window has no parent; it stays the caller's, and outlives the view. It is shown with the view,
    /// which follows its size.
    ScaledView(QWidget *window, qreal factor);
    ~ScaledView() override;

    /// Null while the view is being destroyed.
    QWidget *shownWindow() const;

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    void followSize();

    const qreal m_factor;
    QGraphicsProxyWidget *const m_proxy; // owned by the scene
};

} // namespace K7Host
