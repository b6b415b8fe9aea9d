// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakelanguageplugin.h"

#include <applicationlanguage.h>

#include <QApplication>
#include <QDoubleSpinBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using K7Host::ApplicationLanguage;
using K7Host::FakeLanguagePlugin;

namespace {

const QString Key = QStringLiteral("General/OverrideLanguage");

QString greeting()
{
    return QCoreApplication::translate("Desk", "Good evening");
}

/// Counts how often it is told that the language is another one.
class Listener : public QWidget
{
public:
    int changes = 0;

protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange)
            ++changes;
        QWidget::changeEvent(event);
    }
};

} // namespace

class tst_ApplicationLanguage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void languagesAreThoseWithATranslation();
    void theFirstLanguageIsTheOneAskedFor_data();
    void theFirstLanguageIsTheOneAskedFor();
    void choosingSwitchesThePluginsTexts();
    void choosingSwitchesQtsTexts();
    void widgetsHearOfTheSwitch();
    void theChoiceIsRemembered();
    void aRegionFallsBackToItsLanguage();
    void anUnknownLanguageChangesNothing();
    void anUnknownLanguageIsToldOnce();
    void nextGoesRound();
    void withoutTranslationsThereIsNoNext();
    void namesAreTheLanguagesOwn_data();
    void namesAreTheLanguagesOwn();
    void namesakesAreToldApart();
    void numbersGetTheLanguagesPointAndNoGroups_data();
    void numbersGetTheLanguagesPointAndNoGroups();

private:
    void start(const QString &asked = QStringLiteral("en"));

    const QLocale m_locale; // the machine's
    std::unique_ptr<FakeLanguagePlugin> m_plugin;
    std::unique_ptr<QTemporaryDir> m_settingsDir;
    std::unique_ptr<QSettings> m_settings;
    std::unique_ptr<ApplicationLanguage> m_language;
};

void tst_ApplicationLanguage::init()
{
    m_settingsDir = std::make_unique<QTemporaryDir>();
    m_settings = std::make_unique<QSettings>(m_settingsDir->filePath(QStringLiteral("host.ini")),
                                             QSettings::IniFormat);
    m_plugin = std::make_unique<FakeLanguagePlugin>();
    QVERIFY(m_plugin->addTranslation(QStringLiteral("de"),
                                     QStringLiteral(MESSAGES_DIR "/korvoeckeyboardk7_de.qm")));
    for (const char *locale : {"zh_CN", "en", "ja", "fr", "es"})
        QVERIFY(m_plugin->addTranslation(QLatin1String(locale)));
}

void tst_ApplicationLanguage::cleanup()
{
    m_language.reset();
    m_plugin.reset();
    QLocale::setDefault(m_locale);
}

void tst_ApplicationLanguage::start(const QString &asked)
{
    m_settings->setValue(Key, asked);
    m_plugin->installTranslator(asked);
    m_plugin->asked.clear();
    m_language = std::make_unique<ApplicationLanguage>(m_plugin.get(), m_settings.get(), m_plugin->dir(),
                                                       QStringLiteral(MESSAGES_DIR));
}

void tst_ApplicationLanguage::languagesAreThoseWithATranslation()
{
    QVERIFY(m_plugin->addTranslation(QStringLiteral("nonsense")));
    QVERIFY(QFile(m_plugin->dir() + QStringLiteral("/other_it.qm")).open(QIODevice::WriteOnly));
    QVERIFY(QFile(m_plugin->dir() + QStringLiteral("/korvoeckeyboardk7_it.ts")).open(QIODevice::WriteOnly));
    start();
    QCOMPARE(m_language->available(),
             (QStringList{QStringLiteral("de"), QStringLiteral("en"), QStringLiteral("es"),
                          QStringLiteral("fr"), QStringLiteral("ja"), QStringLiteral("zh_CN")}));
}

void tst_ApplicationLanguage::theFirstLanguageIsTheOneAskedFor_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("expected");
    QTest::newRow("as it is") << QStringLiteral("fr") << QStringLiteral("fr");
    QTest::newRow("with its region") << QStringLiteral("zh_CN") << QStringLiteral("zh_CN");
    QTest::newRow("with a hyphen") << QStringLiteral("zh-CN") << QStringLiteral("zh_CN");
    QTest::newRow("without its region") << QStringLiteral("zh") << QStringLiteral("zh_CN");
    QTest::newRow("with another region") << QStringLiteral("de_CH") << QStringLiteral("de");
    QTest::newRow("unknown") << QStringLiteral("it") << QStringLiteral("en");
    QTest::newRow("none, on a machine without a language") << QString() << QStringLiteral("en");
}

