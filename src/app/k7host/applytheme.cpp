// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "applytheme.h"

#include "theme.h"

#include <korvo/utils/icon.h>

#include <QApplication>

namespace K7Host {

std::optional<Fault> applyTheme(const QString &dir)
{
    Theme theme;
    if (auto fault = readTheme(dir, &theme))
        return fault;
    if (qApp->styleSheet().isEmpty()) // the first time; it takes as long as all the rest
        QApplication::setStyle(QStringLiteral("Fusion"));
    Korvo::Utils::Icon::setThemePaths(theme.folders);
    QApplication::setPalette(theme.palette); // and no other; those of classes come after it
    QApplication::setPalette(theme.keyPalette, "Korvo::EC::K7DropButton");
    QApplication::setPalette(theme.oledPalette, "Korvo::EC::TextTicker");
    qApp->setStyleSheet(theme.styleSheet);
    return {};
}

} // namespace K7Host
