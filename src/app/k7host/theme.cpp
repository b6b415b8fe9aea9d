// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "theme.h"

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QHash>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QSettings>
#include <QStyle>

#include <algorithm>

namespace K7Host {

namespace {

using Colors = QHash<QString, QColor>;

QString descriptionFile(const QString &dir)
{
    return QDir(dir).filePath(QStringLiteral("theme.ini"));
}

/// Empty where the theme has none.
QString baseOf(const QString &dir)
{
    const QString base =
        QSettings(descriptionFile(dir), QSettings::IniFormat).value(QStringLiteral("Theme/Base")).toString();
    return base.isEmpty() ? QString() : QDir::cleanPath(QDir(dir).filePath(QStringLiteral("../") + base));
}

QString nameOf(const QString &dir)
{
    return QSettings(descriptionFile(dir), QSettings::IniFormat)
        .value(QStringLiteral("Theme/Name"), QDir(dir).dirName())
        .toStringList()
        .join(QLatin1String(", ")); // a comma makes a list of it
}

/// In the first folder that holds it.
QString findFile(const QStringList &folders, const QString &name)
{
    const auto hasFile = [&name](const QString &folder) { return QDir(folder).exists(name); };
    const auto folder = std::find_if(folders.begin(), folders.end(), hasFile);
    return QDir(folder == folders.end() ? folders.first() : *folder).filePath(name);
}

Fault unreadable(const QString &what, const QString &file, const QString &reason)
{
    return {ExitBadArguments, QStringLiteral("cannot read the theme's %1 %2: %3").arg(what, file, reason)};
}

/// What one theme.ini says; later files add to it.
class Description
{
public:
    std::optional<Fault> read(const QString &dir);

    const Colors &colors() const { return m_colors; }
    QPalette palette() const;
    QPalette keyPalette() const { return withRoles(palette(), m_keyRoles); }
    QPalette oledPalette() const { return withRoles(palette(), m_oledRoles); }

private:
    using Names = QHash<QPalette::ColorRole, QString>; // of colours
    struct Roles
    {
        Names usual;
        Names disabled;
    };

    std::optional<Fault> readColors(QSettings *file);
    std::optional<Fault> readRoles(QSettings *file, const QString &group, Roles *roles);
    std::optional<Fault> readNames(QSettings *file, const QString &group, Names *names);
    QPalette withRoles(QPalette palette, const Roles &roles) const;

