// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fixtures.h"

#include <ovo/extensionsystem/iplugin.h>

#include <QTest>

using namespace Ovo::ExtensionSystem;

class tst_PluginSpec : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void tellsEveryKeyOfTheMetadata();
    void keysThatAreNotThereAreEmpty();
    void tellsDependencies();
    void unusableMetadataIsInvalid_data();
    void unusableMetadataIsInvalid();
    void providesTheVersionsFromCompatVersionToVersion_data();
    void providesTheVersionsFromCompatVersionToVersion();
    void compatVersionIsTheVersionWithoutOne();
    void stateFollowsTheLifeCycle();

private:
    PluginSpec::State m_stateWhenDeleted = PluginSpec::Invalid;
};

void tst_PluginSpec::cleanup()
{
    PluginManager::setPluginPaths({});
}

void tst_PluginSpec::tellsEveryKeyOfTheMetadata()
{
    const QVector<PluginSpec *> specs = Fixtures::find({QStringLiteral("first")});
    QCOMPARE(specs.size(), 1);
    const PluginSpec *spec = specs.first();
    QCOMPARE(spec->filePath(), Fixtures::file(QStringLiteral("first")));
    QCOMPARE(spec->name(), QStringLiteral("first"));
    QCOMPARE(spec->version(), QStringLiteral("1.2.0"));
    QCOMPARE(spec->compatVersion(), QStringLiteral("1.0"));
    QCOMPARE(spec->isRequired(), true);
    QCOMPARE(spec->category(), QStringLiteral("Tests"));
    QCOMPARE(spec->description(), QStringLiteral("Is needed by others"));
    QCOMPARE(spec->url(), QStringLiteral("https://example.org/first"));
    QCOMPARE(spec->arguments(), QStringList({QStringLiteral("one"), QStringLiteral("two words")}));
    QCOMPARE(spec->dependencies().size(), 0);
    QCOMPARE(spec->state(), PluginSpec::Read);
    QVERIFY(!spec->hasError());
    QCOMPARE(spec->errorString(), QString());
    QVERIFY(!spec->plugin());
}

void tst_PluginSpec::keysThatAreNotThereAreEmpty()
{
    const QVector<PluginSpec *> specs = Fixtures::find({QStringLiteral("single")});
    QCOMPARE(specs.size(), 1);
    const PluginSpec *spec = specs.first();
    QCOMPARE(spec->state(), PluginSpec::Read);
    QCOMPARE(spec->name(), QStringLiteral("single"));
    QCOMPARE(spec->version(), QString());
    QCOMPARE(spec->compatVersion(), QString());
    QCOMPARE(spec->isRequired(), false);
    QCOMPARE(spec->category(), QString());
    QCOMPARE(spec->description(), QString());
    QCOMPARE(spec->url(), QString());
    QCOMPARE(spec->arguments(), QStringList());
    QCOMPARE(spec->dependencies().size(), 0);
}

void tst_PluginSpec::tellsDependencies()
{
    const QVector<PluginSpec *> specs = Fixtures::find({QStringLiteral("third")});
    QCOMPARE(specs.size(), 1);
    const QVector<PluginDependency> dependencies = specs.first()->dependencies();
    QCOMPARE(dependencies.size(), 2);
    QCOMPARE(dependencies.at(0).name, QStringLiteral("second"));
    QCOMPARE(dependencies.at(0).version, QStringLiteral("2"));
    QCOMPARE(dependencies.at(1).name, QStringLiteral("first"));
    QCOMPARE(dependencies.at(1).version, QString());
}

void tst_PluginSpec::unusableMetadataIsInvalid_data()
{
    QTest::addColumn<QString>("expectedName");
    QTest::addColumn<QString>("expectedReason");

    const QString noName = QStringLiteral("its \"Name\" is missing");
    const QString notText = QStringLiteral("its \"%1\" must be a text");
    const QString notVersion = QStringLiteral("its \"%1\" must be numbers with dots");
    const QString notTexts = QStringLiteral("its \"Arguments\" must be a list of texts");
    const QString notDependencies = QStringLiteral("its \"Dependencies\" must be a list of objects");
    const QString bad = QStringLiteral("bad");
    QTest::newRow("emptymetadata") << QStringLiteral("libemptymetadata") << noName;
    QTest::newRow("noname") << QStringLiteral("libnoname") << noName;
    QTest::newRow("emptyname") << QStringLiteral("libemptyname") << noName;
    QTest::newRow("numericname") << QStringLiteral("libnumericname") << notText.arg(QStringLiteral("Name"));
    QTest::newRow("numericversion") << bad << notText.arg(QStringLiteral("Version"));
    QTest::newRow("wordyversion") << bad << notVersion.arg(QStringLiteral("Version"));
    QTest::newRow("listedcompatversion") << bad << notText.arg(QStringLiteral("CompatVersion"));
    QTest::newRow("wordyrequired") << bad << QStringLiteral("its \"Required\" must be true or false");
    QTest::newRow("nullcategory") << bad << notText.arg(QStringLiteral("Category"));
    QTest::newRow("wordyarguments") << bad << notTexts;
    QTest::newRow("numericarguments") << bad << notTexts;
    QTest::newRow("objectdependencies") << bad << notDependencies;
    QTest::newRow("wordydependencies") << bad << notDependencies;
    QTest::newRow("namelessdependency") << bad << notDependencies;
    QTest::newRow("wordydependencyversion") << bad << notDependencies;
}

