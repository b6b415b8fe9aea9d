// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "korvoeckeyboardk7plugin.h"

#include "panelsupport.h"
#include "support.h"

#include <ovo/extensionsystem/pluginmanager.h>

#include <QAbstractButton>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Korvo;
using namespace Korvo::ECKeyboard;
using Ovo::ExtensionSystem::IPlugin;
using Ovo::ExtensionSystem::PluginManager;

// Asks for a language and tells what was asked, without touching the application.
class LanguageProbe : public K7Plugin
{
public:
    using K7Plugin::installTranslator;
    bool installTranslator(const QString &path, const QString &name, const QString &locale) override
    {
        asked = QStringList{path, name, locale};
        return installed;
    }
    QStringList asked;
    bool installed = true;
};

using Halves = QList<QWeakPointer<IKorvoECKeyboard>>;

// The plug-in owns the half, so the plain pointer is good for as long as the plug-in is.
static IKorvoECKeyboard *half(const Halves &halves, int index)
{
    return halves.at(index).toStrongRef().data();
}

class tst_K7Plugin : public QObject
{
    Q_OBJECT

private slots:
    void theFileCarriesTheMetadata();
    void theFileGivesOneObject();
    void theInstanceFollowsTheObject();
    void identityIsFixed();
    void initializeRegistersAndSucceeds();
    void theLocaleComesFromTheSettings_data();
    void theLocaleComesFromTheSettings();
    void translationsLieBesideTheProgram();
    void aMissingTranslationIsOneWarning();
    void lifecycleStepsAreLogged();
    void shutdownIsAtOnceAndLeavesThePool();
    void keyboardsAreMadeOnceLeftFirst();
    void halvesDieWithThePluginRightFirst();
    void everySignalOfTheHalvesIsRelayed_data();
    void everySignalOfTheHalvesIsRelayed();
    void signalsAreRelayedOnceHoweverOftenKeyboardsIsCalled();
    void stylesAreEmptyBeforeTheyAreInitialized();
    void stylesNameThePictureFile_data();
    void stylesNameThePictureFile();
    void stylesAreResolvedOnce();
    void colorsChooseTheStyle();
    void aKeyHeldWhenThePluginGoesIsReleased();
    void aHostMayAnswerTheLastReleases();
    void aHandOnTheSettingsPanelReachesTheHost();
    void theModeChangeIsToldOnceAHalf();

private:
    const SettingsFolder m_folder; // of the settings panel
};

void tst_K7Plugin::theFileCarriesTheMetadata()
{
    QPluginLoader loader(QStringLiteral(K7_PLUGIN_FILE));
    const QJsonObject file = loader.metaData();
    QCOMPARE(file.value(QLatin1String("IID")).toString(), QStringLiteral("Zembla.KorvoPlugin"));
    QCOMPARE(file.value(QLatin1String("className")).toString(), QStringLiteral("K7Plugin"));
#ifdef QT_NO_DEBUG
    QCOMPARE(file.value(QLatin1String("debug")), QJsonValue(false));
#endif
    QVERIFY(!loader.isLoaded());

    QJsonObject meta = file.value(QLatin1String("MetaData")).toObject();
    for (const char *ours : {"Vendor", "Copyright", "License"})
        QVERIFY(!meta.take(QLatin1String(ours)).toString().isEmpty());
    const QJsonObject expected{
        {QStringLiteral("Name"), QStringLiteral("korvoeckeyboardk7")},
        {QStringLiteral("Version"), QStringLiteral("4.0.4")},
        {QStringLiteral("CompatVersion"), QStringLiteral("4.0.4")},
        {QStringLiteral("Required"), true},
        {QStringLiteral("Category"), QStringLiteral("Brisa")},
        {QStringLiteral("Description"), QStringLiteral("The korvo ec k7 keyboard plugin for the ")},
        {QStringLiteral("Url"), QLatin1String("")},
        {QStringLiteral("Arguments"), QJsonArray()},
        {QStringLiteral("Dependencies"), QJsonArray()},
    };
    QCOMPARE(meta, expected);
}

void tst_K7Plugin::theFileGivesOneObject()
{
    QPluginLoader loader(QStringLiteral(K7_PLUGIN_FILE));
    QObject *object = loader.instance();
    QVERIFY2(object, qPrintable(loader.errorString()));
    QCOMPARE(object->objectName(), QStringLiteral("KorvoECKeyboardK7Plugin"));
    QCOMPARE(QString::fromLatin1(object->metaObject()->className()),
             QStringLiteral("Korvo::ECKeyboard::K7Plugin"));
    QVERIFY(qobject_cast<IPlugin *>(object));
    QVERIFY(qobject_cast<IKorvoECKeyboardPlugin *>(object));
    QCOMPARE(loader.instance(), object);
    delete object;
}

