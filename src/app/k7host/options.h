// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "linkfaults.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace K7Host {

/// What the command line asks for. Files and folders are absolute or relative to the working directory.
struct Options
{
    QString pluginDir;
    QString themeDir;
    bool themeGiven = false; ///< or the default
    QString language;        ///< locale for this run; empty leaves the choice to the settings
    bool kiosk = false;
    bool scaleGiven = false; ///< or left to the settings
    qreal scale = 0;         ///< 0.25 to 4; 0 fits the console to the screen
    QString screenshotDir;   ///< empty: no picture is written
    QString scenario;        ///< file to play, "-" for standard input; empty: none
    QString trace;           ///< file to record into, "-" for standard output; empty: none
    LinkFaults faults;
    quint32 seed = 1; ///< of the faults
    bool inspect = false;
    bool latency = false;
    bool exit = false;
    bool listPlugins = false;
    bool verbose = false;

    /// Of pictures, whatever the size on the screen.
    qreal pictureFactor() const { return scale > 0 ? scale : 1; }
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

/// The scale that \a text names: a factor from 0.25 to 4, or 0 for "auto". Nothing for any other text.
std::optional<qreal> scaleFromText(const QString &text);
/// \a scale, which is 0 or a factor, as scaleFromText() reads it.
QString textOfScale(qreal scale);

/// Reads \a arguments, the program's name first. Default folders are beside \a programDir, the folder of the
/// program. Needs no more than a QCoreApplication.
CommandLine parseCommandLine(const QStringList &arguments, const QString &programDir);

} // namespace K7Host
