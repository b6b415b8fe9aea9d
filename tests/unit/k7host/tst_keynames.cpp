// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakekeyboard.h"

#include <devicelink.h>
#include <keynames.h>

#include <korvo/keyboard/constants.h>

#include <QLabel>
#include <QTest>
#include <QToolButton>

using namespace K7Host;

class tst_KeyNames : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void anItemIsCalledAsItsFormCallsIt_data();
    void anItemIsCalledAsItsFormCallsIt();
    void anItemWithoutANumberIsNone_data();
    void anItemWithoutANumberIsNone();
    void keysAndLabelsCountApart();
    void bothHalvesAreNamed();
    void anUnknownIdIsANumber();
    void aKeyCodeIsAKey();
    void aHalfThatIsGoneHasNoKeys();

private:
    template <typename Widget>
    Widget *add(FakeKeyboard *half, const QVariant &id, const char *key = nullptr) const;

    QSharedPointer<FakeKeyboard> m_left;
    QSharedPointer<FakeKeyboard> m_right;
};

void tst_KeyNames::init()
{
    m_left.reset(new FakeKeyboard(Qt::darkRed, {100, 100}));
    m_right.reset(new FakeKeyboard(Qt::darkBlue, {100, 100}));
}

template <typename Widget>
Widget *tst_KeyNames::add(FakeKeyboard *half, const QVariant &id, const char *key) const
{
    auto *widget = new Widget(half);
    widget->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, id);
    if (key)
        widget->setProperty("key", QString::fromLatin1(key));
    return widget;
}

void tst_KeyNames::anItemIsCalledAsItsFormCallsIt_data()
{
    QTest::addColumn<bool>("isLabel");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expectedName");

    const QString none;
    const QString key = QStringLiteral("PRESET_05");
    const QString entry = QStringLiteral("MixPresetCommand");
    const QString text = QStringLiteral("FREEZE\n PGM");
    QTest::newRow("key before all") << false << key << entry << text << key;
    QTest::newRow("entry") << false << none << entry << text << entry;
    QTest::newRow("lettering in one line") << false << none << none << text << QStringLiteral("FREEZE PGM");
    QTest::newRow("object name") << false << none << none << none << QStringLiteral("item");
    QTest::newRow("label: key") << true << key << none << text << key;
    QTest::newRow("label: what it shows changes") << true << none << none << text << QStringLiteral("item");
}

void tst_KeyNames::anItemIsCalledAsItsFormCallsIt()
{
    QFETCH(bool, isLabel);
    QFETCH(QString, key);
    QFETCH(QString, entry);
    QFETCH(QString, text);
    QFETCH(QString, expectedName);

    QWidget *item = isLabel ? static_cast<QWidget *>(add<QLabel>(m_left.data(), QStringLiteral("7")))
                            : add<QToolButton>(m_left.data(), QStringLiteral("7"));
    item->setObjectName(QStringLiteral("item"));
    item->setProperty("key", key);
    item->setProperty("entry", entry);
    item->setProperty("text", text);

    const auto items = consoleItems(*m_left);
    QCOMPARE(items.size(), 1);
    QCOMPARE(items.first().kind, isLabel ? ConsoleItem::Label : ConsoleItem::Key);
    QCOMPARE(items.first().id, 7U);
    QCOMPARE(items.first().name, expectedName);
    QCOMPARE(items.first().widget, item);
}

void tst_KeyNames::anItemWithoutANumberIsNone_data()
{
    QTest::addColumn<QVariant>("id");

    QTest::newRow("not set") << QVariant();
    QTest::newRow("empty") << QVariant(QString());
    QTest::newRow("text") << QVariant(QStringLiteral("seven"));
    QTest::newRow("negative") << QVariant(-1);
}

void tst_KeyNames::anItemWithoutANumberIsNone()
{
    QFETCH(QVariant, id);
    add<QToolButton>(m_left.data(), id, "PRESET_05");
    add<QToolButton>(m_left.data(), 0, "ZERO");
    const auto items = consoleItems(*m_left);
    QCOMPARE(items.size(), 1);
    QCOMPARE(items.first().name, QStringLiteral("ZERO"));
}

void tst_KeyNames::keysAndLabelsCountApart()
{
    add<QToolButton>(m_left.data(), 54, "PRESET_01");
    add<QLabel>(m_left.data(), QStringLiteral("54"), "OLED_CS055");
    const KeyNames names({m_left});
    QCOMPARE(names.key(54), QStringLiteral("54 PRESET_01"));
    QCOMPARE(names.label(54), QStringLiteral("54 OLED_CS055"));
}

void tst_KeyNames::bothHalvesAreNamed()
{
    add<QToolButton>(m_left.data(), 1, "LEFT");
    add<QToolButton>(m_right.data(), 2, "RIGHT");
    const KeyNames names({m_left, m_right});
    QCOMPARE(names.key(1), QStringLiteral("1 LEFT"));
    QCOMPARE(names.key(2), QStringLiteral("2 RIGHT"));
}

void tst_KeyNames::anUnknownIdIsANumber()
{
    const KeyNames names({m_left});
    QCOMPARE(names.key(3), QStringLiteral("3"));
    QCOMPARE(names.label(4294967295U), QStringLiteral("4294967295"));
    QCOMPARE(names.key(KeyNames::EveryKey), QStringLiteral("255 every key"));
    QCOMPARE(names.label(255), QStringLiteral("255"));
}

void tst_KeyNames::aKeyCodeIsAKey()
{
    add<QToolButton>(m_left.data(), 58, "PRESET_05");
    const KeyNames names({m_left});
    QCOMPARE(names.keyOfCode(16711738), QStringLiteral("58 PRESET_05"));
    QCOMPARE(names.keyOfCode(58), QStringLiteral("58"));
}

void tst_KeyNames::aHalfThatIsGoneHasNoKeys()
{
    add<QToolButton>(m_left.data(), 1, "LEFT");
    const QWeakPointer<Korvo::IKorvoECKeyboard> gone = m_left;
    m_left.reset();
    QCOMPARE(KeyNames({gone}).key(1), QStringLiteral("1"));
}

QTEST_MAIN(tst_KeyNames)

#include "tst_keynames.moc"
