// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace K7Host {

/// What the command line asks for. Folders are absolute or relative to the working directory.
struct Options
{
    QString pluginDir;
    QString themeDir;
    QString language; ///< locale for this run; empty leaves the choice to the settings
    bool scaleGiven = false;
    qreal scale = 0;       ///< 0.25 to 4; 0 fits the console to the screen
    QString screenshotDir; ///< empty: no picture is written
    bool exit = false;
    bool listPlugins = false;
    bool verbose = false;
};

/// How a command line was understood.
struct CommandLine
{
    enum Outcome {
        Run,      ///< do what the options say
        Answered, ///< \a text is all that was asked for
        Refused   ///< \a text tells in one line what is wrong
    };

    Outcome outcome = Run;
    Options options;
    QString text;
};

/// Reads \a arguments, the program's name first. Default folders are beside \a programDir, the folder of the
/// program. Needs no more than a QCoreApplication.
CommandLine parseCommandLine(const QStringList &arguments, const QString &programDir);

} // namespace K7Host
