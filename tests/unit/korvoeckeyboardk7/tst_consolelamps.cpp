// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "panelsupport.h"
#include "support.h"

#include <korvo/widgets/slidereditframe.h>
#include <korvo/widgets/switchcontrol.h>

#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>

using Korvo::Internal::ConsoleFloatWidget;
using Korvo::Widgets::SliderEditFrame;
using Korvo::Widgets::SwitchControl;

namespace {

QStringList lampSignals()
{
    return {QStringLiteral("signalGrooseneckLightStatusChanged"),
            QStringLiteral("signalFrontLightStatusChanged"), QStringLiteral("signalSideLightStatusChanged"),
            QStringLiteral("signalLogoLightStatusChanged")};
}

QVariantMap with(QVariantMap map, const char *key, const QVariant &value)
{
    map.insert(QLatin1String(key), value.toString());
    return map;
}

} // namespace

/// The lamps and the brightness of the settings panel, and the settings file that they are kept in.
class tst_ConsoleLamps : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void switchesShowWhatIsStored_data();
    void switchesShowWhatIsStored();
    void brightnessShowsWhatIsStored_data();
    void brightnessShowsWhatIsStored();
    void loadingTellsTheBrightnessOfTheLcdOnly_data();
    void loadingTellsTheBrightnessOfTheLcdOnly();
    void loadingAgainTellsItOnceMore();
    void loadingWritesNothingOfLamps();
    void loadingGoesInOrder();
    void onlyALitLampHasItsBrightnessEnabled_data();
    void onlyALitLampHasItsBrightnessEnabled();

    void switchingTellsAndStores_data();
    void switchingTellsAndStores();
    void aBrightnessTellsAndStores_data();
    void aBrightnessTellsAndStores();
    void aDarkGooseneckTakesNoBrightness();
    void aDarkFrontPanelStillTakesBrightness();
    void everyStepOfASliderIsTold();
    void everyBrightnessCanBeSet();
    void slotsCanBeCalledByName();
    void aTickIsAlwaysZero();

    void anotherPanelComesBackWithTheSame();
    void whatOthersStoreStays();
    void thePanelWorksWithAnyFile_data();
    void thePanelWorksWithAnyFile();

private:
    void load();
    SwitchControl *lamp(const char *name) const { return find<SwitchControl>(m_panel.get(), name); }
    SliderEditFrame *editor(const char *name) const { return find<SliderEditFrame>(m_panel.get(), name); }
    void type(const char *name, int value) const;

    std::unique_ptr<SettingsFolder> m_folder;
    std::unique_ptr<ConsoleFloatWidget> m_panel;
    std::unique_ptr<SignalNotes> m_told;
};

void tst_ConsoleLamps::init()
{
    m_folder = std::make_unique<SettingsFolder>();
}

void tst_ConsoleLamps::cleanup()
{
    m_told.reset();
    m_panel.reset();
    m_folder.reset();
}

void tst_ConsoleLamps::load()
{
    m_panel = std::make_unique<ConsoleFloatWidget>();
    m_panel->initParm();
    m_told = std::make_unique<SignalNotes>(m_panel.get());
}

void tst_ConsoleLamps::type(const char *name, int value) const
{
    auto *field = editor(name)->findChild<QSpinBox *>();
    QVERIFY(field);
    field->selectAll();
    QTest::keyClicks(field, QString::number(value));
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(editor(name)->value(), value);
}

void tst_ConsoleLamps::switchesShowWhatIsStored_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<bool>("expected");
    const QMap<QByteArray, QByteArray> lamps{{"grooseneckStatus", "switch_groosen"},
                                             {"frontStatus", "switch_front"},
                                             {"logoStatus", "switch_logo"}};
    for (auto lamp = lamps.cbegin(); lamp != lamps.cend(); ++lamp) {
        const auto row = [&lamp](const char *what, const QVariant &stored, bool expected) {
            QTest::newRow(lamp.key() + ' ' + what) << lamp.key() << lamp.value() << stored << expected;
        };
        row("absent", QVariant(), true);
        row("on", true, true);
        row("off", false, false);
    }
}

void tst_ConsoleLamps::switchesShowWhatIsStored()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, name);
    QFETCH(QVariant, stored);
    QFETCH(bool, expected);
    if (stored.isValid())
        m_folder->write(with({}, key.constData(), stored));
    load();
    for (const char *other : {"switch_groosen", "switch_front", "switch_logo"})
        QCOMPARE(lamp(other)->isToggled(), name == other ? expected : true);
}

