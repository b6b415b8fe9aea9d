// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/widgets/export.h>

#include <QColor>
#include <QScopedPointer>
#include <QWidget>

namespace Korvo::Widgets {

class WaitingDialogPrivate;

/// A busy indicator: a panel with a turning spinner and a text. It is hidden at first.
///
/// With a parent it dims the parent and covers it wholly, above all that the parent holds. Until it is hidden
/// no mouse, touch, wheel, key or shortcut reaches what is below, except for the release of what was held
/// before; the rest of the application goes on. It has the focus, and gives it back to the widget that had
/// it. Without a parent, or with the flags of a window, it is a window of its own that is modal to the
/// application. The user cannot close either.
///
/// The text is painted in the palette's window text, the spinner in its highlight while the level is Normal;
/// the other colours are properties, which a style sheet sets as qproperty-panelColor and so on.
class KORVO_WIDGETS_EXPORT WaitingDialog : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor dimColor READ dimColor WRITE setDimColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor panelColor READ panelColor WRITE setPanelColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor warningColor READ warningColor WRITE setWarningColor NOTIFY colorsChanged)
    Q_PROPERTY(QColor errorColor READ errorColor WRITE setErrorColor NOTIFY colorsChanged)

public:
    /// What the spinner's colour tells.
    enum TooltipLevel { Normal = 0, Warning = 1, Error = 2 };
    Q_ENUM(TooltipLevel)

    explicit WaitingDialog(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~WaitingDialog() override;

    /// Shows \a text, exactly as it is, wrapped between words. One that is shown already changes its text and
    /// level only.
    void showWaitingDialog(const QString &text, TooltipLevel level = Normal);
    void hideWaitingDialog();

    QString text() const;
    TooltipLevel level() const;

    /// Whether the spinner turns: only while somebody can see it.
    bool isSpinning() const;

    QColor dimColor() const;
    void setDimColor(const QColor &color);

    /// The palette's window colour, unless one was set.
    QColor panelColor() const;
    void setPanelColor(const QColor &color);

    /// The palette's mid colour, unless one was set.
    QColor borderColor() const;
    void setBorderColor(const QColor &color);

    QColor warningColor() const;
    void setWarningColor(const QColor &color);

    QColor errorColor() const;
    void setErrorColor(const QColor &color);

    /// Of the panel; as a window it takes this size.
    QSize sizeHint() const override;

Q_SIGNALS:
    void colorsChanged();

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    friend class WaitingDialogPrivate;
    const QScopedPointer<WaitingDialogPrivate> d;
};

} // namespace Korvo::Widgets
