// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"
#include "options.h"

#include <QSize>

#include <optional>

namespace K7Host {

/// Sets what the QApplication to come reads: the platform, and that Qt does not scale where \a options do.
/// Keeps Qt's words about displays that it cannot use from the log until checkDisplay().
void prepareDisplay(const Options &options);

/// Tells when there is no display; to be called right after the QApplication is made. A fault when \a options
/// give nothing to do without a display.
std::optional<Fault> checkDisplay(const Options &options);

/// Whether nobody sees what is shown. Needs the QApplication.
bool isOffscreen();

/// How large a window without its frame may be on the first screen; empty when there is no screen.
QSize roomOnScreen();

/// The largest factor, in hundredths and not above \a largest, that fits \a native into \a available.
qreal fittingFactor(const QSize &native, const QSize &available, qreal largest = 1);

} // namespace K7Host