void tst_ConsoleLamps::brightnessShowsWhatIsStored_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("expected");
    const QMap<QByteArray, QByteArray> editors{
        {"grooseneckValue", "widget_groosen"}, {"frontValue", "widget_front"}, {"screenValue", "widget_lcd"}};
    for (auto editor = editors.cbegin(); editor != editors.cend(); ++editor) {
        const auto row = [&editor](const char *what, const QVariant &stored, int expected) {
            QTest::newRow(editor.key() + ' ' + what) << editor.key() << editor.value() << stored << expected;
        };
        row("absent", QVariant(), 10);
        row("least", 1, 1);
        row("some", 7, 7);
        row("most", 15, 15);
        row("too little", 0, 1);
        row("below zero", -3, 1);
        row("too much", 16, 15);
        row("more than a byte holds", 300, 15);
        row("no number", QStringLiteral("bright"), 10);
        row("empty", QString(QLatin1String("")), 10);
    }
}

void tst_ConsoleLamps::brightnessShowsWhatIsStored()
{
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, name);
    QFETCH(QVariant, stored);
    QFETCH(int, expected);
    if (stored.isValid())
        m_folder->write(with({}, key.constData(), stored));
    load();
    for (const char *other : {"widget_groosen", "widget_front", "widget_lcd"})
        QCOMPARE(editor(other)->value(), name == other ? expected : 10);
}

void tst_ConsoleLamps::loadingTellsTheBrightnessOfTheLcdOnly_data()
{
    QTest::addColumn<QVariantMap>("stored");
    QTest::addColumn<int>("expected");
    QTest::newRow("nothing stored") << QVariantMap() << 10;
    QTest::newRow("a brightness") << with({}, "screenValue", 4) << 4;
    QTest::newRow("the least") << with({}, "screenValue", 1) << 1;
    QTest::newRow("the most") << with({}, "screenValue", 15) << 15;
    QTest::newRow("lamps off") << with(with(with({}, "grooseneckStatus", false), "frontStatus", false),
                                       "logoStatus", false)
                               << 10;
    QTest::newRow("lamps dimmed") << with(with({}, "grooseneckValue", 2), "frontValue", 3) << 10;
}

void tst_ConsoleLamps::loadingTellsTheBrightnessOfTheLcdOnly()
{
    QFETCH(QVariantMap, stored);
    QFETCH(int, expected);
    m_folder->write(stored);
    ConsoleFloatWidget panel;
    const SignalNotes told(&panel);
    panel.initParm();
    QCOMPARE(told.only(lampSignals()),
             QStringList{QStringLiteral("signalSideLightStatusChanged(true, %1)").arg(expected)});
}

void tst_ConsoleLamps::loadingAgainTellsItOnceMore()
{
    load();
    m_panel->initParm();
    QCOMPARE(m_told->only(lampSignals()),
             QStringList{QStringLiteral("signalSideLightStatusChanged(true, 10)")});
    m_told->take();

    // Nor is anything connected twice by then.
    type("widget_groosen", 3);
    QCOMPARE(m_told->take(), QStringList{QStringLiteral("signalGrooseneckLightStatusChanged(true, 3)")});
    type("widget_front", 4);
    QCOMPARE(m_told->take(), QStringList{QStringLiteral("signalFrontLightStatusChanged(true, 4)")});
    type("widget_lcd", 5);
    QCOMPARE(m_told->take(), QStringList{QStringLiteral("signalSideLightStatusChanged(true, 5)")});
}

void tst_ConsoleLamps::loadingWritesNothingOfLamps()
{
    load();
    QCOMPARE(QStringList(m_folder->stored().keys()),
             (QStringList{QStringLiteral("ethMode"), QStringLiteral("netPort"), QStringLiteral("screenValue"),
                          QStringLiteral("timeDiaplay")}));

    // A lamp that is off keeps its brightness too.
    QVariantMap stored = with(with({}, "grooseneckStatus", false), "frontStatus", false);
    stored = with(with(stored, "grooseneckValue", 3), "frontValue", 4);
    m_folder = std::make_unique<SettingsFolder>();
    m_folder->write(stored);
    load();
    const QVariantMap now = m_folder->stored();
    for (auto value = stored.cbegin(); value != stored.cend(); ++value)
        QCOMPARE(now.value(value.key()), *value);
    QVERIFY(!now.contains(QStringLiteral("logoStatus")));
}

