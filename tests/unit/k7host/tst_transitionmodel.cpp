// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "modelchecks.h"

#include <transitionmodel.h>

#include <QTest>

using namespace K7Host;

class tst_TransitionModel : public QObject
{
    Q_OBJECT

private slots:
    void itStartsAtRest();
    void eitherMixOrWipeIsChosen();
    void theTimeKeysChangeTheLength_data();
    void theTimeKeysChangeTheLength();
    void theLeverRunsFromEndToEnd_data();
    void theLeverRunsFromEndToEnd();
    void theNextOneRunsBack();
    void completingTakesTheLeverToItsEnd();
    void completingAtRestChangesNothing();
    void aNewLengthIsForTheNextOne();
    void takeIsRedAndThePercentShownWhileItRuns();
    void otherKeysChangeNothing();
    void textsFitIntoARecord();
};

namespace {

using Keys = QVector<quint32>;

constexpr quint32 Longer = 135;
constexpr quint32 Shorter = 136;

TransitionModel modelAfter(const Keys &keys)
{
    TransitionModel model;
    for (const quint32 key : keys)
        model.press(key);
    return model;
}

/// Runs a transition that was started, and gives where the lever was after each frame.
QVector<int> positionsOfARun(TransitionModel *model)
{
    QVector<int> positions;
    bool isAtEnd = false;
    while (!isAtEnd && positions.size() < 1000) {
        isAtEnd = model->advanceFrame();
        positions << model->lever().position;
    }
    return positions;
}

} // namespace

void tst_TransitionModel::itStartsAtRest()
{
    const TransitionModel model;
    QVERIFY(!model.isRunning());
    QCOMPARE(model.length(), 25);
    QVERIFY(model.lever() == (Lever{0, true}));
    const KeyColors expectedColors{{104, KeyColor::Idle}, {105, KeyColor::Idle}, {132, KeyColor::Yellow},
                                   {133, KeyColor::Idle}, {134, KeyColor::Idle}, {135, KeyColor::Idle},
                                   {136, KeyColor::Idle}, {137, KeyColor::Idle}};
    QCOMPARE(model.keyColors(), expectedColors);
    const LabelTexts expectedTexts{{labelId(93), QStringLiteral("MIX")},
                                   {labelId(92), QStringLiteral("WIPE")},
                                   {labelId(96), QStringLiteral("1.0 s")},
                                   {labelId(95), QStringLiteral("25 fr")},
                                   {labelId(94), QString()}};
    QCOMPARE(model.labelTexts(), expectedTexts);
}

void tst_TransitionModel::eitherMixOrWipeIsChosen()
{
    KeyColors wipe = TransitionModel().keyColors();
    wipe[132] = KeyColor::Idle;
    wipe[133] = KeyColor::Yellow;
    QCOMPARE(modelAfter({133}).keyColors(), wipe);
    QCOMPARE(modelAfter({133, 133}).keyColors(), wipe);
    QCOMPARE(modelAfter({133, 132}).keyColors(), TransitionModel().keyColors());
    QCOMPARE(modelAfter({132}).keyColors(), TransitionModel().keyColors());
}

void tst_TransitionModel::theTimeKeysChangeTheLength_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<int>("expectedFrames");
    QTest::addColumn<QString>("expectedTime");
    QTest::newRow("TIME+") << Keys(1, Longer) << 30 << QStringLiteral("1.2 s");
    QTest::newRow("TIME-") << Keys(1, Shorter) << 20 << QStringLiteral("0.8 s");
    QTest::newRow("to nothing") << Keys(5, Shorter) << 0 << QStringLiteral("0.0 s");
    QTest::newRow("below nothing") << Keys(6, Shorter) << 0 << QStringLiteral("0.0 s");
    QTest::newRow("just below the longest") << Keys(44, Longer) << 245 << QStringLiteral("9.8 s");
    QTest::newRow("the longest") << Keys(45, Longer) << 250 << QStringLiteral("10.0 s");
    QTest::newRow("beyond the longest") << Keys(46, Longer) << 250 << QStringLiteral("10.0 s");
    QTest::newRow("there and back") << Keys{Longer, Shorter} << 25 << QStringLiteral("1.0 s");
    QTest::newRow("back from nothing") << Keys(9, Shorter) + Keys(1, Longer) << 5 << QStringLiteral("0.2 s");
}

