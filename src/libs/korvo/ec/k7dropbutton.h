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
/// A key that is lifted ends in released() and clicked(), on any other way out in released() alone.
///
/// Arrow keys move the focus to the nearest key of the window in their direction, see moveFocus(). To
/// assistive technology a key is a button that tells its light, after the picture in its own style sheet.
///
/// Where the application has a palette for this class, a key whose own style sheet names a picture,
/// `border-image:url("file")`, and says nothing else paints itself: the picture on a cap in a well, in the
/// colours of its palette. Button is the well and what shines
/// through the cap, Midlight shines through a pressed cap, Light through a checked one, Highlight is the rim
/// of the key that has the focus, ButtonText the lettering, in whose place an icon is shown. All other keys
/// are painted by the style.
///
/// A receiver of pressed() or released() may hide, disable or deleteLater() the key. It may delete it at
/// once when a finger, the mouse or the keyboard was the cause, but not while the key is being hidden or
/// disabled, nor in toggled(): Qt goes on using it there. A receiver of pressed() that runs an event loop
/// holds back the released() until it returns.
///
/// A held key says released() also when it is deleted with its parent: a receiver whose own destructor has
/// begun must have disconnected, or have hidden the key before. A button group hears of a release only while
/// the key is in it: hide or disable a key before it leaves its group. GUI thread only.
class KORVO_EC_EXPORT K7DropButton : public QToolButton
{
    Q_OBJECT
    /// What of the style sheet is left to the style: nothing, when the key paints it all by itself. Qt's
    /// style reads sheets by this property; styleSheet() tells all of it.
    /// QWidget's has no signal either.
    Q_PROPERTY( // clazy:exclude=qproperty-without-notify
        QString styleSheet READ styledSheet WRITE setStyleSheet)

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
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(K7DropButton)

    QString styledSheet() const;
    void pressButton(QMouseEvent *event);

    class Private;
    const std::unique_ptr<Private> m_d;
};

} // namespace Korvo::EC
