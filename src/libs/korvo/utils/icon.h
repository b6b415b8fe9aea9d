// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/utils/export.h>

#include <QIcon>
#include <QString>
#include <QStringList>

namespace Korvo::Utils {

/// The host's icon store: finds pictures by name in the current theme. GUI thread only.
///
/// A picture is the file images/[variant/]<name> with the first of the known endings (.svg, .png) in the
/// first of the theme's folders that holds one. Nothing outside of these is ever found: a name or variant
/// with a path separator, and "..", are unknown names.
class KORVO_UTILS_EXPORT Icon
{
public:
    /// Sets the theme's folders, the first one first; with none, as before the first call, every name is
    /// unknown. A relative path counts from the current folder of now. Qt finds what is in them as
    /// "theme:<file>", in style sheets too.
    static void setThemePaths(const QStringList &paths);

    /// The same with one folder; an empty \a path is none.
    static void setThemePath(const QString &path);

    /// The picture \a name, of its \a variant when that is not empty: "theme:images/...", which stays good
    /// when the theme changes.
    /// An unknown name gives an empty text, and a warning the first time that this name and variant are asked
    /// for since the last setThemePaths().
    static QString imageFileName(const QString &name, const QString &variant);

    /// The icon made from the picture \a name; a null icon when it is unknown.
    static QIcon fromTheme(const QString &name);
};

} // namespace Korvo::Utils
