// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakekeyboard.h"

#include <keymap.h>

#include <korvo/keyboard/constants.h>

#include <QGraphicsItem>
#include <QHelpEvent>
#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

using namespace K7Host;

class tst_KeyMap : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void itemsStandWhereTheyAreOnTheConsole();
    void theHalvesStandSideBySide();
    void aClickTellsKeyOrLabel_data();
    void aClickTellsKeyOrLabel();
    void aClickBesideTheKeysTellsNothing();
    void theClickedKeyAndTheHoveredOneLookDifferent();
    void aFlashGoesByItself_data();
    void aFlashGoesByItself();
    void namesAreInTheToolTips();
    void itFillsTheRoomThereIs();
    void theIdsStayReadableWhereThereIsLittleRoom();
    void theWheelZoomsWithCtrlOnly();
    void itFollowsTheHalf();
    void aHalfMayGo();

private:
    QGraphicsItem *item(const char *toolTip) const;
    QPoint place(const char *toolTip) const;
    QImage edge(const char *toolTip) const;

    QSharedPointer<FakeKeyboard> m_left;
    QSharedPointer<FakeKeyboard> m_right;
    QToolButton *m_key = nullptr; // a child of a child of the left half
    QScopedPointer<KeyMap> m_map;
};

namespace {

void turnWheel(QWidget *viewport, int eighths, Qt::KeyboardModifiers modifiers)
{
    const QPoint middle = viewport->rect().center();
    QWheelEvent event(middle, viewport->mapToGlobal(middle), {}, {0, eighths}, Qt::NoButton, modifiers,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(viewport, &event);
}

} // namespace

void tst_KeyMap::init()
{
    m_left.reset(new FakeKeyboard(Qt::darkRed, {800, 400}));
    m_right.reset(new FakeKeyboard(Qt::darkBlue, {800, 400}));
    auto *section = new QWidget(m_left.data());
    section->setGeometry(100, 50, 600, 300);
    m_key = new QToolButton(section);
    m_key->setGeometry(10, 20, 64, 64);
    m_key->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, 58);
    m_key->setProperty("key", QStringLiteral("PRESET_05"));
    auto *label = new QLabel(section);
    label->setGeometry(500, 250, 64, 44);
    label->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, 7);
    label->setProperty("key", QStringLiteral("OLED_CS008"));
    auto *rightKey = new QToolButton(m_right.data());
    rightKey->setGeometry(30, 40, 64, 64);
    rightKey->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, 106);
    rightKey->setProperty("key", QStringLiteral("NUMBER_01"));

    m_map.reset(new KeyMap);
    m_map->resize(1000, 400);
    m_map->setHalves({m_left, m_right});
    m_map->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_map.data()));
}

void tst_KeyMap::cleanup()
{
    m_map.reset();
    m_left.reset();
    m_right.reset();
}

QGraphicsItem *tst_KeyMap::item(const char *toolTip) const
{
    const auto items = m_map->scene()->items();
    for (QGraphicsItem *each : items) {
        if (each->toolTip() == QLatin1String(toolTip))
            return each;
    }
    qFatal("There is no %s", toolTip);
    return nullptr;
}

/// In the viewport.
QPoint tst_KeyMap::place(const char *toolTip) const
{
    return m_map->mapFromScene(item(toolTip)->sceneBoundingRect().center());
}

/// A few pixels across the left edge, where no text is: that is not always drawn alike.
QImage tst_KeyMap::edge(const char *toolTip) const
{
    const QRectF rect = item(toolTip)->sceneBoundingRect();
    const QPoint left = m_map->mapFromScene(QPointF(rect.left(), rect.center().y()));
    return m_map->viewport()->grab(QRect(left - QPoint(3, 0), QSize(6, 1))).toImage();
}

void tst_KeyMap::itemsStandWhereTheyAreOnTheConsole()
{
    const QRectF key = item("Key 58 PRESET_05")->sceneBoundingRect();
    const QRectF label = item("Label 7 OLED_CS008")->sceneBoundingRect();
    QCOMPARE(key.size(), QSizeF(64, 64));
    QCOMPARE(label.size(), QSizeF(64, 44));
    QCOMPARE(label.topLeft() - key.topLeft(), QPointF(490, 230));
}

void tst_KeyMap::theHalvesStandSideBySide()
{
    const QRectF left = item("Label 7 OLED_CS008")->sceneBoundingRect();
    const QRectF right = item("Key 106 NUMBER_01")->sceneBoundingRect();
    QVERIFY(left.right() < right.left());
}

void tst_KeyMap::aClickTellsKeyOrLabel_data()
{
    QTest::addColumn<QByteArray>("item");
    QTest::addColumn<bool>("isLabel");
    QTest::addColumn<quint32>("id");
    QTest::addColumn<QString>("name");

    QTest::newRow("key") << QByteArray("Key 58 PRESET_05") << false << 58U << QStringLiteral("PRESET_05");
    QTest::newRow("label") << QByteArray("Label 7 OLED_CS008") << true << 7U << QStringLiteral("OLED_CS008");
    QTest::newRow("right") << QByteArray("Key 106 NUMBER_01") << false << 106U << QStringLiteral("NUMBER_01");
}

void tst_KeyMap::aClickTellsKeyOrLabel()
{
    QFETCH(QByteArray, item);
    QFETCH(bool, isLabel);
    QFETCH(quint32, id);
    QFETCH(QString, name);
    const QSignalSpy keys(m_map.data(), &KeyMap::keyClicked);
    const QSignalSpy labels(m_map.data(), &KeyMap::labelClicked);
    QTest::mouseClick(m_map->viewport(), Qt::LeftButton, Qt::NoModifier, place(item.constData()));
    QCOMPARE(keys.count(), isLabel ? 0 : 1);
    QCOMPARE(labels.count(), isLabel ? 1 : 0);
    const QVariantList told = isLabel ? labels.first() : keys.first();
    QCOMPARE(told.at(0).toUInt(), id);
    QCOMPARE(told.at(1).toString(), name);
}