void tst_ConsoleLamps::loadingGoesInOrder()
{
    ConsoleFloatWidget panel;
    const SignalNotes told(&panel);
    panel.initParm();
    const QStringList names{QStringLiteral("signalSideLightStatusChanged"),
                            QStringLiteral("signalNetModeChanged"), QStringLiteral("signalTimeTypeChanged")};
    const QStringList lines = told.only(names);
    QCOMPARE(lines.size(), 3);
    for (int i = 0; i < 3; ++i)
        QVERIFY2(lines.at(i).startsWith(names.at(i)), qPrintable(lines.at(i)));
    const QStringList silent{QStringLiteral("signalSetPeripheralDataChange"),
                             QStringLiteral("signalUpdateSystemIP"), QStringLiteral("signalIPModeChanged"),
                             QStringLiteral("signalUpdateSystemTime"),
                             QStringLiteral("signalRestartControlEvent")};
    QCOMPARE(told.only(silent), QStringList());
}

void tst_ConsoleLamps::onlyALitLampHasItsBrightnessEnabled_data()
{
    QTest::addColumn<bool>("gooseneck");
    QTest::addColumn<bool>("front");
    QTest::newRow("both lit") << true << true;
    QTest::newRow("front dark") << true << false;
    QTest::newRow("gooseneck dark") << false << true;
    QTest::newRow("both dark") << false << false;
}

void tst_ConsoleLamps::onlyALitLampHasItsBrightnessEnabled()
{
    QFETCH(bool, gooseneck);
    QFETCH(bool, front);
    m_folder->write(with(with({}, "grooseneckStatus", gooseneck), "frontStatus", front));
    load();
    QCOMPARE(editor("widget_groosen")->isEnabled(), gooseneck);
    QCOMPARE(editor("widget_front")->isEnabled(), front);
    QVERIFY(editor("widget_lcd")->isEnabled());

    QTest::mouseClick(lamp("switch_groosen"), Qt::LeftButton);
    QCOMPARE(editor("widget_groosen")->isEnabled(), !gooseneck);
    QCOMPARE(editor("widget_front")->isEnabled(), front);
    QTest::mouseClick(lamp("switch_front"), Qt::LeftButton);
    QCOMPARE(editor("widget_groosen")->isEnabled(), !gooseneck);
    QCOMPARE(editor("widget_front")->isEnabled(), !front);
    QTest::mouseClick(lamp("switch_logo"), Qt::LeftButton);
    QVERIFY(editor("widget_lcd")->isEnabled());
}

void tst_ConsoleLamps::switchingTellsAndStores_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariantMap>("before");
    QTest::addColumn<QStringList>("expectedSignals");
    QTest::addColumn<QVariantMap>("expectedStored"); // what differs from before

    const auto twice = [](const char *line) {
        return QStringList{QString::fromLatin1(line), QString::fromLatin1(line)};
    };
    const auto once = [](const char *line) { return QStringList{QString::fromLatin1(line)}; };
    const QVariantMap none;

    const QByteArray gooseneck("switch_groosen");
    QTest::newRow("gooseneck off") << gooseneck << none
                                   << once("signalGrooseneckLightStatusChanged(false, 10)")
                                   << with({}, "grooseneckStatus", false);
    QTest::newRow("dimmed gooseneck off")
        << gooseneck << with({}, "grooseneckValue", 4)
        << once("signalGrooseneckLightStatusChanged(false, 10)") << with({}, "grooseneckStatus", false);
    QTest::newRow("gooseneck on") << gooseneck << with({}, "grooseneckStatus", false)
                                  << twice("signalGrooseneckLightStatusChanged(true, 10)")
                                  << with(with({}, "grooseneckStatus", true), "grooseneckValue", 10);
    QTest::newRow("dimmed gooseneck on")
        << gooseneck << with(with({}, "grooseneckStatus", false), "grooseneckValue", 4)
        << twice("signalGrooseneckLightStatusChanged(true, 4)") << with({}, "grooseneckStatus", true);

    const QByteArray front("switch_front");
    QTest::newRow("front off") << front << none << once("signalFrontLightStatusChanged(false, 10)")
                               << with({}, "frontStatus", false);
    QTest::newRow("dimmed front off")
        << front << with({}, "frontValue", 15) << once("signalFrontLightStatusChanged(false, 10)")
        << with({}, "frontStatus", false);
    QTest::newRow("front on") << front << with({}, "frontStatus", false)
                              << twice("signalFrontLightStatusChanged(true, 10)")
                              << with(with({}, "frontStatus", true), "frontValue", 10);
    QTest::newRow("dimmed front on") << front << with(with({}, "frontStatus", false), "frontValue", 15)
                                     << twice("signalFrontLightStatusChanged(true, 15)")
                                     << with({}, "frontStatus", true);

    const QByteArray logo("switch_logo");
    QTest::newRow("logo off") << logo << none << once("signalLogoLightStatusChanged(false, 15)")
                              << with({}, "logoStatus", false);
    QTest::newRow("logo on") << logo << with({}, "logoStatus", false)
                             << once("signalLogoLightStatusChanged(true, 15)")
                             << with({}, "logoStatus", true);
}

