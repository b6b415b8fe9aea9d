// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Korvo {
struct ECButtonColor;
}

namespace Korvo::ECKeyboard {

/// The pictures of key faces. The page-down pair of black and white is numbered the other way round than
/// the page-up pair, on purpose.
enum eECButtonImage {
    RedButton = 0,
    GreenButton = 1,
    BlueButton = 2,
    WhiteButton = 3,
    YellowButton = 4,
    PurpleButton = 5,
    OrangeButton = 6,
    RedDoubleButton = 7,
    GreenDoubleButton = 8,
    BlackButton = 9,
    PageUpRedButton = 10,
    PageUpGreenButton = 11,
    PageUpBlueButton = 12,
    PageUpYellowButton = 13,
    PageUpWhiteButton = 14,
    PageUpBlackButton = 15,
    PageDownRedButton = 16,
    PageDownGreenButton = 17,
    PageDownBlueButton = 18,
    PageDownYellowButton = 19,
    PageDownBlackButton = 20,
    PageDownWhiteButton = 21,
    ECButtonImageCNT = 22
};

/// The name under which the icon store knows the picture; empty for the count.
QString iconKey(eECButtonImage image);

/// The picture of a key that was reported in a colour. Each kind of key has its own table of colours; what
/// is not in it, black and no record at all are white.
eECButtonImage keyImage(const ECButtonColor *color);
eECButtonImage pageUpKeyImage(const ECButtonColor *color);
eECButtonImage pageDownKeyImage(const ECButtonColor *color);

} // namespace Korvo::ECKeyboard
