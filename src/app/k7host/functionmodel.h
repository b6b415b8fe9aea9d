// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "togglekeys.h"

namespace K7Host {

/// The Function section of a video processor: modes that are on or off, and two locks. Its labels take no
/// text.
class FunctionModel
{
public:
    static constexpr quint32 SaveToDeviceKey = 120;
    static constexpr quint32 EditProgramKey = 121;
    static constexpr quint32 MultiviewerKey = 122;
    static constexpr quint32 DownstreamKeyerKey = 123;
    static constexpr quint32 CopyKey = 124;
    static constexpr quint32 MirrorKey = 125;
    static constexpr quint32 SwapKey = 126;
    static constexpr quint32 LockTBarKey = 127;
    static constexpr quint32 LockPanelKey = 128;
    static constexpr quint32 FirstReservedKey = 129;
    static constexpr quint32 LastReservedKey = 131;

    FunctionModel();

    /// COPY, MIRROR and SWAP exclude one another; the reserved keys do nothing.
    void press(quint32 key) { m_toggles.press(key); }

    bool isTBarLocked() const { return m_toggles.isOn(LockTBarKey); }
    bool isPanelLocked() const { return m_toggles.isOn(LockPanelKey); }

    KeyColors keyColors() const;

private:
    ToggleKeys m_toggles;
};

} // namespace K7Host
