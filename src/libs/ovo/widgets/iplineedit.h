// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ovo/widgets/export.h>

#include <QFrame>
#include <QScopedPointer>

namespace Ovo::Widgets {

class IPLineEditPrivate;

/// An editor of an IPv4 address: a frame whose own layout holds four line edits, the octets, and the dots
/// between them.
///
/// An octet takes digits up to 255. The third digit or a dot moves on to the next octet; Backspace, Left and
/// Right cross the dots. A whole address can be pasted into any octet; text that would not fit is refused as
/// a whole. Leading zeros go when an octet is left.
///
/// The dynamic property "focused" is true while an octet has the focus; the frame is polished again on each
/// change, so that a style sheet can select on it. Without a style sheet the frame looks as the style's line
/// edits do. To a style sheet the octets are QLineEdit, whose colours and fonts they take; background,
/// border, margin and padding stay the frame's.
class OVO_WIDGETS_EXPORT IPLineEdit : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged USER true)

public:
    explicit IPLineEdit(QWidget *parent = nullptr);
    ~IPLineEdit() override;

    /// The four octets joined by dots, as in "192.168.1.13". An octet that was left empty is empty here too:
    /// with no octet filled the text is "...".
    QString text() const;

    /// Shows the address \a text, without leading zeros. What is no IPv4 address empties all octets.
    void setText(const QString &text);

    /// Puts the focus on the first octet, with all of it selected.
    void setIPFocus();

Q_SIGNALS:
    /// text() has become \a text; once a change, however many octets it touched.
    void textChanged(const QString &text);
    /// Return was pressed, or the focus left the octets.
    void editingFinished();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    const QScopedPointer<IPLineEditPrivate> d;
};

} // namespace Ovo::Widgets
