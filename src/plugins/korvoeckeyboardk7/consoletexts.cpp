// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consoletexts.h"

#include <QStringList>
#include <QTime>

namespace Korvo::Internal {

namespace {

constexpr int Octets = 4;

QStringList octetsOf(const QString &address)
{
    QStringList octets = address.split(QLatin1Char('.'));
    octets.removeAll(QString());
    return octets;
}

bool hasAllOctets(const QString &address)
{
    return octetsOf(address).size() == Octets;
}

} // namespace

QString ipv4ToQString(quint32 address)
{
    return QStringLiteral("%1.%2.%3.%4")
        .arg(address & 0xff)
        .arg(address >> 8 & 0xff)
        .arg(address >> 16 & 0xff)
        .arg(address >> 24);
}

QString ipv4GatewayToQString(quint32 address)
{
    return ipv4ToQString(address);
}

quint32 ipv4StringToInt(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != Octets)
        return 0;

    quint32 address = 0;
    for (int i = 0; i < Octets; ++i)
        address |= static_cast<quint32>(parts.at(i).toInt()) << 8 * i;
    return address;
}

bool isGatewayOnNetwork(const QString &ip, const QString &mask, const QString &gateway)
{
    if (!hasAllOctets(ip) || !hasAllOctets(mask) || !hasAllOctets(gateway))
        return false;

    const QStringList ips = octetsOf(ip);
    const QStringList masks = octetsOf(mask);
    const QStringList gateways = octetsOf(gateway);
    for (int i = 0; i < Octets; ++i) {
        const int octetMask = masks.at(i).toInt();
        if ((ips.at(i).toInt() & octetMask) != (gateways.at(i).toInt() & octetMask))
            return false;
    }
    return true;
}

// No network is compared, on purpose: only a text that is no address is refused.
bool isSameNetwork(const QString &ip, const QString &mask, const QString &otherIp, const QString &otherMask)
{
    return !hasAllOctets(ip) || !hasAllOctets(mask) || !hasAllOctets(otherIp) || !hasAllOctets(otherMask);
}

void switchDateFormt(QString &date)
{
    const QStringList parts = date.split(QLatin1Char('/'));
    if (parts.size() == 3)
        date = QStringLiteral("%1-%2-%3").arg(parts.at(2), parts.at(1), parts.at(0));
}

QString clockText(const QTime &time, bool is12Hours)
{
    const bool isLowered = is12Hours && time.hour() > 12;
    const int hour = isLowered ? time.hour() - 12 : time.hour();
    const QLatin1Char zero('0');
    return QStringLiteral("%1:%2:%3")
        .arg(hour)
        .arg(time.minute(), 2, 10, zero)
        .arg(time.second(), 2, 10, zero);
}

} // namespace Korvo::Internal
