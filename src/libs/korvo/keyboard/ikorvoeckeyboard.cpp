// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "ikorvoeckeyboard.h"

namespace Korvo {

IKorvoECKeyboard::IKorvoECKeyboard(QWidget *parent)
    : QFrame(parent)
{
}

IKorvoECKeyboard::~IKorvoECKeyboard() = default;

} // namespace Korvo
