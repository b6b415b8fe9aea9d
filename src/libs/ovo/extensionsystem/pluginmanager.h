// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ovo/extensionsystem/export.h>

#include <QList>
#include <QObject>
#include <QScopedPointer>
#include <QStringList>
#include <QVector>

QT_BEGIN_NAMESPACE
class QSettings;
QT_END_NAMESPACE

namespace Ovo::ExtensionSystem {

class PluginManagerPrivate;
class PluginSpec;

/// Finds, loads and drives plug-ins, and holds the pool of objects that they share. GUI thread only.
///
/// Metadata is read without loading a library. A plug-in that fails is reported by its PluginSpec and
/// takes along those that depend on it; the others go on. A plug-in that is just being started or stopped
/// cannot change the set of plug-ins: setPluginPaths(), loadPlugins() and shutdown() then only warn.
class OVO_EXTENSIONSYSTEM_EXPORT PluginManager : public QObject
{
    Q_OBJECT

public:
    /// Made at its first use, and never destroyed.
    static PluginManager *instance();

    /// The host's settings store; null until set, and once it is destroyed. Not owned: it outlives
    /// shutdown().
    static void setSettings(QSettings *settings);
    static QSettings *settings();

    /// The object pool. It owns nothing; an object leaves it by itself when it is destroyed. Null objects
    /// and objects that are in it already are ignored.
    static void addObject(QObject *object);
    static void removeObject(QObject *object);
    static QList<QObject *> allObjects();

    /// The first object of the pool that is a T; null without one.
    template <typename T>
    static T *getObject()
    {
        const QList<QObject *> objects = allObjects();
        for (QObject *object : objects) {
            if (T *match = qobject_cast<T *>(object))
                return match;
        }
        return nullptr;
    }

    /// Only files with this interface identifier are loaded; any, when it is empty. To be set before the
    /// paths.
    static void setPluginIID(const QString &iid);
    /// Folders to search, without their subfolders; reads the metadata of every library there. Shuts down
    /// the plug-ins of earlier paths.
    static void setPluginPaths(const QStringList &paths);
    /// All plug-ins found, in the order of folders and file names. Valid until the next setPluginPaths().
    static QVector<PluginSpec *> plugins();

    /// Loads and starts all plug-ins that were found, and warns of each one that fails. Does nothing while
    /// they run; after shutdown() it reads their metadata again and starts them anew.
    static void loadPlugins();
    /// Stops all plug-ins, waits for those that need time, then deletes them in reverse order. To be called
    /// before the application object goes; harmless when nothing runs.
    static void shutdown();
    /// How long shutdown() waits for plug-ins that need time, in ms, 0 or more; 10 s unless set. Then it
    /// warns and goes on without them.
    static void setShutdownTimeout(int ms);

private:
    PluginManager();
    ~PluginManager() override;
    Q_DISABLE_COPY(PluginManager)

    QScopedPointer<PluginManagerPrivate> d;
};

} // namespace Ovo::ExtensionSystem
