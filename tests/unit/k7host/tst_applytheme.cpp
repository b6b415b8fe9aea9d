// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <applytheme.h>

#include <korvo/utils/icon.h>

#include <QApplication>
#include <QDir>
#include <QFile>
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
    void thePaletteIsDark();
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
             m_dir->filePath(QStringLiteral("images/lamp.png")));
}

void tst_ApplyTheme::thePaletteIsDark()
{
    writeFile(QStringLiteral("console.qss"), "QLabel {}");
    QVERIFY(!applyTheme(m_dir->path()));
    const QPalette palette = QApplication::palette();
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        QVERIFY(palette.color(role).lightness() < 64);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        QVERIFY(palette.color(role).lightness() > 192);
        QVERIFY(palette.color(QPalette::Disabled, role).lightness() < 160);
    }
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
