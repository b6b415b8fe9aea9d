// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <QStringList>

#include <optional>

QT_BEGIN_NAMESPACE
class QSettings;
QT_END_NAMESPACE

namespace Korvo {
class IKorvoECKeyboardPlugin;
}

namespace K7Host {

/// The plug-ins of one folder, running from load() until this object goes. One at a time, within the life of
/// the application. GUI thread only.
class PluginHost
{
public:
    /// \a settings outlives this object.
    explicit PluginHost(QSettings *settings);
    ~PluginHost();

    /// Loads and starts every plug-in in the folder \a dir, and warns of each one that fails. A fault when
    /// there is none.
    std::optional<Fault> load(const QString &dir);

    /// Whether a plug-in failed, which load() has warned of.
    bool hasFailed() const;

    /// One line for each plug-in: name, version, state, file, and its error if it has one.
    QStringList descriptions() const;

    /// The first plug-in that supplies a console; null without one.
    Korvo::IKorvoECKeyboardPlugin *keyboardPlugin() const;

private:
    Q_DISABLE_COPY(PluginHost)
};

} // namespace K7Host
