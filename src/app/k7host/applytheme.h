// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <optional>

namespace K7Host {

/// Gives the application the looks in the folder \a dir: see Theme. Needs the QApplication. What is shown
/// already takes the new looks at once. A fault leaves the old ones.
std::optional<Fault> applyTheme(const QString &dir);

} // namespace K7Host
