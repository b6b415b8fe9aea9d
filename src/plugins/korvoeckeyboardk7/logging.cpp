// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "logging.h"

namespace Korvo::ECKeyboard {

Q_LOGGING_CATEGORY(lcPlugin, "korvo.k7.plugin")

} // namespace Korvo::ECKeyboard