void tst_K7Plugin::theInstanceFollowsTheObject()
{
    QVERIFY(!K7Plugin::instance());
    {
        K7Plugin plugin;
        QCOMPARE(K7Plugin::instance(), &plugin);
    }
    QVERIFY(!K7Plugin::instance());
}

void tst_K7Plugin::identityIsFixed()
{
    K7Plugin plugin;
    QCOMPARE(plugin.objectName(), QStringLiteral("KorvoECKeyboardK7Plugin"));
    QCOMPARE(plugin.displayName(), QStringLiteral("K7"));
    QCOMPARE(plugin.modeId(), 29699u);

    QSignalSpy modeChanged(&plugin, &K7Plugin::signalKorvoPluginModeChanged);
    QVERIFY(!plugin.updateKeyboard());
    QCOMPARE(modeChanged.size(), 0);
}

void tst_K7Plugin::initializeRegistersAndSucceeds()
{
    LanguageProbe plugin;
    QString error = QStringLiteral("untouched");
    QVERIFY(plugin.initialize({QStringLiteral("-ignored")}, &error));
    QCOMPARE(error, QStringLiteral("untouched"));
    QCOMPARE(PluginManager::getObject<IKorvoECKeyboardPlugin>(), &plugin);
    QVERIFY(plugin.initialize({}, nullptr));
    plugin.aboutToShutdown();
}

void tst_K7Plugin::theLocaleComesFromTheSettings_data()
{
    QTest::addColumn<bool>("hasStore");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("expectedLocale");
    QTest::newRow("no store") << false << QVariant() << QString();
    QTest::newRow("no key") << true << QVariant() << QString();
    QTest::newRow("a language") << true << QVariant(QStringLiteral("de")) << QStringLiteral("de");
    QTest::newRow("a region") << true << QVariant(QStringLiteral("zh_CN")) << QStringLiteral("zh_CN");
    QTest::newRow("nonsense is passed on") << true << QVariant(QStringLiteral("?")) << QStringLiteral("?");
}

void tst_K7Plugin::theLocaleComesFromTheSettings()
{
    QFETCH(bool, hasStore);
    QFETCH(QVariant, stored);
    QFETCH(QString, expectedLocale);

    // A plug-in derived from this one may translate in its own way.
    struct OwnWay : K7Plugin
    {
        using K7Plugin::installTranslator;
        bool installTranslator(const QString &locale) override
        {
            locales << locale;
            return true;
        }
        QStringList locales;
    };

    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("host.ini")), QSettings::IniFormat);
    if (stored.isValid())
        settings.setValue(QStringLiteral("General/OverrideLanguage"), stored);
    PluginManager::setSettings(hasStore ? &settings : nullptr);

    OwnWay plugin;
    QVERIFY(plugin.initialize({}, nullptr));
    PluginManager::setSettings(nullptr);
    QCOMPARE(plugin.locales, QStringList{expectedLocale});
}

void tst_K7Plugin::translationsLieBesideTheProgram()
{
    LanguageProbe plugin;
    QVERIFY(plugin.installTranslator(QStringLiteral("de")));
    const QString expected = QFileInfo(QCoreApplication::applicationDirPath()).absolutePath() +
                             QStringLiteral("/share/translations");
    QCOMPARE(plugin.asked,
             (QStringList{expected, QStringLiteral("korvoeckeyboardk7"), QStringLiteral("de")}));

    plugin.installed = false;
    QVERIFY(!plugin.installTranslator(QStringLiteral("de")));
}

void tst_K7Plugin::aMissingTranslationIsOneWarning()
{
    LanguageProbe plugin;
    plugin.installed = false;
    {
        const LogKeeper log;
        QVERIFY(plugin.initialize({}, nullptr));
        QCOMPARE(log.lines(), QStringList{QStringLiteral("Load  \"korvoeckeyboardk7\"  Language failed!")});
    }
    QVERIFY(PluginManager::allObjects().contains(&plugin));
}

