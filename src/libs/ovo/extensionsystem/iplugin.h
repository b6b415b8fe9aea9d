// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ovo/extensionsystem/export.h>

#include <QObject>
#include <QScopedPointer>
#include <QStringList>
#include <QVector>

namespace Ovo::ExtensionSystem {

class IPluginPrivate;

/// Base of the root object of every plug-in. GUI thread only.
///
/// The plug-in manager calls initialize() in the order of dependencies, extensionsInitialized() in reverse,
/// delayedInitialize() from the event loop, and aboutToShutdown() before it deletes the object.
/// Hosts call the virtual operations through the table, so their order is part of the interface: new
/// ones go to the end.
class OVO_EXTENSIONSYSTEM_EXPORT IPlugin : public QObject
{
    Q_OBJECT

public:
    enum ShutdownFlag {
        SynchronousShutdown = 0, ///< the plug-in is ready to be deleted when aboutToShutdown() returns
        AsynchronousShutdown = 1 ///< it is ready when it emits asynchronousShutdownFinished()
    };

    IPlugin();
    ~IPlugin() override;

    /// Makes the plug-in ready for use by others. On false the plug-in is not used, and what was written
    /// to \a errorString tells why.
    virtual bool initialize(const QStringList &arguments, QString *errorString) = 0;

    /// Called once all plug-ins that depend on this one are initialized.
    virtual void extensionsInitialized() = 0;

    /// For what can wait until the host's window is shown. True when there was something to do.
    virtual bool delayedInitialize();

    virtual ShutdownFlag aboutToShutdown();

    /// Handles the command line of a second start of the host; null when there is nothing to wait for.
    virtual QObject *remoteCommand(const QStringList &options, const QString &workingDirectory,
                                   const QStringList &arguments);

    /// Objects whose slots are tests; the caller owns them.
    virtual QVector<QObject *> createTestObjects() const;

    /// Installs the plug-in's own translation for \a locale.
    virtual bool installTranslator(const QString &locale);

    /// Installs <path>/<name>_<locale>.qm on the application, falling back from region to language
    /// ("de_CH" to "de"); an empty \a locale is the system's, where "C" counts as English. The file replaces
    /// the one that an earlier call installed for this plug-in, and goes with the plug-in. False when there
    /// is no such file, language or application object; what was installed then stays.
    virtual bool installTranslator(const QString &path, const QString &name, const QString &locale);

    /// Puts \a object into the plug-in manager's object pool, or takes it out; ownership does not change.
    void addObject(QObject *object);
    void removeObject(QObject *object);

Q_SIGNALS:
    void asynchronousShutdownFinished();

private:
    QScopedPointer<IPluginPrivate> d;
};

} // namespace Ovo::ExtensionSystem
