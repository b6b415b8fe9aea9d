// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakelanguageplugin.h"

#include <applicationlanguage.h>
#include <languagemenu.h>

#include <QSettings>
#include <QTest>

#include <memory>

using K7Host::ApplicationLanguage;
using K7Host::FakeLanguagePlugin;
using K7Host::LanguageMenu;

class tst_LanguageMenu : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theMenuListsTheLanguagesInTheirOwnNames();
    void theCurrentLanguageIsChecked();
    void aClickChooses();
    void aRefusedLanguageLeavesTheCheckMark();

private:
    QAction *choice(const QString &language) const;
    QStringList checked() const;
    void click(const QString &language);

    std::unique_ptr<FakeLanguagePlugin> m_plugin;
    std::unique_ptr<QTemporaryDir> m_settingsDir;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<ApplicationLanguage> m_language;
    std::unique_ptr<LanguageMenu> m_menu;
};

void tst_LanguageMenu::init()
{
    m_settingsDir = std::make_unique<QTemporaryDir>();
    m_settings = std::make_unique<QSettings>(m_settingsDir->filePath(QStringLiteral("host.ini")),
                                             QSettings::IniFormat);
    m_plugin = std::make_unique<FakeLanguagePlugin>();
    for (const char *locale : {"de", "en", "zh_CN"})
        QVERIFY(m_plugin->addTranslation(QLatin1String(locale)));
    m_settings->setValue(QStringLiteral("General/OverrideLanguage"), QStringLiteral("en"));
    m_language = std::make_unique<ApplicationLanguage>(m_plugin.get(), m_settings.get(), m_plugin->dir());
    m_menu = std::make_unique<LanguageMenu>(m_language.get());
}

void tst_LanguageMenu::cleanup()
{
    m_menu.reset();
    m_language.reset();
    m_plugin.reset();
}

QAction *tst_LanguageMenu::choice(const QString &language) const
{
    const auto actions = m_menu->actions();
    for (QAction *action : actions) {
        if (action->data().toString() == language)
            return action;
    }
    return nullptr;
}

QStringList tst_LanguageMenu::checked() const
{
    QStringList languages;
    const auto actions = m_menu->actions();
    for (const QAction *action : actions) {
        if (action->isChecked())
            languages << action->data().toString();
    }
    return languages;
}

void tst_LanguageMenu::click(const QString &language)
{
    m_menu->popup(QPoint());
    QTest::mouseClick(m_menu.get(), Qt::LeftButton, {}, m_menu->actionGeometry(choice(language)).center());
}

void tst_LanguageMenu::theMenuListsTheLanguagesInTheirOwnNames()
{
    QStringList names;
    const auto actions = m_menu->actions();
    for (const QAction *action : actions)
        names << action->text();
    QCOMPARE(names, (QStringList{QStringLiteral("Deutsch"), QStringLiteral("English"),
                                 QStringLiteral("\u7b80\u4f53\u4e2d\u6587")}));
}

void tst_LanguageMenu::theCurrentLanguageIsChecked()
{
    QCOMPARE(checked(), QStringList{QStringLiteral("en")});
    QVERIFY(m_language->choose(QStringLiteral("de")));
    QCOMPARE(checked(), QStringList{QStringLiteral("de")});
}

void tst_LanguageMenu::aClickChooses()
{
    click(QStringLiteral("zh_CN"));
    QCOMPARE(m_language->current(), QStringLiteral("zh_CN"));
    QCOMPARE(checked(), QStringList{QStringLiteral("zh_CN")});
}

void tst_LanguageMenu::aRefusedLanguageLeavesTheCheckMark()
{
    QVERIFY(QFile::remove(m_plugin->dir() + QStringLiteral("/korvoeckeyboardk7_de.qm")));
    QTest::ignoreMessage(QtWarningMsg, "there is no translation for 'de'");
    click(QStringLiteral("de"));
    QCOMPARE(m_language->current(), QStringLiteral("en"));
    QCOMPARE(checked(), QStringList{QStringLiteral("en")});
}

QTEST_MAIN(tst_LanguageMenu)

#include "tst_languagemenu.moc"
