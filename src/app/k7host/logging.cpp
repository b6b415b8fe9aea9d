// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "logging.h"

#include <QLoggingCategory>

namespace K7Host {

void setUpLogging(bool isVerbose)
{
    qSetMessagePattern(QStringLiteral("k7host: %{if-category}%{category}: %{endif}%{message}"));
    if (!isVerbose)
        QLoggingCategory::setFilterRules(QStringLiteral("korvo.*.debug=false\novo.*.debug=false"));
}

} // namespace K7Host
