// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QTime;

/// Texts of addresses, dates and times as the settings panel shows and sends them. All functions are pure.
namespace Korvo::Internal {

/// "192.168.1.13" for the number whose bytes are, from the lowest, 192, 168, 1 and 13.
QString ipv4ToQString(quint32 address);
/// The same conversion, for the places where it is called so.
QString ipv4GatewayToQString(quint32 address);

/// The number that ipv4ToQString() writes as \a text; 0 when \a text has not exactly four parts. The parts
/// are not checked for their range: what is above 255 runs into the next octet.
quint32 ipv4StringToInt(const QString &text);

/// Whether \a ip and \a gateway are on the same network by \a mask. False when one of them has not exactly
/// four parts that are not empty.
bool isGatewayOnNetwork(const QString &ip, const QString &mask, const QString &gateway);

/// True when one of the texts is no address of four parts that are not empty; false for four addresses,
/// whatever they are.
bool isSameNetwork(const QString &ip, const QString &mask, const QString &otherIp, const QString &otherMask);

/// Turns day/month/year into year-month-day. A text that has not exactly three parts is left as it is.
void switchDateFormt(QString &date);

/// The time of day as the status strip shows it, "15:04:09" or, with \a is12Hours, "3:04:09". The hour has no
/// leading zero. Hours above 12 only are lowered: noon stays 12, midnight stays 0.
QString clockText(const QTime &time, bool is12Hours);

} // namespace Korvo::Internal
