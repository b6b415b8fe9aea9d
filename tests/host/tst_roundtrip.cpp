// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <applytheme.h>
#include <consolesession.h>
#include <consolewindow.h>
#include <hostsettings.h>
#include <pluginhost.h>
#include <simulatedprocessor.h>

#include <korvo/keyboard/constants.h>
#include <korvo/keyboard/ikorvoeckeyboardplugin.h>
#include <korvo/widgets/tbar.h>

#include <QAbstractButton>
#include <QLabel>
#include <QProcess>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using Korvo::IKorvoECKeyboardPlugin;
using namespace K7Host;

/// From a finger on a key of the real plug-in to the host and back to the key's colour.
class tst_RoundTrip : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void theConsoleStartsWithTheProcessorsState();
    void aPressedInputSendsItsCodeAndTurnsGreen();
    void aSecondPressLeavesItOnPreview();
    void thePageKeysTurnThePage();
    void takeMovesTheLeverAndPutsPreviewOnProgram();
    void theProcessorKnowsEveryKeyAndLabelOfTheConsole();
    void theProgramShowsTheSameConsoleWithoutAWord();

private:
    template <typename Widget>
    Widget *find(const char *key) const;
    void click(const char *key) const;

    QTemporaryDir m_configDir;
    QScopedPointer<HostSettings> m_settings;
    QScopedPointer<PluginHost> m_plugins;
    IKorvoECKeyboardPlugin *m_plugin = nullptr;

    QScopedPointer<SimulatedProcessor> m_processor;
    QScopedPointer<ConsoleSession> m_session;
    QScopedPointer<ConsoleWindow> m_window;
};

void tst_RoundTrip::initTestCase()
{
    QVERIFY(m_configDir.isValid());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_configDir.path());
    QVERIFY(!applyTheme(QStringLiteral(KORVO_THEME)));
    m_settings.reset(new HostSettings(QStringLiteral("en")));
    m_plugins.reset(new PluginHost(m_settings->store()));
    const auto fault = m_plugins->load(QStringLiteral(KORVO_PLUGINS));
    QVERIFY2(!fault, qPrintable(fault ? fault->text : QString()));
    m_plugin = m_plugins->keyboardPlugin();
    QVERIFY(m_plugin);
    QCOMPARE(m_plugin->displayName(), QStringLiteral("K7"));
}

void tst_RoundTrip::init()
{
    m_processor.reset(new SimulatedProcessor);
    m_session.reset(new ConsoleSession(m_plugin, m_processor.data()));
    m_session->start();
    m_window.reset(new ConsoleWindow(m_session->halves()));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.data()));
}

void tst_RoundTrip::cleanup()
{
    m_window.reset();
    m_session.reset();
    m_processor.reset();
}

void tst_RoundTrip::cleanupTestCase()
{
    m_plugins.reset();
    m_settings.reset();
}

/// The only widget of that kind which the console calls \a key; null when there is none, or another one.
template <typename Widget>
Widget *tst_RoundTrip::find(const char *key) const
{
    Widget *found = nullptr;
    const auto widgets = m_window->findChildren<Widget *>();
    for (Widget *widget : widgets) {
        if (widget->property("key").toString() != QLatin1String(key))
            continue;
        if (found)
            return nullptr;
        found = widget;
    }
    return found;
}

void tst_RoundTrip::click(const char *key) const
{
    auto *button = find<QAbstractButton>(key);
    QVERIFY2(button, key);
    QTest::mouseClick(button, Qt::LeftButton);
}

void tst_RoundTrip::theConsoleStartsWithTheProcessorsState()
{
    const auto *first = find<QAbstractButton>("INPUT_01");
    const auto *second = find<QAbstractButton>("INPUT_02");
    const auto *third = find<QAbstractButton>("INPUT_03");
    QVERIFY(first && second && third);
    QVERIFY2(first->styleSheet().contains(QLatin1String("ecbutton_red")), qPrintable(first->styleSheet()));
    QVERIFY2(second->styleSheet().contains(QLatin1String("ecbutton_green")),
             qPrintable(second->styleSheet()));
    QVERIFY2(third->styleSheet().contains(QLatin1String("ecbutton_white")), qPrintable(third->styleSheet()));
    QVERIFY(find<QLabel>("OLED_CS013"));
    QCOMPARE(find<QLabel>("OLED_CS013")->text(), QStringLiteral("CAM 1"));
}

void tst_RoundTrip::aPressedInputSendsItsCodeAndTurnsGreen()
{
    auto *key = find<QAbstractButton>("INPUT_03");
    QVERIFY(key);
    QVERIFY(key->isVisible());
    QCOMPARE(key->property(Korvo::Constants::PROPERTY_KORVOECKEY).toInt(), 38);
    const auto *label = find<QLabel>("OLED_CS015");
    QVERIFY(label);
    QCOMPARE(label->text(), QStringLiteral("CAM 3"));

    const QSignalSpy pressed(m_plugin, &IKorvoECKeyboardPlugin::ecButtonPressed);
    const QSignalSpy released(m_plugin, &IKorvoECKeyboardPlugin::ecButtonRelease);
    QTest::mousePress(key, Qt::LeftButton);
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(pressed.first().first().toUInt(), 0xff0026U);
    QCOMPARE(released.count(), 0);
    QVERIFY2(key->styleSheet().contains(QLatin1String("ecbutton_green")), qPrintable(key->styleSheet()));

    QTest::mouseRelease(key, Qt::LeftButton);
    QCOMPARE(released.count(), 1);
    QCOMPARE(released.first().first().toUInt(), 0xff0026U);
    QCOMPARE(pressed.count(), 1);
    QVERIFY2(key->styleSheet().contains(QLatin1String("ecbutton_green")), qPrintable(key->styleSheet()));
    QCOMPARE(label->text(), QStringLiteral("CAM 3"));
}

