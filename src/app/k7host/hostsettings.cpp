// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "hostsettings.h"

#include <QSettings>
#include <QTemporaryDir>

namespace K7Host {

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

} // namespace K7Host
