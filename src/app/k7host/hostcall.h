// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/records.h>

#include <QString>

#include <memory>
#include <optional>
#include <variant>

namespace Korvo {
class IKorvoECKeyboard;
}

namespace K7Host {

struct KeyboardUpdate
{
};
struct IdleLook
{
};

/// What a host asks of a console half: an operation and its record, which may be null and is not changed any
/// more. By kind: updateECButtonColor(), updateECOledText(), updateTBarValue(), updateECDeviceIP(),
/// updateDVISignalStatus(), updatePeripheralVisibleState(), updateKeyboard(), applyNoramlStyleSheet().
using HostCall =
    std::variant<std::shared_ptr<Korvo::ECButtonColor>, std::shared_ptr<Korvo::ECOLEDText>,
                 std::shared_ptr<Korvo::ECTBarValue>, std::shared_ptr<Korvo::ECDeviceIPData>,
                 std::shared_ptr<Korvo::DVIInSignal>, std::shared_ptr<Korvo::PeripheralControlVisibleState>,
                 KeyboardUpdate, IdleLook>;

/// The operation's name, as the interface spells it.
QString operationName(const HostCall &call);

/// A call of the operation of that name with a record of zeros; nothing when there is none.
std::optional<HostCall> callOf(const QString &operation);

/// Every operation's name, in the order of HostCall.
QStringList operationNames();

/// Calls the operation of \a half in this thread. What it returns, if it returns anything.
std::optional<bool> perform(const HostCall &call, Korvo::IKorvoECKeyboard *half);

} // namespace K7Host
