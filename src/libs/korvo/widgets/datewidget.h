// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/widgets/export.h>

#include <QDate>
#include <QScopedPointer>
#include <QToolButton>

namespace Korvo::Widgets {

class DateWidgetPrivate;

/// A button that shows a date, and opens a calendar of the years 2000 to 2099 to pick another one.
///
/// A click, Space, Return or Down opens the calendar below the button, or above it where there is more room.
/// A click on a day or Return picks it; Escape, a second click on the button or a press elsewhere closes the
/// calendar and keeps the date. The calendar speaks the default QLocale's language, the text does not.
/// To assistive technology the date is the description, so that the button can have a name of its own.
class KORVO_WIDGETS_EXPORT DateWidget : public QToolButton
{
    Q_OBJECT

public:
    /// Shows today.
    explicit DateWidget(QWidget *parent = nullptr);
    ~DateWidget() override;

    QDate date() const;

    /// Shows \a date as dd/MM/yyyy without dateChanged(), also in an open calendar. No date at all is logged
    /// and changes nothing.
    void setDateTime(const QDate &date);

Q_SIGNALS:
    /// Another \a date was picked by hand.
    void dateChanged(const QDate &date);

protected:
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    const QScopedPointer<DateWidgetPrivate> d;
};

} // namespace Korvo::Widgets
