// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fixtures.h"

#include <ovo/extensionsystem/iplugin.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <memory>

using namespace Ovo::ExtensionSystem;

namespace {

class Greeter : public QObject
{
    Q_OBJECT
};

PluginSpec *specOf(const QString &name)
{
    const QVector<PluginSpec *> specs = PluginManager::plugins();
    const auto hasName = [&name](const PluginSpec *spec) { return spec->name() == name; };
    const auto found = std::find_if(specs.begin(), specs.end(), hasName);
    return found == specs.end() ? nullptr : *found;
}

/// The names of the plug-ins that run, in found order.
QStringList runningPlugins()
{
    QStringList names;
    const QVector<PluginSpec *> specs = PluginManager::plugins();
    for (const PluginSpec *spec : specs) {
        if (spec->state() == PluginSpec::Running)
            names << spec->name();
    }
    return names;
}

/// Lets QTest expect a log line that holds \a text.
void expectWarning(const QString &text)
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QRegularExpression::escape(text)));
}

} // namespace

class tst_PluginManager : public QObject
{
    Q_OBJECT

private slots:
    void cleanupTestCase();
    void init();
    void cleanup();

    void isEmptyAndHarmlessBeforeFirstUse();
    void settingsAreTheHostsUntilTheyAreDestroyed();
    void poolKeepsEachObjectOnce();
    void poolForgetsDestroyedObjects();
    void getObjectFindsTheFirstOfAType();

    void findsLibrariesOnly();
    void findsEachFileOnce();
    void readsMetaDataWithoutLoading();
    void brokenFilesAreInvalidAndHarmNoOthers_data();
    void brokenFilesAreInvalidAndHarmNoOthers();
    void pluginsOfAnotherInterfaceAreInvalid();
    void withoutAnInterfaceAnyPluginIsUsed();
    void theSecondOfANameIsNotUsed();

    void lifeCycleFollowsTheDependencies();
    void pluginsGetTheirArguments();
    void unrelatedPluginsKeepTheFoundOrder();
    void unservedDependenciesAreErrors_data();
    void unservedDependenciesAreErrors();
    void everyMissingDependencyIsNamed();
    void anInvalidFileServesNoDependency();
    void pluginsInACircleAreErrors();

    void libraryWithAMissingSymbolIsAnErrorAtLoad();
    void aRootObjectOfAnotherTypeIsAnError();
    void failureToInitializeIsAnError_data();
    void failureToInitializeIsAnError();
    void aReasonWithoutAFailureIsNoFailure();
    void failureTakesAlongThoseThatDependOnIt();
    void eachFailureIsLoggedOnce();

    void delayedInitializeHasATurnOfTheLoopForEach();
    void delayedInitializeIsDroppedByShutdown();

    void shutdownWaitsForAsynchronousPlugins_data();
    void shutdownWaitsForAsynchronousPlugins();
    void shutdownDeletesNothingBeforeAllHaveFinished();
    void shutdownWaitsWhileTheApplicationQuits();
    void shutdownGoesOnWhenTheTimeIsOver();
    void shutdownTwiceIsHarmless();
    void shutdownByAPluginThatIsBeingStartedIsIgnored();
    void loadingTwiceStartsOnce();
    void pluginsStartAnewAfterShutdown();
    void newPathsShutDownTheOldPlugins();
};

/// Leaves plug-ins running: a host that forgets to shut down must still end without a crash.
void tst_PluginManager::cleanupTestCase()
{
    QCOMPARE(Fixtures::find({QStringLiteral("first"), QStringLiteral("second")}).size(), 2);
    PluginManager::loadPlugins();
    QCOMPARE(runningPlugins().size(), 2);
    QCOMPARE(PluginManager::allObjects().size(), 2);
}

void tst_PluginManager::init()
{
    Fixtures::clearCalls();
}

void tst_PluginManager::cleanup()
{
    PluginManager::setPluginPaths({});
    PluginManager::setPluginIID(QString());
    PluginManager::setShutdownTimeout(10000);
    QVERIFY(PluginManager::plugins().isEmpty());
    QVERIFY(PluginManager::allObjects().isEmpty());
}

