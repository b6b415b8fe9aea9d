// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <consolemodel.h>

#include <QSet>
#include <QTest>

using namespace K7Host;

using Ids = QList<quint32>;
using Keys = QVector<quint32>;

/// Whatever takes more than one section.
class tst_ConsoleModel : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void everyKeyAndLabelOfTheConsoleIsThere();
    void onlyColorsThatTheConsoleShowsAreUsed();
    void textsFitIntoARecord();
    void theConsoleLooksAliveAtTheStart();

    void anInputGoesToTheSelectedLayersOfPreview_data();
    void anInputGoesToTheSelectedLayersOfPreview();
    void aSecondPressOfAnInputChangesNothing();
    void layerKeysEditPreview();

    void aPresetGoesToPreview();
    void aPresetGoesStraightToProgram();
    void savedPresetsHoldPreview();
    void enterRecallsThePresetOfThatNumber_data();
    void enterRecallsThePresetOfThatNumber();

    void enterIsThePressOfAPresetThatIsArmed();

    void takeRunsTheTransitionAndExchangesAtItsEnd();
    void takeIsIgnoredWhileOneRuns();
    void takeWithoutLengthIsACut();
    void cutExchangesAtOnce();
    void cutCompletesARunningTransition();
    void previewCanBeChangedWhileATransitionRuns();
    void noPresetIsLoadedToProgramWhileATransitionRuns();

    void aMatchedPreviewFollowsProgram_data();
    void aMatchedPreviewFollowsProgram();
    void matchingTakesProgramToPreview();
    void nothingChangesAFrozenProgram_data();
    void nothingChangesAFrozenProgram();
    void freezingHoldsARunningTransition();
    void fadingToBlackLeavesTheRest();

    void aLockedPanelTakesNoOtherKey();
    void aLockedPanelLetsATransitionGoOn();
    void aLockedTBarIgnoresTake_data();
    void aLockedTBarIgnoresTake();
    void aLockedTBarHoldsATransitionWhereItStands();
    void aLockedTBarAtRestLeavesCut();

    void silentAndUnknownKeysChangeNothing();

private:
    void press(const Keys &keys);
    void run(int frames);
    Ids lit(QRgb color, quint32 first, quint32 last) const;
    Ids inputs(QRgb color) const { return lit(color, 36, 51); }
    QString text(int oledNumber) const { return m_model.labelTexts().value(labelId(oledNumber)); }
    Lever lever() const { return *m_model.state().lever; }

    ConsoleModel m_model;
};

namespace {

constexpr quint32 Input1 = 36;
constexpr quint32 Input2 = 37;
constexpr quint32 Input3 = 38;
constexpr quint32 Layer2 = 19;
constexpr quint32 Preset1 = 54;
constexpr quint32 Preset2 = 55;
constexpr quint32 Freeze = 88;
constexpr quint32 Match = 89;
constexpr quint32 FadeToBlack = 91;
constexpr quint32 Save = 100;
constexpr quint32 LoadToProgram = 103;
constexpr quint32 Cut = 104;
constexpr quint32 Take = 105;
constexpr quint32 Enter = 119;
constexpr quint32 LockTBar = 127;
constexpr quint32 LockPanel = 128;
constexpr quint32 Shorter = 136;

bool isSame(const ConsoleModel &a, const ConsoleModel &b)
{
    const ConsoleState one = a.state();
    const ConsoleState other = b.state();
    return one.colors == other.colors && one.texts == other.texts && one.lever == other.lever &&
           a.isMoving() == b.isMoving();
}

} // namespace

void tst_ConsoleModel::init()
{
    m_model = ConsoleModel();
}

void tst_ConsoleModel::press(const Keys &keys)
{
    for (const quint32 key : keys)
        m_model.press(key);
}

void tst_ConsoleModel::run(int frames)
{
    for (int i = 0; i < frames; ++i)
        m_model.advanceFrame();
}

/// The keys from \a first to \a last that have \a color.
Ids tst_ConsoleModel::lit(QRgb color, quint32 first, quint32 last) const
{
    Ids found;
    const auto keys = m_model.keyColors().keys(color);
    for (const quint32 key : keys) {
        if (key >= first && key <= last)
            found << key;
    }
    return found;
}

