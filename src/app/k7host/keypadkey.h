// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/ec/k7dropbutton.h>

namespace K7Host {

/// A key of the keypad. A class of its own for the style sheet: a rule that went by a property would be tried
/// on all keys of the console. GUI thread only.
class KeypadKey : public Korvo::EC::K7DropButton
{
    Q_OBJECT

public:
    using K7DropButton::K7DropButton;
};

} // namespace K7Host
