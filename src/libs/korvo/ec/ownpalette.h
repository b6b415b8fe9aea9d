// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

namespace Korvo::EC {

/// Whether the application gives widgets of the class \a className a palette of their own, and so leaves it
/// to them to paint themselves. Where it does not, the style and its sheets have to, as with any other
/// widget.
bool hasOwnPalette(const char *className);

} // namespace Korvo::EC