void tst_PluginManager::isEmptyAndHarmlessBeforeFirstUse()
{
    QVERIFY(!PluginManager::settings());
    QVERIFY(PluginManager::allObjects().isEmpty());
    QVERIFY(PluginManager::plugins().isEmpty());
    PluginManager::shutdown();
    PluginManager::loadPlugins();
    PluginManager::shutdown();
    QVERIFY(PluginManager::instance());
    QCOMPARE(PluginManager::instance(), PluginManager::instance());
}

void tst_PluginManager::settingsAreTheHostsUntilTheyAreDestroyed()
{
    QTemporaryDir folder;
    auto settings =
        std::make_unique<QSettings>(folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
    PluginManager::setSettings(settings.get());
    QCOMPARE(PluginManager::settings(), settings.get());
    PluginManager::shutdown();
    QCOMPARE(PluginManager::settings(), settings.get());
    settings.reset();
    QVERIFY(!PluginManager::settings());
}

void tst_PluginManager::poolKeepsEachObjectOnce()
{
    QObject first;
    QObject second;
    QObject unknown;
    PluginManager::addObject(nullptr);
    QVERIFY(PluginManager::allObjects().isEmpty());

    PluginManager::addObject(&first);
    PluginManager::addObject(&second);
    PluginManager::addObject(&first);
    PluginManager::addObject(nullptr);
    QCOMPARE(PluginManager::allObjects(), QList<QObject *>({&first, &second}));

    PluginManager::removeObject(&unknown);
    PluginManager::removeObject(nullptr);
    QCOMPARE(PluginManager::allObjects(), QList<QObject *>({&first, &second}));

    PluginManager::removeObject(&first);
    PluginManager::removeObject(&first);
    QCOMPARE(PluginManager::allObjects(), QList<QObject *>({&second}));
    PluginManager::removeObject(&second);
    QVERIFY(PluginManager::allObjects().isEmpty());
}

void tst_PluginManager::poolForgetsDestroyedObjects()
{
    QObject staying;
    {
        QObject leaving;
        // Such a slot may run before or after the pool has forgotten the object.
        connect(&leaving, &QObject::destroyed, this,
                [](QObject *object) { PluginManager::removeObject(object); });
        PluginManager::addObject(&leaving);
        PluginManager::addObject(&staying);
        QCOMPARE(PluginManager::allObjects().size(), 2);
    }
    QCOMPARE(PluginManager::allObjects(), QList<QObject *>({&staying}));
    PluginManager::removeObject(&staying);
    QVERIFY(PluginManager::allObjects().isEmpty());
}

void tst_PluginManager::getObjectFindsTheFirstOfAType()
{
    QObject other;
    QVERIFY(!PluginManager::getObject<Greeter>());
    PluginManager::addObject(&other);
    QVERIFY(!PluginManager::getObject<Greeter>());
    {
        Greeter first;
        Greeter second;
        PluginManager::addObject(&first);
        PluginManager::addObject(&second);
        QCOMPARE(PluginManager::getObject<Greeter>(), &first);
        PluginManager::removeObject(&first);
        QCOMPARE(PluginManager::getObject<Greeter>(), &second);
    }
    QVERIFY(!PluginManager::getObject<Greeter>());
    PluginManager::removeObject(&other);
}

void tst_PluginManager::findsLibrariesOnly()
{
    QTemporaryDir folder;
    const QString library = Fixtures::file(QStringLiteral("single"));
    QVERIFY(QFile::copy(library, folder.filePath(QStringLiteral("single.json"))));
    QVERIFY(QFile::copy(library, folder.filePath(QStringLiteral("libsingle.so.old"))));
    QVERIFY(QFile::copy(library, folder.filePath(QStringLiteral("libsingle.so"))));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder.so")));
    QVERIFY(QFile::copy(library, folder.filePath(QStringLiteral("folder.so/libsingle.so"))));

    PluginManager::setPluginPaths({folder.filePath(QStringLiteral("nowhere")), folder.path()});
    QCOMPARE(PluginManager::plugins().size(), 1);
    QCOMPARE(PluginManager::plugins().at(0)->filePath(), folder.filePath(QStringLiteral("libsingle.so")));
}

void tst_PluginManager::findsEachFileOnce()
{
    QTemporaryDir folder;
    QVERIFY(QFile::link(Fixtures::file(QStringLiteral("single")),
                        folder.filePath(QStringLiteral("libsingle.so"))));
    QVERIFY(QFile::link(Fixtures::file(QStringLiteral("single")),
                        folder.filePath(QStringLiteral("libsingle.so.1"))));

    PluginManager::setPluginPaths({folder.path(), folder.path(), Fixtures::path(QStringLiteral("single"))});
    QCOMPARE(PluginManager::plugins().size(), 1);
    QVERIFY(!PluginManager::plugins().at(0)->hasError());
}

void tst_PluginManager::readsMetaDataWithoutLoading()
{
    const QString loaded = QStringLiteral("neverloaded.moduleLoaded");
    QCOMPARE(Fixtures::find({QStringLiteral("neverloaded")}).size(), 1);
    QCOMPARE(PluginManager::plugins().at(0)->name(), QStringLiteral("neverloaded"));
    QCOMPARE(Fixtures::calls().count(loaded), 0);

    // The library does leave its mark.
    PluginManager::loadPlugins();
    QCOMPARE(Fixtures::calls().count(loaded), 1);
}

void tst_PluginManager::brokenFilesAreInvalidAndHarmNoOthers_data()
{
    QTest::addColumn<QByteArray>("contents");

    QFile library(Fixtures::file(QStringLiteral("single")));
    QVERIFY(library.open(QIODevice::ReadOnly));
    const QByteArray intact = library.readAll();
    QFile plainLibrary(Fixtures::file(QStringLiteral("nometadata")));
    QVERIFY(plainLibrary.open(QIODevice::ReadOnly));

    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("this is no library\n");
    QTest::newRow("long text") << QByteArray(100000, 'x');
    QTest::newRow("header only") << intact.left(64);
    QTest::newRow("half") << intact.left(intact.size() / 2);
    QTest::newRow("last byte missing") << intact.left(intact.size() - 1);
    QTest::newRow("no metadata") << plainLibrary.readAll();
}

void tst_PluginManager::brokenFilesAreInvalidAndHarmNoOthers()
{
    QFETCH(QByteArray, contents);
    QTemporaryDir folder;
    QFile broken(folder.filePath(QStringLiteral("libbroken.so")));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    QCOMPARE(broken.write(contents), qint64(contents.size()));
    broken.close();

    PluginManager::setPluginPaths({folder.path(), Fixtures::path(QStringLiteral("single"))});
    QCOMPARE(PluginManager::plugins().size(), 2);
    const PluginSpec *spec = PluginManager::plugins().at(0);
    QCOMPARE(spec->state(), PluginSpec::Invalid);
    QCOMPARE(spec->name(), QStringLiteral("libbroken"));
    QVERIFY2(spec->errorString().startsWith(broken.fileName() + QStringLiteral(" is not a plug-in: ")),
             qPrintable(spec->errorString()));

    PluginManager::loadPlugins();
    QCOMPARE(spec->state(), PluginSpec::Invalid);
    QVERIFY(!spec->plugin());
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("single")));
}

