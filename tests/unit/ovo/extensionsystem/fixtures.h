// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ovo/extensionsystem/pluginmanager.h>
#include <ovo/extensionsystem/pluginspec.h>

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>
#include <QVariant>
#include <QVector>

namespace Fixtures {

/// The folder of one fixture.
inline QString path(const QString &fixture)
{
    return QStringLiteral(FIXTURE_DIR "/") + fixture;
}

inline QString file(const QString &fixture)
{
    return QStringLiteral(FIXTURE_DIR "/%1/lib%1.so").arg(fixture);
}

/// Has the plug-in manager find these fixtures, in this order.
inline QVector<Ovo::ExtensionSystem::PluginSpec *> find(const QStringList &fixtures)
{
    QStringList paths;
    for (const QString &fixture : fixtures)
        paths << path(fixture);
    Ovo::ExtensionSystem::PluginManager::setPluginPaths(paths);
    return Ovo::ExtensionSystem::PluginManager::plugins();
}

/// What the fixtures recorded, as "<fixture>.<call>", oldest first.
inline QStringList calls()
{
    return QCoreApplication::instance()->property("calls").toStringList();
}

/// Those of calls() that end with \a call.
inline QStringList calls(const QString &call)
{
    return calls().filter(QRegularExpression(QLatin1Char('.') + call + QLatin1Char('$')));
}

inline void clearCalls()
{
    QCoreApplication::instance()->setProperty("calls", QVariant());
}

} // namespace Fixtures
