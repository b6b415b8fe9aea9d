// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <consolehardware.h>
#include <networkaddress.h>

#include <QTest>

using namespace K7Host;

class tst_ConsoleHardware : public QObject
{
    Q_OBJECT

private slots:
    void itStartsWithPrivateAddressesAndBothLinksUp();
    void addressesAreChangedOnlyWhenAskedFor_data();
    void addressesAreChangedOnlyWhenAskedFor();
    void malformedAddressesAreRefusedAsAWhole_data();
    void malformedAddressesAreRefusedAsAWhole();
    void refusedAddressesTakeTheOnesBeforeWithThem();
    void otherInterfacesAreIgnored_data();
    void otherInterfacesAreIgnored();
    void enteredAddressesCountOnce();
    void lampsTakeTheirLevels_data();
    void lampsTakeTheirLevels();
    void screensAreTakenWhenComplete_data();
    void screensAreTakenWhenComplete();
    void theClockFollowsWhatIsEntered_data();
    void theClockFollowsWhatIsEntered();
    void theTimeTypeIsOneOfTwo();
    void withoutPowerTheLinksAreDown_data();
    void withoutPowerTheLinksAreDown();
};

namespace {

QString text(const char *string)
{
    return QString::fromUtf8(string);
}

QString ipOf(const ConsoleHardware &hardware, std::size_t port)
{
    return addressText(hardware.state().ports.at(port).addresses.ip);
}

} // namespace

using Numbers = QVector<quint16>;
using Sizes = QVector<QSize>;

Q_DECLARE_METATYPE(K7Host::Lamp)
Q_DECLARE_METATYPE(K7Host::Power)

void tst_ConsoleHardware::itStartsWithPrivateAddressesAndBothLinksUp()
{
    const ConsoleHardware hardware;
    const HardwareState &state = hardware.state();
    QCOMPARE(ipOf(hardware, 0), text("192.168.2.13"));
    QCOMPARE(addressText(state.ports.at(0).addresses.gateway), text("192.168.2.1"));
    QCOMPARE(ipOf(hardware, 1), text("192.168.1.13"));
    QCOMPARE(addressText(state.ports.at(1).addresses.gateway), text("192.168.1.1"));
    for (const NetworkPort &port : state.ports) {
        QCOMPARE(addressText(port.addresses.mask), text("255.255.255.0"));
        QVERIFY(port.isUp);
    }
    QVERIFY(state.dviSignals.at(0));
    QVERIFY(!state.dviSignals.at(1));
    QVERIFY(hardware.isOn());
}

void tst_ConsoleHardware::addressesAreChangedOnlyWhenAskedFor_data()
{
    QTest::addColumn<QString>("interfaceName");
    QTest::addColumn<int>("port");
    QTest::newRow("eth2 is port 0") << text("eth2") << 0;
    QTest::newRow("eth0 is port 1") << text("eth0") << 1;
}

