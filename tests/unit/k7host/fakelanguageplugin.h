// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ovo/extensionsystem/iplugin.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace K7Host {

/// A plug-in that is no more than its translations, which are files in a folder of its own.
class FakeLanguagePlugin : public Ovo::ExtensionSystem::IPlugin
{
public:
    using IPlugin::installTranslator;

    bool initialize(const QStringList & /*arguments*/, QString * /*errorString*/) override { return true; }
    void extensionsInitialized() override {}
    bool installTranslator(const QString &locale) override
    {
        asked << locale;
        return installTranslator(m_dir.path(), QStringLiteral("korvoeckeyboardk7"), locale);
    }

    /// Puts a translation into the folder: \a file, or one without any text.
    bool addTranslation(const QString &locale, const QString &file = QString())
    {
        const QString path = m_dir.filePath(QStringLiteral("korvoeckeyboardk7_%1.qm").arg(locale));
        if (!file.isEmpty())
            return QFile::copy(file, path);
        const char magic[] = "\x3c\xb8\x64\x18\xca\xef\x9c\x95\xcd\x21\x1c\xbf\x60\xa1\xbd\xdd";
        QFile empty(path);
        return empty.open(QIODevice::WriteOnly) && empty.write(magic, sizeof magic - 1) == sizeof magic - 1;
    }
    QString dir() const { return m_dir.path(); }

    QStringList asked; // locales that were to be installed

private:
    QTemporaryDir m_dir;
};

} // namespace K7Host