void tst_ApplicationLanguage::theFirstLanguageIsTheOneAskedFor()
{
    QFETCH(QString, asked);
    start(asked);
    QTEST(m_language->current(), "expected");
    QCOMPARE(QLocale().name(), QLocale(m_language->current()).name());
}

void tst_ApplicationLanguage::choosingSwitchesThePluginsTexts()
{
    start();
    QCOMPARE(greeting(), QStringLiteral("Good evening"));
    QVERIFY(m_language->choose(QStringLiteral("de")));
    QCOMPARE(greeting(), QStringLiteral("Guten Abend"));
    QCOMPARE(m_language->current(), QStringLiteral("de"));
    QVERIFY(m_language->choose(QStringLiteral("fr")));
    QCOMPARE(greeting(), QStringLiteral("Good evening"));
}

void tst_ApplicationLanguage::choosingSwitchesQtsTexts()
{
    start();
    QMessageBox box(QMessageBox::Question, QString(), QString(), QMessageBox::Cancel);
    QCOMPARE(box.button(QMessageBox::Cancel)->text(), QStringLiteral("Cancel"));
    QVERIFY(m_language->choose(QStringLiteral("de")));
    const QMessageBox later(QMessageBox::Question, QString(), QString(), QMessageBox::Cancel);
    QCOMPARE(later.button(QMessageBox::Cancel)->text(), QStringLiteral("Nicht doch"));
    QTRY_COMPARE(box.button(QMessageBox::Cancel)->text(), QStringLiteral("Nicht doch"));
    QVERIFY(m_language->choose(QStringLiteral("en")));
    QTRY_COMPARE(box.button(QMessageBox::Cancel)->text(), QStringLiteral("Cancel"));

    start(QStringLiteral("de"));
    const QMessageBox first(QMessageBox::Question, QString(), QString(), QMessageBox::Cancel);
    QCOMPARE(first.button(QMessageBox::Cancel)->text(), QStringLiteral("Nicht doch"));
}

void tst_ApplicationLanguage::widgetsHearOfTheSwitch()
{
    start();
    QCoreApplication::processEvents();
    Listener listener;
    QVERIFY(m_language->choose(QStringLiteral("de")));
    QTRY_VERIFY(listener.changes > 0);
}

void tst_ApplicationLanguage::theChoiceIsRemembered()
{
    start();
    const QSignalSpy changed(m_language.get(), &ApplicationLanguage::changed);
    QVERIFY(m_language->choose(QStringLiteral("ja")));
    QCOMPARE(m_settings->value(Key).toString(), QStringLiteral("ja"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toString(), QStringLiteral("ja"));
    QCOMPARE(m_plugin->asked, QStringList{QStringLiteral("ja")});
}

void tst_ApplicationLanguage::aRegionFallsBackToItsLanguage()
{
    start();
    QVERIFY(m_language->choose(QStringLiteral("de_AT")));
    QCOMPARE(m_language->current(), QStringLiteral("de"));
    QCOMPARE(greeting(), QStringLiteral("Guten Abend"));
}

void tst_ApplicationLanguage::anUnknownLanguageChangesNothing()
{
    start(QStringLiteral("de"));
    const QSignalSpy changed(m_language.get(), &ApplicationLanguage::changed);
    QTest::ignoreMessage(QtWarningMsg, "there is no translation for 'it'");
    QVERIFY(!m_language->choose(QStringLiteral("it")));
    QCOMPARE(m_language->current(), QStringLiteral("de"));
    QCOMPARE(m_settings->value(Key).toString(), QStringLiteral("de"));
    QCOMPARE(greeting(), QStringLiteral("Guten Abend"));
    QCOMPARE(QLocale().language(), QLocale::German);
    QCOMPARE(changed.count(), 0);
}

static int warnings = 0;

void tst_ApplicationLanguage::anUnknownLanguageIsToldOnce()
{
    start();
    warnings = 0;
    const QtMessageHandler usual =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &) {
            warnings += type == QtWarningMsg ? 1 : 0;
        });
    for (const char *language : {"it", "it", "xx", "it"})
        m_language->choose(QLatin1String(language));
    qInstallMessageHandler(usual);
    QCOMPARE(warnings, 2);
}

