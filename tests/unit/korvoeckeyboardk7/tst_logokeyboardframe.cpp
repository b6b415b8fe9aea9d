// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "logokeyboardframe.h"

#include "consolefloatwidget.h"
#include "floatwidgetwidthbutton.h"
#include "panelsupport.h"
#include "support.h"

#include <QButtonGroup>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QToolButton>

using namespace Korvo;
using Korvo::ECKeyboard::K7::LogoKeyboardFrame;
using Korvo::Internal::ConsoleFloatWidget;
using Korvo::Internal::FloatWidgetWidthButton;
using Korvo::Utils::Icon;

namespace {

std::shared_ptr<DVIInSignal> dviRecord(int index, int signal)
{
    auto record = std::make_shared<DVIInSignal>();
    record->Index = static_cast<quint8>(index);
    record->Signal = static_cast<quint8>(signal);
    return record;
}

std::shared_ptr<ECDeviceIPData> addressRecord(int index, int status, quint32 ip)
{
    auto record = std::make_shared<ECDeviceIPData>();
    record->Index = static_cast<quint8>(index);
    record->Status = static_cast<quint8>(status);
    record->IP = ip;
    return record;
}

QImage picture(const QIcon &icon)
{
    return icon.pixmap(16, 16).toImage();
}

QImage picture(const char *name)
{
    return picture(Icon::fromTheme(QLatin1String(name)));
}

} // namespace

/// The status strip.
class tst_LogoKeyboardFrame : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void propertiesAreTheConsoles_data();
    void propertiesAreTheConsoles();
    void propertiesThatMustNotBeThere();
    void widgetsAreOfTheirClasses_data();
    void widgetsAreOfTheirClasses();
    void textsAreTheConsoles();
    void portButtonsAreOfflineAtFirst();
    void theThirdNetworkButtonIsHidden();
    void thePanelStandsAtTheRight();
    void networkButtonsAreGrouped();
    void thePanelIsLoaded();

    void everySignalIsRelayed_data();
    void everySignalIsRelayed();
    void lampsLightUpBeforeTheHostHears_data();
    void lampsLightUpBeforeTheHostHears();
    void aLampOfThePanelLightsUp();
    void networkButtonsOpenThePanelAtAPort_data();
    void networkButtonsOpenThePanelAtAPort();
    void addressesAreShownByPort_data();
    void addressesAreShownByPort();
    void linksAreShownCrossed_data();
    void linksAreShownCrossed();
    void theClockIsShown();

    void inputsShowTheirSignal_data();
    void inputsShowTheirSignal();
    void aNullInputChangesNothing();
    void peripheralRecordsReachThePanel();
    void addressRecordsReachTheStrip();
    void markersTakeEffectAtOnce_data();
    void markersTakeEffectAtOnce();
    void whatChangesNothingCostsNothing();
    void enteringChangesNothing();

    void anotherLanguageKeepsWhatIsShown();
    void aStripMayGoAtAnyTime();

private:
    bool show();
    FloatWidgetWidthButton *panel() const { return m_strip->findChild<FloatWidgetWidthButton *>(); }
    template <typename Widget = QWidget>
    Widget *part(const char *name) const
    {
        // The panel has labels and buttons of the same names.
        const QList<Widget *> all = m_strip->findChildren<Widget *>(QLatin1String(name));
        for (Widget *one : all) {
            if (!panel()->isAncestorOf(one))
                return one;
        }
        qFatal("there is no %s", name);
    }

    std::unique_ptr<SettingsFolder> m_folder;
    std::unique_ptr<LogoKeyboardFrame> m_strip;
};

void tst_LogoKeyboardFrame::initTestCase()
{
    Icon::setThemePaths({QStringLiteral(K7_THEME)});
    const QList<QImage> all{picture("eth1_online"), picture("eth1_offline"), picture("eth2_online"),
                            picture("eth2_offline")};
    for (int i = 0; i < all.size(); ++i) {
        QVERIFY(!all.at(i).isNull());
        QCOMPARE(all.indexOf(all.at(i)), i); // they can be told apart
    }
}

