// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <savedscenario.h>

#include <QTest>

using namespace K7Host;

class tst_SavedScenario : public QObject
{
    Q_OBJECT

private slots:
    void whatIsSavedCanBePlayed_data();
    void whatIsSavedCanBePlayed();
};

void tst_SavedScenario::whatIsSavedCanBePlayed_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QByteArray>("expectedText");
    const QByteArray press = R"({"t":100,"dir":"in","op":"press","key":58})";
    const QByteArray signal = R"({"t":101,"dir":"out","signal":"ecButtonPressed","args":[16711738]})";
    const QByteArray record = R"({"t":102,"dir":"in","op":"updateKeyboard","half":"left","result":true})";
    const QByteArray soon = R"({"t":109.9,"dir":"in","op":"release","key":58})";
    const QByteArray late = R"({"t":350.7,"dir":"in","op":"release","key":58})";
    const QByteArray answer = R"({"t":400,"dir":"in","op":"answer","button":"Ok"})";
    const QByteArray end = "\n";
    QTest::newRow("nothing") << QByteArray() << QByteArray();
    QTest::newRow("with records: the trace")
        << press + end + signal + end + record + end << press + end + signal + end + record + end;
    QTest::newRow("deeds alone") << press + end + signal + end + soon + end
                                 << QByteArray(
                                        "{\"op\":\"press\",\"key\":58}\n{\"op\":\"release\",\"key\":58}\n");
    QTest::newRow("pauses") << press + end + signal + end + late + end + answer + end
                            << QByteArray("{\"op\":\"press\",\"key\":58}\n"
                                          "{\"op\":\"wait\",\"ms\":250}\n"
                                          "{\"op\":\"release\",\"key\":58}\n"
                                          "{\"op\":\"wait\",\"ms\":49}\n"
                                          "{\"op\":\"answer\",\"button\":\"Ok\"}\n");
    QTest::newRow("nothing that anybody did") << signal + end << QByteArray();
}

void tst_SavedScenario::whatIsSavedCanBePlayed()
{
    QFETCH(QByteArray, lines);
    QFETCH(QByteArray, expectedText);
    QVector<ScenarioLine> read;
    const QList<QByteArray> texts = lines.split('\n');
    for (const QByteArray &text : texts) {
        QString error;
        if (!text.isEmpty())
            read << scenarioLineFromJson(text, &error).value();
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }
    QCOMPARE(savedScenario(read), expectedText);
}

QTEST_GUILESS_MAIN(tst_SavedScenario)

#include "tst_savedscenario.moc"
