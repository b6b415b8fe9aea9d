// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <inputmodel.h>

#include <QSet>
#include <QTest>

using namespace K7Host;

class tst_InputModel : public QObject
{
    Q_OBJECT

private slots:
    void aKeyChoosesItsSource_data();
    void aKeyChoosesItsSource();
    void colorsTellWhatProgramAndPreviewShow_data();
    void colorsTellWhatProgramAndPreviewShow();
    void theColorsStayWithTheirSourcesWhenThePageTurns();
    void pageKeysTurnThePageWithoutWrappingAround_data();
    void pageKeysTurnThePageWithoutWrappingAround();
    void keysOfOtherSectionsChangeNothing();
    void labelsFollowTheColumnsOfTheConsole();
    void everyPageNamesItsSourcesDifferently();
    void namesFitIntoARecord();
};

namespace {

using Ids = QList<quint32>;
using Keys = QVector<quint32>;
using Sources = QVector<int>;

InputModel modelAfter(const Keys &keys)
{
    InputModel model;
    for (const quint32 key : keys)
        model.press(key);
    return model;
}

/// \a sources on the first layers.
Composition layersOf(const Sources &sources)
{
    Composition composition;
    for (int layer = 0; layer < sources.size(); ++layer)
        composition.put(sources.at(layer), Composition::LayerSet(1U << layer));
    return composition;
}

} // namespace

void tst_InputModel::aKeyChoosesItsSource_data()
{
    QTest::addColumn<Keys>("before");
    QTest::addColumn<int>("firstSource");
    QTest::newRow("first page") << Keys{} << 0;
    QTest::newRow("second page") << Keys{53} << 16;
}

void tst_InputModel::aKeyChoosesItsSource()
{
    QFETCH(Keys, before);
    QFETCH(int, firstSource);
    InputModel model = modelAfter(before);
    for (int i = 0; i < 16; ++i)
        QCOMPARE(model.press(static_cast<quint32>(36 + i)), std::make_optional(firstSource + i));
    QCOMPARE(model.labelTexts(), modelAfter(before).labelTexts());
}

void tst_InputModel::colorsTellWhatProgramAndPreviewShow_data()
{
    QTest::addColumn<Sources>("program");
    QTest::addColumn<Sources>("preview");
    QTest::addColumn<Ids>("expectedRed");
    QTest::addColumn<Ids>("expectedGreen");
    QTest::newRow("nothing") << Sources{} << Sources{} << Ids{} << Ids{};
    QTest::newRow("one each") << Sources{0} << Sources{1} << Ids{36} << Ids{37};
    QTest::newRow("program wins") << Sources{3} << Sources{3, 4} << Ids{39} << Ids{40};
    QTest::newRow("several layers") << Sources{0, 15} << Sources{2, 2, 5} << Ids{36, 51} << Ids{38, 41};
    QTest::newRow("of the other page") << Sources{16} << Sources{31} << Ids{} << Ids{};
}

void tst_InputModel::colorsTellWhatProgramAndPreviewShow()
{
    QFETCH(Sources, program);
    QFETCH(Sources, preview);
    const KeyColors colors = InputModel().keyColors(layersOf(program), layersOf(preview));
    QCOMPARE(colors.size(), 18);
    const Ids red = colors.keys(KeyColor::Red);
    const Ids green = colors.keys(KeyColor::Green);
    QTEST(red, "expectedRed");
    QTEST(green, "expectedGreen");
    QCOMPARE(colors.keys(KeyColor::Blue), Ids{53});
    const Ids idle = colors.keys(KeyColor::Idle);
    QCOMPARE(idle.size(), 17 - red.size() - green.size());
}

void tst_InputModel::theColorsStayWithTheirSourcesWhenThePageTurns()
{
    const Composition program = layersOf({0});
    const Composition preview = layersOf({17});
    const KeyColors second = modelAfter({53}).keyColors(program, preview);
    QCOMPARE(second.keys(KeyColor::Red), Ids());
    QCOMPARE(second.keys(KeyColor::Green), Ids{37});
    const KeyColors first = modelAfter({53, 52}).keyColors(program, preview);
    QCOMPARE(first.keys(KeyColor::Red), Ids{36});
    QCOMPARE(first.keys(KeyColor::Green), Ids());
}

void tst_InputModel::pageKeysTurnThePageWithoutWrappingAround_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<QString>("expectedPage");
    QTest::addColumn<QRgb>("expectedUp");
    QTest::addColumn<QRgb>("expectedDown");
    const QString first = QStringLiteral("Page 1/2");
    const QString second = QStringLiteral("Page 2/2");
    QTest::newRow("up at the start") << Keys{52} << first << KeyColor::Idle << KeyColor::Blue;
    QTest::newRow("down") << Keys{53} << second << KeyColor::Blue << KeyColor::Idle;
    QTest::newRow("down at the end") << Keys{53, 53} << second << KeyColor::Blue << KeyColor::Idle;
    QTest::newRow("down and up") << Keys{53, 52} << first << KeyColor::Idle << KeyColor::Blue;
    QTest::newRow("down twice and up") << Keys{53, 53, 52} << first << KeyColor::Idle << KeyColor::Blue;
}

void tst_InputModel::pageKeysTurnThePageWithoutWrappingAround()
{
    QFETCH(Keys, keys);
    const InputModel model = modelAfter(keys);
    const KeyColors colors = model.keyColors({}, {});
    QTEST(model.labelTexts().value(51), "expectedPage");
    QTEST(colors.value(52), "expectedUp");
    QTEST(colors.value(53), "expectedDown");
}

void tst_InputModel::keysOfOtherSectionsChangeNothing()
{
    InputModel model;
    const Keys keys = keysOutside(model.keyColors({}, {}));
    QCOMPARE(keys.size(), 256 - 18 + 7);
    for (const quint32 key : keys)
        QVERIFY2(!model.press(key), qPrintable(QString::number(key)));
    QCOMPARE(model.keyColors({}, {}), InputModel().keyColors({}, {}));
    QCOMPARE(model.labelTexts(), InputModel().labelTexts());
}

void tst_InputModel::labelsFollowTheColumnsOfTheConsole()
{
    const QVector<int> oledNumbers{13, 16, 15, 14, 18, 17, 24, 23, 22, 21, 20, 19, 80, 79, 83, 81};
    const LabelTexts texts = InputModel().labelTexts();
    QCOMPARE(texts.size(), 17);
    for (int source = 0; source < 16; ++source)
        QCOMPARE(texts.value(labelId(oledNumbers.at(source))), InputModel::sourceName(source));
    for (int source = 0; source < 8; ++source)
        QCOMPARE(InputModel::sourceName(source), QStringLiteral("CAM %1").arg(source + 1));
    QCOMPARE(texts.value(51), QStringLiteral("Page 1/2"));
}

void tst_InputModel::everyPageNamesItsSourcesDifferently()
{
    const auto first = InputModel().labelTexts().values();
    const auto second = modelAfter({53}).labelTexts().values();
    const QStringList all = QStringList(first) + QStringList(second);
    QCOMPARE(all.size(), 34);
    QCOMPARE(all.toSet().size(), 34);
    QVERIFY(!all.contains(QString()));
}

void tst_InputModel::namesFitIntoARecord()
{
    QCOMPARE(tooLong(InputModel().labelTexts()), QStringList());
    QCOMPARE(tooLong(modelAfter({53}).labelTexts()), QStringList());
}

QTEST_APPLESS_MAIN(tst_InputModel)

#include "tst_inputmodel.moc"
