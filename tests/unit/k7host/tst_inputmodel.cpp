// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <inputmodel.h>

#include <QSet>
#include <QTest>

using K7Host::InputModel;

class tst_InputModel : public QObject
{
    Q_OBJECT

private slots:
    void theFirstSourceStartsOnProgramAndTheSecondOnPreview();
    void pressesMoveProgramAndPreview_data();
    void pressesMoveProgramAndPreview();
    void pageKeysTurnThePageWithoutWrappingAround_data();
    void pageKeysTurnThePageWithoutWrappingAround();
    void theSelectionStaysWithItsSourceWhenThePageTurns();
    void aSourceOfTheSecondPageCanGoOnProgram();
    void keysOfOtherSectionsChangeNothing_data();
    void keysOfOtherSectionsChangeNothing();
    void labelsFollowTheColumnsOfTheConsole();
    void everyPageNamesItsSourcesDifferently();
    void namesFitIntoARecord();
};

namespace {

/// The keys that have \a color, page keys left out.
QList<quint32> inputsIn(const InputModel &model, QRgb color)
{
    auto colors = model.keyColors();
    colors.remove(InputModel::PageUpKey);
    colors.remove(InputModel::PageDownKey);
    return colors.keys(color);
}

InputModel modelAfter(const QVector<int> &keys)
{
    InputModel model;
    for (const int key : keys)
        model.press(static_cast<quint32>(key));
    return model;
}

} // namespace

void tst_InputModel::theFirstSourceStartsOnProgramAndTheSecondOnPreview()
{
    const auto colors = InputModel().keyColors();
    QCOMPARE(colors.size(), 18);
    QCOMPARE(colors.value(36), qRgb(255, 0, 0));
    QCOMPARE(colors.value(37), qRgb(0, 255, 0));
    for (quint32 key = 38; key <= 51; ++key)
        QCOMPARE(colors.value(key), qRgb(0, 0, 0));
    QCOMPARE(colors.value(52), qRgb(0, 0, 0));
    QCOMPARE(colors.value(53), qRgb(0, 0, 255));
}

void tst_InputModel::pressesMoveProgramAndPreview_data()
{
    QTest::addColumn<QVector<int>>("keys");
    QTest::addColumn<int>("expectedProgram");
    QTest::addColumn<int>("expectedPreview");
    QTest::newRow("nothing pressed") << QVector<int>{} << 36 << 37;
    QTest::newRow("an idle input") << QVector<int>{38} << 36 << 38;
    QTest::newRow("the last input") << QVector<int>{51} << 36 << 51;
    QTest::newRow("the input on preview") << QVector<int>{37} << 37 << 36;
    QTest::newRow("the input on program") << QVector<int>{36} << 36 << 37;
    QTest::newRow("an idle input twice") << QVector<int>{40, 40} << 40 << 36;
    QTest::newRow("three times the same") << QVector<int>{40, 40, 40} << 40 << 36;
    QTest::newRow("there and back") << QVector<int>{37, 36} << 36 << 37;
}

void tst_InputModel::pressesMoveProgramAndPreview()
{
    QFETCH(QVector<int>, keys);
    QFETCH(int, expectedProgram);
    QFETCH(int, expectedPreview);
    const InputModel model = modelAfter(keys);
    QCOMPARE(inputsIn(model, InputModel::Program), QList<quint32>{static_cast<quint32>(expectedProgram)});
    QCOMPARE(inputsIn(model, InputModel::Preview), QList<quint32>{static_cast<quint32>(expectedPreview)});
    QCOMPARE(inputsIn(model, InputModel::Idle).size(), 14);
}

void tst_InputModel::pageKeysTurnThePageWithoutWrappingAround_data()
{
    QTest::addColumn<QVector<int>>("keys");
    QTest::addColumn<QString>("expectedPage");
    QTest::addColumn<QRgb>("expectedUp");
    QTest::addColumn<QRgb>("expectedDown");
    const QString first = QStringLiteral("Page 1/2");
    const QString second = QStringLiteral("Page 2/2");
    QTest::newRow("up at the start") << QVector<int>{52} << first << InputModel::Idle
                                     << InputModel::Available;
    QTest::newRow("down") << QVector<int>{53} << second << InputModel::Available << InputModel::Idle;
    QTest::newRow("down at the end") << QVector<int>{53, 53} << second << InputModel::Available
                                     << InputModel::Idle;
    QTest::newRow("down and up") << QVector<int>{53, 52} << first << InputModel::Idle
                                 << InputModel::Available;
    QTest::newRow("down twice and up")
        << QVector<int>{53, 53, 52} << first << InputModel::Idle << InputModel::Available;
}

