// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace Korvo {

/// The colour of one key, or of all keys of the sections that know the broadcast key 255.
struct ECButtonColor
{
    quint32 ButtonKey = 0; ///< key id, without the offset of key codes; 255 is every key
    quint16 ECKey = 0;
    quint8 ButtonState = 0;
    quint8 R = 0;
    quint8 G = 0;
    quint8 B = 0;
    quint8 brightness = 0;
};

/// The text of one OLED label.
struct ECOLEDText
{
    quint32 OledKey = 0; ///< label id
    quint16 ECKey = 0;
    char OledText[32] = {}; ///< UTF-8, ends at the first zero byte or after 32 bytes
};

/// The position of the T-bar.
struct ECTBarValue
{
    quint32 Value = 0;        ///< twelfths of a percent, 0 to 1200
    quint8 IsBottomToTop = 0; ///< non-zero while the lever travels from bottom to top
};

/// The address of one network port. Addresses carry their first dotted octet in the lowest byte.
struct ECDeviceIPData
{
    quint8 Index = 0;
    quint8 Status = 0; ///< 0 is offline
    quint32 IP = 0;
    quint32 Mask = 0;
    quint32 Gateway = 0;
};

/// The state of one DVI input.
struct DVIInSignal
{
    quint8 Index = 0;
    quint8 Signal = 0;
};

/// Whether the console offers its peripheral-screen settings.
struct PeripheralControlVisibleState
{
    quint8 visible = 0;
};

/// What IKorvoECKeyboard::signalRestartControlEvent() asks for; sent as quint8.
enum eECRestartType { Restart = 0, Shutdown = 1 };

} // namespace Korvo
