// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QRgb>
#include <QSize>
#include <QString>

#include <optional>

namespace Korvo::EC {

/// The file that \a styleSheet names, when it asks for a picture on the border and for nothing else; nothing
/// for any other sheet. The file's name may be empty.
std::optional<QString> pictureOf(const QString &styleSheet);

/// All that a key shows but its lettering: a picture over a ground that tells the key's state, in a well.
/// Opaque, so that nothing behind a key has to be painted when the key changes.
struct KeyFace
{
    QString picture; ///< file, stretched to the cap; empty for none
    QSize size;      ///< of the key
    qreal pixelRatio = 1;
    int inset = 0; ///< of the cap in its well on all sides
    QRgb well = 0;
    QRgb ground = 0; ///< of the cap; shines through its picture
    QRgb rim = 0;    ///< a line around the cap; none where it is the ground's colour

    /// Painted once: keys that look the same share it. Null for a key of no size. GUI thread only.
    QImage image() const;
    /// Has all faces painted again, since their pictures may have changed.
    static void forgetAll();
};

} // namespace Korvo::EC