void tst_PluginManager::pluginsOfAnotherInterfaceAreInvalid()
{
    PluginManager::setPluginIID(QStringLiteral("test.plugin"));
    QCOMPARE(Fixtures::find({QStringLiteral("foreign"), QStringLiteral("single")}).size(), 2);
    const PluginSpec *foreign = PluginManager::plugins().at(0);
    QCOMPARE(foreign->state(), PluginSpec::Invalid);
    QCOMPARE(foreign->name(), QStringLiteral("foreign"));
    QVERIFY(foreign->errorString().contains(Fixtures::file(QStringLiteral("foreign"))));
    QVERIFY(foreign->errorString().contains(QStringLiteral("\"test.foreign\" instead of \"test.plugin\"")));

    PluginManager::loadPlugins();
    QCOMPARE(foreign->state(), PluginSpec::Invalid);
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("single")));
}

void tst_PluginManager::withoutAnInterfaceAnyPluginIsUsed()
{
    QCOMPARE(Fixtures::find({QStringLiteral("foreign"), QStringLiteral("single")}).size(), 2);
    PluginManager::loadPlugins();
    QCOMPARE(runningPlugins(), QStringList({QStringLiteral("foreign"), QStringLiteral("single")}));
}

void tst_PluginManager::theSecondOfANameIsNotUsed()
{
    QCOMPARE(
        Fixtures::find({QStringLiteral("first"), QStringLiteral("twin"), QStringLiteral("second")}).size(),
        3);
    const PluginSpec *first = PluginManager::plugins().at(0);
    const PluginSpec *twin = PluginManager::plugins().at(1);
    QCOMPARE(twin->state(), PluginSpec::Read);
    QVERIFY(!first->hasError());
    QVERIFY(twin->errorString().contains(QStringLiteral("\"first\"")));
    QVERIFY(twin->errorString().contains(first->filePath()));
    QVERIFY(twin->errorString().contains(twin->filePath()));

    PluginManager::loadPlugins();
    QCOMPARE(twin->state(), PluginSpec::Read);
    QCOMPARE(runningPlugins(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

void tst_PluginManager::lifeCycleFollowsTheDependencies()
{
    QCOMPARE(
        Fixtures::find({QStringLiteral("third"), QStringLiteral("second"), QStringLiteral("first")}).size(),
        3);
    PluginManager::loadPlugins();
    QCOMPARE(runningPlugins().size(), 3);
    QTRY_COMPARE(Fixtures::calls(QStringLiteral("delayedInitialize")).size(), 3);
    PluginManager::shutdown();

    QStringList calls = Fixtures::calls();
    const QStringList libraries = Fixtures::calls(QStringLiteral("moduleLoaded"));
    for (const QString &library : libraries)
        calls.removeAll(library);
    const QStringList expected{
        QStringLiteral("first.constructed"),
        QStringLiteral("second.constructed"),
        QStringLiteral("third.constructed"),
        QStringLiteral("first.initialize"),
        QStringLiteral("second.initialize"),
        QStringLiteral("third.initialize"),
        QStringLiteral("third.extensionsInitialized"),
        QStringLiteral("second.extensionsInitialized"),
        QStringLiteral("first.extensionsInitialized"),
        QStringLiteral("third.delayedInitialize"),
        QStringLiteral("second.delayedInitialize"),
        QStringLiteral("first.delayedInitialize"),
        QStringLiteral("first.aboutToShutdown"),
        QStringLiteral("second.aboutToShutdown"),
        QStringLiteral("third.aboutToShutdown"),
        QStringLiteral("third.deleted"),
        QStringLiteral("second.deleted"),
        QStringLiteral("first.deleted"),
    };
    QCOMPARE(calls, expected);
}

void tst_PluginManager::pluginsGetTheirArguments()
{
    QCOMPARE(Fixtures::find({QStringLiteral("first")}).size(), 1);
    PluginManager::loadPlugins();
    const IPlugin *plugin = PluginManager::plugins().at(0)->plugin();
    QVERIFY(plugin);
    QCOMPARE(plugin->property("arguments").toStringList(),
             QStringList({QStringLiteral("one"), QStringLiteral("two words")}));
}

void tst_PluginManager::unrelatedPluginsKeepTheFoundOrder()
{
    QCOMPARE(Fixtures::find({QStringLiteral("single"), QStringLiteral("second"),
                             QStringLiteral("neverloaded"), QStringLiteral("first")})
                 .size(),
             4);
    PluginManager::loadPlugins();
    const QStringList expected{QStringLiteral("single.initialize"), QStringLiteral("first.initialize"),
                               QStringLiteral("second.initialize"), QStringLiteral("neverloaded.initialize")};
    QCOMPARE(Fixtures::calls(QStringLiteral("initialize")), expected);
}

void tst_PluginManager::unservedDependenciesAreErrors_data()
{
    QTest::addColumn<QString>("expected");
    QTest::newRow("needsmissing") << QStringLiteral(
        "\"needsmissing\" needs the plug-in \"nowhere\" 3.1, which was not found.");
    QTest::newRow("needsnewer") << QStringLiteral(
        "\"needsnewer\" needs the plug-in \"first\" 1.10, but 1.2.0 was found, which serves 1.0 to 1.2.0.");
    QTest::newRow("needsolder") << QStringLiteral(
        "\"needsolder\" needs the plug-in \"first\" 0.9.9, but 1.2.0 was found, which serves 1.0 to 1.2.0.");
}

void tst_PluginManager::unservedDependenciesAreErrors()
{
    QFETCH(QString, expected);
    const QString fixture = QLatin1String(QTest::currentDataTag());
    QCOMPARE(Fixtures::find({fixture, QStringLiteral("first"), QStringLiteral("second")}).size(), 3);
    PluginManager::loadPlugins();

    const PluginSpec *spec = specOf(fixture);
    QVERIFY(spec);
    QVERIFY2(spec->errorString().startsWith(expected), qPrintable(spec->errorString()));
    QCOMPARE(spec->state(), PluginSpec::Read);
    QCOMPARE(runningPlugins(), QStringList({QStringLiteral("first"), QStringLiteral("second")}));
}

void tst_PluginManager::everyMissingDependencyIsNamed()
{
    QCOMPARE(Fixtures::find({QStringLiteral("needsneedsmissing"), QStringLiteral("needsmissing")}).size(), 2);
    PluginManager::loadPlugins();
    const QStringList lines = specOf(QStringLiteral("needsmissing"))->errorString().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(0).contains(QStringLiteral("\"nowhere\" 3.1, which")));
    QVERIFY(lines.at(1).contains(QStringLiteral("\"elsewhere\", which")));
    QVERIFY(specOf(QStringLiteral("needsneedsmissing"))
                ->errorString()
                .startsWith(QStringLiteral(
                    "\"needsneedsmissing\" needs the plug-in \"needsmissing\", which cannot")));
}

void tst_PluginManager::anInvalidFileServesNoDependency()
{
    QCOMPARE(Fixtures::find({QStringLiteral("invalidfirst"), QStringLiteral("second")}).size(), 2);
    PluginManager::loadPlugins();
    const QString error = PluginManager::plugins().at(1)->errorString();
    QVERIFY2(
        error.startsWith(QStringLiteral("\"second\" needs the plug-in \"first\", which cannot be used.")),
        qPrintable(error));

    // Nor does it hide one that does.
    QCOMPARE(
        Fixtures::find({QStringLiteral("invalidfirst"), QStringLiteral("second"), QStringLiteral("first")})
            .size(),
        3);
    PluginManager::loadPlugins();
    QCOMPARE(runningPlugins(), QStringList({QStringLiteral("second"), QStringLiteral("first")}));
}

void tst_PluginManager::pluginsInACircleAreErrors()
{
    QCOMPARE(
        Fixtures::find({QStringLiteral("needscircle"), QStringLiteral("circlea"), QStringLiteral("single"),
                        QStringLiteral("circleb"), QStringLiteral("needsitself")})
            .size(),
        5);
    PluginManager::loadPlugins();

    QVERIFY(specOf(QStringLiteral("circlea"))
                ->errorString()
                .contains(QStringLiteral("circlea -> circleb -> circlea")));
    QVERIFY(specOf(QStringLiteral("circleb"))
                ->errorString()
                .contains(QStringLiteral("circleb -> circlea -> circleb")));
    QVERIFY(specOf(QStringLiteral("needsitself"))
                ->errorString()
                .contains(QStringLiteral("needsitself -> needsitself")));
    const QString error = specOf(QStringLiteral("needscircle"))->errorString();
    QVERIFY2(error.startsWith(
                 QStringLiteral("\"needscircle\" needs the plug-in \"circleb\", which cannot be used")),
             qPrintable(error));
    QVERIFY(!error.contains(QStringLiteral("->")));
    QCOMPARE(Fixtures::calls(QStringLiteral("constructed")),
             QStringList(QStringLiteral("single.constructed")));
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("single")));
}

