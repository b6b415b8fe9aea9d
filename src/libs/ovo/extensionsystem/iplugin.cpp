// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "iplugin.h"

#include "pluginmanager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QTranslator>

namespace Ovo::ExtensionSystem {

namespace {

/// The endings of translation files that suit \a locale, best first; empty when no such language is known.
QStringList localeNames(const QString &locale)
{
    QString asked = locale.isEmpty() ? QLocale::system().name() : locale;
    if (asked == QLatin1String("C") || asked == QLatin1String("POSIX"))
        asked = QStringLiteral("en");

    const QLocale known(asked);
    if (known.language() == QLocale::C)
        return {};

    // As it was asked for comes first: the locale class completes a language to its usual region and drops
    // the script.
    const QString region = known.name();
    return {asked.replace(QLatin1Char('-'), QLatin1Char('_')), region,
            region.section(QLatin1Char('_'), 0, 0)};
}

} // namespace

class IPluginPrivate
{
public:
    QScopedPointer<QTranslator> translator; // leaves the application when it is deleted
};

IPlugin::IPlugin()
    : d(new IPluginPrivate)
{
}

IPlugin::~IPlugin() = default;

bool IPlugin::delayedInitialize()
{
    return false;
}

IPlugin::ShutdownFlag IPlugin::aboutToShutdown()
{
    return SynchronousShutdown;
}

QObject *IPlugin::remoteCommand(const QStringList &options, const QString &workingDirectory,
                                const QStringList &arguments)
{
    Q_UNUSED(options)
    Q_UNUSED(workingDirectory)
    Q_UNUSED(arguments)
    return nullptr;
}

QVector<QObject *> IPlugin::createTestObjects() const
{
    return {};
}

bool IPlugin::installTranslator(const QString &locale)
{
    Q_UNUSED(locale)
    return false;
}

bool IPlugin::installTranslator(const QString &path, const QString &name, const QString &locale)
{
    if (!QCoreApplication::instance())
        return false;

    const QStringList endings = localeNames(locale);
    for (const QString &ending : endings) {
        const QString file = QDir(path).filePath(name + QLatin1Char('_') + ending + QLatin1String(".qm"));
        // The translator would look for shorter names by itself, down to one without a language.
        if (!QFileInfo(file).isFile())
            continue;
        QScopedPointer<QTranslator> translator(new QTranslator);
        if (!translator->load(file))
            continue;
        d->translator.swap(translator);
        QCoreApplication::installTranslator(d->translator.data());
        return true;
    }
    return false;
}

void IPlugin::addObject(QObject *object)
{
    PluginManager::addObject(object);
}

void IPlugin::removeObject(QObject *object)
{
    PluginManager::removeObject(object);
}

} // namespace Ovo::ExtensionSystem
