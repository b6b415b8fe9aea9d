// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "touchproxy.h"

#include <QGraphicsView>
#include <QPointer>

namespace K7Host {

/// Shows a window in another size. Input and what opens inside go through the scale.
///
/// QT_SCALE_FACTOR cannot do this: below 1, Qt makes the windows smaller but not what is painted in them; and
/// it holds for the whole application, from its start to its end.
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

    /// Of the window.
    QSize nativeSize() const { return m_proxy->size().toSize(); }
    qreal factor() const { return m_factor; }
    void setFactor(qreal factor);

    /// Where Tab goes on behind the last widget, and Backtab before the first; it goes round in this view
    /// without one.
    void setNeighbor(ScaledView *view) { m_neighbor = view; }

Q_SIGNALS:
    /// The window has taken another size.
    void nativeSizeChanged();

protected:
    bool event(QEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    void followSize();
    void enterByTab(bool forwards);

    qreal m_factor;
    TouchProxy *const m_proxy; // owned by the scene
    QPointer<ScaledView> m_neighbor;
};

} // namespace K7Host
