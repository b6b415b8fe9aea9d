// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "ecbuttonimage.h"

#include <korvo/keyboard/records.h>

#include <QTest>

using namespace Korvo;
using namespace Korvo::ECKeyboard;

class tst_ECButtonImage : public QObject
{
    Q_OBJECT

private slots:
    void everyPictureHasItsNumberAndIconKey_data();
    void everyPictureHasItsNumberAndIconKey();
    void theCountHasNoIconKey();
    void colorsChooseThePicture_data();
    void colorsChooseThePicture();
    void noRecordIsAnIdleKey();
    void onlyTheColorMatters();
};

void tst_ECButtonImage::everyPictureHasItsNumberAndIconKey_data()
{
    QTest::addColumn<int>("image");
    QTest::addColumn<int>("expectedNumber");
    QTest::addColumn<QString>("expectedIconKey");

    QTest::newRow("RedButton") << int(RedButton) << 0 << QStringLiteral("ecbutton_red");
    QTest::newRow("GreenButton") << int(GreenButton) << 1 << QStringLiteral("ecbutton_green");
    QTest::newRow("BlueButton") << int(BlueButton) << 2 << QStringLiteral("ecbutton_blue");
    QTest::newRow("WhiteButton") << int(WhiteButton) << 3 << QStringLiteral("ecbutton_white");
    QTest::newRow("YellowButton") << int(YellowButton) << 4 << QStringLiteral("ecbutton_yellow");
    QTest::newRow("PurpleButton") << int(PurpleButton) << 5 << QStringLiteral("ecbutton_purple");
    QTest::newRow("OrangeButton") << int(OrangeButton) << 6 << QStringLiteral("ecbutton_orange");
    QTest::newRow("RedDoubleButton") << int(RedDoubleButton) << 7
                                     << QStringLiteral("ecbutton_double_width_red");
    QTest::newRow("GreenDoubleButton")
        << int(GreenDoubleButton) << 8 << QStringLiteral("ecbutton_double_width_green");
    QTest::newRow("BlackButton") << int(BlackButton) << 9 << QStringLiteral("ecbutton_black");
    QTest::newRow("PageUpRedButton") << int(PageUpRedButton) << 10 << QStringLiteral("ecbutton_page_up_red");
    QTest::newRow("PageUpGreenButton")
        << int(PageUpGreenButton) << 11 << QStringLiteral("ecbutton_page_up_green");
    QTest::newRow("PageUpBlueButton")
        << int(PageUpBlueButton) << 12 << QStringLiteral("ecbutton_page_up_blue");
    QTest::newRow("PageUpYellowButton")
        << int(PageUpYellowButton) << 13 << QStringLiteral("ecbutton_page_up_yellow");
    QTest::newRow("PageUpWhiteButton")
        << int(PageUpWhiteButton) << 14 << QStringLiteral("ecbutton_page_up_white");
    QTest::newRow("PageUpBlackButton")
        << int(PageUpBlackButton) << 15 << QStringLiteral("ecbutton_page_up_black");
    QTest::newRow("PageDownRedButton")
        << int(PageDownRedButton) << 16 << QStringLiteral("ecbutton_page_down_red");
    QTest::newRow("PageDownGreenButton")
        << int(PageDownGreenButton) << 17 << QStringLiteral("ecbutton_page_down_green");
    QTest::newRow("PageDownBlueButton")
        << int(PageDownBlueButton) << 18 << QStringLiteral("ecbutton_page_down_blue");
    QTest::newRow("PageDownYellowButton")
        << int(PageDownYellowButton) << 19 << QStringLiteral("ecbutton_page_down_yellow");
    QTest::newRow("PageDownBlackButton")
        << int(PageDownBlackButton) << 20 << QStringLiteral("ecbutton_page_down_black");
    QTest::newRow("PageDownWhiteButton")
        << int(PageDownWhiteButton) << 21 << QStringLiteral("ecbutton_page_down_white");
}

