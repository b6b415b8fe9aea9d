// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <ovo/utils/id.h>

#include <QSet>
#include <QTest>
#include <QThread>

#include <array>
#include <memory>

using Ovo::Utils::Id;

class tst_Id : public QObject
{
    Q_OBJECT

private slots:
    void aDefaultIdIsInvalidAndEmpty();
    void anEmptyTextGivesTheInvalidId();
    void equalTextsGiveEqualIds_data();
    void equalTextsGiveEqualIds();
    void differentTextsGiveDifferentIds();
    void idsWorkAsHashKeys();
    void threadsThatInternTheSameTextsAgree();
};

void tst_Id::aDefaultIdIsInvalidAndEmpty()
{
    const Id id;
    QVERIFY(!id.isValid());
    QCOMPARE(id.toString(), QString());
    QVERIFY(id == Id());
}

void tst_Id::anEmptyTextGivesTheInvalidId()
{
    QVERIFY(!Id::fromString(QString()).isValid());
    QVERIFY(!Id::fromString(QLatin1String("")).isValid());
}

void tst_Id::equalTextsGiveEqualIds_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("ascii") << QStringLiteral("K7_Left_Keyboard");
    QTest::newRow("blank") << QStringLiteral(" ");
    QTest::newRow("not latin") << QStringLiteral("\u952e\u76d8");
    QTest::newRow("holds a zero") << QString(QChar(0));
}

void tst_Id::equalTextsGiveEqualIds()
{
    QFETCH(QString, text);
    const Id id = Id::fromString(text);
    QVERIFY(id.isValid());
    QCOMPARE(id.toString(), text);
    QVERIFY(id == Id::fromString(text));
    QVERIFY(!(id != Id::fromString(text)));
    QVERIFY(!(id < Id::fromString(text)));
    QCOMPARE(qHash(id), qHash(Id::fromString(text)));
}

void tst_Id::differentTextsGiveDifferentIds()
{
    const Id left = Id::fromString(QStringLiteral("left"));
    const Id right = Id::fromString(QStringLiteral("right"));
    QVERIFY(left != right);
    QVERIFY((left < right) != (right < left));
    QVERIFY(Id::fromString(QStringLiteral("Left")) != left);
}

void tst_Id::idsWorkAsHashKeys()
{
    QSet<Id> ids;
    for (int i = 0; i < 100; ++i)
        ids << Id::fromString(QString::number(i % 10));
    QCOMPARE(ids.size(), 10);
}

void tst_Id::threadsThatInternTheSameTextsAgree()
{
    struct Interner : QThread
    {
        void run() override
        {
            for (int i = 0; i < 500; ++i)
                ids << Id::fromString(QStringLiteral("thread %1").arg(i));
        }
        QVector<Id> ids;
    };

    std::array<std::unique_ptr<Interner>, 4> threads;
    for (auto &thread : threads)
        thread = std::make_unique<Interner>();
    for (const auto &thread : threads)
        thread->start();
    for (const auto &thread : threads)
        QVERIFY(thread->wait());

    QCOMPARE(threads.front()->ids.size(), 500);
    for (const auto &thread : threads)
        QVERIFY(thread->ids == threads.front()->ids);
}

QTEST_APPLESS_MAIN(tst_Id)

#include "tst_id.moc"
