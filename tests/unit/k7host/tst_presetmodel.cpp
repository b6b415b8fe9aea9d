// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <presetmodel.h>

#include <QTest>

using namespace K7Host;

class tst_PresetModel : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aHandfulIsInUseAtTheStart();
    void aUsedPresetIsRecalledToPreview();
    void anEmptyPresetGoesNowhere();
    void aModeKeyArmsForOnePreset_data();
    void aModeKeyArmsForOnePreset();
    void theModesExcludeOneAnother_data();
    void theModesExcludeOneAnother();
    void savingStoresWhatPreviewHolds();
    void savingOverAPresetKeepsItsName();
    void clearingEmptiesOnePreset();
    void clearAllEmptiesEveryPresetAndDisarms();
    void loadingSendsThePresetToProgram();
    void loadingStaysArmedAsLongAsProgramIsNotOpen();
    void anEmptyPresetDisarmsToo();
    void aNumberIsThePressOfItsPreset();
    void pageKeysKeepTheMode();
    void presetsOfTheSecondPageAreTheirOwn();
    void colorsTellWhatProgramAndPreviewAre();
    void numbersCountFromOneOverAllPages_data();
    void numbersCountFromOneOverAllPages();
    void labelsFollowTheColumnsOfTheConsole();
    void silentKeysAndKeysOfOtherSectionsChangeNothing();
    void textsFitIntoARecord();

private:
    std::optional<PresetModel::Recall> press(quint32 key) { return m_model.press(key, m_preview, true); }
    KeyColors colors() const { return m_model.keyColors(m_program, m_preview); }
    QString label(int oledNumber) const { return m_model.labelTexts().value(labelId(oledNumber)); }

    PresetModel m_model;
    Composition m_program;
    Composition m_preview;
};

namespace {

constexpr quint32 Clear = 98;
constexpr quint32 ClearAll = 99;
constexpr quint32 Save = 100;
constexpr quint32 LoadToProgram = 103;
constexpr quint32 FirstPreset = 54;
constexpr quint32 LastPreset = 85;

Composition picture(int source)
{
    Composition composition;
    composition.put(source, Composition::LayerSet(1));
    return composition;
}

} // namespace

// Program and preview are none of the presets at the start.
void tst_PresetModel::init()
{
    m_model = PresetModel();
    m_program = picture(20);
    m_preview = picture(21);
}

void tst_PresetModel::aHandfulIsInUseAtTheStart()
{
    const auto texts = m_model.labelTexts();
    QCOMPARE(texts.size(), 34);
    QCOMPARE(emptyCount(texts), 32 - 7);
    QCOMPARE(label(72), QStringLiteral("Opening"));
    QVERIFY(m_model.composition(1) == picture(0));
    for (int number = 1; number <= 64; ++number)
        QCOMPARE(m_model.composition(number).has_value(), number <= 7);

    KeyColors expected;
    for (quint32 key = FirstPreset; key <= 86; ++key)
        expected.insert(key, KeyColor::Idle);
    expected.insert(87, KeyColor::Blue);
    for (const quint32 key : {Clear, ClearAll, Save, LoadToProgram})
        expected.insert(key, KeyColor::Idle);
    QCOMPARE(colors(), expected);
}

void tst_PresetModel::aUsedPresetIsRecalledToPreview()
{
    for (quint32 key = FirstPreset; key < 61; ++key) {
        const auto recall = press(key);
        QVERIFY(recall);
        QVERIFY(recall->composition == m_model.composition(static_cast<int>(key) - 53));
        QVERIFY(!recall->toProgram);
    }
}

void tst_PresetModel::anEmptyPresetGoesNowhere()
{
    const LabelTexts before = m_model.labelTexts();
    for (quint32 key = 61; key <= LastPreset; ++key)
        QVERIFY2(!press(key), qPrintable(QString::number(key)));
    QCOMPARE(m_model.labelTexts(), before);
}

void tst_PresetModel::aModeKeyArmsForOnePreset_data()
{
    QTest::addColumn<quint32>("key");
    QTest::addColumn<QRgb>("expectedColor");
    QTest::newRow("SAVE") << Save << KeyColor::Yellow;
    QTest::newRow("CLEAR") << Clear << KeyColor::Orange;
    QTest::newRow("load to PGM") << LoadToProgram << KeyColor::Red;
}

