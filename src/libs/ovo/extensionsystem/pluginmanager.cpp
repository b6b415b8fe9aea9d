// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "pluginmanager.h"

#include "iplugin.h"
#include "pluginspec.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QHash>
#include <QLibrary>
#include <QLoggingCategory>
#include <QPointer>
#include <QQueue>
#include <QScopedValueRollback>
#include <QSet>
#include <QSettings>
#include <QTimer>

#include <algorithm>

namespace Ovo::ExtensionSystem {

namespace {

Q_LOGGING_CATEGORY(lcExtensionSystem, "ovo.extensionsystem")

QVector<PluginSpec *> reversed(QVector<PluginSpec *> specs)
{
    std::reverse(specs.begin(), specs.end());
    return specs;
}

QString describe(const PluginDependency &wanted)
{
    const QString name = QStringLiteral("the plug-in \"%1\"").arg(wanted.name);
    return wanted.version.isEmpty() ? name : name + QLatin1Char(' ') + wanted.version;
}

} // namespace

class PluginManagerPrivate
{
public:
    PluginManagerPrivate();
    Q_DISABLE_COPY(PluginManagerPrivate)

    /// Whether plug-ins may be started or stopped now; warns when not.
    bool isIdle(const char *operation) const;

    void findPlugins(const QStringList &paths);
    void readMetaData();
    void loadPlugins();
    void shutdown();

    QPointer<QSettings> settings;
    QVector<QPointer<QObject>> pool; // may hold null for objects that were destroyed
    QString iid;
    QVector<PluginSpec *> specs;   // all that were found, in that order; ours
    QVector<PluginSpec *> started; // those in use, in load order
    int shutdownTimeoutMs = 10000;

private:
    void resolveDependencies();
    void findDependencies(PluginSpec *spec, const QHash<QString, PluginSpec *> &specsByName);
    QStringList findCircle(PluginSpec *spec) const;
    void enqueue(PluginSpec *spec, QSet<PluginSpec *> *visited);
    bool failsWithDependencies(PluginSpec *spec);
    void dropFailed();
    void warnOfFailed() const;
    void delayedInitializeNext();
    void stopStarted();
    void waitFor(const QVector<PluginSpec *> &pending, QEventLoop *loop) const;

    QHash<PluginSpec *, QVector<PluginSpec *>> dependencies; // what each one needs directly
    QVector<PluginSpec *> delayed;                           // those whose delayedInitialize() is to come
    QTimer delayedTimer;
    bool isBusy = false; // starting or stopping plug-ins
};

PluginManagerPrivate::PluginManagerPrivate()
{
    delayedTimer.setSingleShot(true);
    delayedTimer.setInterval(0);
    QObject::connect(&delayedTimer, &QTimer::timeout, &delayedTimer, [this] { delayedInitializeNext(); });
}

bool PluginManagerPrivate::isIdle(const char *operation) const
{
    if (isBusy)
        qCWarning(lcExtensionSystem, "%s ignored: plug-ins are being started or stopped", operation);
    return !isBusy;
}

void PluginManagerPrivate::findPlugins(const QStringList &paths)
{
    qDeleteAll(specs);
    specs.clear();
    dependencies.clear();

    QSet<QString> seen; // a file is one plug-in, whatever links lead to it
    for (const QString &path : paths) {
        const QFileInfoList files = QDir(path).entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo &file : files) {
            const QString canonicalPath = file.canonicalFilePath();
            if (!QLibrary::isLibrary(file.fileName()) || seen.contains(canonicalPath))
                continue;
            seen.insert(canonicalPath);
            specs.append(new PluginSpec(file.absoluteFilePath()));
        }
    }
}

void PluginManagerPrivate::readMetaData()
{
    QHash<QString, PluginSpec *> specsByName;
    for (PluginSpec *spec : qAsConst(specs)) {
        spec->read(iid);
        if (spec->hasError())
            continue;
        PluginSpec *&first = specsByName[spec->name()];
        if (first) {
            spec->fail(QStringLiteral(
                           "%1 is not used: the plug-in \"%2\" is already found in %3. Remove one of them.")
                           .arg(QDir::toNativeSeparators(spec->filePath()), spec->name(),
                                QDir::toNativeSeparators(first->filePath())));
        } else {
            first = spec;
        }
    }
}

void PluginManagerPrivate::loadPlugins()
{
    const QScopedValueRollback<bool> busy(isBusy, true);
    readMetaData();
    resolveDependencies();

    for (PluginSpec *spec : qAsConst(started)) {
        if (!failsWithDependencies(spec))
            spec->load();
    }
    for (PluginSpec *spec : qAsConst(started)) {
        if (!failsWithDependencies(spec))
            spec->initialize();
    }
    dropFailed();
    warnOfFailed();

    delayed = reversed(started);
    for (PluginSpec *spec : qAsConst(delayed)) {
        if (IPlugin *plugin = spec->plugin())
            plugin->extensionsInitialized();
        spec->setState(PluginSpec::Running);
    }
    if (!delayed.isEmpty())
        delayedTimer.start();
}

