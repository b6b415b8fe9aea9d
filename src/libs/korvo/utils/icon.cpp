// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "icon.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QPair>
#include <QSet>

namespace Korvo::Utils {

namespace {

Q_LOGGING_CATEGORY(utilsLog, "korvo.utils")

struct Theme
{
    QString imageFolder; // absolute and clean; empty until a theme is set
    QSet<QPair<QString, QString>> reported;
};

Theme &theme()
{
    static Theme current;
    return current;
}

/// Names come from records and forms: none of them may lead out of its folder.
bool isPlainName(const QString &name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
           !name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\'));
}

/// Empty when there is no such file.
QString findImage(const QString &name, const QString &variant)
{
    const QString &root = theme().imageFolder;
    if (root.isEmpty() || !isPlainName(name) || !(variant.isEmpty() || isPlainName(variant)))
        return QString();

    // Joined by hand: QDir would follow a name that looks like a search path ("theme:x") out of the theme.
    const QString folder = variant.isEmpty() ? root : root + QLatin1Char('/') + variant;
    for (const auto &ending : {QLatin1String(".svg"), QLatin1String(".png")}) {
        QString path = folder + QLatin1Char('/') + name + ending;
        if (QFileInfo(path).isFile())
            return path;
    }
    return QString();
}

void reportOnce(const QString &name, const QString &variant)
{
    const auto key = qMakePair(name, variant);
    if (theme().reported.contains(key))
        return;
    theme().reported.insert(key);
    qCWarning(utilsLog) << "No picture" << name << "variant" << variant << "in" << theme().imageFolder;
}

} // namespace

void Icon::setThemePath(const QString &path)
{
    theme().imageFolder =
        path.isEmpty() ? QString() : QDir::cleanPath(QDir(path).absoluteFilePath(QStringLiteral("images")));
    theme().reported.clear();
}

QString Icon::imageFileName(const QString &name, const QString &variant)
{
    QString path = findImage(name, variant);
    if (path.isEmpty())
        reportOnce(name, variant);
    return path;
}

QIcon Icon::fromTheme(const QString &name)
{
    const QString path = imageFileName(name, QString());
    return path.isEmpty() ? QIcon() : QIcon(path);
}

} // namespace Korvo::Utils
