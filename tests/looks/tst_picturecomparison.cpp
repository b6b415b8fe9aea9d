// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "picturecomparison.h"

#include <QGuiApplication>
#include <QPainter>
#include <QTest>

namespace {

constexpr QRgb Ground = qRgb(0x10, 0x12, 0x15);
constexpr QRgb Lettering = qRgb(0xdd, 0xe2, 0xe8);
constexpr QRgb Faint = qRgb(0x64, 0x6b, 0x75);

/// Part of a console, as far as a comparison knows it.
struct Desk
{
    QSize size{400, 300};
    QColor key{255, 0, 0};
    QPoint label{120, 40};
    QString text = QStringLiteral("CAM 1");
    QColor textColor = Lettering;
    int brightness = 0;
    int strayPixels = 0;

    QImage picture() const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Ground + QRgb(brightness) * 0x010101);
        QPainter painter(&image);
        painter.fillRect(20, 20, 64, 64, key);
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(11);
        painter.setFont(font);
        painter.setPen(textColor);
        painter.drawText(label, text);
        painter.setPen(Qt::white);
        for (int i = 0; i < strayPixels; ++i)
            painter.drawPoint(10 + 30 * i, 200);
        return image;
    }
};

} // namespace

Q_DECLARE_METATYPE(Desk)

class tst_PictureComparison : public QObject
{
    Q_OBJECT

private slots:
    void changesAreFoundAndRoundingIsNot_data();
    void changesAreFoundAndRoundingIsNot();
    void differenceShowsWhatChanged();
    void differenceShowsAllOfBothSizes();
};

void tst_PictureComparison::changesAreFoundAndRoundingIsNot_data()
{
    QTest::addColumn<Desk>("before");
    QTest::addColumn<Desk>("after");
    QTest::addColumn<bool>("isSame");
    const auto row = [](const char *name, bool isSame, auto change, auto prepare) {
        Desk before;
        prepare(&before);
        Desk after = before;
        change(&after);
        QTest::newRow(name) << before << after << isSame;
    };
    const auto asIs = [](Desk *) {};
    const auto withFaintText = [](Desk *desk) { desk->textColor = Faint; };
    row("the same", true, asIs, asIs);
    row(
        "gradients rounded otherwise", true, [](Desk *desk) { desk->brightness = 8; }, asIs);
    row(
        "another shade of the desk", false, [](Desk *desk) { desk->brightness = 9; }, asIs);
    row(
        "some edges of letters", true, [](Desk *desk) { desk->strayPixels = 8; }, asIs);
    row(
        "more than that", false, [](Desk *desk) { desk->strayPixels = 9; }, asIs);
    row(
        "another key colour", false, [](Desk *desk) { desk->key = QColor(255, 72, 0); }, asIs);
    row(
        "a key colour a little off", false, [](Desk *desk) { desk->key = QColor(246, 0, 0); }, asIs);
    row(
        "a label a pixel to the right", false, [](Desk *desk) { desk->label.rx() += 1; }, asIs);
    row(
        "a label a pixel down", false, [](Desk *desk) { desk->label.ry() += 1; }, asIs);
    row(
        "a faint label a pixel up", false, [](Desk *desk) { desk->label.ry() -= 1; }, withFaintText);
    row(
        "a word for another", false, [](Desk *desk) { desk->text = QStringLiteral("CUE 1"); }, asIs);
    row(
        "a figure for another", false, [](Desk *desk) { desk->text = QStringLiteral("CAM 2"); }, asIs);
    row(
        "a faint figure for another", false, [](Desk *desk) { desk->text = QStringLiteral("CAM 7"); },
        withFaintText);
    row(
        "no label", false, [](Desk *desk) { desk->text.clear(); }, asIs);
    row(
        "higher by a pixel", false, [](Desk *desk) { desk->size.rheight() += 1; }, asIs);
    row(
        "narrower by a pixel", false, [](Desk *desk) { desk->size.rwidth() -= 1; }, asIs);
}

void tst_PictureComparison::changesAreFoundAndRoundingIsNot()
{
    QFETCH(Desk, before);
    QFETCH(Desk, after);

    const PictureComparison comparison = comparePictures(before.picture(), after.picture());
    QTEST(comparison.isSame, "isSame");
    QCOMPARE(comparison.difference.isNull(), comparison.isSame);
}

void tst_PictureComparison::differenceShowsWhatChanged()
{
    Desk after;
    after.key = Qt::green;
    const PictureComparison comparison = comparePictures(Desk().picture(), after.picture());

    QCOMPARE(comparison.count, 64 * 64);
    QCOMPARE(comparison.where, QRect(20, 20, 64, 64));
    QCOMPARE(comparison.difference.pixelColor(50, 50), QColor(Qt::red));
    const QColor elsewhere = comparison.difference.pixelColor(300, 250);
    QCOMPARE(elsewhere.red(), elsewhere.blue());
    QCOMPARE(elsewhere.red(), elsewhere.green());
}

void tst_PictureComparison::differenceShowsAllOfBothSizes()
{
    Desk after;
    after.size = {380, 320};
    const PictureComparison comparison = comparePictures(Desk().picture(), after.picture());

    QCOMPARE(comparison.difference.size(), QSize(400, 320));
    QCOMPARE(comparison.difference.pixelColor(390, 10), QColor(Qt::red));
    QCOMPARE(comparison.difference.pixelColor(10, 310), QColor(Qt::red));
    QCOMPARE(comparison.count, 20 * 300 + 400 * 20);
}

QTEST_MAIN(tst_PictureComparison)

#include "tst_picturecomparison.moc"
