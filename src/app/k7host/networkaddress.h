// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace K7Host {

/// The address that \a text gives as four decimal numbers from 0 to 255 with dots between them; nothing when
/// it is anything else. The first number is in the lowest byte, as in records.
std::optional<quint32> addressFromText(const QString &text);

/// Four decimal numbers with dots between them.
QString addressText(quint32 address);

} // namespace K7Host
