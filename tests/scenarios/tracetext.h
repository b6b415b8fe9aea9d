// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSet>
#include <QStringList>

// Traces and scenarios as lines of text.

QStringList readLines(const QString &file);

/// The same lines without the time in each.
QStringList withoutTimes(const QStringList &lines);

/// What two runs of a scenario have in common, without times. The console asks for the addresses of both
/// ports every ten seconds, and those of port 0 come from a thread of their own. So these requests are left
/// out, and address records stand at the end, by port and half, without repetitions.
QStringList comparable(const QStringList &lines);

/// What kinds of lines there are: operations, "signal", "message", "gap".
QSet<QString> kindsOf(const QStringList &lines);
QSet<QString> allKinds();
