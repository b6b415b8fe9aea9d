// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/utils/icon.h>

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QTest>

#include <cmath>

using Korvo::Utils::Icon;

namespace {

struct Picture
{
    const char *name;
    QSize size;
};

constexpr QSize squareKey(64, 64);
constexpr QSize pageKey(66, 66);
constexpr QSize doubleKey(136, 65);
constexpr QSize portIcon(16, 16);

const Picture pictures[] = {
    {"ecbutton_red", squareKey},
    {"ecbutton_green", squareKey},
    {"ecbutton_blue", squareKey},
    {"ecbutton_white", squareKey},
    {"ecbutton_yellow", squareKey},
    {"ecbutton_purple", squareKey},
    {"ecbutton_orange", squareKey},
    {"ecbutton_double_width_red", doubleKey},
    {"ecbutton_double_width_green", doubleKey},
    {"ecbutton_black", squareKey},
    {"ecbutton_page_up_red", pageKey},
    {"ecbutton_page_up_green", pageKey},
    {"ecbutton_page_up_blue", pageKey},
    {"ecbutton_page_up_yellow", pageKey},
    {"ecbutton_page_up_white", pageKey},
    {"ecbutton_page_up_black", pageKey},
    {"ecbutton_page_down_red", pageKey},
    {"ecbutton_page_down_green", pageKey},
    {"ecbutton_page_down_blue", pageKey},
    {"ecbutton_page_down_yellow", pageKey},
    {"ecbutton_page_down_black", pageKey},
    {"ecbutton_page_down_white", pageKey},
    {"eth1_online", portIcon},
    {"eth1_offline", portIcon},
    {"eth2_online", portIcon},
    {"eth2_offline", portIcon},
};

QString picturePath(const QString &name)
{
    return Icon::imageFileName(name, QString());
}

QImage picture(const QString &name)
{
    return QPixmap(picturePath(name)).toImage().convertToFormat(QImage::Format_ARGB32);
}

double linear(int channel)
{
    const double value = channel / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) + 0.0722 * linear(color.blue());
}

/// The lowest contrast of \a lettering anywhere on the key picture \a name inside its lit edge.
double worstContrast(const QString &name, const QColor &lettering, const QColor &background)
{
    QImage image(picture(name).size(), QImage::Format_RGB32);
    image.fill(background);
    QPainter(&image).drawImage(0, 0, picture(name));

    QPainterPath face;
    face.addRoundedRect(QRectF(image.rect()).adjusted(5, 5, -5, -5), 6, 6);
    double brightest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (face.contains(QRectF(x, y, 1, 1)))
                brightest = qMax(brightest, luminance(image.pixelColor(x, y)));
        }
    }
    return (luminance(lettering) + 0.05) / (brightest + 0.05);
}

} // namespace

class tst_Pictures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void everyPictureLoadsAtItsNativeSize_data();
    void everyPictureLoadsAtItsNativeSize();
    void noTwoPicturesAreAlike();
    void lettersAreReadableAllOverTheFace_data();
    void lettersAreReadableAllOverTheFace();
    void anIdleKeyIsCalmerThanALitOneAndBrighterThanAnUnlitOne();
};

void tst_Pictures::initTestCase()
{
    const QDir theme(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/korvo/themes/k7"));
    QVERIFY2(theme.exists(), qPrintable(theme.path()));
    Icon::setThemePaths({theme.path()});
}

void tst_Pictures::everyPictureLoadsAtItsNativeSize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("expectedSize");
    for (const Picture &entry : pictures)
        QTest::newRow(entry.name) << QString::fromLatin1(entry.name) << entry.size;
}

void tst_Pictures::everyPictureLoadsAtItsNativeSize()
{
    QFETCH(QString, name);
    QFETCH(QSize, expectedSize);

    QVERIFY(!picturePath(name).isEmpty());
    const QImage image = picture(name);
    QCOMPARE(image.size(), expectedSize);
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            painted += qAlpha(image.pixel(x, y)) > 127 ? 1 : 0;
    }
    QVERIFY2(painted * 3 > image.width() * image.height(), qPrintable(QString::number(painted)));
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0); // round corners, so that no square shows around a key
}

void tst_Pictures::noTwoPicturesAreAlike()
{
    QList<QImage> seen;
    for (const Picture &entry : pictures) {
        const QImage image = picture(QString::fromLatin1(entry.name));
        QVERIFY2(!seen.contains(image), entry.name);
        seen << image;
    }
    QCOMPARE(seen.size(), 26);
}

void tst_Pictures::lettersAreReadableAllOverTheFace_data()
{
    QTest::addColumn<QString>("name");
    for (const Picture &entry : pictures) {
        if (entry.size == squareKey || entry.size == doubleKey)
            QTest::newRow(entry.name) << QString::fromLatin1(entry.name);
    }
}

void tst_Pictures::lettersAreReadableAllOverTheFace()
{
    QFETCH(QString, name);
    const double contrast = worstContrast(name, QColor(0xf4, 0xf6, 0xf9), QColor(0x05, 0x06, 0x07));
    QVERIFY2(contrast >= 7, qPrintable(QString::number(contrast)));
}

void tst_Pictures::anIdleKeyIsCalmerThanALitOneAndBrighterThanAnUnlitOne()
{
    const auto brightness = [](const char *name) {
        const QImage pixel =
            picture(QString::fromLatin1(name)).scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        return pixel.pixelColor(0, 0).value();
    };
    const int idle = brightness("ecbutton_white");
    QVERIFY(brightness("ecbutton_black") + 10 < idle);
    for (const char *lit : {"ecbutton_red", "ecbutton_green", "ecbutton_blue", "ecbutton_yellow",
                            "ecbutton_purple", "ecbutton_orange"})
        QVERIFY2(idle + 10 < brightness(lit), lit);
}

QTEST_MAIN(tst_Pictures)

#include "tst_pictures.moc"
