// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "constants.h"

// Set when the library is loaded: whoever imports them needs them before any function has run.
// clazy:excludeall=non-pod-global-static

namespace Korvo::Constants {

const QColor DEFAULTRGBVALUE(50, 50, 50);
const QColor LAYERDEFAULTCOLOR(0, 0, 0);
const QString LABEL_ADJUST_LENGTH = QStringLiteral("qq");

const QString EC_KEYBOARD_LEFT_NAME = QStringLiteral("Left keyboard");
const QString EC_KEYBOARD_RIGHT_NAME = QStringLiteral("Right keyboard");

} // namespace Korvo::Constants
