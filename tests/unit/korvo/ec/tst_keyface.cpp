// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/ec/keyface.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Korvo::EC;

namespace {

const QRgb well = qRgb(0, 0, 40);
const QRgb ground = qRgb(0, 160, 0);
const QRgb rim = qRgb(200, 200, 0);

QImage imageOf(const KeyFace &face)
{
    return face.image().convertToFormat(QImage::Format_ARGB32);
}

/// The first pixel that is not of \a color; null when all are.
QPoint firstOther(const QImage &image, QRgb color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != color)
                return QPoint(x + 1, y + 1);
        }
    }
    return {};
}

bool isOpaque(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 255)
                return false;
        }
    }
    return true;
}

QStringList &loggedMessages()
{
    static QStringList messages;
    return messages;
}

void collectMessages(QtMsgType, const QMessageLogContext &, const QString &message)
{
    loggedMessages() << message;
}

} // namespace

class tst_KeyFace : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aSheetOfOnePictureNamesIt_data();
    void aSheetOfOnePictureNamesIt();
    void aFaceIsOpaque_data();
    void aFaceIsOpaque();
    void aFaceOfNoSizeIsNull();
    void theGroundShinesThroughThePicture();
    void theCapLiesInTheWell();
    void theRimGoesAroundTheCap();
    void aPictureThatCannotBeReadLeavesTheGround_data();
    void aPictureThatCannotBeReadLeavesTheGround();
    void facesThatLookAlikeAreOne();
    void facesThatLookDifferentAreTwo_data();
    void facesThatLookDifferentAreTwo();
    void aPictureIsReadOnceUntilAllAreForgotten();
    void manyFacesDoNotGrowWithoutBound();

private:
    KeyFace plain() const;
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }
    void save(const QColor &left, const QColor &right);

    QScopedPointer<QTemporaryDir> m_dir;
};

void tst_KeyFace::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    KeyFace::forgetAll();
    save(Qt::red, Qt::transparent);
}

KeyFace tst_KeyFace::plain() const
{
    KeyFace face;
    face.picture = path("key.png");
    face.size = QSize(40, 30);
    face.well = well;
    face.ground = ground;
    face.rim = ground;
    return face;
}

void tst_KeyFace::save(const QColor &left, const QColor &right)
{
    QImage picture(40, 30, QImage::Format_ARGB32);
    picture.fill(right);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width() / 2; ++x)
            picture.setPixelColor(x, y, left);
    }
    QVERIFY(picture.save(path("key.png")));
}

void tst_KeyFace::aSheetOfOnePictureNamesIt_data()
{
    QTest::addColumn<QString>("styleSheet");
    QTest::addColumn<bool>("isPicture");
    QTest::addColumn<QString>("file");
    const auto picture = [](const char *name, const char *styleSheet, const char *file) {
        QTest::newRow(name) << QString::fromUtf8(styleSheet) << true << QString::fromUtf8(file);
    };
    const auto other = [](const char *name, const char *styleSheet) {
        QTest::newRow(name) << QString::fromUtf8(styleSheet) << false << QString();
    };
    picture("a file", "border-image:url(\"/a/b.svg\")", "/a/b.svg");
    picture("no file", "border-image:url(\"\")", "");
    picture("a search path", "border-image:url(\"theme:images/key red.svg\")", "theme:images/key red.svg");
    picture("brackets", "border-image:url(\"a(1).png\")", "a(1).png");
    picture("beyond Latin", "border-image:url(\"\xe9\x94\xae.png\")", "\xe9\x94\xae.png");
    other("nothing", "");
    other("half of it", "border-image:url(\"");
    other("no end", "border-image:url(\"a.png");
    other("an end that is the beginning", "border-image:url(\")");
    other("single quotes", "border-image:url('a.png')");
    other("no quotes", "border-image:url(a.png)");
    other("something before it", "color: red; border-image:url(\"a.png\")");
    other("something after it", "border-image:url(\"a.png\"); color: red");
    other("a semicolon", "border-image:url(\"a.png\");");
    other("two pictures", "border-image:url(\"a.png\"); image:url(\"b.png\")");
    other("a rule", "QToolButton { border-image:url(\"a.png\") }");
    other("how it is cut", "border-image:url(\"a.png\") 3 3 3 3");
    other("another picture", "image:url(\"a.png\")");
}

void tst_KeyFace::aSheetOfOnePictureNamesIt()
{
    QFETCH(QString, styleSheet);
    QFETCH(bool, isPicture);
    const auto file = pictureOf(styleSheet);
    QCOMPARE(file.has_value(), isPicture);
    if (isPicture)
        QTEST(*file, "file");
}