void tst_ConsoleModel::everyKeyAndLabelOfTheConsoleIsThere()
{
    const KeyColors colors = m_model.keyColors();
    QCOMPARE(colors.size(), 136);
    for (quint32 key = 0; key <= 137; ++key)
        QCOMPARE(colors.contains(key), key != 101 && key != 102);

    const LabelTexts texts = m_model.labelTexts();
    QCOMPARE(texts.size(), 93);
    const QSet<int> withoutText{85, 86, 87, 88, 97, 98, 99, 100};
    for (int oledNumber = 1; oledNumber <= 101; ++oledNumber)
        QCOMPARE(texts.contains(labelId(oledNumber)), !withoutText.contains(oledNumber));
}

void tst_ConsoleModel::onlyColorsThatTheConsoleShowsAreUsed()
{
    const QSet<QRgb> shown{qRgb(255, 0, 0),   qRgb(0, 255, 0),  qRgb(0, 0, 255), qRgb(255, 255, 0),
                           qRgb(255, 0, 255), qRgb(255, 72, 0), qRgb(0, 0, 0)};
    const Keys allButThePanelLock = [] {
        Keys keys;
        for (quint32 key = 0; key <= 137; ++key) {
            if (key != LockPanel)
                keys << key;
        }
        return keys;
    }();
    for (const quint32 key : allButThePanelLock) {
        m_model.press(key);
        const KeyColors colors = m_model.keyColors();
        for (const QRgb color : colors)
            QVERIFY2(shown.contains(color), qPrintable(QString::number(color, 16)));
        for (const quint32 pageKey : {16U, 17U, 34U, 35U, 52U, 53U, 86U, 87U})
            QVERIFY(colors.value(pageKey) != KeyColor::Purple && colors.value(pageKey) != KeyColor::Orange);
    }
}

void tst_ConsoleModel::textsFitIntoARecord()
{
    QCOMPARE(tooLong(m_model.labelTexts()), QStringList());
    press({17, 35, 53, 87, 96, 43, Take, 114, 114, 114, 114});
    QCOMPARE(tooLong(m_model.labelTexts()), QStringList());
}

void tst_ConsoleModel::theConsoleLooksAliveAtTheStart()
{
    QCOMPARE(inputs(KeyColor::Red), Ids{Input1});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input2});
    QCOMPARE(text(30), QStringLiteral("CAM 2 z1"));
    QCOMPARE(lit(KeyColor::Red, 54, 87), Ids{Preset1});
    QCOMPARE(m_model.keyColors().keys(KeyColor::Yellow), (Ids{0, 18, 132}));
    QCOMPARE(m_model.keyColors().keys(KeyColor::Blue), (Ids{17, 35, 53, 87}));
    QVERIFY(lever() == (Lever{0, true}));
    QVERIFY(!m_model.isMoving());
}

void tst_ConsoleModel::anInputGoesToTheSelectedLayersOfPreview_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<Ids>("expectedRed");
    QTest::addColumn<Ids>("expectedGreen");
    QTest::newRow("nothing pressed") << Keys{} << Ids{36} << Ids{37};
    QTest::newRow("an idle input") << Keys{38} << Ids{36} << Ids{38};
    QTest::newRow("the last input") << Keys{51} << Ids{36} << Ids{51};
    QTest::newRow("the input on program") << Keys{36} << Ids{36} << Ids{};
    QTest::newRow("the input on preview") << Keys{37} << Ids{36} << Ids{37};
    QTest::newRow("one after the other") << Keys{38, 39} << Ids{36} << Ids{39};
    QTest::newRow("on another layer") << Keys{18, 19, 38} << Ids{36} << Ids{37, 38};
    QTest::newRow("on two layers") << Keys{19, 38} << Ids{36} << Ids{38};
    QTest::newRow("no layer selected") << Keys{18, 38} << Ids{36} << Ids{37};
    QTest::newRow("of the other page") << Keys{53, 38, 52} << Ids{36} << Ids{};
}

void tst_ConsoleModel::anInputGoesToTheSelectedLayersOfPreview()
{
    QFETCH(Keys, keys);
    press(keys);
    QTEST(inputs(KeyColor::Red), "expectedRed");
    QTEST(inputs(KeyColor::Green), "expectedGreen");
}

