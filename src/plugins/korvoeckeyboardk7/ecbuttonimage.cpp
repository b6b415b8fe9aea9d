// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "ecbuttonimage.h"

#include <korvo/keyboard/records.h>

#include <QColor>
#include <QList>
#include <QPair>

#include <algorithm>

namespace Korvo::ECKeyboard {

namespace {

using ColorTable = QList<QPair<QColor, eECButtonImage>>;

eECButtonImage findImage(const ColorTable &table, const ECButtonColor *color, eECButtonImage otherwise)
{
    if (!color)
        return otherwise;

    const QColor wanted(color->R, color->G, color->B);
    const auto match = std::find_if(table.cbegin(), table.cend(),
                                    [&wanted](const auto &entry) { return entry.first == wanted; });
    return match != table.cend() ? match->second : otherwise;
}

} // namespace

QString iconKey(eECButtonImage image)
{
    switch (image) {
    case RedButton:
        return QStringLiteral("ecbutton_red");
    case GreenButton:
        return QStringLiteral("ecbutton_green");
    case BlueButton:
        return QStringLiteral("ecbutton_blue");
    case WhiteButton:
        return QStringLiteral("ecbutton_white");
    case YellowButton:
        return QStringLiteral("ecbutton_yellow");
    case PurpleButton:
        return QStringLiteral("ecbutton_purple");
    case OrangeButton:
        return QStringLiteral("ecbutton_orange");
    case RedDoubleButton:
        return QStringLiteral("ecbutton_double_width_red");
    case GreenDoubleButton:
        return QStringLiteral("ecbutton_double_width_green");
    case BlackButton:
        return QStringLiteral("ecbutton_black");
    case PageUpRedButton:
        return QStringLiteral("ecbutton_page_up_red");
    case PageUpGreenButton:
        return QStringLiteral("ecbutton_page_up_green");
    case PageUpBlueButton:
        return QStringLiteral("ecbutton_page_up_blue");
    case PageUpYellowButton:
        return QStringLiteral("ecbutton_page_up_yellow");
    case PageUpWhiteButton:
        return QStringLiteral("ecbutton_page_up_white");
    case PageUpBlackButton:
        return QStringLiteral("ecbutton_page_up_black");
    case PageDownRedButton:
        return QStringLiteral("ecbutton_page_down_red");
    case PageDownGreenButton:
        return QStringLiteral("ecbutton_page_down_green");
    case PageDownBlueButton:
        return QStringLiteral("ecbutton_page_down_blue");
    case PageDownYellowButton:
        return QStringLiteral("ecbutton_page_down_yellow");
    case PageDownBlackButton:
        return QStringLiteral("ecbutton_page_down_black");
    case PageDownWhiteButton:
        return QStringLiteral("ecbutton_page_down_white");
    case ECButtonImageCNT:
        break;
    }
    return QString();
}

// Black is in the tables as white on purpose. The black and the double-width pictures are never chosen by
// colour, only by who asks for them.

eECButtonImage keyImage(const ECButtonColor *color)
{
    static const ColorTable table{
        {QColor(255, 0, 0), RedButton},      {QColor(0, 255, 0), GreenButton},
        {QColor(0, 0, 255), BlueButton},     {QColor(255, 255, 0), YellowButton},
        {QColor(255, 0, 255), PurpleButton}, {QColor(0, 0, 0), WhiteButton},
        {QColor(255, 72, 0), OrangeButton},
    };
    return findImage(table, color, WhiteButton);
}

eECButtonImage pageUpKeyImage(const ECButtonColor *color)
{
    static const ColorTable table{
        {QColor(255, 0, 0), PageUpRedButton},  {QColor(0, 255, 0), PageUpGreenButton},
        {QColor(0, 0, 255), PageUpBlueButton}, {QColor(255, 255, 0), PageUpYellowButton},
        {QColor(0, 0, 0), PageUpWhiteButton},
    };
    return findImage(table, color, PageUpWhiteButton);
}

eECButtonImage pageDownKeyImage(const ECButtonColor *color)
{
    static const ColorTable table{
        {QColor(255, 0, 0), PageDownRedButton},  {QColor(0, 255, 0), PageDownGreenButton},
        {QColor(0, 0, 255), PageDownBlueButton}, {QColor(255, 255, 0), PageDownYellowButton},
        {QColor(0, 0, 0), PageDownWhiteButton},
    };
    return findImage(table, color, PageDownWhiteButton);
}

} // namespace Korvo::ECKeyboard
