// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/ec/export.h>

#include <QToolButton>

#include <memory>

namespace Korvo::EC {

/// A console key. It goes down when a finger, the mouse or Space touches it and comes up on every way out:
/// lifted, slid off, cancelled, disabled, hidden, window deactivated or blocked, a popup opened, keyboard
/// focus lost, deleted. There is exactly one released() for every pressed(), of the key and of its group,
/// and never before the pressed() has reached all its receivers.
///
/// Whoever presses a key first holds it; further fingers on the same key are ignored until it comes up.
/// Several fingers may hold several keys. A finger that slid off does not press again by sliding back.
/// A key that is lifted while it is held ends in released() and clicked(), on any other way out in
/// released() alone. A held key that leaves its button group tells the group nothing any more.
///
/// A receiver may hide, disable or deleteLater() the key; it may delete it at once only if it is the input
/// that pressed or let go (not when the key is just being hidden or disabled: Qt goes on using it).
/// A key that is deleted with its parent still says released(): a receiver whose own destructor has begun
/// must have disconnected. GUI thread only.
class KORVO_EC_EXPORT K7DropButton : public QToolButton
{
    Q_OBJECT

public:
    explicit K7DropButton(QWidget *parent = nullptr);
    ~K7DropButton() override;

protected:
    bool event(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    Q_DISABLE_COPY(K7DropButton)

    class Private;
    const std::unique_ptr<Private> m_d;
};

} // namespace Korvo::EC