void tst_ConsoleLamps::switchingTellsAndStores()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariantMap, before);
    QFETCH(QStringList, expectedSignals);
    QFETCH(QVariantMap, expectedStored);
    m_folder->write(before);
    load();
    QVariantMap expected = m_folder->stored();
    for (auto value = expectedStored.cbegin(); value != expectedStored.cend(); ++value)
        expected.insert(value.key(), *value);

    QTest::mouseClick(lamp(name.constData()), Qt::LeftButton);
    QCOMPARE(m_told->lines, expectedSignals);
    QCOMPARE(m_folder->stored(), expected); // at once, with the panel still there
}

void tst_ConsoleLamps::aBrightnessTellsAndStores_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QString>("signal");
    QTest::newRow("gooseneck") << QByteArray("widget_groosen") << QByteArray("grooseneckValue")
                               << "signalGrooseneckLightStatusChanged";
    QTest::newRow("front") << QByteArray("widget_front") << QByteArray("frontValue")
                           << "signalFrontLightStatusChanged";
    QTest::newRow("LCD") << QByteArray("widget_lcd") << QByteArray("screenValue")
                         << "signalSideLightStatusChanged";
}

void tst_ConsoleLamps::aBrightnessTellsAndStores()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, key);
    QFETCH(QString, signal);
    load();
    QVariantMap expected = m_folder->stored();
    for (const int value : {1, 15, 6, 7}) {
        type(name.constData(), value);
        QCOMPARE(m_told->take(), QStringList{QStringLiteral("%1(true, %2)").arg(signal).arg(value)});
        expected = with(expected, key.constData(), value);
        QCOMPARE(m_folder->stored(), expected);
    }
}

void tst_ConsoleLamps::aDarkGooseneckTakesNoBrightness()
{
    m_folder->write(with(with({}, "grooseneckStatus", false), "grooseneckValue", 5));
    load();
    const QVariantMap before = m_folder->stored();
    editor("widget_groosen")->setValue(12); // a hand cannot: the editor is disabled
    QCOMPARE(m_told->take(), QStringList());
    QCOMPARE(m_folder->stored(), before);

    QTest::mouseClick(lamp("switch_groosen"), Qt::LeftButton);
    QCOMPARE(m_told->take(), (QStringList{QStringLiteral("signalGrooseneckLightStatusChanged(true, 5)"),
                                          QStringLiteral("signalGrooseneckLightStatusChanged(true, 5)")}));
}

void tst_ConsoleLamps::aDarkFrontPanelStillTakesBrightness()
{
    m_folder->write(with(with({}, "frontStatus", false), "frontValue", 5));
    load();
    const QVariantMap before = m_folder->stored();
    editor("widget_front")->setValue(12);
    QCOMPARE(m_told->take(), QStringList{QStringLiteral("signalFrontLightStatusChanged(true, 12)")});
    QCOMPARE(m_folder->stored(), with(before, "frontValue", 12));
    QVERIFY(!lamp("switch_front")->isToggled());
    QVERIFY(!editor("widget_front")->isEnabled());

    QTest::mouseClick(lamp("switch_front"), Qt::LeftButton);
    QCOMPARE(m_told->take(), (QStringList{QStringLiteral("signalFrontLightStatusChanged(true, 12)"),
                                          QStringLiteral("signalFrontLightStatusChanged(true, 12)")}));
}

