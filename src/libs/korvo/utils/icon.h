// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/utils/export.h>

#include <QIcon>
#include <QString>

namespace Korvo::Utils {

/// The host's icon store: finds pictures by name in the current theme folder. GUI thread only.
///
/// A picture is the file <theme>/images/[variant/]<name> with the first of the known endings (.svg, .png)
/// that exists. Nothing outside the theme folder is ever found: a name or variant with a path separator, and
/// "..", are unknown names.
class KORVO_UTILS_EXPORT Icon
{
public:
    /// Sets the theme folder of all later look-ups; an empty \a path, as before the first call, makes every
    /// name unknown. A relative one counts from the current folder of now.
    static void setThemePath(const QString &path);

    /// The absolute, clean path of the picture \a name, of its \a variant when that is not empty.
    /// An unknown name gives an empty text, and a warning the first time that this name and variant are asked
    /// for since the last setThemePath().
    static QString imageFileName(const QString &name, const QString &variant);

    /// The icon made from the picture \a name; a null icon when it is unknown.
    static QIcon fromTheme(const QString &name);
};

} // namespace Korvo::Utils
