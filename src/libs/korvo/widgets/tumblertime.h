// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/widgets/export.h>

#include <QScopedPointer>
#include <QWidget>

namespace Korvo::Widgets {

class TumblerTimePrivate;

/// A time of day on wheels: hour, minute, second, and AM or PM.
///
/// A wheel is turned by dragging or flicking it with the mouse or the first finger, by a press on a row above
/// or below the middle, and, while it has the focus, with the mouse wheel (a row a notch), with Up and Down
/// (a row), Page Up and Page Down (5 rows), Home and End (first and last row), and by typing its number or
/// its first letter. Left, Right and Tab go from wheel to wheel. The number wheels are endless.
///
/// Everything is painted in the palette: text on base, highlight for the middle row and the focus. A style
/// sheet sets these as color, background-color and selection-background-color.
class KORVO_WIDGETS_EXPORT TumblerTime : public QWidget
{
    Q_OBJECT

public:
    /// Shows 00:00:00 of 24 hours, and AM.
    explicit TumblerTime(QWidget *parent = nullptr);
    ~TumblerTime() override;

    /// 0 to 23, with 12 hours 1 to 12. As the others it is what the wheel shows, also while it turns.
    int getHour() const;
    int getMin() const;
    int getSec() const;

    /// "AM" or "PM" in every language, also while its wheel is hidden.
    QString getTimeType() const;

    /// The setters end a turn of their wheel by hand, and are silent. A value out of its range is logged and
    /// changes nothing.
    ///
    /// \a hour is 0 to 23; with 12 hours 0 shows as 12, and 13 as 1. AM and PM stay as they are.
    void setHour(int hour);
    void setMin(int minute);
    void setSec(int second);

    /// \a type is "AM" or "PM".
    void setAMPM(const QString &type);

    /// \a count is 12 or 24. The hour stays where there is one of that number, else 0 becomes 12 and 13
    /// becomes 1.
    void setHourList(int count);
    int hourCount() const;

    /// Whether AM or PM is shown; the hours do not depend on it.
    void setTypeVisible(bool isVisible);
    bool isTypeVisible() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// A wheel was turned by hand to another row.
    void timeChanged();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    const QScopedPointer<TumblerTimePrivate> d;
};

} // namespace Korvo::Widgets
