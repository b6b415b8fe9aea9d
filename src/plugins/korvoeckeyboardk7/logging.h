// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

namespace Korvo::ECKeyboard {

Q_DECLARE_LOGGING_CATEGORY(lcPlugin)

} // namespace Korvo::ECKeyboard
