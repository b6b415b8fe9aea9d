// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/utils/icon.h>

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>

using Korvo::Utils::Icon;

namespace {

int warningCount = 0; // of the category "korvo.utils"

void countWarnings(QtMsgType type, const QMessageLogContext &context, const QString &)
{
    if (type == QtWarningMsg && qstrcmp(context.category, "korvo.utils") == 0)
        ++warningCount;
}

class WarningCounter
{
public:
    WarningCounter()
    {
        warningCount = 0;
        m_previous = qInstallMessageHandler(countWarnings);
    }
    ~WarningCounter() { qInstallMessageHandler(m_previous); }
    int count() const { return warningCount; }

private:
    Q_DISABLE_COPY(WarningCounter)
    QtMessageHandler m_previous = nullptr;
};

void writeImage(const QString &path)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QImage image(4, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    // Look-ups go by the name alone, so that the content may be a PNG under any ending.
    QVERIFY2(image.save(path, "PNG"), qPrintable(path));
}

} // namespace

class tst_Icon : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void theFirstKnownEndingThatExistsIsTaken_data();
    void theFirstKnownEndingThatExistsIsTaken();
    void theVariantIsAFolderBelowTheImages();
    void aVariantDoesNotFallBackToThePlainPicture();
    void aThemeFolderMayBeNamedInAnyWay_data();
    void aThemeFolderMayBeNamedInAnyWay();
    void aThemeFolderMayHaveBlanksAndAnyLetters();
    void namesThatLeaveTheThemeAreUnknown_data();
    void namesThatLeaveTheThemeAreUnknown();
    void theFirstFolderThatHoldsAPictureHasIt();
    void aNameStaysGoodWhenTheThemeChanges();
    void withoutAThemeEveryNameIsUnknown();
    void anUnknownNameIsReportedOnce();
    void eachVariantOfAnUnknownNameIsReported();
    void aNewThemeReportsAgain();
    void aKnownNameIsNotReported();
    void aPictureThatAppearsLaterIsFound();
    void fromThemeGivesThePicture();
    void fromThemeOfAnUnknownNameGivesANullIcon();

private:
    QString imagePath(const QString &file) const { return m_theme + QStringLiteral("/images/") + file; }
    static QString imageName(const QString &file) { return QStringLiteral("theme:images/") + file; }

    QTemporaryDir m_folder;
    QString m_theme;
};

void tst_Icon::initTestCase()
{
    QVERIFY(m_folder.isValid());
    m_theme = m_folder.path() + QStringLiteral("/theme");
    writeImage(imagePath(QStringLiteral("both.svg")));
    writeImage(imagePath(QStringLiteral("both.png")));
    writeImage(imagePath(QStringLiteral("vector.svg")));
    writeImage(imagePath(QStringLiteral("pixels.png")));
    writeImage(imagePath(QStringLiteral("dotted.name.png")));
    writeImage(imagePath(QStringLiteral("photo.jpg")));
    writeImage(imagePath(QStringLiteral("large/pixels.png")));
    QVERIFY(QDir().mkpath(imagePath(QStringLiteral("folder.svg"))));
    writeImage(imagePath(QStringLiteral("folder.png")));
    writeImage(m_theme + QStringLiteral("/outside.png"));
    writeImage(m_folder.path() + QStringLiteral("/pixels.png"));
}

void tst_Icon::init()
{
    Icon::setThemePaths({m_theme});
}

void tst_Icon::theFirstKnownEndingThatExistsIsTaken_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expectedFile");
    QTest::newRow("vector before pixels") << QStringLiteral("both") << QStringLiteral("both.svg");
    QTest::newRow("vector only") << QStringLiteral("vector") << QStringLiteral("vector.svg");
    QTest::newRow("pixels only") << QStringLiteral("pixels") << QStringLiteral("pixels.png");
    QTest::newRow("a dot in the name") << QStringLiteral("dotted.name") << QStringLiteral("dotted.name.png");
    QTest::newRow("a folder is no picture") << QStringLiteral("folder") << QStringLiteral("folder.png");
    QTest::newRow("another ending") << QStringLiteral("photo") << QString();
    QTest::newRow("the ending in the name") << QStringLiteral("pixels.png") << QString();
    QTest::newRow("no such picture") << QStringLiteral("nothing") << QString();
    QTest::newRow("no name") << QString() << QString();
}