void tst_TransitionModel::theTimeKeysChangeTheLength()
{
    QFETCH(Keys, keys);
    QFETCH(int, expectedFrames);
    const TransitionModel model = modelAfter(keys);
    QCOMPARE(model.length(), expectedFrames);
    QTEST(model.labelTexts().value(95), "expectedTime");
    QCOMPARE(model.labelTexts().value(94), QStringLiteral("%1 fr").arg(expectedFrames));
    QCOMPARE(model.keyColors(), TransitionModel().keyColors());
}

void tst_TransitionModel::theLeverRunsFromEndToEnd_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<int>("expectedFrames");
    QTest::newRow("the shortest") << Keys(4, Shorter) << 5;
    QTest::newRow("a second") << Keys{} << 25;
    QTest::newRow("a length that does not divide the way") << Keys(2, Longer) << 35;
    QTest::newRow("the longest") << Keys(45, Longer) << 250;
}

void tst_TransitionModel::theLeverRunsFromEndToEnd()
{
    QFETCH(Keys, keys);
    QFETCH(int, expectedFrames);
    TransitionModel model = modelAfter(keys);
    model.start();
    QVERIFY(model.isRunning());
    QVERIFY(model.lever() == (Lever{0, true}));
    const QVector<int> positions = positionsOfARun(&model);
    QCOMPARE(positions.size(), expectedFrames);
    for (int i = 1; i < positions.size(); ++i)
        QVERIFY(positions.at(i - 1) < positions.at(i));
    QCOMPARE(positions.first(), 1200 / expectedFrames);
    QCOMPARE(positions.last(), 1200);
    QVERIFY(!model.isRunning());
    QVERIFY(model.lever().isBottomToTop);
}

void tst_TransitionModel::theNextOneRunsBack()
{
    TransitionModel model;
    for (const bool isBottomToTop : {true, false, true}) {
        model.start();
        QVERIFY(model.lever() == (Lever{0, isBottomToTop}));
        positionsOfARun(&model);
        QVERIFY(model.lever() == (Lever{1200, isBottomToTop}));
    }
}

void tst_TransitionModel::completingTakesTheLeverToItsEnd()
{
    TransitionModel model;
    model.start();
    model.advanceFrame();
    model.complete();
    QVERIFY(!model.isRunning());
    QVERIFY(model.lever() == (Lever{1200, true}));
    model.start();
    QVERIFY(model.lever() == (Lever{0, false}));
    QCOMPARE(positionsOfARun(&model).size(), 25);
}

void tst_TransitionModel::completingAtRestChangesNothing()
{
    TransitionModel model;
    model.complete();
    QVERIFY(model.lever() == (Lever{0, true}));
    QCOMPARE(model.keyColors(), TransitionModel().keyColors());
}

void tst_TransitionModel::aNewLengthIsForTheNextOne()
{
    TransitionModel model;
    model.start();
    model.press(Shorter);
    QCOMPARE(positionsOfARun(&model).size(), 25);
    model.start();
    QCOMPARE(positionsOfARun(&model).size(), 20);
}

void tst_TransitionModel::takeIsRedAndThePercentShownWhileItRuns()
{
    TransitionModel model;
    model.start();
    KeyColors running = TransitionModel().keyColors();
    running[105] = KeyColor::Red;
    QCOMPARE(model.keyColors(), running);
    QCOMPARE(model.labelTexts().value(93), QStringLiteral("0 %"));
    model.advanceFrame();
    QCOMPARE(model.labelTexts().value(93), QStringLiteral("4 %"));
    positionsOfARun(&model);
    QCOMPARE(model.keyColors(), TransitionModel().keyColors());
    QCOMPARE(model.labelTexts(), TransitionModel().labelTexts());
}

// TAKE and CUT are among them: whether they may do what they are for is not decided here.
void tst_TransitionModel::otherKeysChangeNothing()
{
    TransitionModel model;
    Keys keys = keysOutside(model.keyColors());
    QCOMPARE(keys.size(), 256 - 8 + 7);
    keys << 104 << 105 << 134 << 137;
    for (const quint32 key : qAsConst(keys)) {
        model.press(key);
        QCOMPARE(model.keyColors(), TransitionModel().keyColors());
        QCOMPARE(model.labelTexts(), TransitionModel().labelTexts());
        QVERIFY(model.lever() == TransitionModel().lever());
    }
}

void tst_TransitionModel::textsFitIntoARecord()
{
    TransitionModel model = modelAfter(Keys(45, Longer));
    model.start();
    QCOMPARE(model.labelTexts().size(), 5);
    QCOMPARE(tooLong(model.labelTexts()), QStringList());
}

QTEST_APPLESS_MAIN(tst_TransitionModel)

#include "tst_transitionmodel.moc"