void tst_K7Plugin::lifecycleStepsAreLogged()
{
    LanguageProbe plugin;
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("K7Plugin::initialize\\(")));
    QVERIFY(plugin.initialize({}, nullptr));
    QTest::ignoreMessage(QtDebugMsg,
                         QRegularExpression(QStringLiteral("K7Plugin::extensionsInitialized\\(")));
    plugin.extensionsInitialized();
    QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("K7Plugin::delayedInitialize\\(")));
    QVERIFY(plugin.delayedInitialize());
}

void tst_K7Plugin::shutdownIsAtOnceAndLeavesThePool()
{
    LanguageProbe plugin;
    QVERIFY(plugin.initialize({}, nullptr));
    QVERIFY(PluginManager::allObjects().contains(&plugin));
    QCOMPARE(int(plugin.aboutToShutdown()), 0);
    QVERIFY(!PluginManager::allObjects().contains(&plugin));
}

void tst_K7Plugin::keyboardsAreMadeOnceLeftFirst()
{
    K7Plugin plugin;
    const auto first = plugin.keyboards();
    const auto second = plugin.keyboards();
    QCOMPARE(first.size(), 2);
    QCOMPARE(first, second);
    QCOMPARE(half(first, 0)->keyboardId().toString(), QStringLiteral("K7_Left_Keyboard"));
    QCOMPARE(half(first, 1)->keyboardId().toString(), QStringLiteral("K7_Right_Keyboard"));
    QVERIFY(!half(first, 0)->parent());
    QVERIFY(!half(first, 1)->parent());
}

void tst_K7Plugin::halvesDieWithThePluginRightFirst()
{
    QStringList died;
    Halves halves;
    {
        K7Plugin plugin;
        halves = plugin.keyboards();
        connect(half(halves, 0), &QObject::destroyed, this, [&died] { died << QStringLiteral("left"); });
        connect(half(halves, 1), &QObject::destroyed, this, [&died] { died << QStringLiteral("right"); });
    }
    QCOMPARE(died, (QStringList{QStringLiteral("right"), QStringLiteral("left")}));
    QVERIFY(halves.at(0).isNull());
    QVERIFY(halves.at(1).isNull());
}

void tst_K7Plugin::everySignalOfTheHalvesIsRelayed_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("fromLeft");

    const QMetaObject &type = IKorvoECKeyboard::staticMetaObject;
    const QList<QByteArray> left{"ecButtonPressed", "ecButtonRelease", "signalKorvoPluginModeChanged"};
    int count = 0;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        if (type.method(i).methodType() != QMetaMethod::Signal)
            continue;
        const QByteArray name = type.method(i).name();
        QTest::newRow(name.constData()) << name << left.contains(name);
        ++count;
    }
    QCOMPARE(count, 15);
}

void tst_K7Plugin::everySignalOfTheHalvesIsRelayed()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, fromLeft);

    const auto find = [&name](const QMetaObject &type) {
        for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
            if (type.method(i).name() == name)
                return type.method(i);
        }
        return QMetaMethod();
    };
    const QMetaMethod halfSignal = find(IKorvoECKeyboard::staticMetaObject);
    const QMetaMethod pluginSignal = find(IKorvoECKeyboardPlugin::staticMetaObject);
    QVERIFY(halfSignal.isValid());
    QCOMPARE(pluginSignal.methodSignature(), halfSignal.methodSignature());

    K7Plugin plugin;
    const auto halves = plugin.keyboards();
    QSignalSpy spy(&plugin, pluginSignal);
    QVERIFY(spy.isValid());

    // One distinct value for each kind of argument, so that a swapped pair would be seen.
    const quint32 key = 0xff0024;
    const quint16 value = 600;
    const QVector<quint16> sizes{1920, 1080};
    QVariantList expected;
    const auto emitFrom = [&](IKorvoECKeyboard *sender) {
        expected.clear();
        if (name == "ecButtonPressed" || name == "ecButtonRelease") {
            expected << key;
            QVERIFY(halfSignal.invoke(sender, Q_ARG(quint32, key)));
        } else if (name == "signalKorvoPluginModeChanged") {
            QVERIFY(halfSignal.invoke(sender));
        } else if (name.endsWith("LightStatusChanged")) {
            expected << true << QVariant::fromValue<quint8>(7);
            QVERIFY(halfSignal.invoke(sender, Q_ARG(bool, true), Q_ARG(quint8, 7)));
        } else if (name == "signalSetPeripheralDataChange") {
            expected << 2 << 1 << QVariant::fromValue(sizes);
            QVERIFY(halfSignal.invoke(sender, Q_ARG(int, 2), Q_ARG(int, 1), Q_ARG(QVector<quint16>, sizes)));
        } else if (name == "signalUpdateSystemTime") {
            expected << QStringLiteral("a") << QStringLiteral("b");
            QVERIFY(halfSignal.invoke(sender, Q_ARG(QString, expected.at(0).toString()),
                                      Q_ARG(QString, expected.at(1).toString())));
        } else if (name == "signalUpdateSystemIP") {
            expected << QStringLiteral("a") << QStringLiteral("b") << QStringLiteral("c")
                     << QStringLiteral("d");
            QVERIFY(halfSignal.invoke(
                sender, Q_ARG(QString, expected.at(0).toString()), Q_ARG(QString, expected.at(1).toString()),
                Q_ARG(QString, expected.at(2).toString()), Q_ARG(QString, expected.at(3).toString())));
        } else if (name == "ecTBarValueChanged") {
            expected << QVariant::fromValue(value) << true;
            QVERIFY(halfSignal.invoke(sender, Q_ARG(quint16, value), Q_ARG(bool, true)));
        } else if (name == "signalIPModeChanged") {
            expected << QVariant::fromValue<quint8>(1) << QVariant::fromValue<quint8>(2);
            QVERIFY(halfSignal.invoke(sender, Q_ARG(quint8, 1), Q_ARG(quint8, 2)));
        } else if (name == "signalTimeTypeChanged") {
            expected << 1;
            QVERIFY(halfSignal.invoke(sender, Q_ARG(int, 1)));
        } else {
            expected << QVariant::fromValue<quint8>(1);
            QVERIFY(halfSignal.invoke(sender, Q_ARG(quint8, 1)));
        }
    };

    emitFrom(half(halves, 1));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.takeFirst(), expected);

    emitFrom(half(halves, 0));
    QCOMPARE(spy.size(), fromLeft ? 1 : 0);
}

