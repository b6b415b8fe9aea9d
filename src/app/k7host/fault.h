// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace K7Host {

enum ExitCode {
    ExitDone = 0,
    ExitPluginUnusable = 1,
    ExitBadArguments = 2 ///< also for what the arguments name and the host cannot use
};

/// What ends the program before its time: a line for the person who started it, and the exit code.
struct Fault
{
    ExitCode exitCode = ExitBadArguments;
    QString text;
};

/// Writes \a text to stderr as one line that begins with the program's name.
void complain(const QString &text);

/// Writes the fault's line; returns its exit code.
int report(const Fault &fault);

} // namespace K7Host
