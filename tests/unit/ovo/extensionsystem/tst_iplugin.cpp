// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <ovo/extensionsystem/iplugin.h>
#include <ovo/extensionsystem/pluginmanager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>

#include <cstddef>
#include <cstring>
#include <memory>

using namespace Ovo::ExtensionSystem;

namespace {

/// Overrides no more than a plug-in must.
class MinimalPlugin : public IPlugin
{
    Q_OBJECT

public:
    using IPlugin::installTranslator;

    bool initialize(const QStringList &, QString *) override { return true; }
    void extensionsInitialized() override {}
};

/// What the installed translation file calls itself; "Hello" without one.
QString greeting()
{
    return QCoreApplication::translate("Greeting", "Hello");
}

/// The place of a virtual function in the table, counted from 0.
template <typename Function>
std::ptrdiff_t slotOf(Function function)
{
    std::ptrdiff_t words[2] = {};
    static_assert(sizeof words == sizeof function, "a pointer to a member function is two words");
    std::memcpy(words, &function, sizeof words);
    return words[0] / static_cast<std::ptrdiff_t>(sizeof(void *));
}

} // namespace

class tst_IPlugin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void defaultsDoNothing();
    void virtualFunctionsKeepTheirPlaces();
    void objectsGoToThePoolAndBack();
    void installsTheFileThatSuitsBest_data();
    void installsTheFileThatSuitsBest();
    void anEmptyLocaleIsTheSystems();
    void cLocaleCountsAsEnglish_data();
    void cLocaleCountsAsEnglish();
    void withoutAFileTheInstalledOneStays_data();
    void withoutAFileTheInstalledOneStays();
    void aDamagedFileFallsBackToTheLanguage();
    void anotherFileReplacesTheFirst();
    void aFileWithoutTextsReplacesTheFirst();
    void eachPluginHasItsOwnTranslation();
    void theTranslationGoesWithThePlugin();
    void withoutAnApplicationNothingIsInstalled();

private:
    /// Puts these translation files into an otherwise empty folder.
    void provide(const QStringList &files);
    bool install(const QString &locale);

    std::unique_ptr<QCoreApplication> m_application;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MinimalPlugin> m_plugin;
};

void tst_IPlugin::init()
{
    static int argumentCount = 1;
    static char name[] = "tst_iplugin";
    static char *arguments[] = {name, nullptr};
    m_application = std::make_unique<QCoreApplication>(argumentCount, arguments);
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_plugin = std::make_unique<MinimalPlugin>();
}

void tst_IPlugin::cleanup()
{
    m_plugin.reset();
    m_folder.reset();
    m_application.reset();
}

void tst_IPlugin::provide(const QStringList &files)
{
    for (const QString &file : files) {
        QVERIFY2(QFile::copy(QStringLiteral(TRANSLATION_DIR "/%1.qm").arg(file),
                             m_folder->filePath(file + QStringLiteral(".qm"))),
                 qPrintable(file));
    }
}

bool tst_IPlugin::install(const QString &locale)
{
    return m_plugin->installTranslator(m_folder->path(), QStringLiteral("greeting"), locale);
}

void tst_IPlugin::defaultsDoNothing()
{
    QCOMPARE(m_plugin->delayedInitialize(), false);
    QCOMPARE(m_plugin->aboutToShutdown(), IPlugin::SynchronousShutdown);
    QVERIFY(!m_plugin->remoteCommand({QStringLiteral("-x")}, QDir::currentPath(), {QStringLiteral("file")}));
    QVERIFY(m_plugin->createTestObjects().isEmpty());
    QCOMPARE(m_plugin->installTranslator(QStringLiteral("de")), false);
}

