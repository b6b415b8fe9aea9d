// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"
#include "options.h"
#include "scenario.h"

#include <QObject>

#include <memory>
#include <optional>

namespace K7Host {

class ConsoleSession;
class ConsoleWindow;

/// What works and watches the console when the command line asks for it: scenario, trace, inspector, latency.
/// Without these options there is none of it, and nobody observes the session.
///
/// GUI thread only. Outlives the session, and goes before the plug-in.
class Instruments : public QObject
{
    Q_OBJECT

public:
    /// \a scenario is what the options name, or empty.
    Instruments(const Options &options, const Scenario &scenario);
    ~Instruments() override;

    /// Opens the trace, and observes \a session, which is prepared and not started. A fault also when the
    /// scenario cannot be played on this console.
    std::optional<Fault> watch(ConsoleSession *session);
    /// Once \a window shows the console: opens the inspector, and plays the scenario.
    void start(ConsoleWindow *window);

    /// What has been measured, some lines for people; empty when nothing is.
    QString latencySummary() const;

Q_SIGNALS:
    /// The scenario is over.
    void played();
    /// It could not be played to its end.
    void failed(const K7Host::Fault &fault);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace K7Host
