// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <hardwarepanel.h>
#include <networkaddress.h>

#include <QBoxLayout>
#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace K7Host;

class tst_HardwarePanel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void portsShowLinkAndAddresses_data();
    void portsShowLinkAndAddresses();
    void lampsShowTheirLevels_data();
    void lampsShowTheirLevels();
    void screensAreListedBySize_data();
    void screensAreListedBySize();
    void theClockShowsTheConsolesTime_data();
    void theClockShowsTheConsolesTime();
    void theClockRunsOnlyWhileItIsVisible();
    void powerIsShown_data();
    void powerIsShown();
    void dviSignalsAreSwitchedByHandOnly();
    void itsSizeDoesNotDependOnWhatItShows();

private:
    QString textOf(const char *name) const;

    QScopedPointer<HardwarePanel> m_panel;
};

namespace {

QString text(const char *string)
{
    return QString::fromUtf8(string);
}

NetworkPort port(bool isUp, const char *ip)
{
    return {isUp,
            {*addressFromText(text(ip)), *addressFromText(text("255.255.0.0")),
             *addressFromText(text("10.9.8.7"))}};
}

} // namespace

Q_DECLARE_METATYPE(K7Host::Lamp)
Q_DECLARE_METATYPE(K7Host::Power)

void tst_HardwarePanel::init()
{
    m_panel.reset(new HardwarePanel);
}

void tst_HardwarePanel::cleanup()
{
    m_panel.reset();
}

QString tst_HardwarePanel::textOf(const char *name) const
{
    const auto *label = m_panel->findChild<QLabel *>(text(name));
    return label ? label->text() : text("no such label");
}

void tst_HardwarePanel::portsShowLinkAndAddresses_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("title");
    QTest::newRow("port 0 is ETH2") << 0 << text("eth2");
    QTest::newRow("port 1 is ETH1") << 1 << text("eth1");
}

void tst_HardwarePanel::portsShowLinkAndAddresses()
{
    QFETCH(int, index);
    QFETCH(QString, title);
    const auto changed = static_cast<std::size_t>(index);
    HardwareState state;
    state.ports.at(1 - changed) = port(true, "10.0.0.3");
    state.ports.at(changed) = port(false, "10.0.0.2");
    m_panel->showState(state);
    const auto *link = m_panel->findChild<QLabel *>(title + text("LinkLabel"));
    const auto *ip = m_panel->findChild<QLabel *>(title + text("IpLabel"));
    const auto *more = m_panel->findChild<QLabel *>(title + text("MoreLabel"));
    QVERIFY(link && ip && more);
    QCOMPARE(link->text(), text("down"));
    QCOMPARE(link->property("hardwareState").toString(), text("off"));
    QCOMPARE(ip->text(), text("10.0.0.2"));
    QCOMPARE(more->text(), text("mask 255.255.0.0   gateway 10.9.8.7"));

    state.ports.at(changed).isUp = true;
    m_panel->showState(state);
    QCOMPARE(link->text(), text("up"));
    QCOMPARE(link->property("hardwareState").toString(), text("good"));
}

void tst_HardwarePanel::lampsShowTheirLevels_data()
{
    QTest::addColumn<Lamp>("lamp");
    QTest::addColumn<QString>("name");
    QTest::newRow("gooseneck") << Lamp::Gooseneck << text("gooseneck");
    QTest::newRow("front") << Lamp::Front << text("front");
    QTest::newRow("LCD") << Lamp::Lcd << text("lcd");
    QTest::newRow("logo") << Lamp::Logo << text("logo");
}

void tst_HardwarePanel::lampsShowTheirLevels()
{
    QFETCH(Lamp, lamp);
    QFETCH(QString, name);
    const auto *bar = m_panel->findChild<QProgressBar *>(name + text("Bar"));
    const auto *level = m_panel->findChild<QLabel *>(name + text("LevelLabel"));
    QVERIFY(bar && level);
    QCOMPARE(bar->maximum(), 15);
    HardwareState state;
    state.lamps.at(static_cast<std::size_t>(lamp)) = {true, 12};
    m_panel->showState(state);
    QCOMPARE(bar->value(), 12);
    QCOMPARE(level->text(), text("12"));

    state.lamps.at(static_cast<std::size_t>(lamp)).isOn = false;
    m_panel->showState(state);
    QCOMPARE(bar->value(), 0);
    QCOMPARE(level->text(), text("off"));
}

void tst_HardwarePanel::screensAreListedBySize_data()
{
    using Sizes = QVector<QSize>;
    QTest::addColumn<Sizes>("sizes");
    QTest::addColumn<int>("operationScreen");
    QTest::addColumn<QString>("expectedSizes");
    QTest::addColumn<QString>("expectedOperationScreen");
    const QSize hd(1920, 1080);
    const QSize small(800, 600);
    QTest::newRow("none") << Sizes{} << -1 << QString() << text("none");
    QTest::newRow("one") << Sizes{hd} << 0 << text("1: 1920\u00d71080") << text("1");
    QTest::newRow("alike") << Sizes{hd, hd, hd} << 2 << text("1-3: 1920\u00d71080") << text("3");
    QTest::newRow("not alike") << Sizes{hd, hd, small, hd} << -1
                               << text("1-2: 1920\u00d71080\n3: 800\u00d7600\n4: 1920\u00d71080")
                               << text("none");
    QTest::newRow("more than there is room for")
        << Sizes{hd, small, hd, small, hd, small} << 5
        << text("1: 1920\u00d71080\n2: 800\u00d7600\n3: 1920\u00d71080\n4: 800\u00d7600\n\u2026")
        << text("6");
}

