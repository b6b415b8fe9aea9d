// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "pluginhost.h"

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>
#include <ovo/extensionsystem/pluginmanager.h>
#include <ovo/extensionsystem/pluginspec.h>

#include <QFileInfo>

#include <algorithm>

using Ovo::ExtensionSystem::PluginManager;
using Ovo::ExtensionSystem::PluginSpec;

namespace K7Host {

namespace {

QString stateName(PluginSpec::State state)
{
    switch (state) {
    case PluginSpec::Invalid:
        return QStringLiteral("invalid");
    case PluginSpec::Read:
        return QStringLiteral("read");
    case PluginSpec::Resolved:
        return QStringLiteral("resolved");
    case PluginSpec::Loaded:
        return QStringLiteral("loaded");
    case PluginSpec::Initialized:
        return QStringLiteral("initialized");
    case PluginSpec::Running:
        return QStringLiteral("running");
    case PluginSpec::Stopped:
        return QStringLiteral("stopped");
    case PluginSpec::Deleted:
        return QStringLiteral("deleted");
    }
    return QString();
}

QString description(const PluginSpec &plugin)
{
    const QString state = plugin.hasError() ? QStringLiteral("failed") : stateName(plugin.state());
    QStringList words{plugin.name(), plugin.version(), state, plugin.filePath()};
    if (plugin.hasError())
        words << plugin.errorString().simplified();
    return words.join(QLatin1Char('\t'));
}

} // namespace

PluginHost::PluginHost(QSettings *settings)
{
    PluginManager::setSettings(settings);
    PluginManager::setPluginIID(QStringLiteral("Zembla.KorvoPlugin"));
}

PluginHost::~PluginHost()
{
    PluginManager::shutdown();
    PluginManager::setSettings(nullptr);
}

std::optional<Fault> PluginHost::load(const QString &dir)
{
    if (!QFileInfo(dir).isDir())
        return Fault{ExitPluginUnusable, QStringLiteral("there is no plug-in folder %1").arg(dir)};
    PluginManager::setPluginPaths({dir});
    if (PluginManager::plugins().isEmpty())
        return Fault{ExitPluginUnusable, QStringLiteral("no plug-in found in %1").arg(dir)};
    PluginManager::loadPlugins();
    return {};
}

bool PluginHost::hasFailed() const
{
    const auto plugins = PluginManager::plugins();
    return std::any_of(plugins.cbegin(), plugins.cend(),
                       [](const PluginSpec *plugin) { return plugin->hasError(); });
}

QStringList PluginHost::descriptions() const
{
    QStringList lines;
    const auto plugins = PluginManager::plugins();
    for (const PluginSpec *plugin : plugins)
        lines << description(*plugin);
    return lines;
}

Korvo::IKorvoECKeyboardPlugin *PluginHost::keyboardPlugin() const
{
    return PluginManager::getObject<Korvo::IKorvoECKeyboardPlugin>();
}

} // namespace K7Host