void tst_PresetModel::aModeKeyArmsForOnePreset()
{
    QFETCH(quint32, key);
    QFETCH(QRgb, expectedColor);
    const KeyColors idle = colors();
    KeyColors armed = idle;
    armed[key] = expectedColor;

    QVERIFY(!press(key));
    QCOMPARE(colors(), armed);
    press(key);
    QCOMPARE(colors(), idle);
    const auto disarmed = press(FirstPreset);
    QVERIFY(disarmed && !disarmed->toProgram);

    press(key);
    press(FirstPreset);
    QCOMPARE(colors().value(key), KeyColor::Idle);
    const auto second = press(FirstPreset + 1);
    QVERIFY(second && !second->toProgram);
}

void tst_PresetModel::theModesExcludeOneAnother_data()
{
    QTest::addColumn<quint32>("first");
    QTest::addColumn<quint32>("second");
    for (const quint32 first : {Clear, Save, LoadToProgram}) {
        for (const quint32 second : {Clear, Save, LoadToProgram}) {
            if (first != second)
                QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(first).arg(second))) << first << second;
        }
    }
}

void tst_PresetModel::theModesExcludeOneAnother()
{
    QFETCH(quint32, first);
    QFETCH(quint32, second);
    press(first);
    press(second);
    QCOMPARE(colors().value(first), KeyColor::Idle);
    QVERIFY(colors().value(second) != KeyColor::Idle);
}

void tst_PresetModel::savingStoresWhatPreviewHolds()
{
    m_preview.moveToTop(Composition::LayerSet(1));
    press(Save);
    QVERIFY(!press(LastPreset));
    QVERIFY(m_model.composition(32) == m_preview);
    QCOMPARE(label(49), QStringLiteral("Preset 32"));
    QCOMPARE(colors().value(LastPreset), KeyColor::Green);

    m_preview = picture(5);
    const auto recall = press(LastPreset);
    QVERIFY(recall);
    QCOMPARE(recall->composition.heightOf(0), 32);
    QCOMPARE(recall->composition.sourceOn(0), std::make_optional(21));
}

void tst_PresetModel::savingOverAPresetKeepsItsName()
{
    press(Save);
    press(FirstPreset);
    QVERIFY(m_model.composition(1) == m_preview);
    QCOMPARE(label(72), QStringLiteral("Opening"));
}

void tst_PresetModel::clearingEmptiesOnePreset()
{
    press(Clear);
    QVERIFY(!press(FirstPreset));
    QVERIFY(!m_model.composition(1));
    QVERIFY(m_model.composition(2));
    QCOMPARE(label(72), QString());
    QVERIFY(!press(FirstPreset));

    press(Save);
    press(FirstPreset);
    QCOMPARE(label(72), QStringLiteral("Preset 1"));
}

void tst_PresetModel::clearAllEmptiesEveryPresetAndDisarms()
{
    press(Save);
    press(ClearAll);
    QCOMPARE(colors().value(Save), KeyColor::Idle);
    QCOMPARE(emptyCount(m_model.labelTexts()), 32);
    for (int number = 1; number <= 64; ++number)
        QVERIFY(!m_model.composition(number));
}

void tst_PresetModel::loadingSendsThePresetToProgram()
{
    press(LoadToProgram);
    const auto recall = press(FirstPreset + 1);
    QVERIFY(recall);
    QVERIFY(recall->toProgram);
    QVERIFY(recall->composition == m_model.composition(2));
}

void tst_PresetModel::loadingStaysArmedAsLongAsProgramIsNotOpen()
{
    press(LoadToProgram);
    QVERIFY(!m_model.press(FirstPreset, m_preview, false));
    QCOMPARE(colors().value(LoadToProgram), KeyColor::Red);
    const auto recall = press(FirstPreset);
    QVERIFY(recall && recall->toProgram);

    // Preview is always open.
    const auto toPreview = m_model.press(FirstPreset, m_preview, false);
    QVERIFY(toPreview && !toPreview->toProgram);
    press(Save);
    m_model.press(LastPreset, m_preview, false);
    QVERIFY(m_model.composition(32) == m_preview);
}

void tst_PresetModel::aNumberIsThePressOfItsPreset()
{
    const auto recall = m_model.enter(2, m_preview, true);
    QVERIFY(recall && !recall->toProgram);
    QVERIFY(recall->composition == m_model.composition(2));

    press(Save);
    QVERIFY(!m_model.enter(64, m_preview, true));
    QVERIFY(m_model.composition(64) == m_preview);
    QCOMPARE(colors().value(Save), KeyColor::Idle);
    press(Clear);
    QVERIFY(!m_model.enter(1, m_preview, true));
    QVERIFY(!m_model.composition(1));

    press(LoadToProgram);
    for (const int none : {-1, 0, 65, 9999}) {
        QVERIFY(!m_model.enter(none, m_preview, true));
        QCOMPARE(colors().value(LoadToProgram), KeyColor::Red);
    }
    QVERIFY(!m_model.enter(2, m_preview, false));
    const auto load = m_model.enter(2, m_preview, true);
    QVERIFY(load && load->toProgram);
}

