// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <hostsettings.h>

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using K7Host::HostSettings;

class tst_HostSettings : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void withoutALanguageTheUsersStoreIsUsed();
    void aLanguageHoldsForThisRunOnly();
    void aLanguageLeavesTheUsersOtherChoices();

private:
    QScopedPointer<QTemporaryDir> m_configDir;
};

static const QString languageKey = QStringLiteral("General/OverrideLanguage");

void tst_HostSettings::init()
{
    m_configDir.reset(new QTemporaryDir);
    QVERIFY(m_configDir->isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_configDir->path());
}

void tst_HostSettings::withoutALanguageTheUsersStoreIsUsed()
{
    {
        const HostSettings settings{QString()};
        QVERIFY(!settings.store()->contains(languageKey));
        settings.store()->setValue(languageKey, QStringLiteral("fr"));
    }
    QVERIFY(QFile::exists(m_configDir->filePath(QStringLiteral("LUMETRA/k7host.ini"))));
    const HostSettings settings{QString()};
    QCOMPARE(settings.store()->value(languageKey).toString(), QStringLiteral("fr"));
}

void tst_HostSettings::aLanguageHoldsForThisRunOnly()
{
    QString copy;
    {
        const HostSettings settings(QStringLiteral("de_CH"));
        QCOMPARE(settings.store()->value(languageKey).toString(), QStringLiteral("de_CH"));
        settings.store()->sync();
        copy = settings.store()->fileName();
        QVERIFY(QFile::exists(copy));
        QVERIFY(!copy.startsWith(m_configDir->path()));
    }
    QVERIFY(!QFile::exists(copy));
    QVERIFY(!QFile::exists(m_configDir->filePath(QStringLiteral("LUMETRA/k7host.ini"))));
}

void tst_HostSettings::aLanguageLeavesTheUsersOtherChoices()
{
    const HostSettings users{QString()};
    users.store()->setValue(QStringLiteral("Group/Key"), 7);
    users.store()->setValue(languageKey, QStringLiteral("fr"));
    users.store()->sync();

    const HostSettings settings(QStringLiteral("de"));
    QCOMPARE(settings.store()->value(QStringLiteral("Group/Key")).toInt(), 7);
    QCOMPARE(settings.store()->value(languageKey).toString(), QStringLiteral("de"));
    QCOMPARE(users.store()->value(languageKey).toString(), QStringLiteral("fr"));
}

QTEST_GUILESS_MAIN(tst_HostSettings)

#include "tst_hostsettings.moc"
