// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "picturefolder.h"

#include "picturecomparison.h"

#include <QDir>
#include <QFileInfo>
#include <QImageWriter>

#include <cstdio>

namespace {

const QLatin1String NewEnding(".new.png");
const QLatin1String DifferenceEnding(".difference.png");

/// As small as it goes: the pictures are kept for good.
bool write(const QImage &picture, const QString &file)
{
    QImageWriter writer(file, "png");
    writer.setQuality(0);
    return writer.write(picture.convertToFormat(QImage::Format_RGB32));
}

QString rectText(const QRect &rect)
{
    return QStringLiteral("%1x%2+%3+%4").arg(rect.width()).arg(rect.height()).arg(rect.x()).arg(rect.y());
}

QString sizeText(const QSize &size)
{
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

} // namespace

PictureFolder::PictureFolder(const QString &dir, const QString &elsewhere, const QStringList &accepted)
    : m_dir(dir)
    , m_elsewhere(QFileInfo(dir).isWritable() ? dir : elsewhere)
    , m_accepted(accepted)
{
}

std::optional<QString> PictureFolder::check(const QString &name, const QImage &picture) const
{
    const QImage golden(goldenFile(name));
    const PictureComparison comparison = comparePictures(golden, picture);
    if (comparison.isSame) {
        tidyUp(name);
        return {};
    }
    if (m_accepted.contains(name) || m_accepted.contains(QLatin1String("all")))
        return accept(name, picture);

    const QString changed = m_elsewhere + QLatin1Char('/') + name;
    QDir().mkpath(m_elsewhere);
    bool isWritten = write(picture, changed + NewEnding);
    QString fault;
    if (golden.isNull()) {
        fault = QStringLiteral("%1 has no golden picture").arg(name);
    } else {
        isWritten = write(comparison.difference, changed + DifferenceEnding) && isWritten;
        fault = QStringLiteral("%1 has changed: %2 pixels in %3")
                    .arg(name)
                    .arg(comparison.count)
                    .arg(rectText(comparison.where));
        if (golden.size() != picture.size())
            fault +=
                QStringLiteral(", now %1 after %2").arg(sizeText(picture.size()), sizeText(golden.size()));
    }
    if (!isWritten)
        return fault + QStringLiteral("; cannot write to %1").arg(m_elsewhere);
    fault += QStringLiteral("\n   now: %1").arg(changed + NewEnding);
    if (!golden.isNull())
        fault += QStringLiteral("\n   what changed: %1").arg(changed + DifferenceEnding);
    return fault + QStringLiteral("\n   when this is meant: tests/looks/accept %1").arg(name);
}

QStringList PictureFolder::names() const
{
    QStringList names;
    const QFileInfoList files = QDir(m_dir).entryInfoList({QStringLiteral("*.png")}, QDir::Files);
    for (const QFileInfo &file : files) {
        if (!file.fileName().endsWith(NewEnding) && !file.fileName().endsWith(DifferenceEnding))
            names << file.completeBaseName();
    }
    return names;
}

QString PictureFolder::goldenFile(const QString &name) const
{
    return m_dir + QLatin1Char('/') + name + QStringLiteral(".png");
}

void PictureFolder::tidyUp(const QString &name) const
{
    for (const QString &dir : {m_dir, m_elsewhere}) {
        for (const QLatin1String ending : {NewEnding, DifferenceEnding})
            QFile::remove(dir + QLatin1Char('/') + name + ending);
    }
}

std::optional<QString> PictureFolder::accept(const QString &name, const QImage &picture) const
{
    const QString file = goldenFile(name);
    const bool isNew = !QFileInfo::exists(file);
    if (!write(picture, file))
        return QStringLiteral("cannot write %1").arg(file);
    tidyUp(name);
    std::printf("%s %s\n", isNew ? "new:" : "changed:", qPrintable(name));
    std::fflush(stdout);
    return {};
}