void tst_Icon::theFirstKnownEndingThatExistsIsTaken()
{
    QFETCH(QString, name);
    QFETCH(QString, expectedFile);
    if (expectedFile.isEmpty())
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("No picture")));
    const QString expectedName = expectedFile.isEmpty() ? QString() : imageName(expectedFile);
    QCOMPARE(Icon::imageFileName(name, QString()), expectedName);
    if (!expectedName.isEmpty())
        QCOMPARE(QFileInfo(expectedName).absoluteFilePath(), imagePath(expectedFile));
}

void tst_Icon::theVariantIsAFolderBelowTheImages()
{
    const QString large = QStringLiteral("large");
    QCOMPARE(Icon::imageFileName(QStringLiteral("pixels"), large),
             imageName(QStringLiteral("large/pixels.png")));
}

void tst_Icon::aVariantDoesNotFallBackToThePlainPicture()
{
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("No picture \"both\" variant \"large\"")));
    QCOMPARE(Icon::imageFileName(QStringLiteral("both"), QStringLiteral("large")), QString());
}

void tst_Icon::aThemeFolderMayBeNamedInAnyWay_data()
{
    QTest::addColumn<QString>("themePath");
    QTest::newRow("slash at the end") << m_theme + QLatin1Char('/');
    QTest::newRow("two slashes") << m_folder.path() + QStringLiteral("//theme");
    QTest::newRow("dots") << m_theme + QStringLiteral("/./images/..");
    QTest::newRow("relative") << QDir::current().relativeFilePath(m_theme);
}

void tst_Icon::aThemeFolderMayBeNamedInAnyWay()
{
    QFETCH(QString, themePath);
    Icon::setThemePath(themePath);
    const QFileInfo picture(Icon::imageFileName(QStringLiteral("vector"), QString()));
    QCOMPARE(picture.absoluteFilePath(), imagePath(QStringLiteral("vector.svg")));
}

void tst_Icon::aThemeFolderMayHaveBlanksAndAnyLetters()
{
    const QString theme =
        m_folder.path() + QStringLiteral("/dark desk \u6df1\u8272 \u0442\u0451\u043c\u043d\u044b\u0439");
    writeImage(theme + QStringLiteral("/images/key.png"));
    Icon::setThemePaths({theme});
    QCOMPARE(Icon::imageFileName(QStringLiteral("key"), QString()), imageName(QStringLiteral("key.png")));
    QVERIFY(!Icon::fromTheme(QStringLiteral("key")).pixmap(4, 4).isNull());
}

void tst_Icon::namesThatLeaveTheThemeAreUnknown_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("variant");
    const QString pixels = QStringLiteral("pixels");
    QTest::newRow("name goes up") << QStringLiteral("../outside") << QString();
    QTest::newRow("name goes down") << QStringLiteral("large/pixels") << QString();
    QTest::newRow("name goes nowhere") << QStringLiteral("./pixels") << QString();
    QTest::newRow("name is absolute") << m_folder.path() + QStringLiteral("/pixels") << QString();
    QTest::newRow("name is a search path") << QStringLiteral("elsewhere:pixels") << QString();
    QTest::newRow("name has a backslash") << QStringLiteral("..\\outside") << QString();
    QTest::newRow("variant goes up") << QStringLiteral("outside") << QStringLiteral("..");
    QTest::newRow("variant stays") << pixels << QStringLiteral(".");
    QTest::newRow("variant goes up twice") << pixels << QStringLiteral("../..");
    QTest::newRow("variant goes down and up") << pixels << QStringLiteral("large/..");
    QTest::newRow("variant is absolute") << pixels << m_folder.path();
}

void tst_Icon::namesThatLeaveTheThemeAreUnknown()
{
    QFETCH(QString, name);
    QFETCH(QString, variant);
    QDir::setSearchPaths(QStringLiteral("elsewhere"), {m_folder.path()});
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("No picture")));
    QCOMPARE(Icon::imageFileName(name, variant), QString());
}

void tst_Icon::theFirstFolderThatHoldsAPictureHasIt()
{
    const QString above = m_folder.path() + QStringLiteral("/above");
    writeImage(above + QStringLiteral("/images/vector.png"));
    writeImage(above + QStringLiteral("/images/pixels.png"));
    Icon::setThemePaths({above, m_theme});
    const auto fileOf = [](const QString &name) {
        return QFileInfo(Icon::imageFileName(name, QString())).absoluteFilePath();
    };
    QCOMPARE(fileOf(QStringLiteral("vector")), above + QStringLiteral("/images/vector.png"));
    QCOMPARE(fileOf(QStringLiteral("pixels")), above + QStringLiteral("/images/pixels.png"));
    QCOMPARE(fileOf(QStringLiteral("both")), imagePath(QStringLiteral("both.svg")));
}