void tst_K7Plugin::signalsAreRelayedOnceHoweverOftenKeyboardsIsCalled()
{
    K7Plugin plugin;
    plugin.keyboards();
    plugin.keyboards();
    const auto halves = plugin.keyboards();
    QSignalSpy spy(&plugin, &K7Plugin::ecButtonPressed);
    Q_EMIT half(halves, 0)->ecButtonPressed(1);
    Q_EMIT half(halves, 1)->ecButtonPressed(2);
    QCOMPARE(spy.size(), 2);
}

void tst_K7Plugin::stylesAreEmptyBeforeTheyAreInitialized()
{
    const K7Plugin plugin;
    for (int i = 0; i <= ECButtonImageCNT; ++i)
        QCOMPARE(plugin.ecButtonBorderImageCSS(static_cast<eECButtonImage>(i)), QString());
    QCOMPARE(plugin.ecButtonBorderImageCSS(colorRecord(36, 255, 0, 0)), QString());
    QCOMPARE(plugin.ecPageUpButtonBorderImageCSS(nullptr), QString());
    QCOMPARE(plugin.ecPageDownButtonBorderImageCSS(nullptr), QString());
}

void tst_K7Plugin::stylesNameThePictureFile_data()
{
    QTest::addColumn<int>("image");
    for (int i = 0; i < ECButtonImageCNT; ++i)
        QTest::newRow(qPrintable(iconKey(static_cast<eECButtonImage>(i)))) << i;
}

void tst_K7Plugin::stylesNameThePictureFile()
{
    QFETCH(int, image);
    const LivePlugin live;
    const QString style = live.plugin.ecButtonBorderImageCSS(static_cast<eECButtonImage>(image));

    const QRegularExpression form(QStringLiteral("^border-image:url\\(\"(.+)\"\\)$"));
    const QRegularExpressionMatch match = form.match(style);
    QVERIFY2(match.hasMatch(), qPrintable(style));
    const QFileInfo file(match.captured(1));
    QVERIFY(file.exists());
    QCOMPARE(file.completeBaseName(), iconKey(static_cast<eECButtonImage>(image)));
}

void tst_K7Plugin::stylesAreResolvedOnce()
{
    LivePlugin live;
    const QString before = live.plugin.ecButtonBorderImageCSS(RedButton);
    QVERIFY(!before.isEmpty());

    const QTemporaryDir elsewhere;
    Utils::Icon::setThemePaths({elsewhere.path()});
    live.plugin.initStyleSheet();
    QCOMPARE(live.plugin.ecButtonBorderImageCSS(RedButton), before);
}

