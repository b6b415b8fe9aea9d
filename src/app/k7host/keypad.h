// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>
#include <QScopedPointer>

#include <optional>

namespace Ui {
class Keypad;
}

namespace K7Host {

/// Keys to type a number with: digits, point, Backspace, Clear, Left, Right, Enter, and one that closes.
///
/// Each key types real key events into the widget of its window that has the focus at that moment; the keypad
/// itself never takes the focus, nor does a touch on it move the focus. Backspace, Left and Right repeat
/// while they are held. Fingers may overlap, as in fast typing. GUI thread only.
class Keypad : public QFrame
{
    Q_OBJECT

public:
    /// Hidden at first. \a parent is the window to stand in.
    explicit Keypad(QWidget *parent);
    ~Keypad() override;

    /// What the point key shows and types, '.' at first.
    void setPoint(QChar point);

    /// Sees who gets the focus.
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Enter has been typed, or the key that closes was touched.
    void done();

private:
    Q_DISABLE_COPY(Keypad)

    void type(int key, const QString &text = QString(), Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void clear();

    const QScopedPointer<Ui::Keypad> m_ui;
};

/// Who has the focus in \a window, also while that is embedded in a graphics scene, where for the application
/// the view has it. Null when the focus is elsewhere.
QWidget *focusedIn(const QWidget *window);

/// Where something of \a size stands close to \a field without covering any of it, wholly within \a bounds:
/// below, above, right or left of it, the first that there is room for. Nothing when there is room nowhere.
std::optional<QPoint> placeBeside(const QRect &field, const QSize &size, const QRect &bounds);

} // namespace K7Host