void tst_LogoKeyboardFrame::init()
{
    m_folder = std::make_unique<SettingsFolder>();
    m_strip = std::make_unique<LogoKeyboardFrame>(nullptr);
    QVERIFY(panel());
}

void tst_LogoKeyboardFrame::cleanup()
{
    m_strip.reset();
    m_folder.reset();
}

bool tst_LogoKeyboardFrame::show()
{
    m_strip->show();
    m_strip->activateWindow();
    return QTest::qWaitForWindowActive(m_strip.get());
}

void tst_LogoKeyboardFrame::propertiesAreTheConsoles_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *name, const char *property, const QVariant &expected) {
        QTest::newRow(QByteArray(name) + ' ' + property)
            << QByteArray(name) << QByteArray(property) << expected;
    };
    const QString yes(QStringLiteral("true"));
    row("", "contentFrame", true);
    for (const char *name : {"frame_4", "frame_5", "frame_8"})
        row(name, "contentFrame", true);
    row("frame_4", "background", true);
    row("label_logo", "q6logo", true);
    row("frame_6", "grooseneck", false);
    row("frame_7", "side", true); // loading tells the brightness of the LCD, which is always on
    row("frame_8", "front", false);
    row("toolButton_net", "eth2StatusButton", true);
    row("toolButton_net2", "eth1StatusButton", true);
    row("label_in1", "in1Status", true);
    row("label_in2", "in2Status", true);
    for (const char *name : {"toolButton", "toolButton_2", "toolButton_3"})
        row(name, "settingButton", true);
    for (const char *name : {"label", "label_2", "label_3", "label_4", "label_5"})
        row(name, "displayLabel", yes);
    row("toolButton", "netType", QStringLiteral("0"));
    row("toolButton_2", "netType", QStringLiteral("1"));
    row("toolButton_3", "neyType", QStringLiteral("-1"));
}

void tst_LogoKeyboardFrame::propertiesAreTheConsoles()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, expected);
    const QWidget *widget = name.isEmpty() ? m_strip.get() : part(name.constData());
    const QVariant value = widget->property(property.constData());
    QCOMPARE(value.type(), expected.type());
    QCOMPARE(value, expected);
}

void tst_LogoKeyboardFrame::propertiesThatMustNotBeThere()
{
    QVERIFY(!part("toolButton_3")->property("netType").isValid());
    QVERIFY(!part("toolButton_net")->property("eth1StatusButton").isValid());
    QVERIFY(!part("toolButton_net2")->property("eth2StatusButton").isValid());
    int backgrounds = 0;
    const QList<QFrame *> frames = m_strip->findChildren<QFrame *>();
    for (const QFrame *frame : frames) {
        if (frame->property("q6backgroundLabel") == QVariant(true))
            ++backgrounds;
        const bool isMarked = frame->property("contentFrame").isValid() && !panel()->isAncestorOf(frame);
        const QList<QString> marked{QStringLiteral("frame_4"), QStringLiteral("frame_5"),
                                    QStringLiteral("frame_8")};
        QCOMPARE(isMarked, marked.contains(frame->objectName()) && !panel()->isAncestorOf(frame));
    }
    if (m_strip->property("q6backgroundLabel") == QVariant(true))
        ++backgrounds;
    QCOMPARE(backgrounds, 1);
}

void tst_LogoKeyboardFrame::widgetsAreOfTheirClasses_data()
{
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QList<QByteArray>>("names");
    QTest::newRow("frames") << QByteArray("QFrame")
                            << QList<QByteArray>{"frame_4", "frame_5", "frame_6", "frame_7", "frame_8"};
    QTest::newRow("labels") << QByteArray("QLabel")
                            << QList<QByteArray>{"label_logo", "label",     "label_2",
                                                 "label_3",    "label_4",   "label_5",
                                                 "label_in1",  "label_in2", "label_time"};
    QTest::newRow("buttons") << QByteArray("QToolButton")
                             << QList<QByteArray>{"toolButton_net", "toolButton_net2", "toolButton",
                                                  "toolButton_2", "toolButton_3"};
}