void tst_K7Plugin::colorsChooseTheStyle()
{
    const LivePlugin live;
    const K7Plugin &plugin = live.plugin;
    const auto css = [&plugin](eECButtonImage image) { return plugin.ecButtonBorderImageCSS(image); };

    const auto orange = colorRecord(36, 255, 72, 0);
    QCOMPARE(plugin.ecButtonBorderImageCSS(orange), css(OrangeButton));
    QCOMPARE(plugin.ecPageUpButtonBorderImageCSS(orange), css(PageUpWhiteButton));
    QCOMPARE(plugin.ecPageDownButtonBorderImageCSS(orange), css(PageDownWhiteButton));

    const auto black = colorRecord(36, 0, 0, 0);
    QCOMPARE(plugin.ecButtonBorderImageCSS(black), css(WhiteButton));
    QCOMPARE(plugin.ecPageUpButtonBorderImageCSS(black), css(PageUpWhiteButton));
    QCOMPARE(plugin.ecPageDownButtonBorderImageCSS(black), css(PageDownWhiteButton));

    QCOMPARE(plugin.ecButtonBorderImageCSS(std::shared_ptr<ECButtonColor>()), css(WhiteButton));
    QCOMPARE(plugin.ecPageUpButtonBorderImageCSS(nullptr), css(PageUpWhiteButton));
    QCOMPARE(plugin.ecPageDownButtonBorderImageCSS(nullptr), css(PageDownWhiteButton));
}

void tst_K7Plugin::aKeyHeldWhenThePluginGoesIsReleased()
{
    QVector<quint32> pressed;
    QVector<quint32> released;
    {
        LivePlugin live;
        connect(&live.plugin, &K7Plugin::ecButtonPressed, this, [&pressed](quint32 key) { pressed << key; });
        connect(&live.plugin, &K7Plugin::ecButtonRelease, this,
                [&released](quint32 key) { released << key; });
        IKorvoECKeyboard *left = half(live.plugin.keyboards(), 0);
        left->show();
        QVERIFY(QTest::qWaitForWindowExposed(left));
        auto *key = left->findChild<QAbstractButton *>(QStringLiteral("toolButton_254"));
        QTest::mousePress(key, Qt::LeftButton);
        QCOMPARE(pressed, QVector<quint32>{0xff0026});
    }
    QCOMPARE(released, QVector<quint32>{0xff0026});
}

void tst_K7Plugin::aHostMayAnswerTheLastReleases()
{
    int answers = 0;
    {
        LivePlugin live;
        const Halves halves = live.plugin.keyboards();
        IKorvoECKeyboard *left = half(halves, 0);
        connect(&live.plugin, &K7Plugin::ecButtonRelease, this, [&answers, left] {
            QCOMPARE(left->displayName(), QStringLiteral("Left keyboard")); // still a half
            QVERIFY(left->updateECButtonColor(colorRecord(38, 255, 0, 0)));
            QVERIFY(left->updateECOledText(textRecord(14, "answer")));
            ++answers;
        });
        left->show();
        QVERIFY(QTest::qWaitForWindowExposed(left));
        QTest::mousePress(left->findChild<QAbstractButton *>(QStringLiteral("toolButton_254")),
                          Qt::LeftButton);
    }
    QCOMPARE(answers, 1);
}

void tst_K7Plugin::aHandOnTheSettingsPanelReachesTheHost()
{
    const LivePlugin live;
    const IKorvoECKeyboard *right = half(live.plugin.keyboards(), 1);
    SignalNotes told(&live.plugin, &IKorvoECKeyboardPlugin::staticMetaObject);
    QTest::mouseClick(find(right, "switch_logo"), Qt::LeftButton);
    QCOMPARE(told.take(), QStringList{QStringLiteral("signalLogoLightStatusChanged(false, 15)")});
    // The lamp itself changes before the host hears of it, so the host may ask anything then.
    QCOMPARE(find(right, "label_logo")->property("q6logo"), QVariant(false));
}

void tst_K7Plugin::theModeChangeIsToldOnceAHalf()
{
    const LivePlugin live;
    const Halves halves = live.plugin.keyboards();
    SignalNotes told(&live.plugin, &IKorvoECKeyboardPlugin::staticMetaObject);
    QVERIFY(half(halves, 0)->updateKeyboard());
    QVERIFY(!half(halves, 1)->updateKeyboard());
    QCOMPARE(told.take(), (QStringList{QStringLiteral("signalKorvoPluginModeChanged()"),
                                       QStringLiteral("signalKorvoPluginModeChanged()")}));
}

QTEST_MAIN(tst_K7Plugin)

#include "tst_k7plugin.moc"