void tst_ApplicationLanguage::nextGoesRound()
{
    start(QStringLiteral("fr"));
    const QSignalSpy changed(m_language.get(), &ApplicationLanguage::changed);
    for (int time = 0; time < 6; ++time)
        m_language->chooseNext();
    QStringList heard;
    for (const QList<QVariant> &arguments : changed)
        heard << arguments.first().toString();
    QCOMPARE(heard, (QStringList{QStringLiteral("ja"), QStringLiteral("zh_CN"), QStringLiteral("de"),
                                 QStringLiteral("en"), QStringLiteral("es"), QStringLiteral("fr")}));
}

void tst_ApplicationLanguage::withoutTranslationsThereIsNoNext()
{
    ApplicationLanguage language(m_plugin.get(), m_settings.get(), m_settingsDir->path());
    QVERIFY(language.available().isEmpty());
    QCOMPARE(language.current(), QStringLiteral("en"));
    language.chooseNext();
    QCOMPARE(m_plugin->asked, QStringList());
}

void tst_ApplicationLanguage::namesAreTheLanguagesOwn_data()
{
    QTest::addColumn<QString>("expected");
    QTest::newRow("de") << QStringLiteral("Deutsch");
    QTest::newRow("en") << QStringLiteral("English");
    QTest::newRow("es") << QStringLiteral("Espa\u00f1ol");
    QTest::newRow("fr") << QStringLiteral("Fran\u00e7ais");
    QTest::newRow("ja") << QStringLiteral("\u65e5\u672c\u8a9e");
    QTest::newRow("zh_CN") << QStringLiteral("\u7b80\u4f53\u4e2d\u6587");
    QTest::newRow("zh_TW") << QStringLiteral("\u7e41\u9ad4\u4e2d\u6587");
    QTest::newRow("en_GB") << QStringLiteral("British English");
}

void tst_ApplicationLanguage::namesAreTheLanguagesOwn()
{
    start();
    QTEST(m_language->nameOf(QString::fromLatin1(QTest::currentDataTag())), "expected");
}

void tst_ApplicationLanguage::namesakesAreToldApart()
{
    QVERIFY(m_plugin->addTranslation(QStringLiteral("de_LI")));
    start();
    QVERIFY(m_language->nameOf(QStringLiteral("de")) != m_language->nameOf(QStringLiteral("de_LI")));
    QCOMPARE(m_language->nameOf(QStringLiteral("de_LI")), QStringLiteral("Deutsch (Liechtenstein)"));
    QCOMPARE(m_language->nameOf(QStringLiteral("fr")), QStringLiteral("Fran\u00e7ais"));
}

void tst_ApplicationLanguage::numbersGetTheLanguagesPointAndNoGroups_data()
{
    QTest::addColumn<QString>("expected");
    QTest::newRow("en") << QStringLiteral("1920.50");
    QTest::newRow("de") << QStringLiteral("1920,50");
    QTest::newRow("fr") << QStringLiteral("1920,50");
    QTest::newRow("ja") << QStringLiteral("1920.50");
}

void tst_ApplicationLanguage::numbersGetTheLanguagesPointAndNoGroups()
{
    QFETCH(QString, expected);
    start(QStringLiteral("es"));
    QWidget window;
    QDoubleSpinBox before(&window);
    before.setRange(0, 9999);
    before.setGroupSeparatorShown(false);
    before.setValue(1920.5);
    QVERIFY(m_language->choose(QString::fromLatin1(QTest::currentDataTag())));
    QCOMPARE(QLocale().toString(1920.5, 'f', 2), expected);
    QCOMPARE(before.text(), expected);
    QDoubleSpinBox after;
    after.setRange(0, 9999);
    after.setValue(1920.5);
    QCOMPARE(after.text(), expected);
    // What programs write and read is the same everywhere.
    QCOMPARE(QString::number(1920.5), QStringLiteral("1920.5"));
    QCOMPARE(QStringLiteral("%1").arg(1920.5), QStringLiteral("1920.5"));
}

QTEST_MAIN(tst_ApplicationLanguage)

#include "tst_applicationlanguage.moc"
