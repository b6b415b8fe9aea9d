// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "scenarioline.h"

#include <QVector>

namespace K7Host {

/// \a lines of a trace as a file to be played. With records among them they stay the trace that they are, and
/// need no host. Without, they become a scenario of what was done, with its pauses, which a host answers
/// anew.
QByteArray savedScenario(const QVector<ScenarioLine> &lines);

} // namespace K7Host