void tst_PluginManager::libraryWithAMissingSymbolIsAnErrorAtLoad()
{
    QCOMPARE(Fixtures::find({QStringLiteral("missingsymbol"), QStringLiteral("needsmissingsymbol"),
                             QStringLiteral("single")})
                 .size(),
             3);
    const PluginSpec *spec = PluginManager::plugins().at(0);
    QCOMPARE(spec->state(), PluginSpec::Read);

    PluginManager::loadPlugins();
    QCOMPARE(spec->state(), PluginSpec::Resolved);
    QVERIFY2(spec->errorString().startsWith(QStringLiteral("\"missingsymbol\" cannot be loaded: ")),
             qPrintable(spec->errorString()));
    QVERIFY2(spec->errorString().contains(QStringLiteral("definedInNoLibrary")),
             qPrintable(spec->errorString()));
    QVERIFY(specOf(QStringLiteral("needsmissingsymbol"))
                ->errorString()
                .contains(QStringLiteral("\"missingsymbol\"")));
    QCOMPARE(Fixtures::calls(QStringLiteral("constructed")),
             QStringList(QStringLiteral("single.constructed")));
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("single")));
}

void tst_PluginManager::aRootObjectOfAnotherTypeIsAnError()
{
    QCOMPARE(Fixtures::find({QStringLiteral("plainobject"), QStringLiteral("single")}).size(), 2);
    PluginManager::loadPlugins();
    const PluginSpec *spec = PluginManager::plugins().at(0);
    QCOMPARE(spec->state(), PluginSpec::Resolved);
    QVERIFY(spec->errorString().startsWith(QStringLiteral("\"plainobject\" cannot be used: ")));
    QVERIFY(!spec->plugin());
    QCOMPARE(QCoreApplication::instance()->property("plainObject").toString(), QStringLiteral("deleted"));
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("single")));
}