void tst_ConsoleHardware::addressesAreChangedOnlyWhenAskedFor()
{
    QFETCH(QString, interfaceName);
    QFETCH(int, port);
    const auto changed = static_cast<std::size_t>(port);
    const std::size_t other = 1 - changed;
    ConsoleHardware hardware;
    const QString before = ipOf(hardware, changed);
    hardware.enterAddresses(interfaceName, text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    QCOMPARE(ipOf(hardware, changed), before);
    QVERIFY(hardware.state().ports.at(changed).isUp);

    const NetworkPort otherBefore = hardware.state().ports.at(other);
    QVERIFY(!hardware.changeAddresses(other));
    QVERIFY(hardware.changeAddresses(changed));
    QCOMPARE(ipOf(hardware, changed), text("10.0.0.2"));
    QCOMPARE(addressText(hardware.state().ports.at(changed).addresses.mask), text("255.0.0.0"));
    QCOMPARE(addressText(hardware.state().ports.at(changed).addresses.gateway), text("10.0.0.1"));
    QVERIFY(!hardware.state().ports.at(changed).isUp);
    QVERIFY(hardware.state().ports.at(other).isUp);
    QVERIFY(hardware.state().ports.at(other).addresses == otherBefore.addresses);

    hardware.raiseLink(changed);
    QVERIFY(hardware.state().ports.at(changed).isUp);
    QCOMPARE(ipOf(hardware, changed), text("10.0.0.2"));
}

void tst_ConsoleHardware::malformedAddressesAreRefusedAsAWhole_data()
{
    QTest::addColumn<QString>("ip");
    QTest::addColumn<QString>("mask");
    QTest::addColumn<QString>("gateway");
    QTest::newRow("ip") << text("10.0.0") << text("255.0.0.0") << text("10.0.0.1");
    QTest::newRow("mask") << text("10.0.0.2") << text("256.0.0.0") << text("10.0.0.1");
    QTest::newRow("gateway") << text("10.0.0.2") << text("255.0.0.0") << text("...");
    QTest::newRow("all") << QString() << QString() << QString();
}

void tst_ConsoleHardware::malformedAddressesAreRefusedAsAWhole()
{
    QFETCH(QString, ip);
    QFETCH(QString, mask);
    QFETCH(QString, gateway);
    ConsoleHardware hardware;
    const Addresses before = hardware.state().ports.at(1).addresses;
    hardware.enterAddresses(text("eth0"), ip, mask, gateway);
    QVERIFY(!hardware.changeAddresses(1));
    QVERIFY(hardware.state().ports.at(1).addresses == before);
    QVERIFY(hardware.state().ports.at(1).isUp);
}

void tst_ConsoleHardware::refusedAddressesTakeTheOnesBeforeWithThem()
{
    ConsoleHardware hardware;
    hardware.enterAddresses(text("eth0"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    hardware.enterAddresses(text("eth0"), text("10.0.0"), text("255.0.0.0"), text("10.0.0.1"));
    QVERIFY(!hardware.changeAddresses(1));
}

void tst_ConsoleHardware::otherInterfacesAreIgnored_data()
{
    QTest::addColumn<QString>("interfaceName");
    for (const char *name : {"", "eth1", "ETH1", "ETH2", "eth20", "lo"})
        QTest::addRow("'%s'", name) << text(name);
}

void tst_ConsoleHardware::otherInterfacesAreIgnored()
{
    QFETCH(QString, interfaceName);
    ConsoleHardware hardware;
    hardware.enterAddresses(interfaceName, text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    QVERIFY(!hardware.changeAddresses(0));
    QVERIFY(!hardware.changeAddresses(1));
}

void tst_ConsoleHardware::enteredAddressesCountOnce()
{
    ConsoleHardware hardware;
    hardware.enterAddresses(text("eth0"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    QVERIFY(hardware.changeAddresses(1));
    hardware.raiseLink(1);
    QVERIFY(!hardware.changeAddresses(1));
    QVERIFY(hardware.state().ports.at(1).isUp);
}

void tst_ConsoleHardware::lampsTakeTheirLevels_data()
{
    QTest::addColumn<Lamp>("lamp");
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<int>("brightness");
    QTest::addColumn<int>("expectedBrightness");
    QTest::newRow("gooseneck") << Lamp::Gooseneck << true << 12 << 12;
    QTest::newRow("front, off") << Lamp::Front << false << 10 << 10;
    QTest::newRow("LCD, lowest") << Lamp::Lcd << true << 1 << 1;
    QTest::newRow("logo, highest") << Lamp::Logo << true << 15 << 15;
    QTest::newRow("too low") << Lamp::Logo << true << 0 << 1;
    QTest::newRow("too high") << Lamp::Logo << true << 255 << 15;
}

void tst_ConsoleHardware::lampsTakeTheirLevels()
{
    QFETCH(Lamp, lamp);
    QFETCH(bool, isOn);
    QFETCH(int, brightness);
    ConsoleHardware hardware;
    const ConsoleHardware untouched;
    hardware.setLamp(lamp, isOn, brightness);
    for (std::size_t i = 0; i < LampCount; ++i) {
        const LampLevel &level = hardware.state().lamps.at(i);
        if (i == static_cast<std::size_t>(lamp)) {
            QCOMPARE(level.isOn, isOn);
            QTEST(level.brightness, "expectedBrightness");
        } else {
            QCOMPARE(level.isOn, untouched.state().lamps.at(i).isOn);
            QCOMPARE(level.brightness, untouched.state().lamps.at(i).brightness);
        }
    }
}

void tst_ConsoleHardware::screensAreTakenWhenComplete_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("operationScreen");
    QTest::addColumn<Numbers>("numbers");
    QTest::addColumn<bool>("expectedTaken");
    const Numbers one{1920, 1080};
    const Numbers two{1920, 1080, 8192, 800};
    QTest::newRow("one") << 1 << 0 << one << true;
    QTest::newRow("two") << 2 << 1 << two << true;
    QTest::newRow("no operation screen") << 2 << -1 << two << true;
    QTest::newRow("none at all") << 0 << -1 << Numbers{} << true;
    QTest::newRow("too few numbers") << 2 << 0 << one << false;
    QTest::newRow("too many numbers") << 1 << 0 << two << false;
    QTest::newRow("half a pair") << 1 << 0 << Numbers{1920} << false;
    QTest::newRow("negative") << -1 << -1 << Numbers{} << false;
    QTest::newRow("operation screen that is not there") << 2 << 2 << two << false;
    QTest::newRow("operation screen below none") << 2 << -2 << two << false;
}

void tst_ConsoleHardware::screensAreTakenWhenComplete()
{
    QFETCH(int, count);
    QFETCH(int, operationScreen);
    QFETCH(Numbers, numbers);
    QFETCH(bool, expectedTaken);
    ConsoleHardware hardware;
    hardware.setScreens(3, 2, {1, 2, 3, 4, 5, 6});
    hardware.setScreens(count, operationScreen, numbers);

    Sizes expected{{1, 2}, {3, 4}, {5, 6}};
    if (expectedTaken) {
        expected.clear();
        for (int i = 0; i < count; ++i)
            expected << QSize(numbers.at(2 * i), numbers.at(2 * i + 1));
    }
    QCOMPARE(hardware.state().screens.sizes, expected);
    QCOMPARE(hardware.state().screens.operationScreen, expectedTaken ? operationScreen : 2);
}

void tst_ConsoleHardware::theClockFollowsWhatIsEntered_data()
{
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::addColumn<QDateTime>("expectedClock"); // an hour later
    const auto clock = [](int year, int month, int day, int hour, int minute, int second) {
        return QDateTime(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
    };
    const QDateTime unchanged = clock(2026, 3, 28, 13, 0, 0);
    QTest::newRow("ahead") << text("2030-12-31") << text("23:30:5") << clock(2031, 1, 1, 0, 30, 5);
    QTest::newRow("behind") << text("2000-1-2") << text("3:4:5") << clock(2000, 1, 2, 4, 4, 5);
    QTest::newRow("midnight") << text("2026-3-28") << text("0:0:0") << clock(2026, 3, 28, 1, 0, 0);
    QTest::newRow("summer time begins")
        << text("2026-3-29") << text("1:30:0") << clock(2026, 3, 29, 2, 30, 0);
    QTest::newRow("a time that no summer knows")
        << text("2026-3-29") << text("2:30:0") << clock(2026, 3, 29, 3, 30, 0);
    QTest::newRow("no such day") << text("2026-2-30") << text("1:2:3") << unchanged;
    QTest::newRow("no such time") << text("2026-2-3") << text("24:0:0") << unchanged;
    QTest::newRow("no date") << QString() << text("1:2:3") << unchanged;
    QTest::newRow("no time") << text("2026-2-3") << QString() << unchanged;
    QTest::newRow("day first") << text("3/2/2026") << text("1:2:3") << unchanged;
    QTest::newRow("no seconds") << text("2026-2-3") << text("1:2") << unchanged;
}

void tst_ConsoleHardware::theClockFollowsWhatIsEntered()
{
    QFETCH(QString, date);
    QFETCH(QString, time);
    const QDateTime hostTime(QDate(2026, 3, 28), QTime(12, 0));
    ConsoleHardware hardware;
    hardware.setClock(date, time, hostTime);
    QTEST(hardware.state().clock(hostTime.addSecs(3600)), "expectedClock");
}

void tst_ConsoleHardware::theTimeTypeIsOneOfTwo()
{
    ConsoleHardware hardware;
    QVERIFY(hardware.state().timeType == TimeType::Hours24);
    for (const int type : {1, 2, -1, 256}) {
        hardware.setTimeType(type);
        QVERIFY(hardware.state().timeType == TimeType::Hours12);
    }
    hardware.setTimeType(0);
    QVERIFY(hardware.state().timeType == TimeType::Hours24);
}

void tst_ConsoleHardware::withoutPowerTheLinksAreDown_data()
{
    QTest::addColumn<Power>("power");
    QTest::newRow("restarting") << Power::Restarting;
    QTest::newRow("off") << Power::Off;
}

void tst_ConsoleHardware::withoutPowerTheLinksAreDown()
{
    QFETCH(Power, power);
    ConsoleHardware hardware;
    hardware.enterAddresses(text("eth0"), text("10.0.0.2"), text("255.0.0.0"), text("10.0.0.1"));
    hardware.setLamp(Lamp::Front, true, 3);
    hardware.goDark(power);
    QVERIFY(hardware.state().power == power);
    QVERIFY(!hardware.isOn());
    for (const NetworkPort &port : hardware.state().ports)
        QVERIFY(!port.isUp);

    hardware.switchOn();
    QVERIFY(hardware.isOn());
    for (const NetworkPort &port : hardware.state().ports)
        QVERIFY(port.isUp);
    QVERIFY(!hardware.changeAddresses(1));
    QCOMPARE(hardware.state().lamps.at(static_cast<std::size_t>(Lamp::Front)).brightness, 3);
}

QTEST_APPLESS_MAIN(tst_ConsoleHardware)

#include "tst_consolehardware.moc"
