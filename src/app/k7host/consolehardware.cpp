// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolehardware.h"

#include "networkaddress.h"

namespace K7Host {

namespace {

/// A date and time as such: two of them are apart as their figures are, whatever the time zone.
QDateTime figures(const QDate &date, const QTime &time)
{
    return {date, time, Qt::UTC};
}

std::optional<std::size_t> portOf(const QString &interfaceName)
{
    if (interfaceName == QLatin1String("eth2"))
        return 0;
    if (interfaceName == QLatin1String("eth0"))
        return 1;
    return {};
}

std::optional<Addresses> addressesFromTexts(const QString &ip, const QString &mask, const QString &gateway)
{
    const auto ipAddress = addressFromText(ip);
    const auto maskAddress = addressFromText(mask);
    const auto gatewayAddress = addressFromText(gateway);
    if (!ipAddress || !maskAddress || !gatewayAddress)
        return {};
    return Addresses{*ipAddress, *maskAddress, *gatewayAddress};
}

/// Host 13 of a network of 254, whose gateway is the first.
Addresses privateAddresses(const QString &network)
{
    return *addressesFromTexts(network + QStringLiteral(".13"), QStringLiteral("255.255.255.0"),
                               network + QStringLiteral(".1"));
}

} // namespace

QDateTime HardwareState::clock(const QDateTime &hostTime) const
{
    return figures(hostTime.date(), hostTime.time()).addMSecs(clockOffsetMs);
}

ConsoleHardware::ConsoleHardware()
{
    m_state.ports.at(0).addresses = privateAddresses(QStringLiteral("192.168.2"));
    m_state.ports.at(1).addresses = privateAddresses(QStringLiteral("192.168.1"));
    m_state.lamps.at(static_cast<std::size_t>(Lamp::Lcd)).isOn = true;
    m_state.dviSignals.at(0) = true;
}

void ConsoleHardware::enterAddresses(const QString &interfaceName, const QString &ip, const QString &mask,
                                     const QString &gateway)
{
    if (const auto port = portOf(interfaceName))
        m_entered.at(*port) = addressesFromTexts(ip, mask, gateway);
}

bool ConsoleHardware::changeAddresses(std::size_t port)
{
    std::optional<Addresses> &entered = m_entered.at(port);
    if (!entered)
        return false;
    m_state.ports.at(port) = {false, *entered};
    entered.reset();
    return true;
}

void ConsoleHardware::setLamp(Lamp lamp, bool isOn, int brightness)
{
    m_state.lamps.at(static_cast<std::size_t>(lamp)) = {
        isOn, qBound(LampLevel::Lowest, brightness, LampLevel::Highest)};
}

void ConsoleHardware::setScreens(int count, int operationScreen, const QVector<quint16> &widthsAndHeights)
{
    const bool isComplete = widthsAndHeights.size() % 2 == 0 && widthsAndHeights.size() / 2 == count;
    if (!isComplete || operationScreen < -1 || operationScreen >= count)
        return;
    m_state.screens = {{}, operationScreen};
    for (int i = 0; i < count; ++i)
        m_state.screens.sizes << QSize(widthsAndHeights.at(2 * i), widthsAndHeights.at(2 * i + 1));
}

void ConsoleHardware::setClock(const QString &date, const QString &time, const QDateTime &hostTime)
{
    const QDate enteredDate = QDate::fromString(date, QStringLiteral("yyyy-M-d"));
    const QTime enteredTime = QTime::fromString(time, QStringLiteral("h:m:s"));
    if (!enteredDate.isValid() || !enteredTime.isValid())
        return;
    m_state.clockOffsetMs =
        figures(hostTime.date(), hostTime.time()).msecsTo(figures(enteredDate, enteredTime));
}

void ConsoleHardware::setTimeType(int type)
{
    if (type == 0)
        m_state.timeType = TimeType::Hours24;
    else if (type == 1)
        m_state.timeType = TimeType::Hours12;
}

void ConsoleHardware::goDark(Power power)
{
    m_state.power = power;
    m_entered = {};
    for (NetworkPort &port : m_state.ports)
        port.isUp = false;
}

void ConsoleHardware::switchOn()
{
    m_state.power = Power::On;
    for (NetworkPort &port : m_state.ports)
        port.isUp = true;
}

} // namespace K7Host
