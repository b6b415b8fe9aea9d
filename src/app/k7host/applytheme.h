// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <optional>

namespace K7Host {

/// Gives the application the looks in the folder \a dir: its style sheet console.qss, whose pictures are
/// found as "theme:...", its pictures by name, and a dark palette for what the style sheet does not style.
/// Needs the QApplication. A fault when the style sheet cannot be read.
std::optional<Fault> applyTheme(const QString &dir);

} // namespace K7Host