void tst_LogoKeyboardFrame::widgetsAreOfTheirClasses()
{
    QFETCH(QByteArray, className);
    QFETCH(QList<QByteArray>, names);
    for (const QByteArray &name : names)
        QCOMPARE(QByteArray(part(name.constData())->metaObject()->className()), className);
}

void tst_LogoKeyboardFrame::textsAreTheConsoles()
{
    QCOMPARE(m_strip->windowTitle(), QStringLiteral("Frame"));
    QCOMPARE(part<QLabel>("label")->text(), QStringLiteral("ETH2:"));
    for (const char *name : {"toolButton", "toolButton_2", "toolButton_3"})
        QCOMPARE(part<QToolButton>(name)->text(), QStringLiteral("..."));
    QCOMPARE(part<QToolButton>("toolButton_net")->text(), QStringLiteral("ETH1"));
    QCOMPARE(part<QToolButton>("toolButton_net2")->text(), QStringLiteral("ETH2"));
}

void tst_LogoKeyboardFrame::portButtonsAreOfflineAtFirst()
{
    for (const char *name : {"toolButton_net", "toolButton_net2"}) {
        QCOMPARE(part<QToolButton>(name)->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
        QCOMPARE(part<QToolButton>(name)->iconSize(), QSize(16, 16));
    }
    QCOMPARE(picture(part<QToolButton>("toolButton_net")->icon()), picture("eth2_offline"));
    QCOMPARE(picture(part<QToolButton>("toolButton_net2")->icon()), picture("eth1_offline"));
}

void tst_LogoKeyboardFrame::theThirdNetworkButtonIsHidden()
{
    QVERIFY(show());
    QVERIFY(part("toolButton")->isVisible());
    QVERIFY(part("toolButton_2")->isVisible());
    QVERIFY(!part("toolButton_3")->isVisible());
}

void tst_LogoKeyboardFrame::thePanelStandsAtTheRight()
{
    QCOMPARE(m_strip->size(), QSize(950, 1026));
    QCOMPARE(panel()->parentWidget(), m_strip.get());
    QCOMPARE(panel()->pos(), QPoint(369, -30));
    QVERIFY(show());
    QVERIFY(panel()->isVisible());
    QCOMPARE(panel()->pos(), QPoint(369, -30));
    for (const char *name :
         {"toolButton", "toolButton_2", "toolButton_net", "label_2", "label_5", "label_in1", "label_in2",
          "label_time", "frame_6", "frame_7", "frame_8", "label_logo"}) {
        const QWidget *one = part(name);
        const QRect place(one->mapTo(m_strip.get(), QPoint()), one->size());
        QVERIFY2(m_strip->rect().contains(place), name);
        QVERIFY2(!place.intersects(panel()->geometry()), name); // not below the panel
    }
}

void tst_LogoKeyboardFrame::networkButtonsAreGrouped()
{
    const QButtonGroup *group = part<QToolButton>("toolButton")->group();
    QVERIFY(group);
    QVERIFY(!group->parent());
    QCOMPARE(group->buttons().size(), 2);
    QCOMPARE(group->id(part<QToolButton>("toolButton")), 0);
    QCOMPARE(group->id(part<QToolButton>("toolButton_2")), 1);
    QVERIFY(!part<QToolButton>("toolButton_3")->group());
}

void tst_LogoKeyboardFrame::thePanelIsLoaded()
{
    m_folder->write(QByteArray("[General]\ntimeDiaplay=1\nnetPort=eth2\n"));
    const LogoKeyboardFrame strip(nullptr);
    QVERIFY(find<QPushButton>(&strip, "pushButton_12")->isChecked());
    QVERIFY(find<QPushButton>(&strip, "pushButton_hundred")->isChecked());
    QVERIFY(find<QPushButton>(&strip, "pushButton_Manual")->isChecked());
}

void tst_LogoKeyboardFrame::everySignalIsRelayed_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isRelayed");
    int relayed = 0;
    const QList<QByteArray> names = signalsOf(FloatWidgetWidthButton::staticMetaObject).keys();
    const QList<QByteArray> ownUse{"signalTimeChanged", "signal_ipChanged", "signal_netStatusChanged"};
    for (const QByteArray &name : names) {
        QTest::newRow(name.constData()) << name << !ownUse.contains(name);
        relayed += ownUse.contains(name) ? 0 : 1;
    }
    QCOMPARE(relayed, 11);
    QCOMPARE(signalsOf(LogoKeyboardFrame::staticMetaObject).size(), 11);
}

