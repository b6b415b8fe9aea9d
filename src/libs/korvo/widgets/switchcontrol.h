// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/widgets/export.h>

#include <QColor>
#include <QScopedPointer>
#include <QWidget>

namespace Korvo::Widgets {

class SwitchControlPrivate;

/// A sliding switch, off at first.
///
/// By hand it is toggled by a click or tap, by dragging the knob to the other side, and with Space, Return or
/// Enter; Left and Right move the knob to that side. A press that is slid off the switch counts for nothing,
/// and neither does one during which the switch is hidden, disabled, set from code or left by its window.
///
/// On is on the right, in right-to-left languages on the left. Apart from side and colour, the track shows a
/// bar when on and a ring when off. The focus ring has the palette's highlight; the other colours are
/// properties, which a style sheet sets as qproperty-trackColor and so on.
class KORVO_WIDGETS_EXPORT SwitchControl : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor onColor READ onColor WRITE setOnColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor knobColor READ knobColor WRITE setKnobColor NOTIFY colorsChanged)

public:
    explicit SwitchControl(QWidget *parent = nullptr);
    ~SwitchControl() override;

    bool isToggled() const;

    /// Switches without toggled(). A visible knob slides there, if the style animates widgets.
    void setToggle(bool on);

    /// Of the track while off.
    QColor trackColor() const;
    void setTrackColor(const QColor &color);

    /// Of the track while on.
    QColor onColor() const;
    void setOnColor(const QColor &color);

    /// Of the knob, the rim and the marks.
    QColor knobColor() const;
    void setKnobColor(const QColor &color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The switch was moved by hand and isToggled() has become \a on.
    void toggled(bool on);
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

private:
    friend class SwitchControlPrivate;
    const QScopedPointer<SwitchControlPrivate> d;
};

} // namespace Korvo::Widgets