void tst_PluginManager::failureToInitializeIsAnError_data()
{
    QTest::addColumn<QString>("expected");
    QTest::newRow("refuses") << QStringLiteral("\"refuses\" could not be started: it gave no reason.");
    QTest::newRow("refuseswithreason")
        << QStringLiteral("\"refuseswithreason\" could not be started: The door is shut.");
}

void tst_PluginManager::failureToInitializeIsAnError()
{
    QFETCH(QString, expected);
    const QString fixture = QLatin1String(QTest::currentDataTag());
    QCOMPARE(Fixtures::find({fixture, QStringLiteral("single")}).size(), 2);
    PluginManager::loadPlugins();

    const PluginSpec *spec = PluginManager::plugins().at(0);
    QVERIFY2(spec->errorString().startsWith(expected), qPrintable(spec->errorString()));
    QCOMPARE(spec->state(), PluginSpec::Deleted);
    QVERIFY(!spec->plugin());
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("single")));

    PluginManager::shutdown();
    QStringList calls = Fixtures::calls().filter(fixture);
    calls.removeAll(fixture + QStringLiteral(".moduleLoaded"));
    QCOMPARE(calls,
             QStringList({fixture + QStringLiteral(".constructed"), fixture + QStringLiteral(".initialize"),
                          fixture + QStringLiteral(".deleted")}));
}

