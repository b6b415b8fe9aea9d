// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <hostsettings.h>

#include <QDir>
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
    void theScaleIsKept_data();
    void theScaleIsKept();
    void aScaleThatIsNoneFitsTheConsole();
    void theThemeIsTheOneBesideTheStandardOne();
    void aThemeThatIsGoneIsTheStandardOne();

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

void tst_HostSettings::theScaleIsKept_data()
{
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<QString>("expectedText");
    QTest::newRow("fitted") << 0.0 << QStringLiteral("auto");
    QTest::newRow("half") << 0.5 << QStringLiteral("0.5");
    QTest::newRow("double") << 2.0 << QStringLiteral("2");
}

void tst_HostSettings::theScaleIsKept()
{
    QFETCH(qreal, scale);
    QFETCH(QString, expectedText);
    HostSettings settings{QString()};
    QCOMPARE(settings.scale(), 0.0);
    settings.setScale(scale);
    QCOMPARE(settings.scale(), scale);
    QCOMPARE(settings.store()->value(QStringLiteral("General/Scale")).toString(), expectedText);
    QCOMPARE(HostSettings(QStringLiteral("de")).scale(), scale);
}

void tst_HostSettings::aScaleThatIsNoneFitsTheConsole()
{
    const HostSettings settings{QString()};
    settings.store()->setValue(QStringLiteral("General/Scale"), QStringLiteral("17"));
    QCOMPARE(settings.scale(), 0.0);
}

void tst_HostSettings::theThemeIsTheOneBesideTheStandardOne()
{
    QVERIFY(QDir(m_configDir->path()).mkpath(QStringLiteral("themes/dark")));
    QVERIFY(QDir(m_configDir->path()).mkpath(QStringLiteral("themes/light")));
    const QString standard = m_configDir->filePath(QStringLiteral("themes/dark"));
    HostSettings settings{QString()};
    QCOMPARE(settings.theme(standard), standard);
    settings.setTheme(QStringLiteral("/elsewhere/light"));
    QCOMPARE(settings.theme(standard), m_configDir->filePath(QStringLiteral("themes/light")));
}

void tst_HostSettings::aThemeThatIsGoneIsTheStandardOne()
{
    HostSettings settings{QString()};
    settings.setTheme(QStringLiteral("gone"));
    QCOMPARE(settings.theme(m_configDir->path()), m_configDir->path());
}

QTEST_GUILESS_MAIN(tst_HostSettings)

#include "tst_hostsettings.moc"
