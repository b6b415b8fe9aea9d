// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "screenshot.h"

#include <QDir>
#include <QImageWriter>

namespace K7Host {

std::optional<Fault> saveScreenshot(const QImage &picture, const QString &dir, const QString &file)
{
    if (!QDir().mkpath(dir))
        return Fault{ExitBadArguments, QStringLiteral("cannot make the folder %1").arg(dir)};
    QImageWriter writer(QDir(dir).filePath(file));
    if (!writer.write(picture)) {
        return Fault{ExitBadArguments,
                     QStringLiteral("cannot write %1: %2").arg(writer.fileName(), writer.errorString())};
    }
    return {};
}

} // namespace K7Host
