// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <QPalette>
#include <QStringList>

#include <optional>

namespace K7Host {

/// All looks of the console, read from a folder.
///
/// The folder holds `theme.ini`, the style sheet `console.qss`, and pictures in `images/`. A theme may name
/// another one beside it as its base: what its own folder does not hold, or its own file does not name, is
/// the base's.
struct Theme
{
    QString name;         ///< for people
    QStringList folders;  ///< absolute; own one, then the base's
    QString styleSheet;   ///< with colours in place of their names
    QPalette palette;     ///< for what the style sheet does not style
    QPalette keyPalette;  ///< of keys, which paint themselves
    QPalette oledPalette; ///< of OLED labels, which paint themselves
};

/// Reads the theme in \a dir; \a theme is changed only without a fault.
std::optional<Fault> readTheme(const QString &dir, Theme *theme);

/// A theme that can be chosen.
struct ThemeInfo
{
    QString dir; ///< absolute
    QString name;
};

/// The themes in the folder that holds \a dir, \a dir itself among them, by name.
QList<ThemeInfo> themesBeside(const QString &dir);

} // namespace K7Host
