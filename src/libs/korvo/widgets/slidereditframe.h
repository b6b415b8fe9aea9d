// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/widgets/export.h>

#include <QFrame>
#include <QScopedPointer>

namespace Korvo::Widgets {

class SliderEditFramePrivate;

/// An editor of a whole number: a label, a slider, a field for the number and buttons that count down and up,
/// in a row.
///
/// The slider goes to where it is pressed and takes the arrow keys, Page Up and Page Down, Home and End. The
/// field takes Up and Down, Page Up and Page Down; a typed number holds from Return on or when the focus
/// goes, moved into the range if need be, and Escape drops it. The buttons repeat, and are disabled at their
/// end of the range. The wheel counts a single step a notch on a slider or field with the focus; else it is
/// left to what is around the frame.
///
/// To a style sheet the parts are QLabel, QSlider, QSpinBox and QToolButton, these named minus and plus.
class KORVO_WIDGETS_EXPORT SliderEditFrame : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged USER true)

public:
    /// The range is 0 to 99, the value 0, steps are 1 and 10; slider and buttons show, the label is empty.
    explicit SliderEditFrame(QWidget *parent = nullptr);
    ~SliderEditFrame() override;

    /// A \a maximum below \a minimum counts as \a minimum. A value outside goes to the nearer end.
    void setRange(int minimum, int maximum);
    int minimum() const;
    int maximum() const;

    int value() const;

    /// At least 1.
    void setPageStep(int step);
    int pageStep() const;

    /// At least 1.
    void setSingleStep(int step);
    int singleStep() const;

    void setButtonVisible(bool visible);
    void setSliderVisible(bool visible);

    /// In pixels: from the label to the slider, or to the field while the slider is hidden, and from the
    /// slider to the field. The gap beside a part that does not show goes with it.
    void setHorizontalSpacing(const int &beforeSlider, const int &afterSlider);

    /// Plain text. Empty, the label takes no room.
    void setLabelText(const QString &text);
    QString labelText() const;

public Q_SLOTS:
    /// A value outside of the range goes to the nearer end. A number that is being typed is dropped when the
    /// value changes.
    void setValue(int value);

Q_SIGNALS:
    /// value() has become \a value, by hand or from code.
    void valueChanged(int value);

private:
    const QScopedPointer<SliderEditFramePrivate> d;
};

} // namespace Korvo::Widgets