void tst_HardwarePanel::screensAreListedBySize()
{
    QFETCH(QVector<QSize>, sizes);
    QFETCH(int, operationScreen);
    HardwareState state;
    state.screens = {sizes, operationScreen};
    m_panel->showState(state);
    QCOMPARE(textOf("screenCountLabel"), QString::number(sizes.size()));
    QTEST(textOf("screenSizesLabel"), "expectedSizes");
    QTEST(textOf("operationScreenLabel"), "expectedOperationScreen");
}

void tst_HardwarePanel::theClockShowsTheConsolesTime_data()
{
    QTest::addColumn<bool>("isTwelveHours");
    QTest::addColumn<QString>("expectedTime");
    QTest::newRow("24 hours") << false << text("15:04:0");
    QTest::newRow("12 hours") << true << text("3:04:0");
}

void tst_HardwarePanel::theClockShowsTheConsolesTime()
{
    QFETCH(bool, isTwelveHours);
    QFETCH(QString, expectedTime);
    HardwareState state;
    state.timeType = isTwelveHours ? TimeType::Hours12 : TimeType::Hours24;
    const QDateTime entered(QDate(2031, 2, 3), QTime(15, 4, 1), Qt::UTC);
    const QDateTime host = QDateTime::currentDateTime();
    state.clockOffsetMs = QDateTime(host.date(), host.time(), Qt::UTC).msecsTo(entered);
    m_panel->showState(state);
    QCOMPARE(textOf("dateLabel"), text("2031-02-03"));
    // This test has eight seconds before it is wrong.
    QVERIFY2(textOf("timeLabel").startsWith(expectedTime), qPrintable(textOf("timeLabel")));
    QCOMPARE(textOf("timeLabel").contains(QLocale().pmText(), Qt::CaseInsensitive), isTwelveHours);
    QCOMPARE(textOf("timeTypeLabel"), isTwelveHours ? text("12-hour display") : text("24-hour display"));
}

void tst_HardwarePanel::theClockRunsOnlyWhileItIsVisible()
{
    auto *timer = m_panel->findChild<QTimer *>();
    QVERIFY(timer);
    QCOMPARE(timer->interval(), 1000);
    QVERIFY(!timer->isActive());
    m_panel->show();
    QVERIFY(timer->isActive());

    auto *time = m_panel->findChild<QLabel *>(text("timeLabel"));
    QVERIFY(time);
    time->clear();
    timer->setInterval(0);
    QTRY_VERIFY(!time->text().isEmpty());

    m_panel->hide();
    QVERIFY(!timer->isActive());
}

void tst_HardwarePanel::powerIsShown_data()
{
    QTest::addColumn<Power>("power");
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<QString>("expectedState");
    QTest::newRow("on") << Power::On << text("on") << text("good");
    QTest::newRow("restarting") << Power::Restarting << text("restarting") << text("busy");
    QTest::newRow("off") << Power::Off << text("off") << text("off");
}

void tst_HardwarePanel::powerIsShown()
{
    QFETCH(Power, power);
    HardwareState state;
    state.power = power;
    m_panel->showState(state);
    const auto *label = m_panel->findChild<QLabel *>(text("powerLabel"));
    QVERIFY(label);
    QTEST(label->text(), "expectedText");
    QTEST(label->property("hardwareState").toString(), "expectedState");
}

void tst_HardwarePanel::dviSignalsAreSwitchedByHandOnly()
{
    auto *first = m_panel->findChild<QCheckBox *>(text("dvi0Box"));
    auto *second = m_panel->findChild<QCheckBox *>(text("dvi1Box"));
    QVERIFY(first && second);
    QSignalSpy switched(m_panel.data(), &HardwarePanel::dviSignalSwitched);
    HardwareState state;
    state.dviSignals = {true, false};
    m_panel->showState(state);
    QCOMPARE(switched.count(), 0);
    QVERIFY(first->isChecked());
    QCOMPARE(first->text(), text("0: signal"));
    QVERIFY(!second->isChecked());
    QCOMPARE(second->text(), text("1: no signal"));

    m_panel->show();
    first->click();
    QCOMPARE(switched.takeFirst(), (QVariantList{0, false}));
    second->click();
    QCOMPARE(switched.takeFirst(), (QVariantList{1, true}));
}

void tst_HardwarePanel::itsSizeDoesNotDependOnWhatItShows()
{
    HardwareState small;
    m_panel->showState(small);
    const QSize hint = m_panel->minimumSizeHint();
    HardwareState large;
    for (NetworkPort &port : large.ports)
        port = {false, {0xc8c8c8c8, 0xffffffff, 0xc8c8c8c8}};
    for (LampLevel &lamp : large.lamps)
        lamp = {true, 15};
    for (int i = 0; i < 16; ++i)
        large.screens.sizes << QSize(8192 - i, 8192);
    large.screens.operationScreen = 15;
    large.timeType = TimeType::Hours12;
    large.power = Power::Restarting;
    m_panel->showState(large);
    QCOMPARE(m_panel->minimumSizeHint(), hint);
}

QTEST_MAIN(tst_HardwarePanel)

#include "tst_hardwarepanel.moc"