void tst_LogoKeyboardFrame::everySignalIsRelayed()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, isRelayed);
    SignalNotes told(m_strip.get());
    const QString arguments =
        emitSample(panel(), signalsOf(FloatWidgetWidthButton::staticMetaObject).value(name));
    QCOMPARE(told.take(), isRelayed ? QStringList{QLatin1String(name) + arguments} : QStringList());
}

void tst_LogoKeyboardFrame::lampsLightUpBeforeTheHostHears_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("lamp");
    QTest::addColumn<QByteArray>("property");
    const auto row = [](const char *name, const char *lamp, const char *property) {
        QTest::newRow(property) << QByteArray(name) << QByteArray(lamp) << QByteArray(property);
    };
    row("signalGrooseneckLightStatusChanged", "frame_6", "grooseneck");
    row("signalFrontLightStatusChanged", "frame_8", "front");
    row("signalSideLightStatusChanged", "frame_7", "side");
    row("signalLogoLightStatusChanged", "label_logo", "q6logo");
}

void tst_LogoKeyboardFrame::lampsLightUpBeforeTheHostHears()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, lamp);
    QFETCH(QByteArray, property);
    const QMap<QByteArray, QByteArray> lamps{
        {"frame_6", "grooseneck"}, {"frame_8", "front"}, {"frame_7", "side"}, {"label_logo", "q6logo"}};
    const auto states = [&] {
        QMap<QByteArray, QVariant> all;
        for (auto one = lamps.cbegin(); one != lamps.cend(); ++one)
            all.insert(one.key(), part(one.key().constData())->property(one->constData()));
        return all;
    };
    QVector<QVariant> heard;
    const auto note = [&](bool on, quint8) {
        heard << on << part(lamp.constData())->property(property.constData());
    };
    connect(m_strip.get(), &LogoKeyboardFrame::signalGrooseneckLightStatusChanged, this, note);
    connect(m_strip.get(), &LogoKeyboardFrame::signalFrontLightStatusChanged, this, note);
    connect(m_strip.get(), &LogoKeyboardFrame::signalSideLightStatusChanged, this, note);
    connect(m_strip.get(), &LogoKeyboardFrame::signalLogoLightStatusChanged, this, note);

    const QMetaMethod signal = signalsOf(FloatWidgetWidthButton::staticMetaObject).value(name);
    for (const bool on : {true, false, true}) {
        for (const quint8 brightness : {1, 15}) {
            auto expected = states();
            expected.insert(lamp, on);
            heard.clear();
            QVERIFY(signal.invoke(panel(), Q_ARG(bool, on), Q_ARG(quint8, brightness)));
            QCOMPARE(states(), expected);
            QCOMPARE(heard, (QVector<QVariant>{on, on}));
        }
    }
    disconnect(m_strip.get(), nullptr, this, nullptr);
}

void tst_LogoKeyboardFrame::aLampOfThePanelLightsUp()
{
    QVERIFY(show());
    QTest::mouseClick(find(m_strip.get(), "switch_groosen"), Qt::LeftButton);
    QTest::mouseClick(find(m_strip.get(), "switch_groosen"), Qt::LeftButton);
    QCOMPARE(part("frame_6")->property("grooseneck"), QVariant(true));
    QTest::mouseClick(find(m_strip.get(), "switch_logo"), Qt::LeftButton);
    QCOMPARE(part("label_logo")->property("q6logo"), QVariant(false));
}

void tst_LogoKeyboardFrame::networkButtonsOpenThePanelAtAPort_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("expected");
    QTest::newRow("first") << QByteArray("toolButton") << 0;
    QTest::newRow("second") << QByteArray("toolButton_2") << 1;
    QTest::newRow("third, hidden") << QByteArray("toolButton_3") << 0;
}

