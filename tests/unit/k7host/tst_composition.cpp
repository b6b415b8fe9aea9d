// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <composition.h>

#include <QTest>

using K7Host::Composition;

class tst_Composition : public QObject
{
    Q_OBJECT

private slots:
    void itStartsEmptyAndInOrder();
    void aSourceIsPutOnEachGivenLayer();
    void noLayerTakesNoSource();
    void clearingLeavesTheOtherLayersAndTheStack();
    void layersMoveToTheEndsOfTheStack_data();
    void layersMoveToTheEndsOfTheStack();
    void sourcesMoveWithTheirLayers();
    void equalMeansSameSourcesAndSameStack();
};

namespace {

using Layers = QVector<int>;

Composition::LayerSet setOf(const Layers &layers)
{
    Composition::LayerSet set;
    for (const int layer : layers)
        set.set(static_cast<std::size_t>(layer));
    return set;
}

} // namespace

void tst_Composition::itStartsEmptyAndInOrder()
{
    const Composition empty;
    for (int layer = 0; layer < Composition::LayerCount; ++layer) {
        QVERIFY(!empty.sourceOn(layer));
        QCOMPARE(empty.heightOf(layer), layer + 1);
    }
    QVERIFY(!empty.shows(0));
}

void tst_Composition::aSourceIsPutOnEachGivenLayer()
{
    Composition composition;
    composition.put(7, setOf({0, 31}));
    QCOMPARE(composition.sourceOn(0), std::make_optional(7));
    QVERIFY(!composition.sourceOn(1));
    QCOMPARE(composition.sourceOn(31), std::make_optional(7));
    QVERIFY(composition.shows(7));
    QVERIFY(!composition.shows(0));

    composition.put(0, setOf({0}));
    QCOMPARE(composition.sourceOn(0), std::make_optional(0));
    QVERIFY(composition.shows(0));
    QVERIFY(composition.shows(7));
}

void tst_Composition::noLayerTakesNoSource()
{
    Composition composition;
    composition.put(7, {});
    QVERIFY(!composition.shows(7));
    QVERIFY(composition == Composition());
}

void tst_Composition::clearingLeavesTheOtherLayersAndTheStack()
{
    Composition composition;
    composition.put(1, setOf({0, 1, 2}));
    composition.moveToTop(setOf({1}));
    composition.clear(setOf({1, 5}));
    QVERIFY(composition.sourceOn(0));
    QVERIFY(!composition.sourceOn(1));
    QVERIFY(composition.sourceOn(2));
    QCOMPARE(composition.heightOf(1), Composition::LayerCount);
}

void tst_Composition::layersMoveToTheEndsOfTheStack_data()
{
    QTest::addColumn<Layers>("top");
    QTest::addColumn<Layers>("bottom");
    QTest::addColumn<Layers>("expectedHeights"); // of the first four layers
    QTest::newRow("none") << Layers{} << Layers{} << Layers{1, 2, 3, 4};
    QTest::newRow("one to the top") << Layers{0} << Layers{} << Layers{32, 1, 2, 3};
    QTest::newRow("two keep their order") << Layers{0, 2} << Layers{} << Layers{31, 1, 32, 2};
    QTest::newRow("one to the bottom") << Layers{} << Layers{3} << Layers{2, 3, 4, 1};
    QTest::newRow("two to the bottom") << Layers{} << Layers{3, 1} << Layers{3, 1, 4, 2};
    QTest::newRow("there and back") << Layers{0} << Layers{0} << Layers{1, 2, 3, 4};
}

void tst_Composition::layersMoveToTheEndsOfTheStack()
{
    QFETCH(Layers, top);
    QFETCH(Layers, bottom);
    Composition composition;
    composition.moveToTop(setOf(top));
    composition.moveToBottom(setOf(bottom));
    Layers heights;
    for (int layer = 0; layer < 4; ++layer)
        heights << composition.heightOf(layer);
    QTEST(heights, "expectedHeights");
}

void tst_Composition::sourcesMoveWithTheirLayers()
{
    Composition composition;
    composition.put(3, setOf({0}));
    composition.moveToTop(setOf({0}));
    QCOMPARE(composition.sourceOn(0), std::make_optional(3));
    QVERIFY(!composition.sourceOn(31));
}

void tst_Composition::equalMeansSameSourcesAndSameStack()
{
    Composition one;
    Composition other;
    QVERIFY(one == other);
    one.put(3, setOf({0}));
    QVERIFY(one != other);
    other.put(3, setOf({0}));
    QVERIFY(one == other);
    one.moveToTop(setOf({0}));
    QVERIFY(one != other);
    other.moveToTop(setOf({0}));
    QVERIFY(one == other);
}

QTEST_APPLESS_MAIN(tst_Composition)

#include "tst_composition.moc"
