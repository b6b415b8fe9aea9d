// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "ikorvoeckeyboardplugin.h"

namespace Korvo {

IKorvoECKeyboardPlugin::IKorvoECKeyboardPlugin() = default;

IKorvoECKeyboardPlugin::~IKorvoECKeyboardPlugin() = default;

} // namespace Korvo
