// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ovo/extensionsystem/export.h>

#include <QScopedPointer>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Ovo::ExtensionSystem {

class IPlugin;
class PluginManager;
class PluginSpecPrivate;

/// Another plug-in that a plug-in needs, and the version of it that it was made for.
struct PluginDependency
{
    QString name;
    QString version; ///< numbers with dots; empty when any version will do
};

/// What the plug-in manager knows of one plug-in file: its metadata, how far its life cycle has come,
/// and what went wrong. Owned by the plug-in manager. GUI thread only.
class OVO_EXTENSIONSYSTEM_EXPORT PluginSpec
{
public:
    enum State {
        Invalid,     ///< not a plug-in of this host
        Read,        ///< metadata read, nothing loaded
        Resolved,    ///< dependencies found
        Loaded,      ///< library loaded, object created
        Initialized, ///< initialize() returned true
        Running,     ///< extensionsInitialized() called
        Stopped,     ///< aboutToShutdown() called
        Deleted      ///< object deleted
    };

    ~PluginSpec();

    /// Absolute path of the library.
    QString filePath() const;
    /// From the metadata; the file's base name when that has none.
    QString name() const;
    QString version() const;
    /// The oldest version whose users this one still serves; version() when the metadata gives none.
    QString compatVersion() const;
    bool isRequired() const;
    QString category() const;
    QString description() const;
    QString url() const;
    /// Given to initialize().
    QStringList arguments() const;
    QVector<PluginDependency> dependencies() const;

    /// Whether this plug-in is \a name in a version that serves users of \a version, that is from
    /// compatVersion() to version(). An empty \a version is always served.
    bool provides(const QString &name, const QString &version) const;

    State state() const;
    bool hasError() const;
    /// Why the plug-in is not used, for a person to read; empty without an error.
    QString errorString() const;
    /// The root object; null unless the state is Loaded to Stopped.
    IPlugin *plugin() const;

private:
    friend class PluginManagerPrivate;
    explicit PluginSpec(const QString &filePath);
    Q_DISABLE_COPY(PluginSpec)

    /// Reads the metadata anew, without loading the library. An empty \a iid accepts any interface.
    void read(const QString &iid);
    /// Adds \a error and deletes the root object.
    void fail(const QString &error);
    void setState(State state);
    void load();
    void initialize();
    void deletePlugin();

    QScopedPointer<PluginSpecPrivate> d;
};

} // namespace Ovo::ExtensionSystem