void tst_LogoKeyboardFrame::networkButtonsOpenThePanelAtAPort()
{
    QFETCH(QByteArray, name);
    QFETCH(int, expected);
    QVERIFY(show());
    const QButtonGroup *ports = find<QPushButton>(m_strip.get(), "pushButton_hundred")->group();
    for (const int selected : {0, 1}) {
        ports->button(selected)->click();
        panel()->slot_setFloatWidgetVisible();
        QVERIFY(!panel()->findChild<ConsoleFloatWidget *>()->isVisible());
        auto *button = part<QToolButton>(name.constData());
        if (button->isVisible())
            QTest::mouseClick(button, Qt::LeftButton);
        else
            button->click();
        QVERIFY(panel()->findChild<ConsoleFloatWidget *>()->isVisible());
        QCOMPARE(ports->checkedId(), expected);
        QVERIFY(find(m_strip.get(), "lineEdit_IP")->isAncestorOf(QApplication::focusWidget()));
    }
}

void tst_LogoKeyboardFrame::addressesAreShownByPort_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("expected"); // the label that changes
    QTest::newRow("first") << 0 << QByteArray("label_2");
    QTest::newRow("second") << 1 << QByteArray("label_5");
    QTest::newRow("third") << 2 << QByteArray();
    QTest::newRow("below zero") << -1 << QByteArray();
    QTest::newRow("far") << 255 << QByteArray();
}

void tst_LogoKeyboardFrame::addressesAreShownByPort()
{
    QFETCH(int, index);
    QFETCH(QByteArray, expected);
    const auto texts = [this] {
        QMap<QByteArray, QString> all;
        for (const char *name : {"label", "label_2", "label_3", "label_4", "label_5", "label_in1",
                                 "label_in2", "label_time", "label_logo"})
            all.insert(name, part<QLabel>(name)->text());
        return all;
    };
    auto wanted = texts();
    const QString text(QStringLiteral("10.20.30.40"));
    if (!expected.isEmpty())
        wanted.insert(expected, text);
    Q_EMIT panel()->signal_ipChanged(index, text);
    QCOMPARE(texts(), wanted);
}

void tst_LogoKeyboardFrame::linksAreShownCrossed_data()
{
    QTest::addColumn<QString>("interface");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("isFirstOnline"); // toolButton_net, ETH1
    QTest::addColumn<bool>("isSecondOnline");
    QTest::newRow("first on") << "eth0" << 1 << true << false;
    QTest::newRow("first on by any number") << "eth0" << 255 << true << false;
    QTest::newRow("first on by a negative number") << "eth0" << -1 << true << false;
    QTest::newRow("first off") << "eth0" << 0 << false << false;
    QTest::newRow("second on") << "eth2" << 1 << false << true;
    QTest::newRow("second on by any number") << "eth2" << 2 << false << true;
    QTest::newRow("second off") << "eth2" << 0 << false << false;
    QTest::newRow("eth1") << "eth1" << 1 << false << false;
    QTest::newRow("upper case") << "ETH0" << 1 << false << false;
    QTest::newRow("longer") << "eth00" << 1 << false << false;
    QTest::newRow("empty") << "" << 1 << false << false;
}