void tst_PresetModel::anEmptyPresetDisarmsToo()
{
    press(LoadToProgram);
    QVERIFY(!press(LastPreset));
    QCOMPARE(colors().value(LoadToProgram), KeyColor::Idle);
}

void tst_PresetModel::pageKeysKeepTheMode()
{
    press(Save);
    press(87);
    QCOMPARE(colors().value(Save), KeyColor::Yellow);
    press(FirstPreset);
    QCOMPARE(label(72), QStringLiteral("Preset 33"));
    QVERIFY(m_model.composition(33) == m_preview);
}

void tst_PresetModel::presetsOfTheSecondPageAreTheirOwn()
{
    press(87);
    QVERIFY(!press(FirstPreset));
    press(Save);
    press(LastPreset);
    QVERIFY(m_model.composition(64) == m_preview);
    press(86);
    QVERIFY(!press(LastPreset));
}

void tst_PresetModel::colorsTellWhatProgramAndPreviewAre()
{
    m_program = *m_model.composition(1);
    m_preview = *m_model.composition(2);
    QCOMPARE(colors().keys(KeyColor::Red), QList<quint32>{FirstPreset});
    QCOMPARE(colors().keys(KeyColor::Green), QList<quint32>{FirstPreset + 1});
    m_preview = m_program;
    QCOMPARE(colors().keys(KeyColor::Red), QList<quint32>{FirstPreset});
    QCOMPARE(colors().keys(KeyColor::Green), QList<quint32>());
    m_program.moveToTop(Composition::LayerSet(1));
    QCOMPARE(colors().keys(KeyColor::Red), QList<quint32>());
}

void tst_PresetModel::numbersCountFromOneOverAllPages_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("expectedUsed");
    QTest::newRow("below all") << -1 << false;
    QTest::newRow("0") << 0 << false;
    QTest::newRow("first") << 1 << true;
    QTest::newRow("empty") << 63 << false;
    QTest::newRow("last") << 64 << true;
    QTest::newRow("above the last") << 65 << false;
    QTest::newRow("largest that can be typed") << 9999 << false;
}

void tst_PresetModel::numbersCountFromOneOverAllPages()
{
    QFETCH(int, number);
    press(87);
    press(Save);
    press(LastPreset);
    QTEST(m_model.composition(number).has_value(), "expectedUsed");
}

void tst_PresetModel::labelsFollowTheColumnsOfTheConsole()
{
    const QVector<int> oledNumbers{72, 71, 70, 69, 68, 67, 64, 63, 62, 61, 66, 65, 56, 55, 60, 59,
                                   8,  7,  9,  12, 11, 10, 6,  1,  5,  4,  3,  2,  58, 57, 54, 49};
    QCOMPARE(oledNumbers.size(), 32);
    press(ClearAll);
    for (quint32 key = FirstPreset; key <= LastPreset; ++key) {
        press(Save);
        press(key);
    }
    for (int preset = 0; preset < 32; ++preset)
        QCOMPARE(label(oledNumbers.at(preset)), QStringLiteral("Preset %1").arg(preset + 1));
    QCOMPARE(label(101), QStringLiteral("TO PGM"));
}

void tst_PresetModel::silentKeysAndKeysOfOtherSectionsChangeNothing()
{
    const KeyColors before = colors();
    const LabelTexts texts = m_model.labelTexts();
    const auto keys = keysOutside(before);
    QCOMPARE(keys.size(), 256 - 38 + 7);
    QVERIFY(keys.contains(101) && keys.contains(102));
    for (const quint32 key : keys) {
        QVERIFY2(!press(key), qPrintable(QString::number(key)));
        QCOMPARE(colors(), before);
    }
    QCOMPARE(m_model.labelTexts(), texts);
}

void tst_PresetModel::textsFitIntoARecord()
{
    QCOMPARE(tooLong(m_model.labelTexts()), QStringList());
    press(87);
    press(Save);
    press(LastPreset);
    QCOMPARE(label(49), QStringLiteral("Preset 64"));
    QCOMPARE(tooLong(m_model.labelTexts()), QStringList());
}

QTEST_APPLESS_MAIN(tst_PresetModel)

#include "tst_presetmodel.moc"
