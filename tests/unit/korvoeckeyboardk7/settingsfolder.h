// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QVariant>

/// Settings of a test's own, from now on: nobody's real ones are read or written.
class SettingsFolder
{
public:
    SettingsFolder()
    {
        use(m_folder.filePath(QStringLiteral("user")));
        QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope,
                           m_folder.filePath(QStringLiteral("system")));
    }

    /// Where the folder of the organisation is, or will be.
    static void use(const QString &path)
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, path);
    }

    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString organisation() const { return path(QStringLiteral("user/LUMETRA")); }
    QString file() const { return organisation() + QStringLiteral("/korvoeckeyboardk7.ini"); }

    /// Puts \a text into the settings file.
    void write(const QByteArray &text) const
    {
        QFile settings(file());
        if (!QDir().mkpath(organisation()) || !settings.open(QIODevice::WriteOnly) ||
            settings.write(text) != text.size())
            qFatal("cannot write %s", qPrintable(file()));
    }
    void write(const QVariantMap &values) const
    {
        QByteArray text("[General]\n");
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            text += value.key().toLatin1() + '=' + value->toString().toLatin1() + '\n';
        write(text);
    }

    /// What lies on the disk now. Stores of one file share what is not yet written, so a copy is read.
    QVariantMap stored() const
    {
        const QString copy = path(QStringLiteral("copy%1.ini").arg(++m_copies));
        QVariantMap values;
        if (QFileInfo::exists(file()) && !QFile::copy(file(), copy))
            qFatal("cannot copy %s", qPrintable(file()));
        const QSettings settings(copy, QSettings::IniFormat);
        const QStringList keys = settings.allKeys();
        for (const QString &key : keys)
            values.insert(key, settings.value(key).toString());
        return values;
    }

    /// Invalid when \a key is not in the file.
    QVariant onDisk(const QString &key) const { return stored().value(key); }
    void store(const QString &key, const QVariant &value) const
    {
        QSettings settings(file(), QSettings::IniFormat);
        settings.setValue(key, value);
    }

private:
    QTemporaryDir m_folder;
    mutable int m_copies = 0;
};
