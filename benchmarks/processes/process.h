// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/// What both programs do alike: each shows one window, and is measured as a whole.
namespace Process {

/// What one of the two programs shows.
class Subject
{
    Q_DISABLE_COPY(Subject)

public:
    Subject() = default;
    virtual ~Subject() = default;

    /// Makes the widgets, as children of the empty \a window, and gives the window its size.
    virtual void fill(QWidget *window) = 0;

    /// Lets every label that takes texts of the console move one which is longer than the label.
    virtual void scroll() = 0;

    /// Called once all is painted, before the process is left alone.
    virtual void calmDown() {}

    /// Called once all is painted: prints the widgets.
    virtual void list() {}
};

/// Makes the subject from the program's other arguments; null when they are of no use. The application is
/// there by then and has its theme.
using MakeSubject = std::unique_ptr<Subject> (*)(const QStringList &arguments);

/// The program. Its first argument is the folder of the theme. The second one says how far the program goes:
/// - "start": until all is painted once; prints what that took, and ends at once
/// - "list": as far; prints the widgets
/// - "idle", "scroll": prints "ready" once nothing is left to do, or all labels scroll; goes on until its
/// input
///   is closed, and prints how often which class was painted meanwhile
int run(int argc, char *argv[], MakeSubject make);

} // namespace Process
