// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/export.h>

#include <QColor>
#include <QString>

namespace Korvo::Constants {

/// Dynamic property that carries the id of a key or of an OLED label; read it with toInt().
inline constexpr char PROPERTY_KORVOECKEY[] = "KorvoECKey";

extern KORVO_KEYBOARD_EXPORT const QColor DEFAULTRGBVALUE;
extern KORVO_KEYBOARD_EXPORT const QColor LAYERDEFAULTCOLOR;
extern KORVO_KEYBOARD_EXPORT const QString LABEL_ADJUST_LENGTH;

/// Display names of the two console halves.
extern KORVO_KEYBOARD_EXPORT const QString EC_KEYBOARD_LEFT_NAME;
extern KORVO_KEYBOARD_EXPORT const QString EC_KEYBOARD_RIGHT_NAME;

} // namespace Korvo::Constants
