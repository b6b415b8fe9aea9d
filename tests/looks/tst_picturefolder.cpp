// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "picturefolder.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

class tst_PictureFolder : public QObject
{
    Q_OBJECT

private slots:
    void changedPictureIsKeptForInspection();
    void acceptedPictureIsTheNextGoldenOne();
};

void tst_PictureFolder::changedPictureIsKeptForInspection()
{
    const QTemporaryDir dir;
    QImage before(40, 40, QImage::Format_RGB32);
    before.fill(Qt::black);
    QImage after = before;
    after.fill(Qt::red);
    const PictureFolder folder(dir.path(), dir.filePath(QStringLiteral("elsewhere")), {});
    const QStringList leftBehind{QStringLiteral("key.difference.png"), QStringLiteral("key.new.png"),
                                 QStringLiteral("key.png")};

    auto fault = folder.check(QStringLiteral("key"), before);
    QVERIFY(fault && fault->contains(QLatin1String("no golden picture")));
    QVERIFY(before.save(dir.filePath(QStringLiteral("key.png"))));
    QVERIFY(!folder.check(QStringLiteral("key"), before));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("key.png")});

    fault = folder.check(QStringLiteral("key"), after);
    QVERIFY(fault && fault->contains(QLatin1String("1600 pixels in 40x40+0+0")));
    QVERIFY(fault->contains(dir.filePath(QStringLiteral("key.new.png"))));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), leftBehind);
    QCOMPARE(QImage(dir.filePath(QStringLiteral("key.new.png"))), after);
    QCOMPARE(QImage(dir.filePath(QStringLiteral("key.png"))), before);
    QCOMPARE(folder.names(), QStringList{QStringLiteral("key")});

    QVERIFY(!folder.check(QStringLiteral("key"), before));
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("key.png")});
}

void tst_PictureFolder::acceptedPictureIsTheNextGoldenOne()
{
    const QTemporaryDir dir;
    QImage before(40, 40, QImage::Format_RGB32);
    before.fill(Qt::black);
    QImage after = before;
    after.fill(Qt::red);
    for (const char *name : {"key.png", "other.png"})
        QVERIFY(before.save(dir.filePath(QLatin1String(name))));
    const PictureFolder folder(dir.path(), dir.path(), {QStringLiteral("key")});

    QVERIFY(!folder.check(QStringLiteral("key"), after));
    QVERIFY(folder.check(QStringLiteral("other"), after));
    QCOMPARE(QImage(dir.filePath(QStringLiteral("key.png"))), after);
    QCOMPARE(QImage(dir.filePath(QStringLiteral("other.png"))), before);
}

QTEST_APPLESS_MAIN(tst_PictureFolder)

#include "tst_picturefolder.moc"
