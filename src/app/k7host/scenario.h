// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"
#include "scenarioline.h"

#include <QVector>

#include <optional>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace K7Host {

/// A scenario or a trace, with what is needed to tell where a fault in it is.
struct Scenario
{
    struct Step
    {
        int number = 0; ///< of its line, from 1
        ScenarioLine line;
    };

    QString file; ///< as messages call it
    QVector<Step> steps;

    /// Whether it was recorded: it then holds all that the host said, and a host has nothing to add.
    bool isTrace() const;
    /// The fault \a reason in line \a number: file, line, reason.
    Fault fault(int number, const QString &reason) const;
};

/// Reads the file \a name, "-" for standard input, to its end. A fault, and no step, when it cannot be read
/// or one of its lines is wrong.
std::optional<Fault> readScenario(const QString &name, Scenario *scenario);

/// The same from \a device, which is open; it is called \a name in messages.
std::optional<Fault> readScenario(QIODevice *device, const QString &name, Scenario *scenario);

} // namespace K7Host