void tst_ConsoleLamps::everyStepOfASliderIsTold()
{
    load();
    QTest::keyClick(editor("widget_lcd")->findChild<QSlider *>(), Qt::Key_Right);
    QTest::keyClick(editor("widget_lcd")->findChild<QSlider *>(), Qt::Key_PageUp);
    QTest::keyClick(editor("widget_groosen")->findChild<QSlider *>(), Qt::Key_PageDown);
    QTest::keyClick(editor("widget_front")->findChild<QSlider *>(), Qt::Key_Left);
    QTest::keyClick(editor("widget_front")->findChild<QSlider *>(), Qt::Key_Home);
    QTest::keyClick(editor("widget_front")->findChild<QSlider *>(), Qt::Key_Left);
    QCOMPARE(m_told->take(), (QStringList{QStringLiteral("signalSideLightStatusChanged(true, 11)"),
                                          QStringLiteral("signalSideLightStatusChanged(true, 12)"),
                                          QStringLiteral("signalGrooseneckLightStatusChanged(true, 9)"),
                                          QStringLiteral("signalFrontLightStatusChanged(true, 9)"),
                                          QStringLiteral("signalFrontLightStatusChanged(true, 1)")}));
}

void tst_ConsoleLamps::everyBrightnessCanBeSet()
{
    load();
    auto *slider = editor("widget_lcd")->findChild<QSlider *>();
    QTest::keyClick(slider, Qt::Key_Home);
    QStringList expected{QStringLiteral("signalSideLightStatusChanged(true, 1)")};
    for (int value = 2; value <= 16; ++value) {
        QTest::keyClick(slider, Qt::Key_Up);
        if (value <= 15)
            expected << QStringLiteral("signalSideLightStatusChanged(true, %1)").arg(value);
    }
    QCOMPARE(m_told->lines, expected);
}

void tst_ConsoleLamps::slotsCanBeCalledByName()
{
    load();
    const auto call = [this](const char *slot, const QGenericArgument &argument) {
        return QMetaObject::invokeMethod(m_panel.get(), slot, argument);
    };
    QVERIFY(call("slotGrooseneckLightStatusChanged", Q_ARG(bool, false)));
    QVERIFY(call("slotFrontLightStatusChanged", Q_ARG(bool, false)));
    QVERIFY(call("slotLogoLightStatusChanged", Q_ARG(bool, false)));
    QVERIFY(call("slotGrooseneckValueChanged", Q_ARG(int, 3))); // the switch itself is still on
    QVERIFY(call("slotFrontValueChanged", Q_ARG(int, 4)));
    QVERIFY(call("slotSiderValueChanged", Q_ARG(int, 5)));
    QCOMPARE(m_told->take(), (QStringList{QStringLiteral("signalGrooseneckLightStatusChanged(false, 10)"),
                                          QStringLiteral("signalFrontLightStatusChanged(false, 10)"),
                                          QStringLiteral("signalLogoLightStatusChanged(false, 15)"),
                                          QStringLiteral("signalGrooseneckLightStatusChanged(true, 3)"),
                                          QStringLiteral("signalFrontLightStatusChanged(true, 4)"),
                                          QStringLiteral("signalSideLightStatusChanged(true, 5)")}));
}

void tst_ConsoleLamps::aTickIsAlwaysZero()
{
    load();
    for (const int value : {-1, 0, 1, 15, 1000})
        QCOMPARE(m_panel->getValueByTick(value), 0);
}

void tst_ConsoleLamps::anotherPanelComesBackWithTheSame()
{
    load();
    type("widget_groosen", 2);
    type("widget_front", 3);
    type("widget_lcd", 4);
    for (const char *name : {"switch_groosen", "switch_logo"})
        QTest::mouseClick(lamp(name), Qt::LeftButton);

    load();
    QCOMPARE(editor("widget_groosen")->value(), 2);
    QCOMPARE(editor("widget_front")->value(), 3);
    QCOMPARE(editor("widget_lcd")->value(), 4);
    QVERIFY(!lamp("switch_groosen")->isToggled());
    QVERIFY(lamp("switch_front")->isToggled());
    QVERIFY(!lamp("switch_logo")->isToggled());
}

