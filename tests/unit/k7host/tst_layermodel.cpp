// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <inputmodel.h>
#include <layermodel.h>

#include <QTest>

using namespace K7Host;

class tst_LayerModel : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void itStartsWithTheFirstLayerSelected();
    void aPressSelectsALayerAndTheNextOneDeselectsIt_data();
    void aPressSelectsALayerAndTheNextOneDeselectsIt();
    void theSecondPageHoldsTheOtherLayers();
    void theReservedKeysSelectAllAndNone();
    void editKeysChangeTheSelectedLayers_data();
    void editKeysChangeTheSelectedLayers();
    void editKeysReachSelectedLayersOfTheOtherPage();
    void labelsFollowTheColumnsOfTheConsole();
    void keysOfOtherSectionsChangeNothing();
    void textsFitIntoARecord();

private:
    void press(const QVector<quint32> &keys);
    QString label(int oledNumber) const { return m_model.labelTexts(m_preview).value(labelId(oledNumber)); }

    LayerModel m_model;
    Composition m_preview;
};

void tst_LayerModel::init()
{
    m_model = LayerModel();
    m_preview = Composition();
}

void tst_LayerModel::press(const QVector<quint32> &keys)
{
    for (const quint32 key : keys)
        m_model.press(key, &m_preview);
}

void tst_LayerModel::itStartsWithTheFirstLayerSelected()
{
    KeyColors expected;
    for (quint32 key = 19; key <= 34; ++key)
        expected.insert(key, KeyColor::Idle);
    for (quint32 key = 92; key <= 97; ++key)
        expected.insert(key, KeyColor::Idle);
    expected.insert(18, KeyColor::Yellow);
    expected.insert(35, KeyColor::Blue);
    QCOMPARE(m_model.keyColors(), expected);
    QVERIFY(m_model.selected() == Composition::LayerSet(1));
    QCOMPARE(m_model.labelTexts(m_preview).size(), 19);
}

void tst_LayerModel::aPressSelectsALayerAndTheNextOneDeselectsIt_data()
{
    QTest::addColumn<quint32>("key");
    for (quint32 key = 19; key <= 33; ++key)
        QTest::newRow(qPrintable(QString::number(key))) << key;
}

void tst_LayerModel::aPressSelectsALayerAndTheNextOneDeselectsIt()
{
    QFETCH(quint32, key);
    press({key});
    KeyColors expected = LayerModel().keyColors();
    expected[key] = KeyColor::Yellow;
    QCOMPARE(m_model.keyColors(), expected);
    QVERIFY(m_model.selected().test(key - 18));
    QCOMPARE(m_model.selected().count(), std::size_t(2));
    press({key});
    QCOMPARE(m_model.keyColors(), LayerModel().keyColors());
    QVERIFY(m_preview == Composition());
}

void tst_LayerModel::theSecondPageHoldsTheOtherLayers()
{
    press({35, 33});
    QVERIFY(m_model.selected().test(31));
    QCOMPARE(m_model.keyColors().keys(KeyColor::Yellow), QList<quint32>{33});
    QCOMPARE(label(30), QStringLiteral("L17 z17"));
    QCOMPARE(label(53), QStringLiteral("Page 2/2"));
    press({34});
    QCOMPARE(m_model.keyColors().keys(KeyColor::Yellow), QList<quint32>{18});
    QCOMPARE(label(53), QStringLiteral("Page 1/2"));
}

void tst_LayerModel::theReservedKeysSelectAllAndNone()
{
    QCOMPARE(label(89), QStringLiteral("ALL"));
    QCOMPARE(label(90), QStringLiteral("NONE"));
    press({96});
    QVERIFY(m_model.selected().all());
    const QList<quint32> lit = m_model.keyColors().keys(KeyColor::Yellow);
    QCOMPARE(lit.size(), 16);
    press({97});
    QVERIFY(m_model.selected().none());
    QCOMPARE(m_model.keyColors().keys(KeyColor::Yellow), QList<quint32>());
    QVERIFY(m_preview == Composition());
}