/// Fills the list of those to start, in the order of dependencies.
void PluginManagerPrivate::resolveDependencies()
{
    QHash<QString, PluginSpec *> specsByName;
    for (PluginSpec *spec : qAsConst(specs)) {
        PluginSpec *&best = specsByName[spec->name()];
        if (!best || (best->hasError() && !spec->hasError()))
            best = spec;
    }

    dependencies.clear();
    for (PluginSpec *spec : qAsConst(specs))
        findDependencies(spec, specsByName);

    for (PluginSpec *spec : qAsConst(specs)) {
        const QStringList circle = findCircle(spec);
        if (!circle.isEmpty()) {
            spec->fail(
                QStringLiteral(
                    "\"%1\" is not loaded, since it needs itself: %2. Remove one of these dependencies.")
                    .arg(spec->name(), circle.join(QStringLiteral(" -> "))));
        }
    }

    QSet<PluginSpec *> visited;
    for (PluginSpec *spec : qAsConst(specs))
        enqueue(spec, &visited);
}

void PluginManagerPrivate::findDependencies(PluginSpec *spec, const QHash<QString, PluginSpec *> &specsByName)
{
    if (spec->hasError())
        return;

    const QVector<PluginDependency> wantedPlugins = spec->dependencies();
    for (const PluginDependency &wanted : wantedPlugins) {
        PluginSpec *found = specsByName.value(wanted.name);
        if (!found) {
            spec->fail(QStringLiteral("\"%1\" needs %2, which was not found. Install it in a plug-in folder.")
                           .arg(spec->name(), describe(wanted)));
        } else if (found->state() != PluginSpec::Invalid && !found->provides(wanted.name, wanted.version)) {
            spec->fail(
                QStringLiteral("\"%1\" needs %2, but %3 was found, which serves %4 to %3. Install versions "
                               "that fit.")
                    .arg(spec->name(), describe(wanted), found->version(), found->compatVersion()));
        } else {
            dependencies[spec].append(found);
        }
    }
}

/// The names on the shortest way from \a spec over its dependencies back to itself; empty without one.
QStringList PluginManagerPrivate::findCircle(PluginSpec *spec) const
{
    QHash<PluginSpec *, PluginSpec *> neededBy;
    QQueue<PluginSpec *> next;
    next.enqueue(spec);
    while (!next.isEmpty() && !neededBy.contains(spec)) {
        PluginSpec *user = next.dequeue();
        const QVector<PluginSpec *> needed = dependencies.value(user);
        for (PluginSpec *dependency : needed) {
            if (neededBy.contains(dependency))
                continue;
            neededBy.insert(dependency, user);
            next.enqueue(dependency);
        }
    }
    if (!neededBy.contains(spec))
        return {};

    QStringList names(spec->name());
    PluginSpec *step = spec;
    do {
        step = neededBy.value(step);
        names.prepend(step->name());
    } while (step != spec);
    return names;
}

void PluginManagerPrivate::enqueue(PluginSpec *spec, QSet<PluginSpec *> *visited)
{
    if (visited->contains(spec))
        return;
    visited->insert(spec);

    const QVector<PluginSpec *> needed = dependencies.value(spec);
    for (PluginSpec *dependency : needed)
        enqueue(dependency, visited);
    if (failsWithDependencies(spec))
        return;
    spec->setState(PluginSpec::Resolved);
    started.append(spec);
}

/// Whether \a spec has failed, be it just now since one that it needs has.
bool PluginManagerPrivate::failsWithDependencies(PluginSpec *spec)
{
    if (spec->hasError())
        return true;

    const QVector<PluginSpec *> needed = dependencies.value(spec);
    for (const PluginSpec *dependency : needed) {
        if (dependency->hasError()) {
            spec->fail(
                QStringLiteral("\"%1\" needs the plug-in \"%2\", which cannot be used. Repair \"%2\" first.")
                    .arg(spec->name(), dependency->name()));
        }
    }
    return spec->hasError();
}

void PluginManagerPrivate::dropFailed()
{
    const auto hasError = [](const PluginSpec *spec) { return spec->hasError(); };
    started.erase(std::remove_if(started.begin(), started.end(), hasError), started.end());
}

void PluginManagerPrivate::warnOfFailed() const
{
    for (const PluginSpec *spec : qAsConst(specs)) {
        if (spec->hasError())
            qCWarning(lcExtensionSystem, "%s", qUtf8Printable(spec->errorString()));
    }
}

