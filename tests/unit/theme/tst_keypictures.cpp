// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "colorsight.h"

#include <ecbuttonimage.h>

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QTest>

#include <algorithm>
#include <functional>
#include <numeric>

using namespace Korvo::ECKeyboard;
using ColorSight::Vision;

namespace {

const QLatin1String DarkTheme("k7");
const QLatin1String LightTheme("k7-light");

constexpr QSize SquareKey(64, 64);
constexpr QSize PageKey(66, 66);
constexpr QSize DoubleKey(136, 65);

const QLatin1String Square("ecbutton_");
const QLatin1String DoubleWidth("ecbutton_double_width_");
const QLatin1String PageUp("ecbutton_page_up_");
const QLatin1String PageDown("ecbutton_page_down_");

// As the style sheets have them.
constexpr QRgb Lettering = 0xfff4f6f9;
constexpr QRgb KeyAtRest = 0xff050607;
constexpr QRgb KeyPressed = 0xff9aa1ab;

using Mask = QVector<bool>;

QStringList iconKeys()
{
    QStringList keys;
    for (int image = 0; image < ECButtonImageCNT; ++image)
        keys << iconKey(static_cast<eECButtonImage>(image));
    return keys;
}

bool isPage(const QString &name)
{
    return name.startsWith(PageUp) || name.startsWith(PageDown);
}

QSize nativeSize(const QString &name)
{
    if (name.startsWith(DoubleWidth))
        return DoubleKey;
    return isPage(name) ? PageKey : SquareKey;
}

QStringList colorsOf(const QString &kind)
{
    if (kind == DoubleWidth)
        return {QStringLiteral("red"), QStringLiteral("green")};
    QStringList colors{QStringLiteral("red"),    QStringLiteral("green"), QStringLiteral("blue"),
                       QStringLiteral("yellow"), QStringLiteral("white"), QStringLiteral("black")};
    if (kind == Square)
        colors << QStringLiteral("purple") << QStringLiteral("orange");
    return colors;
}

/// "red" of "ecbutton_page_up_red".
QString colorOf(const QString &name)
{
    return name.mid(name.lastIndexOf(QLatin1Char('_')) + 1);
}

QString folder(const QString &theme)
{
    return QStringLiteral(K7_THEMES "/%1/images").arg(theme);
}

QPixmap picture(const QString &theme, const QString &name)
{
    return QPixmap(QStringLiteral("%1/%2.svg").arg(folder(theme), name));
}

/// As a border image is painted: the whole picture, stretched to the key.
QImage keyFace(const QPixmap &picture, QSize size, QRgb background)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(background);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(image.rect(), picture);
    return image;
}

QImage keyFace(const QString &theme, const QString &name, QSize size = QSize(), QRgb background = KeyAtRest)
{
    return keyFace(picture(theme, name), size.isValid() ? size : nativeSize(name), background);
}

/// Where lettering may stand: as wide as the rims and the broadest edge leave, as high as three lines of 13
/// px, the most that a key has. Stretched with the picture.
QRect letteringArea(QSize native, QSize size)
{
    const int x = 6 * size.width() / native.width();
    const int y = 12 * size.height() / native.height();
    return QRect(QPoint(0, 0), size).adjusted(x, y, -x, -y);
}

/// The pixels in which the two pictures differ.
QRect difference(const QImage &one, const QImage &other)
{
    QRect box;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y))
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

/// Where the arrows of page keys are: all that an up and a down picture differ in. Empty on other keys.
QRect arrowBox(const QString &theme, const QString &name)
{
    if (!isPage(name))
        return QRect();
    const QString color = colorOf(name);
    return difference(keyFace(theme, PageUp + color), keyFace(theme, PageDown + color));
}

/// The lowest contrast of \a ink anywhere in \a area outside \a hole.
double worstContrast(const QImage &face, const QColor &ink, const QRect &area, const QRect &hole)
{
    double worst = 21;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (!hole.contains(x, y))
                worst = qMin(worst, ColorSight::contrast(ink, face.pixelColor(x, y)));
        }
    }
    return worst;
}