// Hosts that were built with an earlier kit call through the table.
void tst_IPlugin::virtualFunctionsKeepTheirPlaces()
{
    using InstallOwn = bool (IPlugin::*)(const QString &);
    using InstallFile = bool (IPlugin::*)(const QString &, const QString &, const QString &);

    QCOMPARE(int(IPlugin::SynchronousShutdown), 0);
    QCOMPARE(int(IPlugin::AsynchronousShutdown), 1);

    const std::ptrdiff_t start = slotOf(&IPlugin::initialize);
    QCOMPARE(start, std::ptrdiff_t(12)); // the first after those of QObject
    QCOMPARE(slotOf(&IPlugin::extensionsInitialized), start + 1);
    QCOMPARE(slotOf(&IPlugin::delayedInitialize), start + 2);
    QCOMPARE(slotOf(&IPlugin::aboutToShutdown), start + 3);
    QCOMPARE(slotOf(&IPlugin::remoteCommand), start + 4);
    QCOMPARE(slotOf(&IPlugin::createTestObjects), start + 5);
    QCOMPARE(slotOf(static_cast<InstallOwn>(&IPlugin::installTranslator)), start + 6);
    QCOMPARE(slotOf(static_cast<InstallFile>(&IPlugin::installTranslator)), start + 7);
}

void tst_IPlugin::objectsGoToThePoolAndBack()
{
    QObject object;
    m_plugin->addObject(&object);
    QCOMPARE(PluginManager::allObjects(), QList<QObject *>({&object}));
    m_plugin->removeObject(&object);
    QVERIFY(PluginManager::allObjects().isEmpty());
}

void tst_IPlugin::installsTheFileThatSuitsBest_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("expected");

    const QString bare = QStringLiteral("greeting");
    const QString de = QStringLiteral("greeting_de");
    const QString deCH = QStringLiteral("greeting_de_CH");
    const QString zhCN = QStringLiteral("greeting_zh_CN");
    const QString srLatn = QStringLiteral("greeting_sr_Latn");
    QTest::newRow("language") << QStringList{bare, de, deCH} << QStringLiteral("de") << de;
    QTest::newRow("region") << QStringList{bare, de, deCH} << QStringLiteral("de_CH") << deCH;
    QTest::newRow("region with a hyphen") << QStringList{bare, de, deCH} << QStringLiteral("de-CH") << deCH;
    QTest::newRow("region with a codeset")
        << QStringList{bare, de, deCH} << QStringLiteral("de_CH.UTF-8") << deCH;
    QTest::newRow("region falls back to language") << QStringList{bare, de} << QStringLiteral("de_CH") << de;
    QTest::newRow("unknown region falls back") << QStringList{bare, de} << QStringLiteral("de_XX") << de;
    QTest::newRow("language with its region only") << QStringList{bare, zhCN} << QStringLiteral("zh") << zhCN;
    QTest::newRow("another alphabet") << QStringList{bare, de, zhCN} << QStringLiteral("zh_CN") << zhCN;
    QTest::newRow("with a script") << QStringList{bare, srLatn} << QStringLiteral("sr_Latn") << srLatn;
    QTest::newRow("with a script and a hyphen")
        << QStringList{bare, srLatn} << QStringLiteral("sr-Latn") << srLatn;
    QTest::newRow("small region") << QStringList{bare, de, deCH} << QStringLiteral("de_ch") << deCH;
}

void tst_IPlugin::installsTheFileThatSuitsBest()
{
    QFETCH(QStringList, files);
    QFETCH(QString, locale);
    QFETCH(QString, expected);
    provide(files);

    QVERIFY(install(locale));
    QCOMPARE(greeting(), expected);
}

void tst_IPlugin::anEmptyLocaleIsTheSystems()
{
    const QString system = QLocale::system().name();
    const QString language = system == QLatin1String("C") ? QStringLiteral("en") : system;
    QVERIFY(QFile::copy(QStringLiteral(TRANSLATION_DIR "/greeting_zh_CN.qm"),
                        m_folder->filePath(QStringLiteral("greeting_%1.qm").arg(language))));
    // Neither the one without a language nor the application's own choice of a locale counts.
    provide({QStringLiteral("greeting"), QStringLiteral("greeting_sr_Latn")});
    QLocale::setDefault(QLocale(QStringLiteral("sr_Latn")));
    const bool isInstalled = install(QString());
    QLocale::setDefault(QLocale::system());

    QVERIFY(isInstalled);
    QCOMPARE(greeting(), QStringLiteral("greeting_zh_CN"));
}

void tst_IPlugin::cLocaleCountsAsEnglish_data()
{
    QTest::addColumn<QString>("locale");
    QTest::newRow("C") << QStringLiteral("C");
    QTest::newRow("POSIX") << QStringLiteral("POSIX");
}