void tst_PluginSpec::unusableMetadataIsInvalid()
{
    QFETCH(QString, expectedName);
    QFETCH(QString, expectedReason);
    const QString fixture = QLatin1String(QTest::currentDataTag());

    const QVector<PluginSpec *> specs = Fixtures::find({fixture});
    QCOMPARE(specs.size(), 1);
    const PluginSpec *spec = specs.first();
    QCOMPARE(spec->state(), PluginSpec::Invalid);
    QCOMPARE(spec->name(), expectedName);
    QVERIFY(spec->hasError());
    QVERIFY2(spec->errorString().contains(Fixtures::file(fixture)), qPrintable(spec->errorString()));
    QVERIFY2(spec->errorString().contains(expectedReason), qPrintable(spec->errorString()));

    PluginManager::loadPlugins();
    QCOMPARE(spec->state(), PluginSpec::Invalid);
    QVERIFY(!QCoreApplication::instance()->property("plainObject").isValid());
}

void tst_PluginSpec::providesTheVersionsFromCompatVersionToVersion_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("version");
    QTest::addColumn<bool>("expected");

    const QString first = QStringLiteral("first"); // 1.2.0, serving users of 1.0
    QTest::newRow("any version") << first << QString() << true;
    QTest::newRow("oldest") << first << QStringLiteral("1.0") << true;
    QTest::newRow("oldest, shorter") << first << QStringLiteral("1") << true;
    QTest::newRow("oldest, longer") << first << QStringLiteral("1.0.0.0") << true;
    QTest::newRow("between") << first << QStringLiteral("1.1.7") << true;
    QTest::newRow("newest") << first << QStringLiteral("1.2.0") << true;
    QTest::newRow("newest, shorter") << first << QStringLiteral("1.2") << true;
    QTest::newRow("a little older") << first << QStringLiteral("0.9.9") << false;
    QTest::newRow("a little newer") << first << QStringLiteral("1.2.1") << false;
    QTest::newRow("newer as numbers, not as text") << first << QStringLiteral("1.10") << false;
    QTest::newRow("another name") << QStringLiteral("second") << QStringLiteral("1.0") << false;
    QTest::newRow("another case") << QStringLiteral("First") << QStringLiteral("1.0") << false;
    QTest::newRow("another name, any version") << QStringLiteral("second") << QString() << false;
}

void tst_PluginSpec::providesTheVersionsFromCompatVersionToVersion()
{
    QFETCH(QString, name);
    QFETCH(QString, version);
    QFETCH(bool, expected);

    const QVector<PluginSpec *> specs = Fixtures::find({QStringLiteral("first")});
    QCOMPARE(specs.size(), 1);
    QCOMPARE(specs.first()->provides(name, version), expected);
}

void tst_PluginSpec::compatVersionIsTheVersionWithoutOne()
{
    const QVector<PluginSpec *> specs = Fixtures::find({QStringLiteral("second")});
    QCOMPARE(specs.size(), 1);
    const PluginSpec *spec = specs.first();
    QCOMPARE(spec->compatVersion(), QStringLiteral("2.0"));
    QVERIFY(spec->provides(QStringLiteral("second"), QStringLiteral("2.0")));
    QVERIFY(!spec->provides(QStringLiteral("second"), QStringLiteral("1.9")));
    QVERIFY(!spec->provides(QStringLiteral("second"), QStringLiteral("2.0.1")));
}

void tst_PluginSpec::stateFollowsTheLifeCycle()
{
    const QVector<PluginSpec *> specs = Fixtures::find({QStringLiteral("single")});
    QCOMPARE(specs.size(), 1);
    const PluginSpec *spec = specs.first();
    QCOMPARE(spec->state(), PluginSpec::Read);
    QVERIFY(!spec->plugin());

    PluginManager::loadPlugins();
    QCOMPARE(spec->state(), PluginSpec::Running);
    QVERIFY(spec->plugin());

    connect(spec->plugin(), &QObject::destroyed, this, [this, spec] { m_stateWhenDeleted = spec->state(); });
    PluginManager::shutdown();
    QCOMPARE(m_stateWhenDeleted, PluginSpec::Stopped);
    QCOMPARE(spec->state(), PluginSpec::Deleted);
    QVERIFY(!spec->plugin());
    QVERIFY(!spec->hasError());
}

QTEST_GUILESS_MAIN(tst_PluginSpec)

#include "tst_pluginspec.moc"
