// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QBasicTimer>
#include <QColor>
#include <QWidget>

namespace Korvo::Widgets {

/// A ring with a turning arc. On an opaque background a turn paints nothing of what is around
/// or below.
class Spinner : public QWidget
{
    Q_OBJECT

public:
    explicit Spinner(QWidget *parent);

    bool isTurning() const { return m_timer.isActive(); }
    void setColors(const QColor &arc, const QColor &background);

protected:
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    QColor m_arc;
    QColor m_background;
    QBasicTimer m_timer;
    bool m_isShown = false; // false while minimized too, unlike isVisible()
    bool m_isSeen = false;  // painted since the last turn
    int m_angle = 0;        // degrees, clockwise from the top
};

} // namespace Korvo::Widgets