    Colors m_colors;
    Roles m_roles;
    Roles m_keyRoles;
    Roles m_oledRoles;
};

std::optional<Fault> Description::read(const QString &dir)
{
    QSettings file(descriptionFile(dir), QSettings::IniFormat);
    if (file.status() != QSettings::NoError)
        return unreadable(QStringLiteral("description"), file.fileName(), QStringLiteral("not an INI file"));
    if (auto fault = readColors(&file))
        return fault;
    if (auto fault = readRoles(&file, QStringLiteral("Palette"), &m_roles))
        return fault;
    if (auto fault = readRoles(&file, QStringLiteral("KeyPalette"), &m_keyRoles))
        return fault;
    return readRoles(&file, QStringLiteral("OledPalette"), &m_oledRoles);
}

std::optional<Fault> Description::readColors(QSettings *file)
{
    file->beginGroup(QStringLiteral("Colors"));
    const QStringList names = file->childKeys();
    for (const QString &name : names) {
        const QColor color(file->value(name).toString());
        if (!color.isValid())
            return unreadable(QStringLiteral("description"), file->fileName(),
                              QStringLiteral("%1 is no color").arg(name));
        m_colors.insert(name, color);
    }
    file->endGroup();
    return {};
}

std::optional<Fault> Description::readRoles(QSettings *file, const QString &group, Roles *roles)
{
    if (auto fault = readNames(file, group, &roles->usual))
        return fault;
    return readNames(file, QStringLiteral("Disabled") + group, &roles->disabled);
}

std::optional<Fault> Description::readNames(QSettings *file, const QString &group, Names *names)
{
    static const QMetaEnum known = QMetaEnum::fromType<QPalette::ColorRole>();
    file->beginGroup(group);
    const QStringList keys = file->childKeys();
    for (const QString &name : keys) {
        bool isRole = false;
        const auto role = QPalette::ColorRole(known.keyToValue(name.toLatin1().constData(), &isRole));
        const QString color = file->value(name).toString();
        if (!isRole || !m_colors.contains(color))
            return unreadable(
                QStringLiteral("description"), file->fileName(),
                QStringLiteral("%1=%2 in [%3] names no %4")
                    .arg(name, color, group, isRole ? QStringLiteral("color") : QStringLiteral("role")));
        names->insert(role, color);
    }
    file->endGroup();
    return {};
}

/// Shades of bevels follow the colour of buttons.
QPalette Description::palette() const
{
    if (m_roles.usual.isEmpty())
        return QApplication::style()->standardPalette();
    const QPalette usual = QApplication::style()->standardPalette();
    const auto colorOf = [&](QPalette::ColorRole role) {
        return m_roles.usual.contains(role) ? m_colors.value(m_roles.usual.value(role)) : usual.color(role);
    };
    return withRoles(QPalette(colorOf(QPalette::Button), colorOf(QPalette::Window)), m_roles);
}

QPalette Description::withRoles(QPalette palette, const Roles &roles) const
{
    for (auto role = roles.usual.begin(); role != roles.usual.end(); ++role)
        palette.setColor(role.key(), m_colors.value(role.value()));
    for (auto role = roles.disabled.begin(); role != roles.disabled.end(); ++role)
        palette.setColor(QPalette::Disabled, role.key(), m_colors.value(role.value()));
    return palette;
}

/// Puts colours in place of their names; a fault tells the line of a name that is not known.
std::optional<Fault> fillIn(const Colors &colors, const QString &fileName, QString *styleSheet)
{
    static const QRegularExpression atName(QStringLiteral("@(\\w+)"));
    QString filled;
    int done = 0;
    QRegularExpressionMatchIterator matches = atName.globalMatch(*styleSheet);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const auto color = colors.find(match.captured(1));
        if (color == colors.end()) {
            const int line = styleSheet->leftRef(match.capturedStart()).count(QLatin1Char('\n')) + 1;
            return unreadable(
                QStringLiteral("style sheet"), fileName,
                QStringLiteral("line %1: no color is named %2").arg(line).arg(match.captured(1)));
        }
        filled += styleSheet->midRef(done, match.capturedStart() - done);
        filled += color->name(color->alpha() < 255 ? QColor::HexArgb : QColor::HexRgb);
        done = match.capturedEnd();
    }
    *styleSheet = filled + styleSheet->midRef(done);
    return {};
}

std::optional<Fault> readStyleSheet(const QStringList &folders, const Colors &colors, QString *styleSheet)
{
    QFile file(findFile(folders, QStringLiteral("console.qss")));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return unreadable(QStringLiteral("style sheet"), file.fileName(), file.errorString());
    *styleSheet = QString::fromUtf8(file.readAll());
    return fillIn(colors, file.fileName(), styleSheet);
}

} // namespace

std::optional<Fault> readTheme(const QString &dir, Theme *theme)
{
    Theme read;
    read.name = nameOf(dir);
    read.folders << QDir(dir).absolutePath();
    const QString base = baseOf(read.folders.first());
    if (!base.isEmpty())
        read.folders << base;

    Description description;
    for (auto folder = read.folders.crbegin(); folder != read.folders.crend(); ++folder) {
        if (auto fault = description.read(*folder))
            return fault;
    }
    if (auto fault = readStyleSheet(read.folders, description.colors(), &read.styleSheet))
        return fault;
    const QFileInfo images(findFile(read.folders, QStringLiteral("images")));
    if (!images.isDir() || !images.isReadable()) {
        return Fault{ExitBadArguments,
                     QStringLiteral("cannot read the theme's pictures in %1").arg(images.filePath())};
    }
    read.palette = description.palette();
    read.keyPalette = description.keyPalette();
    read.oledPalette = description.oledPalette();
    *theme = read;
    return {};
}

QList<ThemeInfo> themesBeside(const QString &dir)
{
    const QDir parent(QDir::cleanPath(QDir(dir).absoluteFilePath(QStringLiteral(".."))));
    QList<ThemeInfo> themes;
    const QStringList names = parent.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const QString path = parent.filePath(name);
        if (QDir(path).exists(QStringLiteral("console.qss")) || QFile::exists(descriptionFile(path)))
            themes.append({path, nameOf(path)});
    }
    std::sort(themes.begin(), themes.end(),
              [](const ThemeInfo &a, const ThemeInfo &b) { return a.name.localeAwareCompare(b.name) < 0; });
    return themes;
}

} // namespace K7Host
