// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/ec/export.h>

#include <QLabel>

#include <memory>

namespace Korvo::EC {

/// An OLED label: one line of plain text, centred when it fits, scrolling to the left when it does not.
///
/// A line break is shown as a blank. The size hints depend on the font alone, never on the text. Where the
/// application has a palette for this class, it paints its own opaque ground in that: Window with a line of
/// Mid around it, unless a style sheet gives it a background or a border. The text has the colour of the
/// foreground role; frame and margin are QLabel's, and alignment() places a text that fits.
///
/// One clock drives all tickers of the process. It exists only while a visible ticker scrolls.
/// GUI thread only.
class KORVO_EC_EXPORT TextTicker : public QLabel
{
    Q_OBJECT

public:
    explicit TextTicker(QWidget *parent = nullptr);
    ~TextTicker() override;

    /// Shows \a text; costs nothing when it is shown already. text() tells it back unshortened.
    void setText(const QString &text);

    /// Room for a short name, about ten characters.
    QSize sizeHint() const override;
    /// Room for about three characters.
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    Q_DISABLE_COPY(TextTicker)

    class Private;
    const std::unique_ptr<Private> m_d;
};

} // namespace Korvo::EC
