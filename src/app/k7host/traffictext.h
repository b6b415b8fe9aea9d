// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "keynames.h"
#include "scenarioline.h"

#include <QColor>
#include <QFlags>

namespace K7Host {

/// What a line is about. Records and input go to the console, signals and messages come from it.
enum TrafficKind { RecordTraffic = 1, SignalTraffic = 2, InputTraffic = 4, MessageTraffic = 8 };
Q_DECLARE_FLAGS(TrafficKinds, TrafficKind)
Q_DECLARE_OPERATORS_FOR_FLAGS(TrafficKinds)

/// A line in words, for people.
struct TrafficText
{
    TrafficKind kind = RecordTraffic;
    QString name;   ///< of the operation, signal or action
    QString half;   ///< empty when it says nothing of halves
    QString fields; ///< ids with their names, addresses dotted
    QString result; ///< what a half returned, if anything
    QColor color;   ///< of the record; invalid when it has none
};

TrafficText describe(const ScenarioLine &line, const KeyNames &names);

/// A key or label that a line is about.
struct TrafficItem
{
    ConsoleItem::Kind kind = ConsoleItem::Key;
    quint32 id = 0;
};

/// What a colour, a text or a key signal is about; nothing for any other line.
std::optional<TrafficItem> itemOf(const ScenarioLine &line);

} // namespace K7Host
