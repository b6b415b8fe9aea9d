// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <applytheme.h>

#include <korvo/ec/k7dropbutton.h>
#include <korvo/utils/icon.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>

using K7Host::applyTheme;

class tst_ApplyTheme : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theStyleSheetIsApplied();
    void picturesAreFoundByNameAndByPath();
    void whatIsShownTakesTheNewLooks();
    void aMissingThemeIsAFault_data();
    void aMissingThemeIsAFault();

private:
    void writeFile(const QString &name, const QByteArray &content);

    QScopedPointer<QTemporaryDir> m_dir;
};

void tst_ApplyTheme::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    QVERIFY(QDir(m_dir->path()).mkpath(QStringLiteral("images")));
}

void tst_ApplyTheme::cleanup()
{
    qApp->setStyleSheet(QString());
}

void tst_ApplyTheme::writeFile(const QString &name, const QByteArray &content)
{
    QFile file(m_dir->filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void tst_ApplyTheme::theStyleSheetIsApplied()
{
    const QString rule = QStringLiteral("QLabel { color: #123456; } /* \u00fc */");
    writeFile(QStringLiteral("console.qss"), rule.toUtf8());
    QVERIFY(!applyTheme(m_dir->path()));
    QCOMPARE(qApp->styleSheet(), rule);
}

void tst_ApplyTheme::picturesAreFoundByNameAndByPath()
{
    writeFile(QStringLiteral("console.qss"), "QLabel {}");
    writeFile(QStringLiteral("images/lamp.png"), "not looked at");
    QVERIFY(!applyTheme(m_dir->path()));
    QVERIFY(QFile::exists(QStringLiteral("theme:images/lamp.png")));
    QCOMPARE(Korvo::Utils::Icon::imageFileName(QStringLiteral("lamp"), QString()),
             QStringLiteral("theme:images/lamp.png"));
}

void tst_ApplyTheme::whatIsShownTakesTheNewLooks()
{
    const auto writeTheme = [this](const QByteArray &folder, const QByteArray &ground,
                                   const QColor &picture) {
        QVERIFY(QDir(m_dir->path()).mkpath(QString::fromLatin1(folder + "/images")));
        writeFile(QString::fromLatin1(folder + "/console.qss"), "QLabel { background-color: @ground; }");
        writeFile(QString::fromLatin1(folder + "/theme.ini"),
                  "[Colors]\nground=" + ground + "\n[Palette]\nWindow=ground\n");
        QImage key(8, 8, QImage::Format_RGB32);
        key.fill(picture);
        QVERIFY(key.save(m_dir->filePath(QString::fromLatin1(folder + "/images/key.png"))));
    };
    writeTheme("night", "#000033", Qt::red);
    writeTheme("day", "#ffffcc", Qt::green);

    QVERIFY(!applyTheme(m_dir->filePath(QStringLiteral("night"))));
    QLabel label;
    Korvo::EC::K7DropButton key;
    key.setStyleSheet(QStringLiteral("border-image:url(\"%1\")")
                          .arg(Korvo::Utils::Icon::imageFileName(QStringLiteral("key"), QString())));
    const auto colorOf = [](QWidget *widget) {
        const QImage image = widget->grab().toImage();
        return image.pixelColor(image.rect().center());
    };
    QCOMPARE(colorOf(&label), QColor(0x00, 0x00, 0x33));
    QCOMPARE(colorOf(&key), QColor(Qt::red));

    QVERIFY(!applyTheme(m_dir->filePath(QStringLiteral("day"))));
    QCOMPARE(colorOf(&label), QColor(0xff, 0xff, 0xcc));
    QCOMPARE(colorOf(&key), QColor(Qt::green));
    QCOMPARE(QApplication::palette().color(QPalette::Window), QColor(0xff, 0xff, 0xcc));
}

void tst_ApplyTheme::aMissingThemeIsAFault_data()
{
    QTest::addColumn<QString>("subDir");
    QTest::newRow("no style sheet in it") << QString();
    QTest::newRow("no such folder") << QStringLiteral("/missing");
}

void tst_ApplyTheme::aMissingThemeIsAFault()
{
    QFETCH(QString, subDir);
    const auto fault = applyTheme(m_dir->path() + subDir);
    QVERIFY(fault);
    QCOMPARE(fault->exitCode, K7Host::ExitBadArguments);
    QVERIFY2(fault->text.contains(m_dir->path()), qPrintable(fault->text));
    QCOMPARE(qApp->styleSheet(), QString());
}

QTEST_MAIN(tst_ApplyTheme)

#include "tst_applytheme.moc"