void tst_PluginManager::aReasonWithoutAFailureIsNoFailure()
{
    QCOMPARE(Fixtures::find({QStringLiteral("complains")}).size(), 1);
    PluginManager::loadPlugins();
    QVERIFY(!PluginManager::plugins().at(0)->hasError());
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("complains")));
}

void tst_PluginManager::failureTakesAlongThoseThatDependOnIt()
{
    QCOMPARE(
        Fixtures::find({QStringLiteral("needsrefuses"), QStringLiteral("refuses"), QStringLiteral("single")})
            .size(),
        3);
    PluginManager::loadPlugins();

    const PluginSpec *spec = specOf(QStringLiteral("needsrefuses"));
    QVERIFY2(spec->errorString().startsWith(
                 QStringLiteral("\"needsrefuses\" needs the plug-in \"refuses\", which cannot be used.")),
             qPrintable(spec->errorString()));
    QCOMPARE(spec->state(), PluginSpec::Deleted);
    QVERIFY(!spec->plugin());
    QVERIFY(!Fixtures::calls().contains(QStringLiteral("needsrefuses.initialize")));
    QVERIFY(Fixtures::calls().contains(QStringLiteral("needsrefuses.deleted")));
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("single")));
}

void tst_PluginManager::eachFailureIsLoggedOnce()
{
    QCOMPARE(Fixtures::find({QStringLiteral("refuses"), QStringLiteral("needsmissing")}).size(), 2);
    QStringList lines;
    static QStringList *log = nullptr;
    log = &lines;
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &text) {
            if (type == QtWarningMsg && qstrcmp(context.category, "ovo.extensionsystem") == 0)
                *log << text;
        });
    PluginManager::loadPlugins();
    qInstallMessageHandler(previous);

    QCOMPARE(lines, QStringList({specOf(QStringLiteral("refuses"))->errorString(),
                                 specOf(QStringLiteral("needsmissing"))->errorString()}));
}