void tst_LogoKeyboardFrame::linksAreShownCrossed()
{
    QFETCH(QString, interface);
    QFETCH(int, status);
    QFETCH(bool, isFirstOnline);
    QFETCH(bool, isSecondOnline);
    const auto *first = part<QToolButton>("toolButton_net");
    const auto *second = part<QToolButton>("toolButton_net2");
    Q_EMIT panel()->signal_netStatusChanged(interface, status);
    QCOMPARE(first->property("eth2StatusButton"), QVariant(!isFirstOnline));
    QCOMPARE(picture(first->icon()), picture(isFirstOnline ? "eth2_online" : "eth2_offline"));
    QCOMPARE(second->property("eth1StatusButton"), QVariant(!isSecondOnline));
    QCOMPARE(picture(second->icon()), picture(isSecondOnline ? "eth1_online" : "eth1_offline"));

    // And back, from both being on.
    Q_EMIT panel()->signal_netStatusChanged(QStringLiteral("eth0"), 1);
    Q_EMIT panel()->signal_netStatusChanged(QStringLiteral("eth2"), 1);
    Q_EMIT panel()->signal_netStatusChanged(interface, 0);
    QCOMPARE(picture(first->icon()),
             picture(interface == QLatin1String("eth0") ? "eth2_offline" : "eth2_online"));
    QCOMPARE(first->property("eth2StatusButton"), QVariant(interface == QLatin1String("eth0")));
    QCOMPARE(picture(second->icon()),
             picture(interface == QLatin1String("eth2") ? "eth1_offline" : "eth1_online"));
    QCOMPARE(second->property("eth1StatusButton"), QVariant(interface == QLatin1String("eth2")));
    QCOMPARE(first->text(), QStringLiteral("ETH1"));
    QCOMPARE(second->text(), QStringLiteral("ETH2"));
}

void tst_LogoKeyboardFrame::theClockIsShown()
{
    Q_EMIT panel()->signalTimeChanged(QStringLiteral("any <b>text</b>"));
    QCOMPARE(part<QLabel>("label_time")->text(), QStringLiteral("any <b>text</b>"));
    // The panel's own, once a second.
    const QRegularExpression clock(QStringLiteral("^\\d\\d/\\d\\d/\\d{4} {10}\\d{1,2}:\\d\\d:\\d\\d$"));
    QTRY_VERIFY(clock.match(part<QLabel>("label_time")->text()).hasMatch());
}

void tst_LogoKeyboardFrame::inputsShowTheirSignal_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("expectedFirst");
    QTest::addColumn<bool>("expectedSecond");
    QTest::newRow("first, none") << 0 << 0 << true << true;
    QTest::newRow("first, some") << 0 << 1 << false << true;
    QTest::newRow("first, any number") << 0 << 255 << false << true;
    QTest::newRow("second, none") << 1 << 0 << true << true;
    QTest::newRow("second, some") << 1 << 1 << true << false;
    QTest::newRow("second, any number") << 1 << 2 << true << false;
    QTest::newRow("third") << 2 << 1 << true << true;
    QTest::newRow("last") << 255 << 1 << true << true;
}

void tst_LogoKeyboardFrame::inputsShowTheirSignal()
{
    QFETCH(int, index);
    QFETCH(int, signal);
    QFETCH(bool, expectedFirst);
    QFETCH(bool, expectedSecond);
    m_strip->updateDVISignalStatus(dviRecord(index, signal));
    QCOMPARE(part("label_in1")->property("in1Status"), QVariant(expectedFirst));
    QCOMPARE(part("label_in2")->property("in2Status"), QVariant(expectedSecond));
    m_strip->updateDVISignalStatus(dviRecord(index, 0));
    QCOMPARE(part("label_in1")->property("in1Status"), QVariant(true));
    QCOMPARE(part("label_in2")->property("in2Status"), QVariant(true));
}

void tst_LogoKeyboardFrame::aNullInputChangesNothing()
{
    m_strip->updateDVISignalStatus(dviRecord(0, 1));
    const LogKeeper log;
    m_strip->updateDVISignalStatus(nullptr);
    m_strip->updatePeripheralVisibleState(nullptr);
    QCOMPARE(part("label_in1")->property("in1Status"), QVariant(false));
    QCOMPARE(part("label_in2")->property("in2Status"), QVariant(true));
    QCOMPARE(log.lines(), QStringList());
}

void tst_LogoKeyboardFrame::peripheralRecordsReachThePanel()
{
    const auto *apply = find(m_strip.get(), "peripheralApply");
    auto record = std::make_shared<PeripheralControlVisibleState>();
    QVERIFY(!apply->isHidden());
    m_strip->updatePeripheralVisibleState(record);
    QVERIFY(apply->isHidden());
    record->visible = 3;
    m_strip->updatePeripheralVisibleState(record);
    QVERIFY(!apply->isHidden());
}

