// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "networkaddress.h"

#include <QStringList>

#include <algorithm>

namespace K7Host {

namespace {

constexpr int OctetCount = 4;
constexpr int MaxDigits = 3;

std::optional<quint32> octetFromText(const QString &text)
{
    const auto isDigit = [](QChar character) {
        return character >= QLatin1Char('0') && character <= QLatin1Char('9');
    };
    if (text.isEmpty() || text.size() > MaxDigits || !std::all_of(text.cbegin(), text.cend(), isDigit))
        return {};
    const uint octet = text.toUInt();
    return octet <= 0xff ? std::optional<quint32>(octet) : std::nullopt;
}

} // namespace

std::optional<quint32> addressFromText(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('.'));
    if (parts.size() != OctetCount)
        return {};
    quint32 address = 0;
    for (int i = 0; i < OctetCount; ++i) {
        const auto octet = octetFromText(parts.at(i));
        if (!octet)
            return {};
        address |= *octet << (8 * i);
    }
    return address;
}

QString addressText(quint32 address)
{
    QStringList octets;
    for (int i = 0; i < OctetCount; ++i)
        octets << QString::number((address >> (8 * i)) & 0xff);
    return octets.join(QLatin1Char('.'));
}

} // namespace K7Host
