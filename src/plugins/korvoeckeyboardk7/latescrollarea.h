// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QScrollArea>

namespace Korvo::Internal {

/// A scroll area that takes its widget when it is polished itself.
///
/// QScrollArea shows its widget at once and asks for its sizes, which polishes all that is inside. A form
/// that is not in its window yet does that in vain: whatever is polished and gets another parent is polished
/// anew, and with a style sheet each time takes about 0.2 million instructions a widget.
class LateScrollArea : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;

    /// In place of QScrollArea's, which is not virtual; forms call it by name. \a widget is a child of the
    /// viewport from now on, but widget() only when the area is polished.
    void setWidget(QWidget *widget);

protected:
    bool event(QEvent *event) override;

private:
    QPointer<QWidget> m_widget; // until then
};

} // namespace Korvo::Internal