void tst_KeyFace::aFaceIsOpaque_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<int>("inset");
    QTest::addColumn<QSize>("pixels");
    QTest::newRow("usual") << QSize(40, 30) << 1.0 << 0 << QSize(40, 30);
    QTest::newRow("inset") << QSize(40, 30) << 1.0 << 6 << QSize(40, 30);
    QTest::newRow("twice as sharp") << QSize(40, 30) << 2.0 << 3 << QSize(80, 60);
    QTest::newRow("odd") << QSize(41, 31) << 1.0 << 3 << QSize(41, 31);
    QTest::newRow("odd, twice as sharp") << QSize(41, 31) << 2.0 << 0 << QSize(82, 62);
    // Every device pixel that the key has a part in.
    QTest::newRow("half as sharp again") << QSize(41, 31) << 1.5 << 0 << QSize(62, 47);
    QTest::newRow("a quarter as sharp again") << QSize(41, 31) << 1.25 << 3 << QSize(52, 39);
    QTest::newRow("smaller than the inset") << QSize(5, 3) << 1.0 << 6 << QSize(5, 3);
    QTest::newRow("one pixel") << QSize(1, 1) << 1.0 << 3 << QSize(1, 1);
    QTest::newRow("smaller than the corners") << QSize(7, 200) << 1.0 << 0 << QSize(7, 200);
}

void tst_KeyFace::aFaceIsOpaque()
{
    QFETCH(QSize, size);
    QFETCH(qreal, ratio);
    QFETCH(int, inset);
    save(QColor(255, 0, 0, 100), Qt::transparent);
    KeyFace face = plain();
    face.size = size;
    face.pixelRatio = ratio;
    face.inset = inset;
    face.rim = rim;
    face.well = qRgba(1, 2, 3, 0); // colours of a palette may be translucent
    QTEST(face.image().size(), "pixels");
    QCOMPARE(face.image().devicePixelRatio(), ratio);
    QVERIFY(isOpaque(imageOf(face)));
}

void tst_KeyFace::aFaceOfNoSizeIsNull()
{
    loggedMessages().clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectMessages);
    KeyFace face = plain();
    for (const QSize &size : {QSize(0, 0), QSize(40, 0), QSize(0, 30), QSize()}) {
        face.size = size;
        if (!face.image().isNull())
            loggedMessages() << QStringLiteral("not null");
    }
    qInstallMessageHandler(previous);
    QCOMPARE(loggedMessages(), QStringList());
}

void tst_KeyFace::theGroundShinesThroughThePicture()
{
    save(QColor(255, 0, 0), QColor(255, 255, 255, 128));
    const QImage image = imageOf(plain());
    QCOMPARE(QColor(image.pixel(10, 15)), QColor(255, 0, 0));
    const QColor through = image.pixel(30, 15);
    QVERIFY2(qAbs(through.red() - 128) < 3 && through.green() > 200 && qAbs(through.blue() - 128) < 3,
             qPrintable(through.name()));
}

void tst_KeyFace::theCapLiesInTheWell()
{
    KeyFace face = plain();
    face.inset = 5;
    const QImage image = imageOf(face);
    const QRect cap = image.rect().adjusted(5, 5, -5, -5);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (!cap.contains(x, y))
                QCOMPARE(QColor(image.pixel(x, y)), QColor(well));
        }
    }
    // The picture is stretched to the cap; where it has nothing, the cap's corners are round.
    QCOMPARE(QColor(image.pixel(cap.topLeft())), QColor(Qt::red));
    QCOMPARE(QColor(image.pixel(19, 15)), QColor(Qt::red));
    QCOMPARE(QColor(image.pixel(20, 15)), QColor(ground));
    QCOMPARE(QColor(image.pixel(cap.right(), 15)), QColor(ground));
    QCOMPARE(QColor(image.pixel(cap.topRight())), QColor(well));

    face.inset = 15;
    QCOMPARE(firstOther(imageOf(face), well), QPoint());
    face.inset = 19;
    QCOMPARE(firstOther(imageOf(face), well), QPoint());
}

void tst_KeyFace::theRimGoesAroundTheCap()
{
    KeyFace face = plain();
    face.picture.clear();
    QCOMPARE(QColor(imageOf(face).pixel(0, 15)), QColor(ground));
    face.rim = rim;
    const QImage image = imageOf(face);
    for (const QPoint &point : {QPoint(0, 15), QPoint(1, 15), QPoint(39, 15), QPoint(38, 15), QPoint(20, 0),
                                QPoint(20, 1), QPoint(20, 29), QPoint(20, 28)})
        QCOMPARE(QColor(image.pixel(point)), QColor(rim));
    for (const QPoint &point : {QPoint(2, 15), QPoint(37, 15), QPoint(20, 2), QPoint(20, 27)})
        QCOMPARE(QColor(image.pixel(point)), QColor(ground));
}

