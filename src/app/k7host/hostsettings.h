// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QScopedPointer>
#include <QString>

QT_BEGIN_NAMESPACE
class QSettings;
class QTemporaryDir;
QT_END_NAMESPACE

namespace K7Host {

/// The settings store that plug-ins see: the user's, or for a run in another language a copy of it that goes
/// with this object.
class HostSettings
{
public:
    /// \a language is a locale name; empty leaves the user's choice.
    explicit HostSettings(const QString &language);
    ~HostSettings();

    QSettings *store() const;

private:
    Q_DISABLE_COPY(HostSettings)

    QScopedPointer<QTemporaryDir> m_copyDir; // outlives the store in it
    QScopedPointer<QSettings> m_store;
};

} // namespace K7Host
