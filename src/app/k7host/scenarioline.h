// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "hostcall.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonValue>
#include <QPoint>
#include <QString>

#include <optional>
#include <variant>

namespace K7Host {

enum class Half { Left, Right };

/// Seen from the console.
enum class Direction { In, Out };

/// A record for one half, or for both.
struct CallLine
{
    HostCall call;
    std::optional<Half> half;
    std::optional<bool> result; ///< what the half returned
};

/// What somebody does to a key or another widget of the console.
struct InputLine
{
    enum Action { Press, Move, Release, Click, Wheel, Type, Set };

    Action action = Click;
    // Who: a key by one of two, or a widget; what is typed goes to the one with the focus when all are empty.
    std::optional<quint32> keyId;
    QString keyName; ///< as the form names it, such as PRESET_05
    QString widget;  ///< object name, or "Ancestor/name" with an ancestor's object or class name

    std::optional<int> finger; ///< a touch of that finger instead of the mouse
    std::optional<QPoint> at;  ///< in the widget, in pixels; its middle when not given
    bool isDouble = false;     ///< Press: the second one of a double click
    QPoint delta;              ///< Wheel: in eighths of a degree
    QString text;              ///< Type: characters
    QString keys;              ///< Type: one key with modifiers instead, as QKeySequence writes it
    QJsonValue value;          ///< Set: text, number or truth value
};

/// Answers a message box: the one that is open, or that opens next.
struct AnswerLine
{
    QString button; ///< a QMessageBox::StandardButton
};

struct WaitLine
{
    int ms = 0;
};

struct WaitForLine
{
    QString signal;
    int ms = 0;
};

struct ScreenshotLine
{
    QString file = QStringLiteral("console.png"); ///< without a folder
};

/// What the plug-in emitted.
struct SignalLine
{
    QString signal;
    QJsonArray args;
};

/// A message box opened.
struct MessageLine
{
    QString title;
    QString text;
    QString informative;
};

/// Lines that a trace had no room for.
struct GapLine
{
    int lines = 0;
};

/// One line of a scenario or a trace.
struct ScenarioLine
{
    using Content = std::variant<CallLine, InputLine, AnswerLine, WaitLine, WaitForLine, ScreenshotLine,
                                 SignalLine, MessageLine, GapLine>;

    std::optional<double> ms;           ///< since the start of the trace
    std::optional<Direction> direction; ///< in traces only
    Content content;
};

/// The line as JSON in the usual order of its fields, without line end.
QByteArray toJson(const ScenarioLine &line);

/// Reads one line that is neither blank nor a comment. Nothing, and the reason in \a error, when it is no
/// line of a scenario or trace: no JSON, an unknown or missing field, a value of another kind or out of
/// range.
std::optional<ScenarioLine> scenarioLineFromJson(const QByteArray &json, QString *error);

/// "left" or "right".
QString halfName(Half half);

} // namespace K7Host