/// The edge where it is the key's colour and nothing else: full pixels in the middle of its upper run.
QColor edgeColor(const QImage &face)
{
    return face.pixelColor(face.width() / 2, 3);
}

QColor capColor(const QImage &face)
{
    return face.pixelColor(face.width() / 2, 12);
}

QColor arrowColor(const QImage &face, const QRect &box)
{
    QColor brightest = Qt::black;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        const QColor color = face.pixelColor(face.width() / 2, y);
        if (ColorSight::lightness(color) > ColorSight::lightness(brightest))
            brightest = color;
    }
    return brightest;
}

/// What is bright on a grey photograph of \a face in \a area, whatever its colours: nearer to \a bright than
/// to \a dark.
Mask brightPixels(const QImage &face, const QRect &area, const QColor &bright, const QColor &dark)
{
    const double limit = (ColorSight::lightness(bright) + ColorSight::lightness(dark)) / 2;
    Mask mask;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            mask << (ColorSight::lightness(face.pixelColor(x, y)) > limit);
    }
    return mask;
}

/// The lit edge as a shape.
Mask edgeShape(const QString &theme, const QString &name)
{
    const QImage face = keyFace(theme, name);
    return brightPixels(face, face.rect(), edgeColor(face), capColor(face));
}

/// In percent of all pixels.
double share(const Mask &one, const Mask &other)
{
    const int differing = std::inner_product(one.cbegin(), one.cend(), other.cbegin(), 0, std::plus<int>(),
                                             [](bool a, bool b) { return a != b ? 1 : 0; });
    return 100.0 * differing / one.size();
}

double share(const Mask &mask)
{
    return share(mask, Mask(mask.size(), false));
}

QByteArray rowName(const QString &theme, const QString &rest)
{
    return QStringLiteral("%1 %2").arg(theme, rest).toLatin1();
}

} // namespace

class tst_KeyPictures : public QObject
{
    Q_OBJECT

private slots:
    void aThemeHasTheKeyPicturesAndNoOthers_data() { addThemes(); }
    void aThemeHasTheKeyPicturesAndNoOthers();
    void aPictureHasItsNativeSizeAndLooksLikeNoOther_data() { addPictures(); }
    void aPictureHasItsNativeSizeAndLooksLikeNoOther();
    void theKeysBackgroundShowsThroughTheCapAndAroundIt_data() { addPictures(); }
    void theKeysBackgroundShowsThroughTheCapAndAroundIt();
    void letteringIsReadable_data();
    void letteringIsReadable();
    void anEdgeHasTheColorOfItsName_data() { addPictures(); }
    void anEdgeHasTheColorOfItsName();
    void anEdgeStandsOutFromItsCap_data() { addPictures(); }
    void anEdgeStandsOutFromItsCap();
    void edgesAreStrongerInDaylight_data();
    void edgesAreStrongerInDaylight();
    void anIdleKeyIsCalmerThanALitOneAndBrighterThanAnUnlitOne_data() { addThemes(); }
    void anIdleKeyIsCalmerThanALitOneAndBrighterThanAnUnlitOne();
    void colorsAreToldApart_data();
    void colorsAreToldApart();
    void redAndGreenAreToldApartWithoutColor_data();
    void redAndGreenAreToldApartWithoutColor();
    void anArrowIsClear_data();
    void anArrowIsClear();
    void arrowsPointUpAndDown_data();
    void arrowsPointUpAndDown();

private:
    void addThemes();
    void addPictures();
    void addKinds(const QStringList &kinds);
};

void tst_KeyPictures::addThemes()
{
    QTest::addColumn<QString>("theme");
    for (const auto theme : {DarkTheme, LightTheme})
        QTest::newRow(theme.latin1()) << QString(theme);
}

void tst_KeyPictures::addPictures()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("name");
    const QStringList names = iconKeys();
    for (const auto theme : {DarkTheme, LightTheme}) {
        for (const QString &name : names)
            QTest::newRow(rowName(theme, name)) << QString(theme) << name;
    }
}

