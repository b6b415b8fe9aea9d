// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolewidgets.h"
#include "touchscreen.h"

#include <QEvent>
#include <QPointer>

namespace K7Host {

/// Does to the console what lines of a scenario say, with events as a person's input makes them.
///
/// The mouse, the wheel and the keys are given to the widget that a line names, also where a window of the
/// host's, such as its keypad, lies over it; what another widget of the console covers, or a message box
/// blocks, cannot be used. Fingers go through the window, as on a touch screen. GUI thread only.
class Hand
{
public:
    explicit Hand(const ConsoleWidgets::Halves &halves);

    /// Does it. The reason, in one line, when that cannot be done; a disabled widget gets the input, and does
    /// nothing. What is to be used but was scrolled away is scrolled back into view.
    ///
    /// A click may open a message box: this then returns when it is closed, and may be called again until
    /// then. The end of a press, or a move, whose widget has gone or was blocked since changes nothing.
    std::optional<QString> act(const InputLine &line);

    /// Whether the input that is just being delivered is this hand's. While act() waits for a message box,
    /// other input is not.
    bool isActing() const;

private:
    Q_DISABLE_COPY(Hand)

    std::optional<QString> obstacle(const InputLine &line, QWidget *widget) const;
    std::optional<QString> cover(const InputLine &line, QWidget *widget, const QPoint &at) const;
    std::optional<QString> begin(const InputLine &line, QWidget *widget);
    std::optional<QString> goOn(const InputLine &line, QWidget *widget);
    std::optional<QString> type(const InputLine &line, QWidget *widget) const;
    QWidget *keyReceiver(const QWidget *widget) const;
    void press(const InputLine &line, QWidget *widget, const QPoint &at);
    void release(const InputLine &line, QWidget *widget, const QPoint &at);
    void sendToPressed(QEvent::Type type, QWidget *widget, const QPoint &at);
    bool pressIsPopups(const QWidget *widget, const QPoint &at) const;

    const ConsoleWidgets m_widgets;
    TouchScreen m_screen;
    QPointer<QWidget> m_pressed;      // by the mouse
    std::optional<int> m_actingLevel; // of nested event loops, while input is delivered
};

} // namespace K7Host
