// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "sessionobserver.h"

namespace K7Host {

void SessionObserver::calling(const HostCall & /*call*/, Half /*half*/,
                              Korvo::IKorvoECKeyboard * /*keyboard*/)
{
}

void SessionObserver::called(const HostCall & /*call*/, Half /*half*/, Korvo::IKorvoECKeyboard * /*keyboard*/,
                             std::optional<bool> /*result*/)
{
}

void SessionObserver::emitted(const SignalLine & /*signal*/) {}

} // namespace K7Host