void tst_KeyMap::aClickBesideTheKeysTellsNothing()
{
    const QSignalSpy keys(m_map.data(), &KeyMap::keyClicked);
    const QSignalSpy labels(m_map.data(), &KeyMap::labelClicked);
    QTest::mouseClick(m_map->viewport(), Qt::RightButton, Qt::NoModifier, place("Key 58 PRESET_05"));
    QTest::mouseClick(m_map->viewport(), Qt::LeftButton, Qt::NoModifier,
                      (place("Key 58 PRESET_05") + place("Label 7 OLED_CS008")) / 2);
    QCOMPARE(keys.count() + labels.count(), 0);
}

void tst_KeyMap::theClickedKeyAndTheHoveredOneLookDifferent()
{
    const char key[] = "Key 58 PRESET_05";
    const QImage plain = edge(key);
    QTest::mouseMove(m_map->viewport(), place(key));
    QTRY_VERIFY(edge(key) != plain);
    const QImage hovered = edge(key);
    QTest::mouseClick(m_map->viewport(), Qt::LeftButton, Qt::NoModifier, place(key));
    QTRY_VERIFY(edge(key) != hovered);
    const QImage both = edge(key);
    QTest::mouseMove(m_map->viewport(), {0, m_map->viewport()->height() - 1});
    QTRY_VERIFY(edge(key) != both);
    QVERIFY(edge(key) != plain);
}

void tst_KeyMap::aFlashGoesByItself_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<quint32>("id");
    QTest::addColumn<QByteArray>("lit");

    QTest::newRow("key") << int(ConsoleItem::Key) << 58U << QByteArray("Key 58 PRESET_05");
    QTest::newRow("label") << int(ConsoleItem::Label) << 7U << QByteArray("Label 7 OLED_CS008");
    QTest::newRow("label id of no label") << int(ConsoleItem::Label) << 58U << QByteArray();
}

void tst_KeyMap::aFlashGoesByItself()
{
    QFETCH(int, kind);
    QFETCH(quint32, id);
    QFETCH(QByteArray, lit);
    const QByteArrayList items{"Key 58 PRESET_05", "Label 7 OLED_CS008", "Key 106 NUMBER_01"};
    QVector<QImage> before;
    for (const QByteArray &each : items)
        before << edge(each.constData());
    m_map->flash(static_cast<ConsoleItem::Kind>(kind), id);
    for (int i = 0; i < items.size(); ++i)
        QCOMPARE(edge(items.at(i).constData()) != before.at(i), items.at(i) == lit);
    for (int i = 0; i < items.size(); ++i)
        QTRY_COMPARE(edge(items.at(i).constData()), before.at(i));
}

void tst_KeyMap::namesAreInTheToolTips()
{
    QCOMPARE(m_map->itemAt(place("Label 7 OLED_CS008")), item("Label 7 OLED_CS008"));
}

void tst_KeyMap::itFillsTheRoomThereIs()
{
    const auto isWithin = [this] {
        return !m_map->horizontalScrollBar()->isVisible() && !m_map->verticalScrollBar()->isVisible();
    };
    const auto scale = [this] { return m_map->transform().m11(); };
    QVERIFY(isWithin());
    const qreal before = scale();
    m_map->resize(1500, 600);
    QVERIFY(isWithin());
    QVERIFY(scale() > 1.3 * before);
    m_map->resize(1500, 300);
    QVERIFY(isWithin());
    QVERIFY(scale() < before);
}

void tst_KeyMap::theIdsStayReadableWhereThereIsLittleRoom()
{
    m_map->resize(1000, 60);
    QVERIFY(m_map->transform().m11() > 0.3);
    QVERIFY(m_map->verticalScrollBar()->maximum() > 0);
    QCOMPARE(m_map->horizontalScrollBar()->maximum(), 0);
}

void tst_KeyMap::theWheelZoomsWithCtrlOnly()
{
    const qreal before = m_map->transform().m11();
    turnWheel(m_map->viewport(), 120, Qt::NoModifier);
    QCOMPARE(m_map->transform().m11(), before);
    turnWheel(m_map->viewport(), 240, Qt::ControlModifier);
    QVERIFY(m_map->transform().m11() > 1.5 * before);
    QVERIFY(m_map->horizontalScrollBar()->maximum() > 0);
    turnWheel(m_map->viewport(), -1200, Qt::ControlModifier);
    QCOMPARE(m_map->transform().m11(), before);
    for (int i = 0; i < 50; ++i)
        turnWheel(m_map->viewport(), 1200, Qt::ControlModifier);
    QVERIFY(m_map->transform().m11() <= 8.001 * before);
}

void tst_KeyMap::itFollowsTheHalf()
{
    m_key->setGeometry(10, 20, 100, 64);
    m_left->resize(900, 400);
    m_left->show();
    QTRY_COMPARE(item("Key 58 PRESET_05")->sceneBoundingRect().width(), 100.0);
}

void tst_KeyMap::aHalfMayGo()
{
    m_left.reset();
    m_map->hide();
    m_map->show();
    QCOMPARE(m_map->scene()->items().size(), 2); // the right half and its key
    QVERIFY(item("Key 106 NUMBER_01"));
}

QTEST_MAIN(tst_KeyMap)

#include "tst_keymap.moc"
