// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLibraryInfo>
#include <QObject>
#include <QStringList>
#include <QTranslator>

QT_BEGIN_NAMESPACE
class QSettings;
QT_END_NAMESPACE

namespace Ovo::ExtensionSystem {
class IPlugin;
}

namespace K7Host {

/// The language that the console speaks: the plug-in's texts, Qt's own, and the default locale, by which
/// calendars and numbers are written. Languages go by the endings of their translation files, as in "zh_CN".
///
/// Numbers get the language's decimal point, but no separators between groups of digits: typed values mean
/// the same in every language but for the point. GUI thread only.
class ApplicationLanguage : public QObject
{
    Q_OBJECT

public:
    /// \a plugin has its language already, the one that \a settings ask for; Qt gets it now. \a dir is where
    /// the plug-in's translations are, \a qtDir where Qt's. Neither pointer is owned or null.
    ApplicationLanguage(Ovo::ExtensionSystem::IPlugin *plugin, QSettings *settings, const QString &dir,
                        const QString &qtDir = QLibraryInfo::location(QLibraryInfo::TranslationsPath),
                        QObject *parent = nullptr);

    /// Those that there are translations for, sorted.
    const QStringList &available() const { return m_available; }
    /// One of available(), or another that choose() was told; English when nothing fits what was asked for.
    const QString &current() const { return m_current; }

    /// Switches all of the console over and remembers the choice. A \a language that there is no translation
    /// for changes nothing; the log says so, once for each. True when it was switched.
    bool choose(const QString &language);
    /// Goes on to the one after current() among available(), and from the last one to the first.
    void chooseNext();

    /// What those who speak \a language call it, told apart from the others in available().
    QString nameOf(const QString &language) const;

Q_SIGNALS:
    void changed(const QString &language);

private:
    QString bestFor(const QString &asked) const;
    void applyToQt();

    Ovo::ExtensionSystem::IPlugin *const m_plugin;
    QSettings *const m_settings;
    const QString m_qtDir;
    const QStringList m_available;
    QString m_current;
    QStringList m_refused; // told in the log
    QTranslator m_qtTexts; // leaves the application with this object
};

} // namespace K7Host