void tst_IPlugin::cLocaleCountsAsEnglish()
{
    QFETCH(QString, locale);
    provide({QStringLiteral("greeting_de"), QStringLiteral("greeting_en")});
    QVERIFY(install(locale));
    QCOMPARE(greeting(), QStringLiteral("greeting_en"));
}

void tst_IPlugin::withoutAFileTheInstalledOneStays_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("locale");

    const QStringList all{QStringLiteral("greeting"),         QStringLiteral("greeting_de"),
                          QStringLiteral("greeting_de_CH"),   QStringLiteral("greeting_en"),
                          QStringLiteral("greeting_sr_Latn"), QStringLiteral("greeting_klingon")};
    QTest::newRow("another language") << all << QStringLiteral("fr");
    QTest::newRow("another language's region") << all << QStringLiteral("fr_CH");
    QTest::newRow("unknown language") << all << QStringLiteral("klingon");
    QTest::newRow("no text of a locale") << all << QStringLiteral("../greeting_de");
    QTest::newRow("only another region")
        << QStringList{QStringLiteral("greeting_de_CH")} << QStringLiteral("de_AT");
    QTest::newRow("only without a language")
        << QStringList{QStringLiteral("greeting")} << QStringLiteral("de");
    QTest::newRow("no file") << QStringList() << QStringLiteral("de");
}

void tst_IPlugin::withoutAFileTheInstalledOneStays()
{
    QFETCH(QStringList, files);
    QFETCH(QString, locale);

    QVERIFY(m_plugin->installTranslator(QStringLiteral(TRANSLATION_DIR), QStringLiteral("greeting"),
                                        QStringLiteral("zh_CN")));
    provide(files);
    QVERIFY(!install(locale));
    QCOMPARE(greeting(), QStringLiteral("greeting_zh_CN"));
}

void tst_IPlugin::aDamagedFileFallsBackToTheLanguage()
{
    provide({QStringLiteral("greeting_de")});
    QFile damaged(m_folder->filePath(QStringLiteral("greeting_de_CH.qm")));
    QVERIFY(damaged.open(QIODevice::WriteOnly));
    damaged.write("not a translation");
    damaged.close();

    QVERIFY(install(QStringLiteral("de_CH")));
    QCOMPARE(greeting(), QStringLiteral("greeting_de"));
}

void tst_IPlugin::anotherFileReplacesTheFirst()
{
    provide({QStringLiteral("greeting_de"), QStringLiteral("greeting_en")});
    QVERIFY(install(QStringLiteral("de")));
    QVERIFY(install(QStringLiteral("en")));
    QCOMPARE(greeting(), QStringLiteral("greeting_en"));

    m_plugin.reset();
    QCOMPARE(greeting(), QStringLiteral("Hello"));
}

// Such is the file of the language that the texts are written in.
void tst_IPlugin::aFileWithoutTextsReplacesTheFirst()
{
    provide({QStringLiteral("greeting_de"), QStringLiteral("greeting_it")});
    QVERIFY(install(QStringLiteral("de")));
    QVERIFY(install(QStringLiteral("it")));
    QCOMPARE(greeting(), QStringLiteral("Hello"));
}

void tst_IPlugin::eachPluginHasItsOwnTranslation()
{
    provide({QStringLiteral("greeting_de"), QStringLiteral("greeting_en")});
    QVERIFY(install(QStringLiteral("de")));
    {
        MinimalPlugin other;
        QVERIFY(other.installTranslator(m_folder->path(), QStringLiteral("greeting"), QStringLiteral("en")));
        QCOMPARE(greeting(), QStringLiteral("greeting_en"));
    }
    QCOMPARE(greeting(), QStringLiteral("greeting_de"));
}

void tst_IPlugin::theTranslationGoesWithThePlugin()
{
    provide({QStringLiteral("greeting_de")});
    QVERIFY(install(QStringLiteral("de")));
    QCOMPARE(greeting(), QStringLiteral("greeting_de"));
    m_plugin.reset();
    QCOMPARE(greeting(), QStringLiteral("Hello"));
}

void tst_IPlugin::withoutAnApplicationNothingIsInstalled()
{
    provide({QStringLiteral("greeting_de")});
    m_application.reset();
    QVERIFY(!install(QStringLiteral("de")));
}

QTEST_APPLESS_MAIN(tst_IPlugin)

#include "tst_iplugin.moc"
