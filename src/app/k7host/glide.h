// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QScrollArea>
#include <QVector>

QT_BEGIN_NAMESPACE
class QScroller;
QT_END_NAMESPACE

namespace K7Host {

/// Where a finger was along the scroll bar.
struct DragSample
{
    int place; // pixels
    qint64 ms;
};

QScrollBar *barOf(const QScrollArea *area, Qt::Orientation orientation);

/// The part of \a place that counts for a scroll bar.
int along(Qt::Orientation orientation, const QPoint &place);

/// Moves a page on that a finger has let go of. How, is QScroller's business.
class Glide : public QObject
{
    Q_OBJECT

public:
    Glide();

    /// Whether \a widget is in the area that moves, if any.
    bool moves(const QWidget *widget) const;
    void start(QScrollArea *area, Qt::Orientation orientation, const QVector<DragSample> &samples);
    void stop();

    bool event(QEvent *event) override;

private:
    QPointF position(const DragSample &sample) const;
    void moveTo(const QPointF &position);

    QScroller *const m_scroller;  // goes with this object
    QPointer<QScrollArea> m_area; // none when nothing moves
    Qt::Orientation m_orientation = Qt::Vertical;
    int m_start = 0; // values of the scroll bar: as it was let go of,
    int m_last = 0;  // and as it was set
};

} // namespace K7Host