void tst_RoundTrip::aSecondPressLeavesItOnPreview()
{
    click("INPUT_03");
    click("INPUT_03");
    const auto *key = find<QAbstractButton>("INPUT_03");
    const auto *program = find<QAbstractButton>("INPUT_01");
    QVERIFY(key && program);
    QVERIFY2(key->styleSheet().contains(QLatin1String("ecbutton_green")), qPrintable(key->styleSheet()));
    QVERIFY2(program->styleSheet().contains(QLatin1String("ecbutton_red")),
             qPrintable(program->styleSheet()));
}

void tst_RoundTrip::thePageKeysTurnThePage()
{
    const auto *page = find<QLabel>("OLED_CS052");
    const auto *label = find<QLabel>("OLED_CS015");
    const auto *up = find<QAbstractButton>("INPUT_UP");
    const auto *down = find<QAbstractButton>("INPUT_DW");
    QVERIFY(page && label && up && down);
    QCOMPARE(page->text(), QStringLiteral("Page 1/2"));
    QVERIFY2(down->styleSheet().contains(QLatin1String("page_down_blue")), qPrintable(down->styleSheet()));

    click("INPUT_DW");
    QCOMPARE(page->text(), QStringLiteral("Page 2/2"));
    QVERIFY(label->text() != QStringLiteral("CAM 3"));
    QVERIFY2(up->styleSheet().contains(QLatin1String("page_up_blue")), qPrintable(up->styleSheet()));
    QVERIFY2(down->styleSheet().contains(QLatin1String("page_down_white")), qPrintable(down->styleSheet()));

    click("INPUT_UP");
    QCOMPARE(page->text(), QStringLiteral("Page 1/2"));
    QCOMPARE(label->text(), QStringLiteral("CAM 3"));
}

void tst_RoundTrip::takeMovesTheLeverAndPutsPreviewOnProgram()
{
    const auto *lever = m_window->findChild<Korvo::Widgets::tbar *>();
    const auto *take = find<QAbstractButton>("TAKE");
    const auto *length = find<QLabel>("OLED_CS095");
    const auto *preview = find<QAbstractButton>("INPUT_02");
    QVERIFY(lever && take && length && preview);
    QCOMPARE(lever->curValue(), 0.0);
    for (int i = 0; i < 4; ++i)
        click("TRANSITION_TIME_REDUCE");
    QCOMPARE(length->text(), QStringLiteral("5 fr"));

    const QSignalSpy moved(m_processor.data(), &DeviceLink::tBarValueReported);
    const QSignalSpy echoed(m_plugin, &IKorvoECKeyboardPlugin::ecTBarValueChanged);
    click("TAKE");
    QVERIFY2(take->styleSheet().contains(QLatin1String("ecbutton_red")), qPrintable(take->styleSheet()));
    QTRY_COMPARE(lever->curValue(), 100.0);
    QCOMPARE(lever->getTbarDirection(), Korvo::Widgets::tbar::BottomToTop);
    QVERIFY(!lever->isEnabled());
    QCOMPARE(moved.count(), 5);
    QCOMPARE(echoed.count(), 0);
    QVERIFY2(take->styleSheet().contains(QLatin1String("ecbutton_white")), qPrintable(take->styleSheet()));
    QVERIFY2(preview->styleSheet().contains(QLatin1String("ecbutton_red")),
             qPrintable(preview->styleSheet()));
}

void tst_RoundTrip::theProcessorKnowsEveryKeyAndLabelOfTheConsole()
{
    const auto idsOf = [](const auto &widgets) {
        QSet<quint32> ids;
        for (const QWidget *widget : widgets) {
            const QVariant id = widget->property(Korvo::Constants::PROPERTY_KORVOECKEY);
            if (id.isValid())
                ids << id.toUInt();
        }
        return ids;
    };
    const ConsoleModel model;
    const QSet<quint32> silentKeys{101, 102};
    QCOMPARE(model.keyColors().keys().toSet(),
             idsOf(m_window->findChildren<QAbstractButton *>()) - silentKeys);
    QCOMPARE(model.labelTexts().keys().toSet(), idsOf(m_window->findChildren<QLabel *>()));
    QCOMPARE(model.keyColors().size(), 136);
    QCOMPARE(model.labelTexts().size(), 93);
}

void tst_RoundTrip::theProgramShowsTheSameConsoleWithoutAWord()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_configDir.path());
    QProcess program;
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::MergedChannels);
    program.start(QStringLiteral(K7HOST),
                  {QStringLiteral("--lang"), QStringLiteral("en"), QStringLiteral("--exit"),
                   QStringLiteral("--screenshot"), m_configDir.path()});
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.readAll(), QByteArray());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);

    const QImage picture(m_configDir.filePath(QStringLiteral("console.png")));
    QCOMPARE(picture.size(), m_window->size());
    // The first key is on program: red shows more than any other colour.
    const auto *key = find<QAbstractButton>("INPUT_01");
    QVERIFY(key);
    const QColor middle = picture.pixelColor(key->mapTo(m_window.data(), key->rect().center()));
    QVERIFY2(middle.red() > 2 * middle.green() && middle.red() > 2 * middle.blue(),
             qPrintable(middle.name()));
}

QTEST_MAIN(tst_RoundTrip)

#include "tst_roundtrip.moc"
