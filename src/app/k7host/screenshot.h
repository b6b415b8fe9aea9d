// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fault.h"

#include <QImage>

#include <optional>

namespace K7Host {

/// Writes \a picture to \a file in the folder \a dir, which is made when it is not there. The kind is that of
/// the file's ending.
std::optional<Fault> saveScreenshot(const QImage &picture, const QString &dir, const QString &file);

} // namespace K7Host