void tst_KeyFace::aPictureThatCannotBeReadLeavesTheGround_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    QTest::newRow("missing") << QStringLiteral("missing.png");
    QTest::newRow("a folder") << QStringLiteral(".");
    QTest::newRow("broken") << QStringLiteral("broken.png");
    QTest::newRow("empty") << QStringLiteral("empty.svg");
    QTest::newRow("no picture") << QStringLiteral("text.svg");
}

void tst_KeyFace::aPictureThatCannotBeReadLeavesTheGround()
{
    QFETCH(QString, name);
    const auto write = [this](const char *file, const QByteArray &content) {
        QFile written(path(file));
        QVERIFY(written.open(QIODevice::WriteOnly));
        QCOMPARE(written.write(content), qint64(content.size()));
    };
    QFile whole(path("key.png"));
    QVERIFY(whole.open(QIODevice::ReadOnly));
    write("broken.png", whole.readAll().left(40));
    write("empty.svg", QByteArray());
    write("text.svg", "no picture at all");

    KeyFace face = plain();
    face.picture = name.isEmpty() ? QString() : m_dir->filePath(name);
    face.ground = well;
    face.rim = well;
    loggedMessages().clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectMessages);
    const QPoint first = firstOther(imageOf(face), well);
    const int messages = loggedMessages().size();
    const QPoint again = firstOther(imageOf(face), well);
    qInstallMessageHandler(previous);
    QCOMPARE(first, QPoint());
    QCOMPARE(again, QPoint());
    QVERIFY2(messages <= 1, qPrintable(loggedMessages().join(QLatin1Char('\n'))));
    QCOMPARE(loggedMessages().size(), messages);
}

void tst_KeyFace::facesThatLookAlikeAreOne()
{
    QCOMPARE(plain().image().cacheKey(), plain().image().cacheKey());
}

void tst_KeyFace::facesThatLookDifferentAreTwo_data()
{
    QTest::addColumn<int>("field");
    const char *const fields[] = {"picture", "width", "height", "sides", "ratio",
                                  "inset",   "well",  "ground", "rim",   "digits"};
    for (int field = 0; field < int(sizeof fields / sizeof *fields); ++field)
        QTest::newRow(fields[field]) << field;
}

void tst_KeyFace::facesThatLookDifferentAreTwo()
{
    QFETCH(int, field);
    KeyFace one = plain();
    KeyFace other = plain();
    switch (field) {
    case 0:
        other.picture = path("missing.png");
        break;
    case 1:
        other.size.rwidth() += 1;
        break;
    case 2:
        other.size.rheight() += 1;
        break;
    case 3:
        other.size.transpose();
        break;
    case 4:
        other.pixelRatio = 1.25;
        break;
    case 5:
        other.inset = 1;
        break;
    case 6:
        other.well = qRgb(0, 0, 41);
        break;
    case 7:
        other.ground = qRgb(0, 0, 41);
        break;
    case 8:
        other.rim = qRgb(0, 0, 41);
        break;
    default: // one number must not run into the next
        one.size = QSize(1, 11);
        other.size = QSize(11, 1);
        break;
    }
    QVERIFY(one.image().cacheKey() != other.image().cacheKey());
}

void tst_KeyFace::aPictureIsReadOnceUntilAllAreForgotten()
{
    QCOMPARE(QColor(imageOf(plain()).pixel(10, 15)), QColor(Qt::red));
    save(Qt::blue, Qt::blue);
    QCOMPARE(QColor(imageOf(plain()).pixel(10, 15)), QColor(Qt::red));
    KeyFace::forgetAll();
    QCOMPARE(QColor(imageOf(plain()).pixel(10, 15)), QColor(Qt::blue));
    QVERIFY(QFile::remove(path("key.png")));
    QCOMPARE(QColor(imageOf(plain()).pixel(10, 15)), QColor(Qt::blue));
    KeyFace::forgetAll();
    QCOMPARE(QColor(imageOf(plain()).pixel(10, 15)), QColor(ground));
}

void tst_KeyFace::manyFacesDoNotGrowWithoutBound()
{
    KeyFace face = plain();
    const qint64 first = plain().image().cacheKey();
    for (int side = 300; side < 330; ++side) { // 12 MB
        face.size = QSize(side, side);
        QVERIFY(!face.image().isNull());
    }
    QVERIFY(plain().image().cacheKey() != first);
    QCOMPARE(QColor(imageOf(plain()).pixel(10, 15)), QColor(Qt::red));

    // One that is larger than all that is kept is painted all the same.
    face.size = QSize(1200, 1200);
    const QImage large = imageOf(face);
    QCOMPARE(QColor(large.pixel(300, 600)), QColor(Qt::red));
}

QTEST_MAIN(tst_KeyFace)

#include "tst_keyface.moc"