void tst_PluginManager::delayedInitializeHasATurnOfTheLoopForEach()
{
    QCOMPARE(
        Fixtures::find({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")}).size(),
        3);
    PluginManager::loadPlugins();
    QCOMPARE(Fixtures::calls(QStringLiteral("delayedInitialize")).size(), 0);

    QVector<int> callsPerTurn;
    QTimer turn;
    connect(&turn, &QTimer::timeout, this,
            [&] { callsPerTurn << Fixtures::calls(QStringLiteral("delayedInitialize")).size(); });
    turn.start(0);
    QTRY_COMPARE(callsPerTurn.value(callsPerTurn.size() - 1), 3);
    for (int calls = 1; calls <= 3; ++calls)
        QVERIFY2(callsPerTurn.contains(calls), qPrintable(QString::number(calls)));
}

void tst_PluginManager::delayedInitializeIsDroppedByShutdown()
{
    QCOMPARE(Fixtures::find({QStringLiteral("first"), QStringLiteral("finisheslater")}).size(), 2);
    PluginManager::loadPlugins();
    PluginManager::shutdown();
    QVERIFY(Fixtures::calls().contains(QStringLiteral("finisheslater.finished"))); // a loop did run
    QCOMPARE(Fixtures::calls(QStringLiteral("delayedInitialize")), QStringList());
}

void tst_PluginManager::shutdownWaitsForAsynchronousPlugins_data()
{
    QTest::addColumn<QStringList>("fixtures");
    QTest::newRow("finishes later") << QStringList{QStringLiteral("finisheslater")};
    QTest::newRow("finishes at once") << QStringList{QStringLiteral("finishesatonce")};
    QTest::newRow("finishes in a thread") << QStringList{QStringLiteral("finishesinathread")};
    QTest::newRow("deletes itself") << QStringList{QStringLiteral("deletesitself")};
    QTest::newRow("all") << QStringList{QStringLiteral("finishesatonce"), QStringLiteral("finisheslater"),
                                        QStringLiteral("single"), QStringLiteral("deletesitself"),
                                        QStringLiteral("finishesinathread")};
}

void tst_PluginManager::shutdownWaitsForAsynchronousPlugins()
{
    QFETCH(QStringList, fixtures);
    QCOMPARE(Fixtures::find(fixtures).size(), fixtures.size());
    PluginManager::loadPlugins();
    QCOMPARE(runningPlugins(), fixtures);

    QElapsedTimer elapsed;
    elapsed.start();
    PluginManager::shutdown();
    QVERIFY(elapsed.elapsed() < 5000);
    QCOMPARE(Fixtures::calls(QStringLiteral("deleted")).size(), fixtures.size());
    const QStringList finished = Fixtures::calls(QStringLiteral("finished"));
    QCOMPARE(finished.size(), fixtures.filter(QRegularExpression(QStringLiteral("later|atonce"))).size());
    const QVector<PluginSpec *> specs = PluginManager::plugins();
    for (const PluginSpec *spec : specs) {
        QCOMPARE(spec->state(), PluginSpec::Deleted);
        QVERIFY(!spec->hasError());
    }
}

void tst_PluginManager::shutdownDeletesNothingBeforeAllHaveFinished()
{
    const QStringList fixtures{QStringLiteral("single"), QStringLiteral("finishesatonce"),
                               QStringLiteral("finisheslater")};
    QCOMPARE(Fixtures::find(fixtures).size(), 3);
    PluginManager::loadPlugins();
    Fixtures::clearCalls();
    PluginManager::shutdown();

    const QStringList expected{
        QStringLiteral("single.aboutToShutdown"),  QStringLiteral("finishesatonce.aboutToShutdown"),
        QStringLiteral("finishesatonce.finished"), QStringLiteral("finisheslater.aboutToShutdown"),
        QStringLiteral("finisheslater.finished"),  QStringLiteral("finisheslater.deleted"),
        QStringLiteral("finishesatonce.deleted"),  QStringLiteral("single.deleted"),
    };
    QCOMPARE(Fixtures::calls(), expected);
}

void tst_PluginManager::shutdownWaitsWhileTheApplicationQuits()
{
    QCOMPARE(Fixtures::find({QStringLiteral("finisheslater")}).size(), 1);
    PluginManager::loadPlugins();
    QTimer::singleShot(0, this, [] {
        QCoreApplication::quit();
        PluginManager::shutdown();
    });
    QCoreApplication::exec();
    QCOMPARE(Fixtures::calls(QStringLiteral("finished")).size(), 1);
    QCOMPARE(PluginManager::plugins().at(0)->state(), PluginSpec::Deleted);
}

void tst_PluginManager::shutdownGoesOnWhenTheTimeIsOver()
{
    QCOMPARE(Fixtures::find({QStringLiteral("single"), QStringLiteral("neverfinishes")}).size(), 2);
    PluginManager::loadPlugins();
    PluginManager::setShutdownTimeout(50);
    expectWarning(QStringLiteral("\"neverfinishes\" did not finish within 50 ms"));

    QElapsedTimer elapsed;
    elapsed.start();
    PluginManager::shutdown();
    QVERIFY2(elapsed.elapsed() >= 40,
             qPrintable(QString::number(elapsed.elapsed()))); // the timer is a coarse one
    QCOMPARE(Fixtures::calls(QStringLiteral("deleted")),
             QStringList({QStringLiteral("neverfinishes.deleted"), QStringLiteral("single.deleted")}));
}

void tst_PluginManager::shutdownTwiceIsHarmless()
{
    QCOMPARE(Fixtures::find({QStringLiteral("single")}).size(), 1);
    PluginManager::shutdown();
    QCOMPARE(PluginManager::plugins().at(0)->state(), PluginSpec::Read);
    PluginManager::loadPlugins();
    PluginManager::shutdown();
    PluginManager::shutdown();
    QCOMPARE(Fixtures::calls(QStringLiteral("aboutToShutdown")).size(), 1);
    QCOMPARE(Fixtures::calls(QStringLiteral("deleted")).size(), 1);
    QCOMPARE(PluginManager::plugins().at(0)->state(), PluginSpec::Deleted);
}

void tst_PluginManager::shutdownByAPluginThatIsBeingStartedIsIgnored()
{
    QCOMPARE(Fixtures::find({QStringLiteral("single"), QStringLiteral("meddles")}).size(), 2);
    expectWarning(QStringLiteral("shutdown() ignored"));
    PluginManager::loadPlugins();
    QCOMPARE(runningPlugins(), QStringList({QStringLiteral("single"), QStringLiteral("meddles")}));
}

void tst_PluginManager::loadingTwiceStartsOnce()
{
    QCOMPARE(Fixtures::find({QStringLiteral("single")}).size(), 1);
    PluginManager::loadPlugins();
    PluginManager::loadPlugins();
    QCOMPARE(Fixtures::calls(QStringLiteral("constructed")).size(), 1);
    QCOMPARE(Fixtures::calls(QStringLiteral("initialize")).size(), 1);
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("single")));
}

