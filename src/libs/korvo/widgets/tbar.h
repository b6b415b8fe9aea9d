// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/widgets/export.h>

#include <QColor>
#include <QScopedPointer>
#include <QWidget>

namespace Korvo::Widgets {

class tbarPrivate;

/// A transition lever.
///
/// While enabled it is moved by hand: by dragging the handle with the mouse or the first finger, by a press
/// on the rail, with the wheel (a notch is 1 percent), and with Up and Down (1 percent), Page Up and Page
/// Down (10 percent), Home (0 percent) and End (100 percent). Up, Page Up and the wheel turned away move the
/// handle up on the screen, whichever way the lever travels. While disabled it takes no input and stays as
/// readable as before, so that it can mirror a lever that stands elsewhere.
///
/// The scale is painted in the palette's window text, the focus ring in its highlight; the other colours are
/// properties, which a style sheet sets as qproperty-railColor and so on.
class KORVO_WIDGETS_EXPORT tbar : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor railColor READ railColor WRITE setRailColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor travelColor READ travelColor WRITE setTravelColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor handleColor READ handleColor WRITE setHandleColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor groundColor READ groundColor WRITE setGroundColor NOTIFY colorsChanged)

public:
    /// Where the lever travels to; 0 percent is where it starts.
    enum TbarDirection {
        BottomToTop = 0, ///< 0 percent at the bottom of the screen
        TopToBottom = 1  ///< 0 percent at the top
    };
    Q_ENUM(TbarDirection)

    explicit tbar(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~tbar() override;

    /// Whether arrows at both ends of the rail show the direction; they are hidden at first.
    void setDirectionEnable(bool enable);
    bool isDirectionEnabled() const;

    /// The lever keeps its percentage, so its handle changes ends. A drag under way ends.
    void setTbarDirection(TbarDirection direction);
    TbarDirection getTbarDirection() const;

    /// Moves the lever to \a percent without percentChanged(). A value outside of 0 to 100 goes to the nearer
    /// end, no number leaves the lever alone; the first of either is logged.
    void setCurValue(double percent);

    /// In percent, exactly as it was set.
    double curValue() const;

    QColor railColor() const;
    void setRailColor(const QColor &color);

    /// Of the way travelled, the pointer and the arrow.
    QColor travelColor() const;
    void setTravelColor(const QColor &color);

    QColor handleColor() const;
    void setHandleColor(const QColor &color);

    /// Of what lies behind the lever. While it is opaque nothing else is painted there, which makes moves
    /// cheap; at first it is invalid, and what lies there is seen.
    QColor groundColor() const;
    void setGroundColor(const QColor &color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The lever was moved by hand, from \a previous to \a percent.
    void percentChanged(double percent, double previous);
    void colorsChanged();

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    friend class tbarPrivate;
    const QScopedPointer<tbarPrivate> d;
};

} // namespace Korvo::Widgets
