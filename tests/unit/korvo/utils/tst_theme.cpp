// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/utils/icon.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QRegularExpression>
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

/// Of every type: an unknown property is a debug message only.
QStringList &loggedRemarks()
{
    static QStringList remarks;
    return remarks;
}

void collectRemarks(QtMsgType, const QMessageLogContext &, const QString &message)
{
    // The platform plug-in's own remarks have nothing to do with the theme.
    if (!message.contains(QLatin1String("propagateSizeHints")))
        loggedRemarks() << message;
}

/// What Qt says when a label is shown under \a styleSheet.
QStringList remarksOn(const QString &styleSheet)
{
    loggedRemarks().clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectRemarks);
    qApp->setStyleSheet(styleSheet);
    QLabel(QStringLiteral("INPUT")).grab();
    qApp->setStyleSheet(QString());
    qInstallMessageHandler(previous);
    return loggedRemarks();
}

} // namespace

class tst_Theme : public QObject
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
    void theStyleSheetHasNoErrors();
    void errorsInAStyleSheetAreSeen_data();
    void errorsInAStyleSheetAreSeen();
    void theStyleSheetRefersOnlyToPicturesThatExist();
    void framesKeepTheirExactSizes();

private:
    QString m_styleSheet;
};

void tst_Theme::initTestCase()
{
    const QDir theme(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/korvo/themes/k7"));
    QVERIFY2(theme.exists(), qPrintable(theme.path()));
    Icon::setThemePath(theme.path());
    QDir::setSearchPaths(QStringLiteral("theme"), {theme.path()});

    QFile file(theme.filePath(QStringLiteral("console.qss")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_styleSheet = QString::fromUtf8(file.readAll());
    QVERIFY(!m_styleSheet.isEmpty());
}

void tst_Theme::everyPictureLoadsAtItsNativeSize_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("expectedSize");
    for (const Picture &entry : pictures)
        QTest::newRow(entry.name) << QString::fromLatin1(entry.name) << entry.size;
}

void tst_Theme::everyPictureLoadsAtItsNativeSize()
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

void tst_Theme::noTwoPicturesAreAlike()
{
    QList<QImage> seen;
    for (const Picture &entry : pictures) {
        const QImage image = picture(QString::fromLatin1(entry.name));
        QVERIFY2(!seen.contains(image), entry.name);
        seen << image;
    }
    QCOMPARE(seen.size(), 26);
}

void tst_Theme::lettersAreReadableAllOverTheFace_data()
{
    QTest::addColumn<QString>("name");
    for (const Picture &entry : pictures) {
        if (entry.size == squareKey || entry.size == doubleKey)
            QTest::newRow(entry.name) << QString::fromLatin1(entry.name);
    }
}

void tst_Theme::lettersAreReadableAllOverTheFace()
{
    QFETCH(QString, name);
    const double contrast = worstContrast(name, QColor(0xf4, 0xf6, 0xf9), QColor(0x05, 0x06, 0x07));
    QVERIFY2(contrast >= 7, qPrintable(QString::number(contrast)));
}

void tst_Theme::anIdleKeyIsCalmerThanALitOneAndBrighterThanAnUnlitOne()
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

void tst_Theme::theStyleSheetHasNoErrors()
{
    QCOMPARE(remarksOn(m_styleSheet), QStringList());

    // Properties are looked at only where a rule applies: so each rule in turn applies to the label.
    // But for the properties of other widgets, which it does not have.
    const QString styleSheet =
        QString(m_styleSheet).remove(QRegularExpression(QStringLiteral("qproperty-[a-zA-Z]+Color:[^;]*;")));
    const QRegularExpression rule(QStringLiteral("\\{[^}]*\\}"));
    QRegularExpressionMatchIterator rules = rule.globalMatch(styleSheet);
    QVERIFY(rules.hasNext());
    while (rules.hasNext())
        QCOMPARE(remarksOn(QStringLiteral("QLabel ") + rules.next().captured()), QStringList());
}

void tst_Theme::errorsInAStyleSheetAreSeen_data()
{
    QTest::addColumn<QString>("styleSheet");
    QTest::newRow("broken") << QStringLiteral("QLabel { color: red;");
    QTest::newRow("unknown property") << QStringLiteral("QLabel { colour: red; }");
    QTest::newRow("unknown colour") << QStringLiteral("QLabel { color: #ggg; }");
}

void tst_Theme::errorsInAStyleSheetAreSeen()
{
    QFETCH(QString, styleSheet);
    QVERIFY(!remarksOn(styleSheet).isEmpty());
}

void tst_Theme::theStyleSheetRefersOnlyToPicturesThatExist()
{
    const QRegularExpression reference(QStringLiteral("url\\(\\s*\"?([^\")]*)\"?\\s*\\)"));
    QRegularExpressionMatchIterator matches = reference.globalMatch(m_styleSheet);
    QVERIFY(matches.hasNext());
    while (matches.hasNext()) {
        const QString path = matches.next().captured(1);
        QVERIFY2(path.startsWith(QLatin1String("theme:images/")), qPrintable(path));
        QVERIFY2(QFile::exists(path), qPrintable(path));
        QVERIFY2(!QPixmap(path).isNull(), qPrintable(path));
    }
}

void tst_Theme::framesKeepTheirExactSizes()
{
    qApp->setStyleSheet(m_styleSheet);
    for (const char *marker : {"contentFrame", "isECButtonHolder"}) {
        QFrame frame;
        frame.setFrameShape(QFrame::StyledPanel);
        frame.setFrameShadow(QFrame::Raised);
        frame.setProperty(marker, true);
        frame.resize(302, 144);
        frame.ensurePolished();
        QCOMPARE(frame.contentsRect(), QRect(0, 0, 302, 144));
    }
    qApp->setStyleSheet(QString());
}

QTEST_MAIN(tst_Theme)

#include "tst_theme.moc"
