// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "keyface.h"

#include <QCache>
#include <QImageReader>
#include <QPainter>
#include <QtMath>

namespace Korvo::EC {

namespace {

constexpr qreal capRadius = 8;
constexpr qreal rimWidth = 2;
constexpr int maxBytes = 4 << 20; // about 250 faces of 64 by 64

/// Not Qt's cache of pixmaps, which drops what nobody has used for half a minute: a console may rest for
/// long.
QCache<QString, QImage> &faces()
{
    static QCache<QString, QImage> faces(maxBytes);
    return faces;
}

QString nameOf(const KeyFace &face)
{
    QString name = face.picture;
    for (const qint64 number :
         {qint64(face.size.width()), qint64(face.size.height()), qRound64(face.pixelRatio * 1000),
          qint64(face.inset), qint64(face.well), qint64(face.ground), qint64(face.rim)}) {
        name += QLatin1Char(' ');
        name += QString::number(number, 36);
    }
    return name;
}

/// Read at its painted size, since a drawing is sharp at any.
QImage readPicture(const QString &file, QSize size)
{
    QImageReader reader(file);
    reader.setScaledSize(size);
    return reader.read();
}

/// Every device pixel that the key has a part in.
QSize pixelsOf(const KeyFace &face)
{
    return QSize(qCeil(face.size.width() * face.pixelRatio), qCeil(face.size.height() * face.pixelRatio));
}

QImage paint(const KeyFace &face)
{
    QImage image(pixelsOf(face), QImage::Format_RGB32);
    image.setDevicePixelRatio(face.pixelRatio);
    image.fill(face.well);
    const QRect cap =
        QRect(QPoint(0, 0), face.size).adjusted(face.inset, face.inset, -face.inset, -face.inset);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const auto fill = [&painter](const QRectF &rect, qreal radius, QRgb color) {
        if (rect.isEmpty())
            return; // or Qt turns it inside out
        painter.setBrush(QColor(color));
        painter.drawRoundedRect(rect, radius, radius);
    };
    fill(cap, capRadius, face.rim);
    if (face.rim != face.ground)
        fill(QRectF(cap).adjusted(rimWidth, rimWidth, -rimWidth, -rimWidth), capRadius - rimWidth,
             face.ground);
    if (!face.picture.isEmpty() && !cap.isEmpty())
        painter.drawImage(cap, readPicture(face.picture, cap.size() * face.pixelRatio));
    return image;
}

} // namespace

std::optional<QString> pictureOf(const QString &styleSheet)
{
    static const QLatin1String begin("border-image:url(\"");
    static const QLatin1String end("\")");
    const int length = styleSheet.size() - begin.size() - end.size();
    if (length < 0 || !styleSheet.startsWith(begin) || !styleSheet.endsWith(end))
        return {};
    const QString file = styleSheet.mid(begin.size(), length);
    if (file.contains(QLatin1Char('"')))
        return {};
    return file;
}

QImage KeyFace::image() const
{
    if (size.isEmpty())
        return {};
    const QString name = nameOf(*this);
    if (const QImage *kept = faces().object(name))
        return *kept;
    QImage image = paint(*this);
    faces().insert(name, new QImage(image), image.bytesPerLine() * image.height());
    return image;
}

void KeyFace::forgetAll()
{
    faces().clear();
}

} // namespace Korvo::EC