void tst_ConsoleModel::aSecondPressOfAnInputChangesNothing()
{
    press({Input3});
    const ConsoleModel once = m_model;
    press({Input3});
    QVERIFY(isSame(m_model, once));
}

void tst_ConsoleModel::layerKeysEditPreview()
{
    press({Layer2, Input3}); // on two layers
    QCOMPARE(text(30), QStringLiteral("CAM 3 z1"));
    QCOMPARE(text(29), QStringLiteral("CAM 3 z2"));
    press({18, 94}); // the second one to the top
    QCOMPARE(text(29), QStringLiteral("CAM 3 z32"));
    press({93});
    QCOMPARE(inputs(KeyColor::Green), Ids());
    QCOMPARE(inputs(KeyColor::Red), Ids{Input1});
}

void tst_ConsoleModel::aPresetGoesToPreview()
{
    press({Preset2});
    QCOMPARE(inputs(KeyColor::Red), Ids{Input1});
    QCOMPARE(inputs(KeyColor::Green), (Ids{Input2, Input3}));
    QCOMPARE(lit(KeyColor::Green, 54, 85), Ids{Preset2});
    QCOMPARE(text(29), QStringLiteral("CAM 3 z2"));
    press({Cut});
    QCOMPARE(inputs(KeyColor::Red), (Ids{Input2, Input3}));
    QCOMPARE(lit(KeyColor::Red, 54, 85), Ids{Preset2});
    QCOMPARE(lit(KeyColor::Green, 54, 85), Ids{Preset1});
}

void tst_ConsoleModel::aPresetGoesStraightToProgram()
{
    press({Input3, LoadToProgram, 57});
    QCOMPARE(lit(KeyColor::Red, 54, 103), Ids{57});
    QCOMPARE(inputs(KeyColor::Red), (Ids{Input2, 51}));
    QCOMPARE(inputs(KeyColor::Green), Ids{Input3});
    QVERIFY(lever() == (Lever{0, true}));
}

void tst_ConsoleModel::savedPresetsHoldPreview()
{
    press({Input3, Save, 85, 39});
    QCOMPARE(inputs(KeyColor::Green), Ids{39});
    press({85});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input3});
    QCOMPARE(text(49), QStringLiteral("Preset 32"));
}

void tst_ConsoleModel::enterRecallsThePresetOfThatNumber_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<Ids>("expectedGreen");
    QTest::newRow("a preset in use") << Keys{107, Enter} << Ids{37, 38};
    QTest::newRow("not yet entered") << Keys{107} << Ids{37};
    QTest::newRow("an empty preset") << Keys{108, 116, Enter} << Ids{37};
    QTest::newRow("no preset") << Keys{114, 114, Enter} << Ids{37};
    QTest::newRow("zero") << Keys{116, Enter} << Ids{37};
    QTest::newRow("stepped to") << Keys{106, 117, Enter} << Ids{37, 38};
    QTest::newRow("the next one") << Keys{106, Enter, 117, Enter} << Ids{37, 38};
}

void tst_ConsoleModel::enterRecallsThePresetOfThatNumber()
{
    QFETCH(Keys, keys);
    press(keys);
    QTEST(inputs(KeyColor::Green), "expectedGreen");
    QCOMPARE(inputs(KeyColor::Red), Ids{Input1});
}

void tst_ConsoleModel::enterIsThePressOfAPresetThatIsArmed()
{
    press({Input3, Save, 107, Enter});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input3});
    QCOMPARE(m_model.keyColors().value(Save), KeyColor::Idle);
    QCOMPARE(m_model.keyColors().value(Preset2), KeyColor::Green);

    press({LoadToProgram, 107, Enter});
    QCOMPARE(inputs(KeyColor::Red), Ids{Input3});
    QCOMPARE(m_model.keyColors().value(LoadToProgram), KeyColor::Idle);
}

void tst_ConsoleModel::takeRunsTheTransitionAndExchangesAtItsEnd()
{
    press({Input3, Take});
    QVERIFY(m_model.isMoving());
    QCOMPARE(m_model.keyColors().value(Take), KeyColor::Red);
    run(24);
    QVERIFY(m_model.isMoving());
    QVERIFY(lever() == (Lever{1152, true}));
    QCOMPARE(text(94), QStringLiteral("96 %"));
    QCOMPARE(inputs(KeyColor::Red), Ids{Input1});
    run(1);
    QVERIFY(!m_model.isMoving());
    QVERIFY(lever() == (Lever{1200, true}));
    QCOMPARE(m_model.keyColors().value(Take), KeyColor::Idle);
    QCOMPARE(inputs(KeyColor::Red), Ids{Input3});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input1});
    QCOMPARE(text(30), QStringLiteral("CAM 1 z1"));

    const ConsoleModel ended = m_model;
    run(1);
    QVERIFY(isSame(m_model, ended));
    press({Take});
    QVERIFY(lever() == (Lever{0, false}));
}

