// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "hostsettings.h"

#include "options.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

namespace K7Host {

namespace {

QString scaleKey()
{
    return QStringLiteral("General/Scale");
}

QString themeKey()
{
    return QStringLiteral("General/Theme");
}

QString geometryKey()
{
    return QStringLiteral("Window/Geometry");
}

} // namespace

HostSettings::HostSettings(const QString &language)
    : m_store(new QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("LUMETRA"),
                            QStringLiteral("k7host")))
{
    if (language.isEmpty())
        return;
    const QScopedPointer<QSettings> users(m_store.take());
    m_copyDir.reset(new QTemporaryDir);
    m_store.reset(new QSettings(m_copyDir->filePath(QStringLiteral("k7host.ini")), QSettings::IniFormat));
    const QStringList keys = users->allKeys();
    for (const QString &key : keys)
        m_store->setValue(key, users->value(key));
    m_store->setValue(QStringLiteral("General/OverrideLanguage"), language);
}

HostSettings::~HostSettings() = default;

QSettings *HostSettings::store() const
{
    return m_store.data();
}

qreal HostSettings::scale() const
{
    return scaleFromText(m_store->value(scaleKey()).toString()).value_or(0);
}

void HostSettings::setScale(qreal scale)
{
    m_store->setValue(scaleKey(), textOfScale(scale));
}

QString HostSettings::theme(const QString &standard) const
{
    const QString name = m_store->value(themeKey()).toString();
    const QString dir = QFileInfo(QDir(standard).absolutePath()).dir().filePath(name);
    return !name.isEmpty() && QFileInfo(dir).isDir() ? dir : standard;
}

void HostSettings::setTheme(const QString &dir)
{
    m_store->setValue(themeKey(), QDir(dir).dirName());
}

QByteArray HostSettings::windowGeometry() const
{
    return m_store->value(geometryKey()).toByteArray();
}

void HostSettings::setWindowGeometry(const QByteArray &geometry)
{
    m_store->setValue(geometryKey(), geometry);
}

} // namespace K7Host
