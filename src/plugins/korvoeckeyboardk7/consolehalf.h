// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "guicalls.h"

#include <QObject>

/// What both console halves do alike.
namespace Korvo::ECKeyboard::K7::Internal {

/// Does \a operation to each of \a sections, in the order given, on the GUI thread: by the \a calls of their
/// half. Every section gets every record and decides for itself whether it is its own; what it answers does
/// not matter.
template <typename Operation, typename... Sections>
void handToSections(GuiCalls *calls, const Operation &operation, Sections *...sections)
{
    calls->run([operation, sections...] { (operation(sections), ...); });
}

/// Makes the signals of the key section \a section signals of \a half.
template <typename Section, typename Half>
void relayKeys(const Section *section, const Half *half)
{
    QObject::connect(section, &Section::ecButtonPressed, half, &Half::ecButtonPressed);
    QObject::connect(section, &Section::ecButtonRelease, half, &Half::ecButtonRelease);
}

} // namespace Korvo::ECKeyboard::K7::Internal
