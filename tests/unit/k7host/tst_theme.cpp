// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <theme.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace K7Host;

class tst_Theme : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void colorsStandInPlaceOfTheirNames();
    void thePaletteIsAsDescribed();
    void keysAndLabelsHaveTheirOwnPalettes();
    void keysAndLabelsNeedNoPalettesOfTheirOwn();
    void aThemeNeedsNoDescription();
    void whatAThemeDoesNotHoldIsItsBases();
    void aFaultTellsWhere_data();
    void aFaultTellsWhere();
    void themesAreListedByName();

private:
    QString path(const char *name) const { return m_dir->filePath(QLatin1String(name)); }
    void write(const char *name, const QByteArray &content);

    QScopedPointer<QTemporaryDir> m_dir;
};

void tst_Theme::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    QVERIFY(QDir(m_dir->path()).mkpath(QStringLiteral("desk/images")));
}

void tst_Theme::write(const char *name, const QByteArray &content)
{
    QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void tst_Theme::colorsStandInPlaceOfTheirNames()
{
    write("desk/theme.ini", "[Theme]\nName=My desk\n[Colors]\ntext=#123456\ntextOff=#80112233\n");
    write("desk/console.qss", "QLabel { color: @text; background-color: @textOff; } /* \xc3\xbc */");
    Theme theme;
    QVERIFY(!readTheme(path("desk"), &theme));
    QCOMPARE(theme.name, QStringLiteral("My desk"));
    QCOMPARE(theme.folders, QStringList(path("desk")));
    QCOMPARE(theme.styleSheet,
             QStringLiteral("QLabel { color: #123456; background-color: #80112233; } /* \u00fc */"));
}

void tst_Theme::thePaletteIsAsDescribed()
{
    write("desk/console.qss", "");
    write("desk/theme.ini", "[Colors]\nink=#eeeeee\ngrey=#777777\n"
                            "[Palette]\nWindowText=ink\n[DisabledPalette]\nWindowText=grey\n");
    Theme theme;
    QVERIFY(!readTheme(path("desk"), &theme));
    QCOMPARE(theme.palette.color(QPalette::Active, QPalette::WindowText), QColor(0xee, 0xee, 0xee));
    QCOMPARE(theme.palette.color(QPalette::Inactive, QPalette::WindowText), QColor(0xee, 0xee, 0xee));
    QCOMPARE(theme.palette.color(QPalette::Disabled, QPalette::WindowText), QColor(0x77, 0x77, 0x77));
}

void tst_Theme::keysAndLabelsHaveTheirOwnPalettes()
{
    write("desk/console.qss", "");
    write("desk/theme.ini",
          "[Colors]\nink=#eeeeee\ngrey=#777777\ncap=#112233\noled=#445566\n"
          "[Palette]\nWindowText=ink\nButton=grey\n"
          "[KeyPalette]\nButton=cap\nButtonText=ink\n[DisabledKeyPalette]\nButtonText=grey\n"
          "[OledPalette]\nWindow=oled\n[DisabledOledPalette]\nMid=cap\n");
    write("day/theme.ini", "[Theme]\nBase=desk\n[Colors]\ncap=#aabbcc\n[OledPalette]\nMid=grey\n");
    const QColor ink(0xee, 0xee, 0xee);
    const QColor grey(0x77, 0x77, 0x77);
    Theme theme;
    QVERIFY(!readTheme(path("desk"), &theme));
    QCOMPARE(theme.palette.color(QPalette::Button), grey);
    QCOMPARE(theme.keyPalette.color(QPalette::Button), QColor(0x11, 0x22, 0x33));
    QCOMPARE(theme.keyPalette.color(QPalette::Active, QPalette::ButtonText), ink);
    QCOMPARE(theme.keyPalette.color(QPalette::Inactive, QPalette::ButtonText), ink);
    QCOMPARE(theme.keyPalette.color(QPalette::Disabled, QPalette::ButtonText), grey);
    QCOMPARE(theme.oledPalette.color(QPalette::Window), QColor(0x44, 0x55, 0x66));
    QCOMPARE(theme.oledPalette.color(QPalette::Disabled, QPalette::Mid), QColor(0x11, 0x22, 0x33));
    // All else is the console's.
    QCOMPARE(theme.keyPalette.color(QPalette::WindowText), ink);
    QCOMPARE(theme.oledPalette.color(QPalette::Button), grey);
    QVERIFY(theme.palette.color(QPalette::Window) != QColor(0x44, 0x55, 0x66));

    QVERIFY(!readTheme(path("day"), &theme));
    QCOMPARE(theme.keyPalette.color(QPalette::Button), QColor(0xaa, 0xbb, 0xcc));
    QCOMPARE(theme.oledPalette.color(QPalette::Window), QColor(0x44, 0x55, 0x66));
    QCOMPARE(theme.oledPalette.color(QPalette::Active, QPalette::Mid), grey);
}

void tst_Theme::keysAndLabelsNeedNoPalettesOfTheirOwn()
{
    write("desk/console.qss", "");
    write("desk/theme.ini", "[Colors]\nink=#eeeeee\n[Palette]\nButtonText=ink\nWindow=ink\n");
    Theme theme;
    QVERIFY(!readTheme(path("desk"), &theme));
    QCOMPARE(theme.keyPalette, theme.palette);
    QCOMPARE(theme.oledPalette, theme.palette);
    QCOMPARE(theme.keyPalette.color(QPalette::ButtonText), QColor(0xee, 0xee, 0xee));
}

void tst_Theme::aThemeNeedsNoDescription()
{
    write("desk/console.qss", "QLabel {}");
    Theme theme;
    QVERIFY(!readTheme(path("desk/"), &theme));
    QCOMPARE(theme.name, QStringLiteral("desk"));
    QCOMPARE(theme.styleSheet, QStringLiteral("QLabel {}"));
}

void tst_Theme::whatAThemeDoesNotHoldIsItsBases()
{
    write("desk/console.qss", "@ink @paper");
    write("desk/theme.ini", "[Colors]\nink=#eeeeee\npaper=#101010\n[Palette]\nText=ink\n");
    write("day/theme.ini", "[Theme]\nBase=desk\n[Colors]\nink=#222222\n");
    Theme theme;
    QVERIFY(!readTheme(path("day"), &theme));
    QCOMPARE(theme.folders, QStringList({path("day"), path("desk")}));
    QCOMPARE(theme.styleSheet, QStringLiteral("#222222 #101010"));
    QCOMPARE(theme.palette.color(QPalette::Text), QColor(0x22, 0x22, 0x22));

    write("day/console.qss", "own @ink");
    QVERIFY(!readTheme(path("day"), &theme));
    QCOMPARE(theme.styleSheet, QStringLiteral("own #222222"));
}

void tst_Theme::aFaultTellsWhere_data()
{
    QTest::addColumn<QByteArray>("description");
    QTest::addColumn<QByteArray>("styleSheet");
    QTest::addColumn<QString>("text");
    const QByteArray colors = "[Colors]\nink=#eeeeee\n";
    QTest::newRow("no such name") << colors << QByteArray("QLabel {\n    color: @paper;\n}")
                                  << QStringLiteral("console.qss: line 2: no color is named paper");
    QTest::newRow("no color") << QByteArray("[Colors]\nink=#eg\n") << QByteArray()
                              << QStringLiteral("theme.ini: ink is no color");
    QTest::newRow("no role") << QByteArray(colors + "[Palette]\nWindowTxt=ink\n") << QByteArray()
                             << QStringLiteral("theme.ini: WindowTxt=ink in [Palette] names no role");
    QTest::newRow("no color of a role")
        << QByteArray(colors + "[DisabledPalette]\nText=paper\n") << QByteArray()
        << QStringLiteral("theme.ini: Text=paper in [DisabledPalette] names no color");
    const char *const groups[] = {"KeyPalette", "DisabledKeyPalette", "OledPalette", "DisabledOledPalette"};
    for (const char *group : groups) {
        const QByteArray head = colors + "[" + group + "]\n";
        QTest::addRow("no role in %s", group)
            << QByteArray(head + "Cap=ink\n") << QByteArray()
            << QStringLiteral("theme.ini: Cap=ink in [%1] names no role").arg(QLatin1String(group));
        QTest::addRow("no color in %s", group)
            << QByteArray(head + "Mid=paper\n") << QByteArray()
            << QStringLiteral("theme.ini: Mid=paper in [%1] names no color").arg(QLatin1String(group));
    }
    QTest::newRow("no style sheet") << colors << QByteArray(nullptr) << QStringLiteral("console.qss");
}

void tst_Theme::aFaultTellsWhere()
{
    QFETCH(QByteArray, description);
    QFETCH(QByteArray, styleSheet);
    QFETCH(QString, text);
    write("desk/theme.ini", description);
    if (!styleSheet.isNull())
        write("desk/console.qss", styleSheet);
    Theme theme;
    theme.name = QStringLiteral("before");
    const auto fault = readTheme(path("desk"), &theme);
    QVERIFY(fault);
    QCOMPARE(fault->exitCode, ExitBadArguments);
    QVERIFY2(fault->text.contains(text) && fault->text.contains(path("desk")), qPrintable(fault->text));
    QVERIFY(!fault->text.contains(QLatin1Char('\n')));
    QCOMPARE(theme.name, QStringLiteral("before"));
}

void tst_Theme::themesAreListedByName()
{
    write("desk/console.qss", "");
    write("day/theme.ini", "[Theme]\nName=A day\n");
    write("other/readme.txt", "no theme");
    const QList<ThemeInfo> themes = themesBeside(path("desk"));
    QCOMPARE(themes.size(), 2);
    QCOMPARE(themes.at(0).name, QStringLiteral("A day"));
    QCOMPARE(themes.at(0).dir, path("day"));
    QCOMPARE(themes.at(1).name, QStringLiteral("desk"));
    QCOMPARE(themes.at(1).dir, path("desk"));
}

QTEST_MAIN(tst_Theme)

#include "tst_theme.moc"
