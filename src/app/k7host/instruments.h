// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"
#include "options.h"
#include "scenario.h"

#include <QImage>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace K7Host {

class ConsoleSession;

/// What works and watches the console when the command line asks for it: scenario, trace, inspector, latency.
/// Without these options there is none of it, and nobody observes the session, until somebody opens the
/// inspector.
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
    /// Once the console is shown: opens the inspector, and plays the scenario. \a picture makes its pictures.
    void start(const std::function<QImage(qreal factor)> &picture);

    bool isInspecting() const;
    /// Opens the inspector, or closes it; after watch(). What passes while it is closed is not in it.
    void setInspecting(bool isOn);

    /// What has been measured, some lines for people; empty when nothing is.
    QString latencySummary() const;

Q_SIGNALS:
    void inspectingChanged(bool isOn);
    /// The scenario is over.
    void played();
    /// It could not be played to its end.
    void failed(const K7Host::Fault &fault);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace K7Host