void tst_LayerModel::editKeysChangeTheSelectedLayers_data()
{
    QTest::addColumn<QVector<quint32>>("keys");
    QTest::addColumn<QStringList>("expectedLabels"); // of the first three layers
    using Keys = QVector<quint32>;
    const auto texts = [](const char *one, const char *two, const char *three) {
        return QStringList{QLatin1String(one), QLatin1String(two), QLatin1String(three)};
    };
    QTest::newRow("at the start") << Keys{} << texts("CAM 1 z1", "CAM 2 z2", "CAM 3 z3");
    QTest::newRow("CLEAR") << Keys{92} << texts("L1 z1", "CAM 2 z2", "CAM 3 z3");
    QTest::newRow("CLEAR two") << Keys{20, 92} << texts("L1 z1", "CAM 2 z2", "L3 z3");
    QTest::newRow("CLEAR none") << Keys{97, 92} << texts("CAM 1 z1", "CAM 2 z2", "CAM 3 z3");
    QTest::newRow("CLEAR ALL") << Keys{93} << texts("L1 z1", "L2 z2", "L3 z3");
    QTest::newRow("CLEAR ALL, none selected") << Keys{97, 93} << texts("L1 z1", "L2 z2", "L3 z3");
    QTest::newRow("TOP") << Keys{94} << texts("CAM 1 z32", "CAM 2 z1", "CAM 3 z2");
    QTest::newRow("TOP none") << Keys{97, 94} << texts("CAM 1 z1", "CAM 2 z2", "CAM 3 z3");
    QTest::newRow("BOTTOM") << Keys{18, 20, 95} << texts("CAM 1 z2", "CAM 2 z3", "CAM 3 z1");
    QTest::newRow("TOP, BOTTOM") << Keys{94, 95} << texts("CAM 1 z1", "CAM 2 z2", "CAM 3 z3");
}

void tst_LayerModel::editKeysChangeTheSelectedLayers()
{
    QFETCH(QVector<quint32>, keys);
    for (int layer = 0; layer < 3; ++layer)
        m_preview.put(layer, Composition::LayerSet(1U << layer));
    press(keys);
    QTEST((QStringList{label(30), label(29), label(28)}), "expectedLabels");
}

void tst_LayerModel::editKeysReachSelectedLayersOfTheOtherPage()
{
    press({35, 18, 34, 18, 94});
    QCOMPARE(m_preview.heightOf(16), 32);
    QCOMPARE(m_preview.heightOf(0), 1);
}

void tst_LayerModel::labelsFollowTheColumnsOfTheConsole()
{
    const QVector<int> oledNumbers{30, 29, 28, 27, 26, 25, 32, 31, 33, 36, 35, 34, 82, 84, 74, 73};
    for (int layer = 0; layer < 16; ++layer)
        QCOMPARE(label(oledNumbers.at(layer)), QStringLiteral("L%1 z%1").arg(layer + 1));
}

void tst_LayerModel::keysOfOtherSectionsChangeNothing()
{
    m_preview.put(3, m_model.selected());
    const Composition before = m_preview;
    const auto keys = keysOutside(m_model.keyColors());
    QCOMPARE(keys.size(), 256 - 24 + 7);
    for (const quint32 key : keys) {
        press({key});
        QCOMPARE(m_model.keyColors(), LayerModel().keyColors());
        QVERIFY(m_preview == before);
    }
    QCOMPARE(m_model.labelTexts(before), LayerModel().labelTexts(before));
}

void tst_LayerModel::textsFitIntoARecord()
{
    for (int source = 0; source < InputModel::SourceCount; ++source) {
        m_preview.put(source, Composition::LayerSet().set());
        press({34});
        QCOMPARE(tooLong(m_model.labelTexts(m_preview)), QStringList());
        press({35});
        QCOMPARE(tooLong(m_model.labelTexts(m_preview)), QStringList());
    }
}

QTEST_APPLESS_MAIN(tst_LayerModel)

#include "tst_layermodel.moc"