void tst_KeyPictures::addKinds(const QStringList &kinds)
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("kind");
    for (const auto theme : {DarkTheme, LightTheme}) {
        for (const QString &kind : kinds)
            QTest::newRow(rowName(theme, kind)) << QString(theme) << kind;
    }
}

void tst_KeyPictures::aThemeHasTheKeyPicturesAndNoOthers()
{
    QFETCH(QString, theme);
    QStringList expected;
    const QStringList names = iconKeys();
    for (const QString &name : names)
        expected << name + QStringLiteral(".svg");
    expected.sort();

    QCOMPARE(expected.size(), 22);
    QCOMPARE(QDir(folder(theme)).entryList({QStringLiteral("ecbutton*")}, QDir::Files, QDir::Name), expected);
}

void tst_KeyPictures::aPictureHasItsNativeSizeAndLooksLikeNoOther()
{
    QFETCH(QString, theme);
    QFETCH(QString, name);
    QCOMPARE(picture(theme, name).size(), nativeSize(name));

    const QImage face = keyFace(theme, name);
    const QStringList names = iconKeys();
    const auto isAlike = [&](const QString &other) { return keyFace(theme, other) == face; };
    QCOMPARE(std::count_if(names.cbegin(), names.cend(), isAlike), 1);
}

void tst_KeyPictures::theKeysBackgroundShowsThroughTheCapAndAroundIt()
{
    QFETCH(QString, theme);
    QFETCH(QString, name);
    const QImage image = picture(theme, name).toImage().convertToFormat(QImage::Format_ARGB32);
    const auto alpha = [&](int x, int y) { return qAlpha(image.pixel(x, y)); };
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;

    for (const int rim : {0, 1}) { // the focus and a check mark are seen here
        for (int x = 0; x <= right; ++x)
            QCOMPARE(qMakePair(alpha(x, rim), alpha(x, bottom - rim)), qMakePair(0, 0));
        for (int y = 0; y <= bottom; ++y)
            QCOMPARE(qMakePair(alpha(rim, y), alpha(right - rim, y)), qMakePair(0, 0));
    }
    QCOMPARE(alpha(3, 3), alpha(right - 3, 3)); // round corners
    QVERIFY(alpha(2, 2) < 128);

    const int cap = alpha(image.width() / 2, 15);
    QVERIFY2(cap > 200 && cap < 240, qPrintable(QString::number(cap)));
}

void tst_KeyPictures::letteringIsReadable_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");

    // The keys on which the forms put square pictures: number and function keys, the commands beside the
    // screens, Enter, Cut and Take.
    const QList<QSize> squareSizes{SquareKey, PageKey, QSize(126, 56), DoubleKey, QSize(138, 73)};
    const QStringList names = iconKeys();
    for (const auto theme : {DarkTheme, LightTheme}) {
        for (const QString &name : names) {
            const QSize native = nativeSize(name);
            const QList<QSize> sizes = native == SquareKey ? squareSizes : QList<QSize>{native};
            for (const QSize &size : sizes) {
                const QString rest =
                    QStringLiteral("%1 %2x%3").arg(name).arg(size.width()).arg(size.height());
                QTest::newRow(rowName(theme, rest)) << QString(theme) << name << size;
            }
        }
    }
}

void tst_KeyPictures::letteringIsReadable()
{
    QFETCH(QString, theme);
    QFETCH(QString, name);
    QFETCH(QSize, size);

    // On page keys the arrow stands for lettering, which could only be around it.
    const QRect area = letteringArea(nativeSize(name), size);
    const QRect arrow = arrowBox(theme, name);
    QCOMPARE(arrow.isValid(), isPage(name));
    QVERIFY(!arrow.contains(area));

    const double atRest = worstContrast(keyFace(theme, name, size), QColor(Lettering), area, arrow);
    const double pressed =
        worstContrast(keyFace(theme, name, size, KeyPressed), QColor(Lettering), area, arrow);
    QVERIFY2(atRest >= 7, qPrintable(QString::number(atRest)));
    QVERIFY2(pressed >= 4.5, qPrintable(QString::number(pressed)));
}