void tst_InputModel::pageKeysTurnThePageWithoutWrappingAround()
{
    QFETCH(QVector<int>, keys);
    const InputModel model = modelAfter(keys);
    QTEST(model.labelTexts().value(InputModel::PageLabel), "expectedPage");
    QTEST(model.keyColors().value(InputModel::PageUpKey), "expectedUp");
    QTEST(model.keyColors().value(InputModel::PageDownKey), "expectedDown");
}

void tst_InputModel::theSelectionStaysWithItsSourceWhenThePageTurns()
{
    InputModel model = modelAfter({53});
    QCOMPARE(inputsIn(model, InputModel::Idle).size(), 16);
    model.press(52);
    QCOMPARE(inputsIn(model, InputModel::Program), QList<quint32>{36});
    QCOMPARE(inputsIn(model, InputModel::Preview), QList<quint32>{37});
}

void tst_InputModel::aSourceOfTheSecondPageCanGoOnProgram()
{
    InputModel model = modelAfter({53, 36, 36});
    QCOMPARE(inputsIn(model, InputModel::Program), QList<quint32>{36});
    QCOMPARE(inputsIn(model, InputModel::Preview), QList<quint32>{});
    model.press(52);
    QCOMPARE(inputsIn(model, InputModel::Program), QList<quint32>{});
    QCOMPARE(inputsIn(model, InputModel::Preview), QList<quint32>{36});
}

void tst_InputModel::keysOfOtherSectionsChangeNothing_data()
{
    QTest::addColumn<quint32>("key");
    QTest::newRow("0") << 0U;
    QTest::newRow("before the inputs") << 35U;
    QTest::newRow("after the page keys") << 54U;
    QTest::newRow("broadcast") << 255U;
    QTest::newRow("a key code") << 0xff0026U;
    QTest::newRow("largest") << 0xffffffffU;
}

void tst_InputModel::keysOfOtherSectionsChangeNothing()
{
    QFETCH(quint32, key);
    InputModel model;
    model.press(key);
    QCOMPARE(model.keyColors(), InputModel().keyColors());
    QCOMPARE(model.labelTexts(), InputModel().labelTexts());
}

void tst_InputModel::labelsFollowTheColumnsOfTheConsole()
{
    const auto texts = InputModel().labelTexts();
    QCOMPARE(texts.size(), 17);
    const QVector<quint32> camLabels{12, 15, 14, 13, 17, 16, 23, 22};
    for (int i = 0; i < camLabels.size(); ++i)
        QCOMPARE(texts.value(camLabels.at(i)), QStringLiteral("CAM %1").arg(i + 1));
    for (const quint32 label : {21U, 20U, 19U, 18U, 79U, 78U, 82U, 80U})
        QVERIFY2(!texts.value(label).isEmpty(), qPrintable(QString::number(label)));
    QCOMPARE(texts.value(51), QStringLiteral("Page 1/2"));
}

void tst_InputModel::everyPageNamesItsSourcesDifferently()
{
    const auto first = InputModel().labelTexts().values();
    const auto second = modelAfter({53}).labelTexts().values();
    const QStringList all = QStringList(first) + QStringList(second);
    QCOMPARE(all.size(), 34);
    QCOMPARE(all.toSet().size(), 34);
}

void tst_InputModel::namesFitIntoARecord()
{
    const auto texts = InputModel().labelTexts().values() + modelAfter({53}).labelTexts().values();
    for (const QString &text : texts)
        QVERIFY2(!text.isEmpty() && text.toUtf8().size() <= 31, qPrintable(text));
}

QTEST_APPLESS_MAIN(tst_InputModel)

#include "tst_inputmodel.moc"
