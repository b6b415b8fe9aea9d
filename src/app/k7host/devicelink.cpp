// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "devicelink.h"

namespace K7Host {

DeviceLink::DeviceLink(QObject *parent)
    : QObject(parent)
{
}

DeviceLink::~DeviceLink() = default;

} // namespace K7Host