void tst_ConsoleModel::takeIsIgnoredWhileOneRuns()
{
    press({Take});
    run(10);
    const ConsoleModel before = m_model;
    press({Take});
    QVERIFY(isSame(m_model, before));
    run(15);
    QCOMPARE(inputs(KeyColor::Red), Ids{Input2});
}

void tst_ConsoleModel::takeWithoutLengthIsACut()
{
    press(Keys(5, Shorter));
    press({Take});
    QVERIFY(!m_model.isMoving());
    QVERIFY(lever() == (Lever{0, true}));
    QCOMPARE(inputs(KeyColor::Red), Ids{Input2});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input1});
}

void tst_ConsoleModel::cutExchangesAtOnce()
{
    press({Cut});
    QVERIFY(!m_model.isMoving());
    QVERIFY(lever() == (Lever{0, true}));
    QCOMPARE(inputs(KeyColor::Red), Ids{Input2});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input1});
    press({Cut});
    QVERIFY(isSame(m_model, ConsoleModel()));
}

void tst_ConsoleModel::cutCompletesARunningTransition()
{
    press({Take});
    run(10);
    press({Cut});
    QVERIFY(!m_model.isMoving());
    QVERIFY(lever() == (Lever{1200, true}));
    QCOMPARE(inputs(KeyColor::Red), Ids{Input2});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input1});
}

void tst_ConsoleModel::previewCanBeChangedWhileATransitionRuns()
{
    press({Take});
    run(10);
    press({Input3});
    run(15);
    QCOMPARE(inputs(KeyColor::Red), Ids{Input3});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input1});
}

void tst_ConsoleModel::noPresetIsLoadedToProgramWhileATransitionRuns()
{
    press({Take});
    run(10);
    press({LoadToProgram, Preset2});
    QCOMPARE(m_model.keyColors().value(LoadToProgram), KeyColor::Red);
    QCOMPARE(inputs(KeyColor::Red), Ids{Input1});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input2});
    run(15);
    press({Preset2});
    QCOMPARE(inputs(KeyColor::Red), (Ids{Input2, Input3}));
}

void tst_ConsoleModel::aMatchedPreviewFollowsProgram_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<Ids>("expectedRed");
    QTest::newRow("TAKE") << Keys{Take} << Ids{Input2};
    QTest::newRow("CUT") << Keys{Cut} << Ids{Input2};
    QTest::newRow("a preset to program") << Keys{LoadToProgram, Preset2} << Ids{Input2, Input3};
}

void tst_ConsoleModel::aMatchedPreviewFollowsProgram()
{
    QFETCH(Keys, keys);
    press({Match, Input2});
    press(keys);
    run(25);
    QTEST(inputs(KeyColor::Red), "expectedRed");
    QCOMPARE(inputs(KeyColor::Green), Ids());
    QCOMPARE(text(30), QStringLiteral("CAM 2 z1"));
}

void tst_ConsoleModel::matchingTakesProgramToPreview()
{
    press({Match});
    QCOMPARE(inputs(KeyColor::Red), Ids{Input1});
    QCOMPARE(inputs(KeyColor::Green), Ids());
    QCOMPARE(text(30), QStringLiteral("CAM 1 z1"));
    press({Input2, Match});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input2});
    press({Cut});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input1});
}

void tst_ConsoleModel::nothingChangesAFrozenProgram_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::newRow("TAKE") << Keys{Take};
    QTest::newRow("CUT") << Keys{Cut};
    QTest::newRow("TAKE without length") << Keys{Shorter, Shorter, Shorter, Shorter, Shorter, Take};
    QTest::newRow("a preset to program") << Keys{LoadToProgram, Preset2};
}