void tst_LogoKeyboardFrame::addressRecordsReachTheStrip()
{
    m_strip->findChild<ConsoleFloatWidget *>()->slotRefreshNetStatus();
    m_strip->updateECDeviceIP(addressRecord(0, 1, 0x0d01a8c0));
    QCOMPARE(part<QLabel>("label_2")->text(), QStringLiteral("192.168.1.13"));
    QCOMPARE(part("toolButton_net2")->property("eth1StatusButton"), QVariant(false));
    QCOMPARE(part("toolButton_net")->property("eth2StatusButton"), QVariant(true));
    m_strip->updateECDeviceIP(addressRecord(1, 1, 0x0100000a));
    QCOMPARE(part<QLabel>("label_5")->text(), QStringLiteral("10.0.0.1"));
    QCOMPARE(part("toolButton_net")->property("eth2StatusButton"), QVariant(false));

    m_strip->updateECDeviceIP(addressRecord(2, 0, 0x01010101));
    QCOMPARE(part<QLabel>("label_2")->text(), QStringLiteral("192.168.1.13"));
    QCOMPARE(part<QLabel>("label_5")->text(), QStringLiteral("10.0.0.1"));
    m_strip->updateECDeviceIP(addressRecord(1, 0, 0x0100000a));
    QCOMPARE(part("toolButton_net")->property("eth2StatusButton"), QVariant(true));
}

void tst_LogoKeyboardFrame::markersTakeEffectAtOnce_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("property");
    const auto row = [](const char *name, const char *property) {
        QTest::newRow(property) << QByteArray(name) << QByteArray(property);
    };
    row("frame_6", "grooseneck");
    row("frame_7", "side");
    row("frame_8", "front");
    row("label_logo", "q6logo");
    row("toolButton_net", "eth2StatusButton");
    row("toolButton_net2", "eth1StatusButton");
    row("label_in1", "in1Status");
    row("label_in2", "in2Status");
}

void tst_LogoKeyboardFrame::markersTakeEffectAtOnce()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, property);
    m_strip->setStyleSheet(QStringLiteral("*[%1=\"true\"] { border: 0; background-color: #ff0000; }"
                                          "*[%1=\"false\"] { border: 0; background-color: #0000ff; }")
                               .arg(QLatin1String(property)));
    QVERIFY(show());
    auto *widget = part(name.constData());
    const auto color = [widget] { return widget->grab().toImage().pixelColor(1, 1).name(); };
    const auto light = [&](bool on) {
        Q_EMIT panel()->signalGrooseneckLightStatusChanged(on, 10);
        Q_EMIT panel()->signalFrontLightStatusChanged(on, 10);
        Q_EMIT panel()->signalSideLightStatusChanged(on, 10);
        Q_EMIT panel()->signalLogoLightStatusChanged(on, 15);
        Q_EMIT panel()->signal_netStatusChanged(QStringLiteral("eth0"), on ? 0 : 1);
        Q_EMIT panel()->signal_netStatusChanged(QStringLiteral("eth2"), on ? 0 : 1);
        m_strip->updateDVISignalStatus(dviRecord(0, on ? 0 : 1));
        m_strip->updateDVISignalStatus(dviRecord(1, on ? 0 : 1));
    };
    for (const bool on : {true, false, true}) {
        light(on);
        QCOMPARE(widget->property(property.constData()), QVariant(on));
        QCOMPARE(color(), on ? QStringLiteral("#ff0000") : QStringLiteral("#0000ff"));
    }
}

