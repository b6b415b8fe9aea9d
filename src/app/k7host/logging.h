// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

namespace K7Host {

/// Sets how messages look, and leaves out the kit's and the plug-ins' debug messages unless \a isVerbose.
/// QT_MESSAGE_PATTERN and QT_LOGGING_RULES take precedence.
void setUpLogging(bool isVerbose);

} // namespace K7Host
