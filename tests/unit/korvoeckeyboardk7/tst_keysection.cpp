// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "keysection.h"

#include "support.h"

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/textticker.h>
#include <korvo/keyboard/constants.h>

#include <QButtonGroup>
#include <QTest>
#include <QVariant>

using namespace Korvo;
using namespace Korvo::ECKeyboard::K7::Internal;

namespace {

template <typename Widget>
std::unique_ptr<IdIndex<Widget>> indexOf(const QList<Widget *> &widgets)
{
    auto index = std::make_unique<IdIndex<Widget>>();
    index->setWidgets(widgets);
    return index;
}

} // namespace

class tst_KeySection : public QObject
{
    Q_OBJECT

private slots:
    void idsAreReadFromNumbersAndTexts_data();
    void idsAreReadFromNumbersAndTexts();
    void markingSetsThePropertyOnce();
    void markingAShownWidgetTakesEffect();
    void aButtonThatIsNoKeyLeavesANullEntry();
    void labelsAreFoundAtAnyDepthInChildOrder();
    void theFirstOfTwoKeysWithOneIdIsPainted();
    void nullEntriesArePassedOver();
    void anIdChangedAtRunTimeCounts();
    void onlyRecord255IsABroadcast();
    void keysLoseTheirLookOnceThePlugInIsGone();

    void init() { m_live = std::make_unique<LivePlugin>(); }
    void cleanup() { m_live.reset(); }

private:
    std::unique_ptr<LivePlugin> m_live;
};

void tst_KeySection::idsAreReadFromNumbersAndTexts_data()
{
    QTest::addColumn<QVariant>("property");
    QTest::addColumn<quint32>("expectedCode");

    QTest::newRow("number") << QVariant(36) << 0xff0024u;
    QTest::newRow("text") << QVariant(QStringLiteral("36")) << 0xff0024u;
    QTest::newRow("zero") << QVariant(0) << 0xff0000u;
    QTest::newRow("missing") << QVariant() << 0xff0000u;
    QTest::newRow("not a number") << QVariant(QStringLiteral("INPUT_01")) << 0xff0000u;
    QTest::newRow("empty text") << QVariant(QString()) << 0xff0000u;
}

void tst_KeySection::idsAreReadFromNumbersAndTexts()
{
    QFETCH(QVariant, property);
    QFETCH(quint32, expectedCode);

    EC::K7DropButton key;
    key.setProperty(Constants::PROPERTY_KORVOECKEY, property);
    const auto keys = indexOf<EC::K7DropButton>({&key});
    QCOMPARE(keyCode(*keys, &key), expectedCode);
    keys->find(0);
    QCOMPARE(keyCode(*keys, &key), expectedCode);
    QCOMPARE(quint32(keyId(&key)), expectedCode - 0xff0000u);
}

void tst_KeySection::markingSetsThePropertyOnce()
{
    QWidget widget;
    mark(&widget, "contentFrame");
    QCOMPARE(widget.property("contentFrame"), QVariant(true));

    WorkCounter counter(&widget);
    mark(&widget, "contentFrame");
    QCOMPARE(counter.count, 0);

    widget.setProperty("contentFrame", QStringLiteral("true"));
    mark(&widget, "contentFrame");
    QCOMPARE(widget.property("contentFrame").type(), QVariant::Bool);
}

void tst_KeySection::markingAShownWidgetTakesEffect()
{
    QWidget widget;
    widget.setStyleSheet(
        QStringLiteral("QWidget { color: #112233 } QWidget[marked=\"true\"] { color: #445566 }"));
    widget.show();
    QVERIFY(QTest::qWaitForWindowExposed(&widget));
    QCOMPARE(widget.palette().color(QPalette::WindowText), QColor(0x11, 0x22, 0x33));

    mark(&widget, "marked");
    QCOMPARE(widget.palette().color(QPalette::WindowText), QColor(0x44, 0x55, 0x66));
}

void tst_KeySection::aButtonThatIsNoKeyLeavesANullEntry()
{
    QButtonGroup group;
    EC::K7DropButton first;
    QToolButton foreign;
    EC::K7DropButton last;
    group.addButton(&first);
    group.addButton(&foreign);
    group.addButton(&last);

    KeyList keys;
    appendKeys(&keys, &group);
    QCOMPARE(keys, (KeyList{&first, nullptr, &last}));
}