/// One plug-in a turn of the event loop, so that the host can paint and answer in between.
void PluginManagerPrivate::delayedInitializeNext()
{
    if (IPlugin *plugin = delayed.takeFirst()->plugin())
        plugin->delayedInitialize();
    if (!delayed.isEmpty())
        delayedTimer.start();
}

void PluginManagerPrivate::shutdown()
{
    const QScopedValueRollback<bool> busy(isBusy, true);
    delayedTimer.stop();
    delayed.clear();

    stopStarted();
    const QVector<PluginSpec *> specsToDelete = reversed(started);
    for (PluginSpec *spec : specsToDelete)
        spec->deletePlugin();
    started.clear();
}

void PluginManagerPrivate::stopStarted()
{
    QEventLoop loop;
    QVector<PluginSpec *> pending = started;
    const auto finish = [&pending, &loop](PluginSpec *spec) {
        pending.removeOne(spec);
        if (pending.isEmpty())
            loop.quit();
    };

    for (PluginSpec *spec : qAsConst(started)) {
        IPlugin *plugin = spec->plugin();
        if (!plugin) {
            finish(spec);
            continue;
        }
        const auto finishThis = [&finish, spec] { finish(spec); };
        QObject::connect(plugin, &IPlugin::asynchronousShutdownFinished, &loop, finishThis);
        QObject::connect(plugin, &QObject::destroyed, &loop, finishThis);
        if (plugin->aboutToShutdown() == IPlugin::SynchronousShutdown)
            finish(spec);
        spec->setState(PluginSpec::Stopped);
    }
    waitFor(pending, &loop);
}

/// Runs \a loop until others have emptied \a pending, or the time is over.
void PluginManagerPrivate::waitFor(const QVector<PluginSpec *> &pending, QEventLoop *loop) const
{
    QTimer timeout;
    timeout.setSingleShot(true);
    QObject::connect(&timeout, &QTimer::timeout, loop, &QEventLoop::quit);
    if (!pending.isEmpty() && QCoreApplication::instance())
        timeout.start(shutdownTimeoutMs);
    while (!pending.isEmpty() && timeout.isActive()) {
        // No loop starts any more while the application quits.
        if (loop->exec() == -1)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    for (const PluginSpec *spec : pending) {
        qCWarning(lcExtensionSystem, "\"%s\" did not finish within %d ms and is deleted as it is",
                  qUtf8Printable(spec->name()), shutdownTimeoutMs);
    }
}

PluginManager *PluginManager::instance()
{
    // Never destroyed: a plug-in that was not shut down is deleted by its library at the very end, and takes
    // its objects out of the pool then.
    static PluginManager *const manager = new PluginManager;
    return manager;
}

PluginManager::PluginManager()
    : d(new PluginManagerPrivate)
{
}

PluginManager::~PluginManager() = default;

void PluginManager::setSettings(QSettings *settings)
{
    instance()->d->settings = settings;
}

QSettings *PluginManager::settings()
{
    return instance()->d->settings;
}

void PluginManager::addObject(QObject *object)
{
    QVector<QPointer<QObject>> &pool = instance()->d->pool;
    pool.removeAll(QPointer<QObject>());
    if (object && !allObjects().contains(object))
        pool.append(object);
}

void PluginManager::removeObject(QObject *object)
{
    QVector<QPointer<QObject>> &pool = instance()->d->pool;
    pool.erase(std::remove(pool.begin(), pool.end(), object), pool.end());
}

QList<QObject *> PluginManager::allObjects()
{
    QList<QObject *> objects;
    for (const QPointer<QObject> &object : qAsConst(instance()->d->pool)) {
        if (object)
            objects.append(object);
    }
    return objects;
}

void PluginManager::setPluginIID(const QString &iid)
{
    instance()->d->iid = iid;
}

void PluginManager::setPluginPaths(const QStringList &paths)
{
    PluginManagerPrivate *manager = instance()->d.data();
    if (!manager->isIdle("setPluginPaths()"))
        return;
    manager->shutdown();
    manager->findPlugins(paths);
    manager->readMetaData();
}

QVector<PluginSpec *> PluginManager::plugins()
{
    return instance()->d->specs;
}

void PluginManager::loadPlugins()
{
    PluginManagerPrivate *manager = instance()->d.data();
    if (manager->isIdle("loadPlugins()") && manager->started.isEmpty())
        manager->loadPlugins();
}

void PluginManager::shutdown()
{
    PluginManagerPrivate *manager = instance()->d.data();
    if (manager->isIdle("shutdown()"))
        manager->shutdown();
}

void PluginManager::setShutdownTimeout(int ms)
{
    instance()->d->shutdownTimeoutMs = qMax(0, ms);
}

} // namespace Ovo::ExtensionSystem
