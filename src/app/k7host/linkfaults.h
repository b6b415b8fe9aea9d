// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFlags>
#include <QString>

#include <optional>

namespace K7Host {

/// What a bad link does to the records that it carries.
enum class LinkFault {
    Late = 0x1,      ///< each comes later by a time of its own, so that they overtake one another
    Lost = 0x2,      ///< some do not come at all
    Duplicate = 0x4, ///< some come more than once
    Garbled = 0x8,   ///< some come with random fields, or as null
    Storm = 0x10     ///< others come that nobody sent, thousands a second
};
Q_DECLARE_FLAGS(LinkFaults, LinkFault)
Q_DECLARE_OPERATORS_FOR_FLAGS(LinkFaults)

/// Reads names that commas part: late, lost, duplicate, garbled, storm. Nothing when one of them is none of
/// these, an empty one too; \a error then tells which in one line.
std::optional<LinkFaults> linkFaultsFromText(const QString &text, QString *error);

} // namespace K7Host
