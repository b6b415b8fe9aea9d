// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "hardwarestate.h"

#include <QString>

#include <optional>

namespace K7Host {

/// The hardware of a console without its keys: network ports, lamps, peripheral screens, DVI inputs, clock
/// and power. Knows no time: what takes a while is ended by a call.
class ConsoleHardware
{
public:
    /// Both ports are up, with private addresses; DVI input 0 has a signal.
    ConsoleHardware();

    const HardwareState &state() const { return m_state; }

    /// Keeps the addresses for changeAddresses(). Those that are no addresses are refused, and then the ones
    /// kept before are forgotten too. \a interfaceName is "eth2" or "eth0"; others change nothing.
    void enterAddresses(const QString &interfaceName, const QString &ip, const QString &mask,
                        const QString &gateway);
    /// Gives \a port the addresses that were entered for it, and takes its link down until raiseLink(). False
    /// when there are none; then nothing changes.
    bool changeAddresses(std::size_t port);
    void raiseLink(std::size_t port) { m_state.ports.at(port).isUp = true; }

    /// A brightness out of range becomes the nearest one.
    void setLamp(Lamp lamp, bool isOn, int brightness);
    /// \a widthsAndHeights are in turns. Ignored unless there are \a count pairs.
    void setScreens(int count, int operationScreen, const QVector<quint16> &widthsAndHeights);
    /// Puts the clock to \a date (2026-1-31) and \a time (13:5:9) while the host's shows \a hostTime. Ignored
    /// unless both are right.
    void setClock(const QString &date, const QString &time, const QDateTime &hostTime);
    /// 0 is 24 hours, 1 is 12; others are ignored.
    void setTimeType(int type);
    void setDviSignal(std::size_t input, bool hasSignal) { m_state.dviSignals.at(input) = hasSignal; }

    bool isOn() const { return m_state.power == Power::On; }
    /// Takes the links down, and forgets the addresses that were entered only. \a power is not On.
    void goDark(Power power);
    /// Brings the links up.
    void switchOn();

private:
    HardwareState m_state;
    std::array<std::optional<Addresses>, PortCount> m_entered;
};

} // namespace K7Host