void tst_LogoKeyboardFrame::whatChangesNothingCostsNothing()
{
    QVERIFY(show());
    const auto tell = [this] {
        Q_EMIT panel()->signalGrooseneckLightStatusChanged(true, 10);
        Q_EMIT panel()->signalSideLightStatusChanged(true, 10);
        Q_EMIT panel()->signalLogoLightStatusChanged(true, 15);
        Q_EMIT panel()->signal_ipChanged(0, QStringLiteral("192.168.1.13"));
        Q_EMIT panel()->signal_netStatusChanged(QStringLiteral("eth0"), 1);
        Q_EMIT panel()->signal_netStatusChanged(QStringLiteral("eth2"), 0);
        m_strip->updateDVISignalStatus(dviRecord(0, 1));
        m_strip->updateDVISignalStatus(dviRecord(1, 0));
    };
    tell();
    settle(m_strip.get());
    std::vector<std::unique_ptr<WorkCounter>> counters;
    for (const char *name : {"frame_6", "frame_7", "frame_8", "label_logo", "label_2", "toolButton_net",
                             "toolButton_net2", "label_in1", "label_in2"})
        counters.push_back(std::make_unique<WorkCounter>(part(name)));
    const qint64 firstIcon = part<QToolButton>("toolButton_net")->icon().cacheKey();
    tell();
    QCoreApplication::processEvents();
    for (const auto &counter : counters)
        QCOMPARE(counter->count, 0);
    QCOMPARE(part<QToolButton>("toolButton_net")->icon().cacheKey(), firstIcon);
}

void tst_LogoKeyboardFrame::enteringChangesNothing()
{
    QVERIFY(show());
    SignalNotes told(m_strip.get());
    m_strip->enterWindow();
    QCOMPARE(told.lines, QStringList());
    QVERIFY(panel()->isVisible());
}

void tst_LogoKeyboardFrame::anotherLanguageKeepsWhatIsShown()
{
    Q_EMIT panel()->signal_ipChanged(0, QStringLiteral("192.168.1.13"));
    Q_EMIT panel()->signal_ipChanged(1, QStringLiteral("192.168.1.14"));
    Q_EMIT panel()->signal_netStatusChanged(QStringLiteral("eth0"), 1);
    Q_EMIT panel()->signalTimeChanged(QStringLiteral("01/02/2026          9:05:00"));
    m_strip->updateDVISignalStatus(dviRecord(0, 1));
    const auto holds = [this] {
        QCOMPARE(part<QLabel>("label_2")->text(), QStringLiteral("192.168.1.13"));
        QCOMPARE(part<QLabel>("label_5")->text(), QStringLiteral("192.168.1.14"));
        QCOMPARE(part<QLabel>("label_time")->text(), QStringLiteral("01/02/2026          9:05:00"));
        QCOMPARE(part<QToolButton>("toolButton_net")->text(), QStringLiteral("ETH1"));
        QCOMPARE(part<QToolButton>("toolButton_net2")->text(), QStringLiteral("ETH2"));
        QCOMPARE(picture(part<QToolButton>("toolButton_net")->icon()), picture("eth2_online"));
        QCOMPARE(part("toolButton_net")->property("eth2StatusButton"), QVariant(false));
        QCOMPARE(part("label_in1")->property("in1Status"), QVariant(false));
        QCOMPARE(part("label")->property("displayLabel"), QVariant(QStringLiteral("true")));
        QCOMPARE(part("toolButton_2")->property("netType"), QVariant(QStringLiteral("1")));
    };
    {
        const CrossSpeaking language;
        QCOMPARE(part<QLabel>("label")->text(), QStringLiteral("xETH2:"));
        QCOMPARE(find<QLabel>(m_strip.get(), "label_mask")->text(), QStringLiteral("xSubnet mask"));
        holds();
    }
    QCOMPARE(part<QLabel>("label")->text(), QStringLiteral("ETH2:"));
    holds();

    part<QLabel>("label")->setText(QStringLiteral("?"));
    m_strip->retranslateUi();
    QCOMPARE(part<QLabel>("label")->text(), QStringLiteral("ETH2:"));
    holds();
}

void tst_LogoKeyboardFrame::aStripMayGoAtAnyTime()
{
    QVERIFY(show());
    const auto record = addressRecord(0, 1, 1);
    runElsewhere([this, record] { m_strip->updateECDeviceIP(record); });
    m_strip.reset();
    QCoreApplication::processEvents();
    QCOMPARE(record.use_count(), 1L);
}

QTEST_MAIN(tst_LogoKeyboardFrame)

#include "tst_logokeyboardframe.moc"
