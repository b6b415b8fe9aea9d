// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "applicationlanguage.h"

#include <ovo/extensionsystem/iplugin.h>

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QLoggingCategory>
#include <QSettings>
#include <QWidget>

#include <algorithm>

namespace K7Host {

namespace {

Q_LOGGING_CATEGORY(lcLanguage, "korvo.k7host.language")

const QString &settingsKey()
{
    static const QString key = QStringLiteral("General/OverrideLanguage");
    return key;
}

QStringList languagesIn(const QString &dir)
{
    const QString prefix = QStringLiteral("korvoeckeyboardk7_");
    const QString suffix = QStringLiteral(".qm");
    QStringList languages;
    const QStringList files =
        QDir(dir).entryList({prefix + QLatin1Char('*') + suffix}, QDir::Files, QDir::Name);
    for (const QString &file : files) {
        const QString language = file.mid(prefix.size(), file.size() - prefix.size() - suffix.size());
        if (QLocale(language).language() != QLocale::C)
            languages << language;
    }
    return languages;
}

/// A locale class completes a language to its most usual region, some of which have a name of their own for
/// it ("American English"); the plain name is the shortest of all.
QString plainName(const QString &language)
{
    const QLocale usual(language);
    QString name = usual.nativeLanguageName();
    if (!language.contains(QLatin1Char('_'))) {
        const auto locales = QLocale::matchingLocales(usual.language(), usual.script(), QLocale::AnyCountry);
        for (const QLocale &locale : locales) {
            const QString other = locale.nativeLanguageName();
            if (!other.isEmpty() && other.size() < name.size())
                name = other;
        }
    }
    if (!name.isEmpty())
        name[0] = name.at(0).toUpper();
    return name;
}

} // namespace

ApplicationLanguage::ApplicationLanguage(Ovo::ExtensionSystem::IPlugin *plugin, QSettings *settings,
                                         const QString &dir, const QString &qtDir, QObject *parent)
    : QObject(parent)
    , m_plugin(plugin)
    , m_settings(settings)
    , m_qtDir(qtDir)
    , m_available(languagesIn(dir))
{
    const QString asked = settings->value(settingsKey()).toString();
    m_current = bestFor(asked.isEmpty() ? QLocale::system().name() : asked);
    if (m_current.isEmpty())
        m_current = QStringLiteral("en"); // the texts' own
    applyToQt();
}

bool ApplicationLanguage::choose(const QString &language)
{
    if (!m_plugin->installTranslator(language)) {
        if (!m_refused.contains(language)) {
            m_refused << language;
            qCWarning(lcLanguage, "there is no translation for '%s'", qPrintable(language));
        }
        return false;
    }
    const QString best = bestFor(language);
    m_current = best.isEmpty() ? language : best;
    m_settings->setValue(settingsKey(), m_current);
    applyToQt();
    emit changed(m_current);
    return true;
}

void ApplicationLanguage::chooseNext()
{
    if (!m_available.isEmpty())
        choose(m_available.at((m_available.indexOf(m_current) + 1) % m_available.size()));
}

QString ApplicationLanguage::nameOf(const QString &language) const
{
    QString name = plainName(language);
    const auto isNamesake = [&](const QString &other) {
        return other != language && plainName(other) == name;
    };
    if (std::none_of(m_available.cbegin(), m_available.cend(), isNamesake))
        return name;
    return QStringLiteral("%1 (%2)").arg(name, QLocale(language).nativeCountryName());
}

/// The one of available() that is nearest to \a asked: itself, with its usual region, or its language.
QString ApplicationLanguage::bestFor(const QString &asked) const
{
    const QString plain = QString(asked).replace(QLatin1Char('-'), QLatin1Char('_'));
    const QString region = QLocale(plain).name();
    for (const QString &name : {plain, region, region.section(QLatin1Char('_'), 0, 0)}) {
        if (m_available.contains(name))
            return name;
    }
    return {};
}

void ApplicationLanguage::applyToQt()
{
    QLocale locale(m_current);
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    QLocale::setDefault(locale);
    // The default is for widgets that are made from now on.
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows)
        window->setLocale(locale);

    QCoreApplication::removeTranslator(&m_qtTexts);
    if (m_qtTexts.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"), m_qtDir))
        QCoreApplication::installTranslator(&m_qtTexts);
}

} // namespace K7Host