void tst_ConsoleLamps::whatOthersStoreStays()
{
    m_folder->write(with({}, "somethingElse", 42));
    load();
    QTest::mouseClick(lamp("switch_logo"), Qt::LeftButton);
    QCOMPARE(m_folder->stored().value(QStringLiteral("somethingElse")), QVariant(QStringLiteral("42")));
}

void tst_ConsoleLamps::thePanelWorksWithAnyFile_data()
{
    QTest::addColumn<QByteArray>("condition");
    QTest::addColumn<int>("expectedWarnings");
    QTest::newRow("none") << QByteArray("none") << 0;
    QTest::newRow("empty") << QByteArray("empty") << 0;
    QTest::newRow("no settings at all") << QByteArray("text") << 1;
    QTest::newRow("zeros, as after a lost disk") << QByteArray("zeros") << 1;
    QTest::newRow("cut off within a line") << QByteArray("cut") << 1;
    QTest::newRow("a folder where the file should be") << QByteArray("folder") << 1;
    QTest::newRow("a file where its folder should be") << QByteArray("file") << 1;
    QTest::newRow("a file where the folder above should be") << QByteArray("file above") << 1;
    QTest::newRow("a link that leads nowhere") << QByteArray("link") << 1;
    QTest::newRow("a place that nobody can write to") << QByteArray("unwritable") << 1;
}

void tst_ConsoleLamps::thePanelWorksWithAnyFile()
{
    QFETCH(QByteArray, condition);
    QFETCH(int, expectedWarnings);
    const auto makeFile = [](const QString &path) {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write("x") == 1;
    };
    if (condition == "empty") {
        m_folder->write(QByteArray());
    } else if (condition == "text") {
        m_folder->write(QByteArray("nothing that\nanybody could read\n"));
    } else if (condition == "zeros") {
        m_folder->write(QByteArray(512, '\0'));
    } else if (condition == "cut") {
        m_folder->write(QByteArray("[General]\nfrontSta"));
    } else if (condition == "folder") {
        QVERIFY(QDir().mkpath(m_folder->file()));
    } else if (condition == "file") {
        QVERIFY(QDir().mkpath(QFileInfo(m_folder->organisation()).path()));
        QVERIFY(makeFile(m_folder->organisation()));
    } else if (condition == "file above") {
        QVERIFY(makeFile(QFileInfo(m_folder->organisation()).path()));
    } else if (condition == "link") {
        QVERIFY(QDir().mkpath(QFileInfo(m_folder->organisation()).path()));
        QVERIFY(QFile::link(m_folder->path(QStringLiteral("gone/away")), m_folder->organisation()));
    } else if (condition == "unwritable") {
        SettingsFolder::use(QStringLiteral("/proc/settings"));
    }

    const LogKeeper log;
    load();
    QVERIFY(lamp("switch_groosen")->isToggled());
    QVERIFY(lamp("switch_front")->isToggled());
    QVERIFY(lamp("switch_logo")->isToggled());
    for (const char *name : {"widget_groosen", "widget_front", "widget_lcd"})
        QCOMPARE(editor(name)->value(), 10);

    type("widget_groosen", 3);
    QTest::mouseClick(lamp("switch_groosen"), Qt::LeftButton);
    QTest::mouseClick(lamp("switch_groosen"), Qt::LeftButton);
    type("widget_lcd", 6);
    // What can be kept nowhere else is kept until the panel goes.
    QCOMPARE(m_told->take(), (QStringList{QStringLiteral("signalGrooseneckLightStatusChanged(true, 3)"),
                                          QStringLiteral("signalGrooseneckLightStatusChanged(false, 10)"),
                                          QStringLiteral("signalGrooseneckLightStatusChanged(true, 3)"),
                                          QStringLiteral("signalGrooseneckLightStatusChanged(true, 3)"),
                                          QStringLiteral("signalSideLightStatusChanged(true, 6)")}));
    m_told.reset();
    m_panel.reset();
    QCOMPARE(log.lines().size(), expectedWarnings);
    const QStringList lines = log.lines();
    for (const QString &line : lines)
        QVERIFY2(line.contains(QLatin1String("LUMETRA/korvoeckeyboardk7.ini")), qPrintable(line));
}

QTEST_MAIN(tst_ConsoleLamps)

#include "tst_consolelamps.moc"
