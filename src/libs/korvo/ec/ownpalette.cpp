// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "ownpalette.h"

#include <QApplication>
#include <QPalette>

namespace Korvo::EC {

bool hasOwnPalette(const char *className)
{
    return !QApplication::palette(className).isCopyOf(QApplication::palette());
}

} // namespace Korvo::EC