void tst_PluginManager::pluginsStartAnewAfterShutdown()
{
    QCOMPARE(Fixtures::find({QStringLiteral("second"), QStringLiteral("first"), QStringLiteral("refuses"),
                             QStringLiteral("twin")})
                 .size(),
             4);
    for (int round = 0; round < 3; ++round) {
        Fixtures::clearCalls();
        PluginManager::loadPlugins();
        QCOMPARE(runningPlugins(), QStringList({QStringLiteral("second"), QStringLiteral("first")}));
        QCOMPARE(
            specOf(QStringLiteral("refuses"))->errorString().count(QStringLiteral("could not be started")),
            1);
        QCOMPARE(PluginManager::plugins().at(3)->errorString().count(QStringLiteral("already found")), 1);
        QTRY_COMPARE(Fixtures::calls(QStringLiteral("delayedInitialize")).size(), 2);
        PluginManager::shutdown();
        QCOMPARE(Fixtures::calls(QStringLiteral("constructed")).size(), 3);
        QCOMPARE(Fixtures::calls(QStringLiteral("deleted")).size(), 3);
        QCOMPARE(runningPlugins(), QStringList());
    }
}

void tst_PluginManager::newPathsShutDownTheOldPlugins()
{
    QCOMPARE(Fixtures::find({QStringLiteral("single")}).size(), 1);
    PluginManager::loadPlugins();
    QCOMPARE(runningPlugins().size(), 1);
    QCOMPARE(Fixtures::find({QStringLiteral("first")}).size(), 1);
    QCOMPARE(Fixtures::calls(QStringLiteral("aboutToShutdown")).size(), 1);
    QCOMPARE(Fixtures::calls(QStringLiteral("deleted")).size(), 1);
    PluginManager::loadPlugins();
    QCOMPARE(runningPlugins(), QStringList(QStringLiteral("first")));
}

QTEST_GUILESS_MAIN(tst_PluginManager)

#include "tst_pluginmanager.moc"
