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

// What Qt knows the theme's folders as; style sheets name their pictures by it as well.
QString searchPrefix()
{
    return QStringLiteral("theme");
}

QSet<QPair<QString, QString>> &reported()
{
    static QSet<QPair<QString, QString>> names;
    return names;
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
    if (!isPlainName(name) || !(variant.isEmpty() || isPlainName(variant)))
        return QString();

    const QString folder =
        QStringLiteral("images/") + (variant.isEmpty() ? QString() : variant + QLatin1Char('/'));
    const QStringList roots = QDir::searchPaths(searchPrefix());
    for (const QString &root : roots) {
        for (const auto &ending : {QLatin1String(".svg"), QLatin1String(".png")}) {
            const QString file = folder + name + ending;
            if (QFileInfo(root + QLatin1Char('/') + file).isFile())
                return searchPrefix() + QLatin1Char(':') + file;
        }
    }
    return QString();
}

void reportOnce(const QString &name, const QString &variant)
{
    const auto key = qMakePair(name, variant);
    if (reported().contains(key))
        return;
    reported().insert(key);
    qCWarning(utilsLog) << "No picture" << name << "variant" << variant << "in"
                        << QDir::searchPaths(searchPrefix());
}

} // namespace

void Icon::setThemePaths(const QStringList &paths)
{
    QStringList folders;
    for (const QString &path : paths)
        folders << QDir::cleanPath(QDir(path).absolutePath());
    QDir::setSearchPaths(searchPrefix(), folders);
    reported().clear();
}

void Icon::setThemePath(const QString &path)
{
    setThemePaths(path.isEmpty() ? QStringList() : QStringList(path));
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