void tst_ConsoleModel::nothingChangesAFrozenProgram()
{
    QFETCH(Keys, keys);
    press({Freeze});
    press(keys);
    run(25);
    QCOMPARE(inputs(KeyColor::Red), Ids{Input1});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input2});
    QVERIFY(lever() == (Lever{0, true}));
    press({Input3});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input3});
    press({Freeze, Cut});
    QCOMPARE(inputs(KeyColor::Red), Ids{Input3});
}

void tst_ConsoleModel::freezingHoldsARunningTransition()
{
    press({Take});
    run(10);
    press({Freeze});
    QVERIFY(!m_model.isMoving());
    const ConsoleModel held = m_model;
    press({Cut});
    run(5);
    QVERIFY(isSame(m_model, held));
    press({Freeze});
    run(15);
    QCOMPARE(inputs(KeyColor::Red), Ids{Input2});
}

void tst_ConsoleModel::fadingToBlackLeavesTheRest()
{
    press({FadeToBlack});
    KeyColors expected = ConsoleModel().keyColors();
    expected[FadeToBlack] = KeyColor::Red;
    QCOMPARE(m_model.keyColors(), expected);
    press({Cut, FadeToBlack, Cut});
    QVERIFY(isSame(m_model, ConsoleModel()));
}

void tst_ConsoleModel::aLockedPanelTakesNoOtherKey()
{
    press({LockPanel});
    const ConsoleModel locked = m_model;
    QCOMPARE(m_model.keyColors().value(LockPanel), KeyColor::Red);
    for (quint32 key = 0; key < 256; ++key) {
        if (key != LockPanel)
            m_model.press(key);
        QVERIFY2(isSame(m_model, locked), qPrintable(QString::number(key)));
    }
    press({LockPanel});
    QVERIFY(isSame(m_model, ConsoleModel()));
    press({Input3});
    QCOMPARE(inputs(KeyColor::Green), Ids{Input3});
}

void tst_ConsoleModel::aLockedPanelLetsATransitionGoOn()
{
    press({Take, LockPanel});
    QVERIFY(m_model.isMoving());
    run(25);
    QCOMPARE(inputs(KeyColor::Red), Ids{Input2});
}

void tst_ConsoleModel::aLockedTBarIgnoresTake_data()
{
    QTest::addColumn<Keys>("before");
    QTest::newRow("with a length") << Keys{};
    QTest::newRow("without one") << Keys(5, Shorter);
}

void tst_ConsoleModel::aLockedTBarIgnoresTake()
{
    QFETCH(Keys, before);
    press(before);
    press({LockTBar});
    const ConsoleModel locked = m_model;
    press({Take});
    run(1);
    QVERIFY(isSame(m_model, locked));
    press({LockTBar, Take});
    run(25);
    QCOMPARE(inputs(KeyColor::Red), Ids{Input2});
}

void tst_ConsoleModel::aLockedTBarHoldsATransitionWhereItStands()
{
    press({Take});
    run(10);
    press({LockTBar});
    QVERIFY(!m_model.isMoving());
    QCOMPARE(m_model.keyColors().value(Take), KeyColor::Red);
    const ConsoleModel held = m_model;
    press({Cut, Take});
    run(100);
    QVERIFY(isSame(m_model, held));

    press({LockTBar});
    QVERIFY(m_model.isMoving());
    QVERIFY(lever() == (Lever{480, true}));
    run(15);
    QVERIFY(lever() == (Lever{1200, true}));
    QCOMPARE(inputs(KeyColor::Red), Ids{Input2});
}

void tst_ConsoleModel::aLockedTBarAtRestLeavesCut()
{
    press({LockTBar, Cut});
    QCOMPARE(inputs(KeyColor::Red), Ids{Input2});
    QVERIFY(lever() == (Lever{0, true}));
}

void tst_ConsoleModel::silentAndUnknownKeysChangeNothing()
{
    Keys keys = keysOutside(m_model.keyColors());
    QCOMPARE(keys.size(), 256 - 136 + 7);
    keys << 90 << 129 << 130 << 131 << 134 << 137;
    for (const quint32 key : qAsConst(keys)) {
        m_model.press(key);
        QVERIFY2(isSame(m_model, ConsoleModel()), qPrintable(QString::number(key)));
    }
}

QTEST_APPLESS_MAIN(tst_ConsoleModel)

#include "tst_consolemodel.moc"
