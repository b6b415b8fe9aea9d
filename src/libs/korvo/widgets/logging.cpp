// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "logging.h"

namespace Korvo::Widgets {

Q_LOGGING_CATEGORY(widgetsLog, "korvo.widgets")

} // namespace Korvo::Widgets