void tst_KeyPictures::anEdgeHasTheColorOfItsName()
{
    QFETCH(QString, theme);
    QFETCH(QString, name);
    static const QMap<QString, QPair<int, int>> hues{
        {QStringLiteral("red"), {0, 10}},     {QStringLiteral("orange"), {25, 38}},
        {QStringLiteral("yellow"), {48, 60}}, {QStringLiteral("green"), {110, 140}},
        {QStringLiteral("blue"), {205, 230}}, {QStringLiteral("purple"), {270, 300}},
    };
    const QColor edge = edgeColor(keyFace(theme, name));
    const QString color = colorOf(name);
    const QByteArray seen = edge.name().toLatin1();

    if (hues.contains(color)) {
        const QPair<int, int> hue = hues.value(color);
        QVERIFY2(edge.hsvHue() >= hue.first && edge.hsvHue() <= hue.second, seen);
        QVERIFY2(edge.hsvSaturationF() > 0.35, seen);
        QVERIFY2(edge.valueF() > 0.8, seen);
    } else {
        QVERIFY2(edge.hsvSaturationF() < 0.25, seen);
        QCOMPARE(edge.valueF() < 0.35, color == QLatin1String("black"));
    }
}

void tst_KeyPictures::anEdgeStandsOutFromItsCap()
{
    QFETCH(QString, theme);
    QFETCH(QString, name);
    if (name.endsWith(QLatin1String("black")))
        return; // is meant to be hardly there
    const QImage face = keyFace(theme, name);
    const double contrast = ColorSight::contrast(edgeColor(face), capColor(face));
    QVERIFY2(contrast >= 3, qPrintable(QString::number(contrast)));
}

void tst_KeyPictures::edgesAreStrongerInDaylight_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names = iconKeys();
    for (const QString &name : names)
        QTest::newRow(name.toLatin1()) << name;
}

void tst_KeyPictures::edgesAreStrongerInDaylight()
{
    QFETCH(QString, name);
    QVERIFY(ColorSight::luminance(edgeColor(keyFace(LightTheme, name))) >
            ColorSight::luminance(edgeColor(keyFace(DarkTheme, name))));
    QVERIFY(share(edgeShape(LightTheme, name)) > share(edgeShape(DarkTheme, name)));
}

void tst_KeyPictures::anIdleKeyIsCalmerThanALitOneAndBrighterThanAnUnlitOne()
{
    QFETCH(QString, theme);
    const auto brightness = [&theme](const QString &color) {
        const QImage pixel =
            keyFace(theme, Square + color).scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        return pixel.pixelColor(0, 0).value();
    };
    const int idle = brightness(QLatin1String("white"));
    QVERIFY(brightness(QLatin1String("black")) + 10 < idle);
    const QStringList colors = colorsOf(Square);
    for (const QString &color : colors) {
        if (color != QLatin1String("white") && color != QLatin1String("black"))
            QVERIFY2(idle + 10 < brightness(color), qPrintable(color));
    }
}

void tst_KeyPictures::colorsAreToldApart_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("vision");
    const QList<QPair<QString, Vision>> visions{{QStringLiteral("everybody"), Vision::Normal},
                                                {QStringLiteral("protanopia"), Vision::Protanopia},
                                                {QStringLiteral("deuteranopia"), Vision::Deuteranopia}};
    for (const auto theme : {DarkTheme, LightTheme}) {
        for (const auto kind : {Square, DoubleWidth, PageUp, PageDown}) {
            for (const auto &vision : visions) {
                QTest::newRow(rowName(theme, QStringLiteral("%1 %2").arg(kind, vision.first)))
                    << QString(theme) << QString(kind) << int(vision.second);
            }
        }
    }
}

void tst_KeyPictures::colorsAreToldApart()
{
    QFETCH(QString, theme);
    QFETCH(QString, kind);
    QFETCH(int, vision);

    const QStringList colors = colorsOf(kind);
    double nearest = 1000;
    QString pair;
    for (const QString &one : colors) {
        for (const QString &other : colors) {
            if (one <= other)
                continue;
            const double distance =
                ColorSight::distance(edgeColor(keyFace(theme, kind + one)),
                                     edgeColor(keyFace(theme, kind + other)), static_cast<Vision>(vision));
            if (distance < nearest) {
                nearest = distance;
                pair = one + QLatin1Char(' ') + other;
            }
        }
    }
    QVERIFY2(nearest >= 15, qPrintable(QStringLiteral("%1 %2").arg(pair).arg(nearest)));
}