void tst_KeySection::labelsAreFoundAtAnyDepthInChildOrder()
{
    QWidget holder;
    auto *inner = new QWidget(&holder);
    auto *deep = new EC::TextTicker(inner);
    auto *direct = new EC::TextTicker(&holder);
    new QLabel(&holder);

    LabelList labels;
    appendLabels(&labels, &holder);
    QCOMPARE(labels, (LabelList{deep, direct}));
}

void tst_KeySection::theFirstOfTwoKeysWithOneIdIsPainted()
{
    EC::K7DropButton first;
    EC::K7DropButton second;
    first.setProperty(Constants::PROPERTY_KORVOECKEY, 7);
    second.setProperty(Constants::PROPERTY_KORVOECKEY, QStringLiteral("7"));

    const auto keys = indexOf<EC::K7DropButton>({&first, &second});
    QVERIFY(paintMatchingKey(keys.get(), colorRecord(7, 255, 0, 0)));
    QVERIFY(first.styleSheet().contains(QLatin1String("ecbutton_red")));
    QCOMPARE(second.styleSheet(), QString());
}

void tst_KeySection::nullEntriesArePassedOver()
{
    EC::K7DropButton key;
    const auto keys = indexOf<EC::K7DropButton>({nullptr, &key});
    QVERIFY(paintMatchingKey(keys.get(), colorRecord(0, 0, 255, 0)));
    QVERIFY(key.styleSheet().contains(QLatin1String("ecbutton_green")));

    QVERIFY(paintAllKeys({nullptr, &key}, colorRecord(255, 0, 0, 255)));
    QVERIFY(key.styleSheet().contains(QLatin1String("ecbutton_blue")));

    EC::TextTicker label;
    const auto labels = indexOf<EC::TextTicker>({nullptr, &label});
    QVERIFY(writeMatchingLabel(labels.get(), textRecord(0, "CAM 1")));
    QCOMPARE(label.text(), QStringLiteral("CAM 1"));
}

void tst_KeySection::anIdChangedAtRunTimeCounts()
{
    EC::K7DropButton key;
    key.setProperty(Constants::PROPERTY_KORVOECKEY, 7);
    const auto keys = indexOf<EC::K7DropButton>({&key});
    QVERIFY(paintMatchingKey(keys.get(), colorRecord(7, 255, 0, 0)));

    key.setProperty(Constants::PROPERTY_KORVOECKEY, 8);
    QVERIFY(!paintMatchingKey(keys.get(), colorRecord(7, 0, 255, 0)));
    QVERIFY(key.styleSheet().contains(QLatin1String("ecbutton_red")));
    QVERIFY(paintMatchingKey(keys.get(), colorRecord(8, 0, 255, 0)));
    QVERIFY(key.styleSheet().contains(QLatin1String("ecbutton_green")));
}

void tst_KeySection::onlyRecord255IsABroadcast()
{
    EC::K7DropButton key;
    QVERIFY(!paintAllKeys({&key}, nullptr));
    QVERIFY(!paintAllKeys({&key}, colorRecord(0, 255, 0, 0)));
    QVERIFY(!paintAllKeys({&key}, colorRecord(254, 255, 0, 0)));
    QVERIFY(!paintAllKeys({&key}, colorRecord(0xff00ff, 255, 0, 0)));
    QCOMPARE(key.styleSheet(), QString());
    QVERIFY(paintAllKeys({}, colorRecord(255, 255, 0, 0)));
}

void tst_KeySection::keysLoseTheirLookOnceThePlugInIsGone()
{
    EC::K7DropButton key;
    EC::K7DropButton up;
    EC::K7DropButton down;
    const KeyList keys{&key, &up, &down};
    const PageKeys pageKeys{&up, &down};
    quint32 id = 1;
    for (EC::K7DropButton *one : keys)
        one->setProperty(Constants::PROPERTY_KORVOECKEY, id++);
    const auto index = indexOf(keys);
    paintIdle(&key);
    QVERIFY(!key.styleSheet().isEmpty());

    m_live.reset();
    QVERIFY(paintAllKeys(keys, colorRecord(255, 255, 0, 0)));
    for (id = 1; id <= 3; ++id)
        QVERIFY(paintMatchingKey(index.get(), colorRecord(id, 255, 0, 0), pageKeys));
    paintIdle(&key);
    paintIdle(pageKeys);
    for (const EC::K7DropButton *one : keys)
        QCOMPARE(one->styleSheet(), QString());
}

QTEST_MAIN(tst_KeySection)

#include "tst_keysection.moc"
