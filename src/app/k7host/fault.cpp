// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fault.h"

#include <cstdio>

namespace K7Host {

void complain(const QString &text)
{
    std::fprintf(stderr, "k7host: %s\n", qPrintable(text.simplified()));
}

int report(const Fault &fault)
{
    complain(fault.text);
    return fault.exitCode;
}

} // namespace K7Host
