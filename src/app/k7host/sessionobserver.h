// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "scenarioline.h"

namespace K7Host {

/// Watches what passes between a host and its console halves, as it happens.
///
/// Halves are called in any thread, and calls may nest. Signals come on the GUI thread. Nothing is done here.
class SessionObserver
{
public:
    SessionObserver() = default;
    virtual ~SessionObserver() = default;

    /// \a keyboard, the \a half, is about to be called. \a call is at the same address in called().
    virtual void calling(const HostCall &call, Half half, Korvo::IKorvoECKeyboard *keyboard);
    /// It has returned, with \a result if it has one.
    virtual void called(const HostCall &call, Half half, Korvo::IKorvoECKeyboard *keyboard,
                        std::optional<bool> result);
    /// The plug-in emitted a signal, of which nobody else knows yet.
    virtual void emitted(const SignalLine &signal);

private:
    Q_DISABLE_COPY(SessionObserver)
};

} // namespace K7Host
