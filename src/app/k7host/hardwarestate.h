// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QSize>
#include <QVector>

#include <array>
#include <cstddef>

namespace K7Host {

/// The lamps of the console's desk; the LCD is its screen's own light.
enum class Lamp { Gooseneck, Front, Lcd, Logo };
constexpr std::size_t LampCount = 4;

constexpr std::size_t PortCount = 2;
constexpr std::size_t DviInputCount = 2;

enum class Power { On, Restarting, Off };

enum class TimeType { Hours24, Hours12 };

struct LampLevel
{
    static constexpr int Lowest = 1;
    static constexpr int Highest = 15;

    bool isOn = false;
    int brightness = 10; ///< Lowest to Highest; kept while the lamp is off
};

/// Addresses have their first number in the lowest byte.
struct Addresses
{
    quint32 ip = 0;
    quint32 mask = 0;
    quint32 gateway = 0;
};

inline bool operator==(const Addresses &a, const Addresses &b)
{
    return a.ip == b.ip && a.mask == b.mask && a.gateway == b.gateway;
}

struct NetworkPort
{
    bool isUp = true;
    Addresses addresses;
};

struct PeripheralScreens
{
    QVector<QSize> sizes;     ///< in pixels, one a screen
    int operationScreen = -1; ///< an index of sizes; -1 is none
};

/// What a console's hardware is set to, apart from its keys and labels.
struct HardwareState
{
    std::array<NetworkPort, PortCount> ports;
    std::array<LampLevel, LampCount> lamps; ///< by Lamp
    PeripheralScreens screens;
    std::array<bool, DviInputCount> dviSignals{}; ///< whether there is one
    qint64 clockOffsetMs = 0;                     ///< what the console's clock is ahead of the host's
    TimeType timeType = TimeType::Hours24;
    Power power = Power::On;

    /// What the console's clock shows while the host's shows \a hostTime. Without time zone.
    QDateTime clock(const QDateTime &hostTime) const;
};

} // namespace K7Host