void tst_Icon::aNameStaysGoodWhenTheThemeChanges()
{
    const QString name = Icon::imageFileName(QStringLiteral("pixels"), QString());
    const QString other = m_folder.path() + QStringLiteral("/other");
    writeImage(other + QStringLiteral("/images/pixels.png"));
    Icon::setThemePaths({other});
    QCOMPARE(QFileInfo(name).absoluteFilePath(), other + QStringLiteral("/images/pixels.png"));
}

void tst_Icon::withoutAThemeEveryNameIsUnknown()
{
    // Neither the current folder nor the root folder may stand in for the missing theme.
    QTemporaryFile picture(QDir::tempPath() + QStringLiteral("/XXXXXX.png"));
    QVERIFY(picture.open());
    const QString name = QFileInfo(picture).completeBaseName();
    const QString folder = QDir::root().relativeFilePath(QDir::tempPath());
    const QString previous = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_theme));

    Icon::setThemePath(QString());
    const WarningCounter warnings;
    const QString below = Icon::imageFileName(QStringLiteral("vector"), QString());
    const QString atRoot = Icon::imageFileName(name, folder);
    QVERIFY(QDir::setCurrent(previous));
    QCOMPARE(below, QString());
    QCOMPARE(atRoot, QString());
    QCOMPARE(warnings.count(), 2);
}

void tst_Icon::anUnknownNameIsReportedOnce()
{
    const WarningCounter warnings;
    for (int i = 0; i < 3; ++i)
        QVERIFY(Icon::imageFileName(QStringLiteral("nothing"), QString()).isEmpty());
    QCOMPARE(warnings.count(), 1);
    QVERIFY(Icon::fromTheme(QStringLiteral("nothing")).isNull());
    QCOMPARE(warnings.count(), 1);
    QVERIFY(Icon::imageFileName(QStringLiteral("nothing else"), QString()).isEmpty());
    QCOMPARE(warnings.count(), 2);
}

void tst_Icon::eachVariantOfAnUnknownNameIsReported()
{
    const WarningCounter warnings;
    for (const QString &variant : {QString(), QStringLiteral("large"), QStringLiteral("small"), QString()})
        QVERIFY(Icon::imageFileName(QStringLiteral("nothing"), variant).isEmpty());
    QCOMPARE(warnings.count(), 3);
}

void tst_Icon::aNewThemeReportsAgain()
{
    const WarningCounter warnings;
    QVERIFY(Icon::imageFileName(QStringLiteral("nothing"), QString()).isEmpty());
    Icon::setThemePaths({m_theme});
    QVERIFY(Icon::imageFileName(QStringLiteral("nothing"), QString()).isEmpty());
    QCOMPARE(warnings.count(), 2);
}

void tst_Icon::aKnownNameIsNotReported()
{
    const WarningCounter warnings;
    QVERIFY(!Icon::imageFileName(QStringLiteral("vector"), QString()).isEmpty());
    QCOMPARE(warnings.count(), 0);
}

void tst_Icon::aPictureThatAppearsLaterIsFound()
{
    const QString late = QStringLiteral("late");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("No picture \"late\"")));
    QCOMPARE(Icon::imageFileName(late, QString()), QString());
    writeImage(imagePath(QStringLiteral("late.png")));
    QCOMPARE(Icon::imageFileName(late, QString()), imageName(QStringLiteral("late.png")));
}

void tst_Icon::fromThemeGivesThePicture()
{
    const QIcon icon = Icon::fromTheme(QStringLiteral("pixels"));
    QVERIFY(!icon.isNull());
    const QImage image = icon.pixmap(4, 4).toImage();
    QCOMPARE(image.size(), QSize(4, 4));
    QCOMPARE(image.pixelColor(2, 2), QColor(Qt::red));
}

void tst_Icon::fromThemeOfAnUnknownNameGivesANullIcon()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("No picture \"nothing\"")));
    QVERIFY(Icon::fromTheme(QStringLiteral("nothing")).isNull());
}

QTEST_MAIN(tst_Icon)

#include "tst_icon.moc"
