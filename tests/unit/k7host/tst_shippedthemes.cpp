// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <applytheme.h>
#include <keypadkey.h>
#include <theme.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/textticker.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QPixmap>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

using namespace K7Host;

namespace {

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

QString dirOf(const QString &theme)
{
    return QStringLiteral(K7_THEMES "/") + theme;
}

} // namespace

/// The themes that come with the console; each test goes through all of them.
class tst_ShippedThemes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void cleanup();

    void eachHasItsName();
    void theStyleSheetHasNoErrors();
    void theStyleSheetRefersOnlyToPicturesThatExist();
    void framesKeepTheirExactSizes();
    void keysAndLabelsFollowTheTheme();

private:
    Theme m_theme;
};

void tst_ShippedThemes::initTestCase_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("name");
    QTest::newRow("dark") << QStringLiteral("k7") << QStringLiteral("Dark");
    QTest::newRow("light") << QStringLiteral("k7-light") << QStringLiteral("Light");
}

void tst_ShippedThemes::init()
{
    QFETCH_GLOBAL(QString, folder);
    const auto fault = applyTheme(dirOf(folder));
    QVERIFY2(!fault, qPrintable(fault ? fault->text : QString()));
    QVERIFY(!readTheme(dirOf(folder), &m_theme));
}

void tst_ShippedThemes::cleanup()
{
    qApp->setStyleSheet(QString());
}

void tst_ShippedThemes::eachHasItsName()
{
    QFETCH_GLOBAL(QString, folder);
    const QList<ThemeInfo> themes = themesBeside(dirOf(QStringLiteral("k7")));
    QCOMPARE(themes.size(), 2);
    const auto isThis = [&](const ThemeInfo &theme) { return theme.dir == QDir::cleanPath(dirOf(folder)); };
    const auto theme = std::find_if(themes.begin(), themes.end(), isThis);
    QVERIFY(theme != themes.end());
    QFETCH_GLOBAL(QString, name);
    QCOMPARE(theme->name, name);
    QCOMPARE(m_theme.name, name);
}

void tst_ShippedThemes::theStyleSheetHasNoErrors()
{
    QCOMPARE(remarksOn(m_theme.styleSheet), QStringList());

    // Properties are looked at only where a rule applies: so each rule in turn applies to the label.
    // But for the properties of other widgets, which it does not have.
    const QString styleSheet =
        QString(m_theme.styleSheet)
            .remove(QRegularExpression(QStringLiteral("qproperty-[a-zA-Z]+Color:[^;]*;")));
    const QRegularExpression rule(QStringLiteral("\\{[^}]*\\}"));
    QRegularExpressionMatchIterator rules = rule.globalMatch(styleSheet);
    QVERIFY(rules.hasNext());
    while (rules.hasNext())
        QCOMPARE(remarksOn(QStringLiteral("QLabel ") + rules.next().captured()), QStringList());

    QVERIFY(!remarksOn(QStringLiteral("QLabel { color: red;")).isEmpty());
    QVERIFY(!remarksOn(QStringLiteral("QLabel { colour: red; }")).isEmpty());
    QVERIFY(!remarksOn(QStringLiteral("QLabel { color: #ggg; }")).isEmpty());
}

void tst_ShippedThemes::theStyleSheetRefersOnlyToPicturesThatExist()
{
    const QRegularExpression reference(QStringLiteral("url\\(\\s*\"?([^\")]*)\"?\\s*\\)"));
    QRegularExpressionMatchIterator matches = reference.globalMatch(m_theme.styleSheet);
    QVERIFY(matches.hasNext());
    while (matches.hasNext()) {
        const QString path = matches.next().captured(1);
        QVERIFY2(path.startsWith(QLatin1String("theme:images/")), qPrintable(path));
        QVERIFY2(QFile::exists(path), qPrintable(path));
        QVERIFY2(!QPixmap(path).isNull(), qPrintable(path));
    }
}

void tst_ShippedThemes::framesKeepTheirExactSizes()
{
    for (const char *marker : {"contentFrame", "isECButtonHolder"}) {
        QFrame frame;
        frame.setFrameShape(QFrame::StyledPanel);
        frame.setFrameShadow(QFrame::Raised);
        frame.setProperty(marker, true);
        frame.resize(302, 144);
        frame.ensurePolished();
        QCOMPARE(frame.contentsRect(), QRect(0, 0, 302, 144));
    }
}

void tst_ShippedThemes::keysAndLabelsFollowTheTheme()
{
    QFETCH_GLOBAL(QString, folder);
    const QString other = folder == QLatin1String("k7") ? QStringLiteral("k7-light") : QStringLiteral("k7");
    Theme otherTheme;
    QVERIFY(!readTheme(dirOf(other), &otherTheme));
    QVERIFY(m_theme.keyPalette != otherTheme.keyPalette);

    QWidget desk;
    Korvo::EC::K7DropButton key(&desk);
    key.setStyleSheet(QStringLiteral("border-image:url(\"\")"));
    key.setFocusPolicy(Qt::StrongFocus);
    key.resize(60, 48);
    Korvo::EC::TextTicker label(&desk);
    label.setGeometry(80, 0, 80, 30);
    KeypadKey digit(&desk);
    digit.setProperty("keypadKey", QStringLiteral("digit"));
    digit.setGeometry(0, 60, 60, 48);
    desk.resize(200, 120);
    desk.show();
    desk.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&desk));
    key.setFocus();
    QVERIFY(key.hasFocus());

    QImage keypadLooks;
    const auto compareWith = [&](const Theme &theme) {
        const QImage keyImage = key.grab().toImage();
        QCOMPARE(keyImage.pixelColor(30, 24), theme.keyPalette.color(QPalette::Button));
        QCOMPARE(keyImage.pixelColor(30, 0), theme.keyPalette.color(QPalette::Highlight));
        const QImage labelImage = label.grab().toImage();
        QCOMPARE(labelImage.pixelColor(40, 15), theme.oledPalette.color(QPalette::Window));
        QCOMPARE(labelImage.pixelColor(40, 0), theme.oledPalette.color(QPalette::Mid));
        keypadLooks = digit.grab().toImage();
    };
    compareWith(m_theme);
    const QImage before = keypadLooks;
    // Its own rules still paint it.
    QVERIFY(before.pixelColor(30, 24) != m_theme.keyPalette.color(QPalette::Button));
    QVERIFY(!applyTheme(dirOf(other)));
    compareWith(otherTheme);
    QVERIFY(!applyTheme(dirOf(folder)));
    compareWith(m_theme);
    QCOMPARE(keypadLooks, before);
}

QTEST_MAIN(tst_ShippedThemes)

#include "tst_shippedthemes.moc"
