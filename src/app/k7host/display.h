// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"
#include "options.h"

#include <QSize>

#include <optional>

namespace K7Host {

/// Sets what the QApplication to come reads: the platform, and a scale above 1. Keeps Qt's words about
/// displays that it cannot use from the log until checkDisplay().
void prepareDisplay(const Options &options);

/// Tells when there is no display; to be called right after the QApplication is made. A fault when \a options
/// give nothing to do without a display.
std::optional<Fault> checkDisplay(const Options &options);

/// The factor, not above 1, by which a window of size \a native is to be reduced.
qreal reduction(const Options &options, const QSize &native);

/// The largest factor, in hundredths and not above 1, that fits \a native into \a available.
qreal fittingFactor(const QSize &native, const QSize &available);

} // namespace K7Host