void tst_KeyPictures::redAndGreenAreToldApartWithoutColor_data()
{
    addKinds({Square, DoubleWidth, PageUp, PageDown});
}

void tst_KeyPictures::redAndGreenAreToldApartWithoutColor()
{
    QFETCH(QString, theme);
    QFETCH(QString, kind);
    const Mask red = edgeShape(theme, kind + QLatin1String("red"));
    const Mask green = edgeShape(theme, kind + QLatin1String("green"));
    QVERIFY2(share(red, green) >= 8, qPrintable(QString::number(share(red, green))));

    const QStringList colors = colorsOf(kind);
    for (const QString &color : colors) {
        if (color == QLatin1String("red") || color == QLatin1String("green"))
            continue;
        const Mask plain = edgeShape(theme, kind + color);
        QVERIFY2(share(red, plain) >= 8, qPrintable(color));
        QVERIFY2(share(green, plain) >= 2, qPrintable(color));
    }
}

void tst_KeyPictures::anArrowIsClear_data()
{
    addKinds({PageUp, PageDown});
}

void tst_KeyPictures::anArrowIsClear()
{
    QFETCH(QString, theme);
    QFETCH(QString, kind);
    double unlit = 0;
    const QStringList colors = colorsOf(kind);
    for (const QString &color : colors) {
        const QImage face = keyFace(theme, kind + color);
        const QRect box = arrowBox(theme, kind + color);
        const QColor arrow = arrowColor(face, box);
        const double contrast = worstContrast(face, arrow, letteringArea(PageKey, PageKey), box);
        QVERIFY2(contrast >= 4.5, qPrintable(QStringLiteral("%1 %2").arg(color).arg(contrast)));
        if (color == QLatin1String("black"))
            unlit = ColorSight::lightness(arrow);
    }
    const QString white = kind + QLatin1String("white");
    const QImage idle = keyFace(theme, white);
    QVERIFY(ColorSight::lightness(arrowColor(idle, arrowBox(theme, white))) > unlit + 20);
}

void tst_KeyPictures::arrowsPointUpAndDown_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QString>("color");
    const QStringList colors = colorsOf(PageUp);
    for (const auto theme : {DarkTheme, LightTheme}) {
        for (const QString &color : colors)
            QTest::newRow(rowName(theme, color)) << QString(theme) << color;
    }
}

void tst_KeyPictures::arrowsPointUpAndDown()
{
    QFETCH(QString, theme);
    QFETCH(QString, color);
    const QRect box = arrowBox(theme, PageUp + color);
    const auto shape = [&box](const QImage &face) {
        return brightPixels(face, box, arrowColor(face, box), capColor(face));
    };
    const QImage up = keyFace(theme, PageUp + color);
    const Mask upShape = shape(up);
    const Mask downShape = shape(keyFace(theme, PageDown + color).mirrored(false, true));
    const Mask leftShape = shape(up.mirrored(true, false));
    // Half-covered pixels may fall on either side, for the cap fades downward. A pixel's shift would be 10 %.
    QVERIFY2(share(downShape, upShape) < 4, qPrintable(QString::number(share(downShape, upShape))));
    QVERIFY2(share(leftShape, upShape) < 4, qPrintable(QString::number(share(leftShape, upShape))));

    const auto width = [&](int row) { return upShape.mid(row * box.width(), box.width()).count(true); };
    const int middle = box.width() / 2;
    QVERIFY(width(2) > 0 && width(2) < box.width() / 3); // the tip
    QVERIFY(upShape.at(2 * box.width() + middle));
    QVERIFY(!upShape.at((box.height() - 3) * box.width() + middle));
}

QTEST_MAIN(tst_KeyPictures)

#include "tst_keypictures.moc"
