// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QVariantAnimation>
#include <QVector>
#include <QWidget>

class QTouchEvent;

namespace Korvo::Widgets {

/// One wheel of a tumbler: a column of labels, of which the one in the middle counts.
///
/// It paints itself in the palette of its parent. Keys that it has no use for, Left and Right among them, go
/// on to its parent; so does the mouse wheel while it lacks the focus, since the page around it may want to
/// scroll.
class TumblerWheel : public QWidget
{
    Q_OBJECT

public:
    /// An endless wheel goes on with its first label after its last one, and has at least six of them.
    enum class Turning { Endless, ToTheEnds };

    TumblerWheel(Turning turning, QWidget *parent);

    /// Takes at least one label, and ends what is under way.
    void setLabels(const QStringList &labels, int row);
    const QStringList &labels() const { return m_labels; }

    /// The row that counts: the nearest one while a finger turns the wheel or it turns on after that, else
    /// the one that it goes to.
    int row() const { return m_row; }

    /// Shows a row at once, without turned(), and ends what is under way.
    void setRow(int row);

    /// Turns to a row by the shorter way, as if by hand.
    void turnTo(int row);

Q_SIGNALS:
    /// By hand: row() changed.
    void turned();

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    enum class Holder { Nobody, Mouse, Finger };
    // What the animation is: the way to the row that counts already, or a wheel that was left turning.
    enum class Motion { Step, Coast };

    // Where a hand was, and when.
    struct Sample
    {
        qreal y = 0;
        qint64 ms = 0;
    };

    int count() const { return m_labels.size(); }
    qreal pitch() const;
    int placeNear(qreal position) const;
    int rowAt(int place) const;

    void showPosition(qreal position);
    void countByHand(int place);
    void stepBy(int rows);
    void animate(Motion motion, int place, qreal durationMs);
    void settle();

    bool press(qreal y, qint64 ms, Holder by);
    void drag(qreal y, qint64 ms);
    void release(qreal y, qint64 ms);
    void letTurn(qreal rowsPerMs);
    qreal rowsPerMs(qint64 ms) const;
    bool touch(QTouchEvent *event);

    bool type(const QString &text, qint64 ms);
    int rowOf(const QString &text) const;

    void paintDrum(QPainter *painter) const;
    void paintRows(QPainter *painter) const;

    const Turning m_turning;
    QStringList m_labels{QString()};
    int m_row = 0;
    // In rows: what is painted in the middle. A place is a whole position; an endless wheel that turns has
    // places below zero and beyond its labels.
    qreal m_position = 0;

    QVariantAnimation m_animation{this}; // runs only while the wheel turns
    Motion m_motion = Motion::Step;

    Holder m_holder = Holder::Nobody;
    int m_finger = -1;         // id of the touch point that holds the wheel
    qreal m_grabY = 0;         // where it was taken, and
    qreal m_grabPosition = 0;  // where it stood then
    bool m_isTap = false;      // so far: a press that goes nowhere asks for the row under it
    QVector<Sample> m_samples; // of the last moments of the drag

    int m_wheelRest = 0; // of a notch, in eighths of a degree
    QString m_typed;
    qint64 m_typedMs = 0;
};

} // namespace Korvo::Widgets