void tst_ECButtonImage::everyPictureHasItsNumberAndIconKey()
{
    QFETCH(int, image);
    QFETCH(int, expectedNumber);
    QFETCH(QString, expectedIconKey);
    QCOMPARE(image, expectedNumber);
    QCOMPARE(iconKey(static_cast<eECButtonImage>(image)), expectedIconKey);
}

void tst_ECButtonImage::theCountHasNoIconKey()
{
    QCOMPARE(int(ECButtonImageCNT), 22);
    QCOMPARE(iconKey(ECButtonImageCNT), QString());
}

void tst_ECButtonImage::colorsChooseThePicture_data()
{
    QTest::addColumn<int>("red");
    QTest::addColumn<int>("green");
    QTest::addColumn<int>("blue");
    QTest::addColumn<int>("expectedOrdinary");
    QTest::addColumn<int>("expectedPageUp");
    QTest::addColumn<int>("expectedPageDown");

    const auto row = [](const char *name, int red, int green, int blue, eECButtonImage ordinary,
                        eECButtonImage pageUp, eECButtonImage pageDown) {
        QTest::newRow(name) << red << green << blue << int(ordinary) << int(pageUp) << int(pageDown);
    };
    row("red", 255, 0, 0, RedButton, PageUpRedButton, PageDownRedButton);
    row("green", 0, 255, 0, GreenButton, PageUpGreenButton, PageDownGreenButton);
    row("blue", 0, 0, 255, BlueButton, PageUpBlueButton, PageDownBlueButton);
    row("yellow", 255, 255, 0, YellowButton, PageUpYellowButton, PageDownYellowButton);
    row("purple", 255, 0, 255, PurpleButton, PageUpWhiteButton, PageDownWhiteButton);
    row("black", 0, 0, 0, WhiteButton, PageUpWhiteButton, PageDownWhiteButton);
    row("orange", 255, 72, 0, OrangeButton, PageUpWhiteButton, PageDownWhiteButton);
    row("nearly red", 254, 0, 0, WhiteButton, PageUpWhiteButton, PageDownWhiteButton);
    row("nearly orange", 255, 71, 0, WhiteButton, PageUpWhiteButton, PageDownWhiteButton);
    row("nearly black", 0, 0, 1, WhiteButton, PageUpWhiteButton, PageDownWhiteButton);
    row("white", 255, 255, 255, WhiteButton, PageUpWhiteButton, PageDownWhiteButton);
    row("cyan", 0, 255, 255, WhiteButton, PageUpWhiteButton, PageDownWhiteButton);
    row("the default grey", 50, 50, 50, WhiteButton, PageUpWhiteButton, PageDownWhiteButton);
}

void tst_ECButtonImage::colorsChooseThePicture()
{
    QFETCH(int, red);
    QFETCH(int, green);
    QFETCH(int, blue);
    QFETCH(int, expectedOrdinary);
    QFETCH(int, expectedPageUp);
    QFETCH(int, expectedPageDown);

    ECButtonColor color;
    color.R = quint8(red);
    color.G = quint8(green);
    color.B = quint8(blue);
    QCOMPARE(int(keyImage(&color)), expectedOrdinary);
    QCOMPARE(int(pageUpKeyImage(&color)), expectedPageUp);
    QCOMPARE(int(pageDownKeyImage(&color)), expectedPageDown);
}

void tst_ECButtonImage::noRecordIsAnIdleKey()
{
    QCOMPARE(keyImage(nullptr), WhiteButton);
    QCOMPARE(pageUpKeyImage(nullptr), PageUpWhiteButton);
    QCOMPARE(pageDownKeyImage(nullptr), PageDownWhiteButton);
}

void tst_ECButtonImage::onlyTheColorMatters()
{
    ECButtonColor color;
    color.R = 255;
    color.ButtonKey = 0xffffffff;
    color.ECKey = 0xffff;
    color.ButtonState = 255;
    color.brightness = 255;
    QCOMPARE(keyImage(&color), RedButton);
}

QTEST_APPLESS_MAIN(tst_ECButtonImage)

#include "tst_ecbuttonimage.moc"
