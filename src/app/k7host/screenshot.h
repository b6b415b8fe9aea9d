// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <QImage>

#include <optional>

namespace K7Host {

/// Writes \a picture to console.png in the folder \a dir, which is made when it is not there.
std::optional<Fault> saveScreenshot(const QImage &picture, const QString &dir);

} // namespace K7Host
