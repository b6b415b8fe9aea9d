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

/// The settings of the host, and the store of them that plug-ins see: the user's, or for a run in another
/// language a copy of it that goes with this object.
class HostSettings
{
public:
    /// \a language is a locale name; empty leaves the user's choice.
    explicit HostSettings(const QString &language);
    ~HostSettings();

    QSettings *store() const;

    /// Of the console: a factor, or 0 to fit it; 0 also where none, or nothing that is one, is stored.
    qreal scale() const;
    void setScale(qreal scale);

    /// The folder of the chosen theme: the one beside \a standard, or \a standard itself where none is chosen
    /// or it is not there any more.
    QString theme(const QString &standard) const;
    /// Only the name of the folder is stored: another installation has its own.
    void setTheme(const QString &dir);

    /// As QWidget::saveGeometry() gives it; empty when none is stored.
    QByteArray windowGeometry() const;
    void setWindowGeometry(const QByteArray &geometry);

private:
    Q_DISABLE_COPY(HostSettings)

    QScopedPointer<QTemporaryDir> m_copyDir; // outlives the store in it
    QScopedPointer<QSettings> m_store;
};

} // namespace K7Host
