// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "fakekeyboard.h"

#include <trafficmodel.h>

#include <korvo/keyboard/constants.h>

#include <QAbstractItemModelTester>
#include <QIcon>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QToolButton>

#include <cstring>
#include <thread>
#include <vector>

using namespace K7Host;

class tst_TrafficModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aLineIsShownInWords_data();
    void aLineIsShownInWords();
    void aColorIsShownAsSuch();
    void theWholeLineIsInTheToolTip();
    void rolesGiveTheLineAndWhatAFilterNeeds();
    void linesOfABurstEnterTogether();
    void nothingRunsWhileNothingIsNoted();
    void linesOfOtherThreadsEnterInOrder();
    void onlyTheLastLinesAreKept();
    void theListStandsStillWhilePaused();
    void noMoreWaitThanAreKept();
    void clearForgetsAllThatWasNoted();
    void everyColumnHasATitle();

private:
    QString text(int row, int column) const;
    void note(const ScenarioLine::Content &content, Direction direction = Direction::In) const;
    void noteNumbers(int first, int count) const;
    int number(int row) const;

    QSharedPointer<FakeKeyboard> m_half;
    QScopedPointer<TrafficModel> m_model;
    QScopedPointer<QAbstractItemModelTester> m_tester;
};

Q_DECLARE_METATYPE(K7Host::Direction)

namespace {

constexpr int LineCount = 100;

std::shared_ptr<Korvo::ECButtonColor> redKey()
{
    auto color = std::make_shared<Korvo::ECButtonColor>();
    color->ButtonKey = 58;
    color->R = 255;
    return color;
}

std::shared_ptr<Korvo::ECOLEDText> fullText()
{
    auto text = std::make_shared<Korvo::ECOLEDText>();
    text->OledKey = 58;
    text->ECKey = 9;
    std::memset(text->OledText, 'x', sizeof text->OledText);
    return text;
}

std::shared_ptr<Korvo::ECDeviceIPData> addresses()
{
    auto data = std::make_shared<Korvo::ECDeviceIPData>();
    data->Index = 1;
    data->IP = 0x0d01a8c0;
    data->Mask = 0x00ffffff;
    return data;
}

std::shared_ptr<Korvo::ECTBarValue> lever()
{
    auto value = std::make_shared<Korvo::ECTBarValue>();
    value->Value = 606;
    value->IsBottomToTop = 1;
    return value;
}

InputLine press()
{
    InputLine line;
    line.action = InputLine::Press;
    line.keyId = 58;
    line.at = QPoint(3, 4);
    line.finger = 2;
    return line;
}

InputLine set()
{
    InputLine line;
    line.action = InputLine::Set;
    line.widget = QStringLiteral("lineEdit_IP");
    line.value = QStringLiteral("1.2.3.4");
    return line;
}

InputLine wheel()
{
    InputLine line;
    line.action = InputLine::Wheel;
    line.keyName = QStringLiteral("TAKE");
    line.delta = QPoint(0, -120);
    return line;
}

InputLine type()
{
    InputLine line;
    line.action = InputLine::Type;
    line.keys = QStringLiteral("Ctrl+A");
    return line;
}

} // namespace

void tst_TrafficModel::initTestCase()
{
    m_half.reset(new FakeKeyboard(Qt::darkRed, {100, 100}));
    auto *key = new QToolButton(m_half.data());
    key->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, 58);
    key->setProperty("key", QStringLiteral("PRESET_05"));
    auto *label = new QLabel(m_half.data());
    label->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, 58);
    label->setProperty("key", QStringLiteral("OLED_CS059"));
}

void tst_TrafficModel::init()
{
    m_model.reset(new TrafficModel(KeyNames({m_half}), LineCount));
    m_tester.reset(
        new QAbstractItemModelTester(m_model.data(), QAbstractItemModelTester::FailureReportingMode::QtTest));
}

void tst_TrafficModel::cleanup()
{
    m_tester.reset();
    m_model.reset();
}

QString tst_TrafficModel::text(int row, int column) const
{
    return m_model->index(row, column).data().toString();
}

void tst_TrafficModel::note(const ScenarioLine::Content &content, Direction direction) const
{
    m_model->noted({12345.6, direction, content});
}

void tst_TrafficModel::noteNumbers(int first, int count) const
{
    for (int i = first; i < first + count; ++i)
        note(WaitLine{i});
}

int tst_TrafficModel::number(int row) const
{
    const auto line = m_model->index(row, 0).data(TrafficModel::LineRole).value<ScenarioLine>();
    const auto *wait = std::get_if<WaitLine>(&line.content);
    return wait ? wait->ms : -1;
}

void tst_TrafficModel::aLineIsShownInWords_data()
{
    QTest::addColumn<ScenarioLine>("line");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("half");
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("result");

    const auto row = [](const char *title, const ScenarioLine::Content &content, const char *name,
                        const char *fields, const char *half = "", const char *result = "") {
        QTest::newRow(title) << ScenarioLine{0.0, Direction::In, content} << QString::fromUtf8(name)
                             << QString::fromUtf8(half) << QString::fromUtf8(fields)
                             << QString::fromUtf8(result);
    };
    row("colour", CallLine{redKey(), Half::Left, true}, "updateECButtonColor",
        "ButtonKey 58 PRESET_05   R 255   G 0   B 0", "left", "true");
    row("text, full", CallLine{fullText(), Half::Right, false}, "updateECOledText",
        "OledKey 58 OLED_CS059   ECKey 9   OledText \"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\"", "right", "false");
    row("addresses", CallLine{addresses(), {}, {}}, "updateECDeviceIP",
        "Index 1   Status 0   IP 192.168.1.13   Mask 255.255.255.0   Gateway 0.0.0.0", "both");
    row("lever", CallLine{lever(), {}, {}}, "updateTBarValue", "Value 606 (50.5 %)   IsBottomToTop 1",
        "both");
    row("null", CallLine{std::shared_ptr<Korvo::DVIInSignal>(), {}, {}}, "updateDVISignalStatus", "null",
        "both");
    row("no record", CallLine{IdleLook(), Half::Left, {}}, "applyNoramlStyleSheet", "", "left");
    row("key code", SignalLine{QStringLiteral("ecButtonPressed"), {16711738}}, "ecButtonPressed",
        "key 58 PRESET_05");
    row("lamp", SignalLine{QStringLiteral("signalFrontLightStatusChanged"), {true, 7}},
        "signalFrontLightStatusChanged", "on true   brightness 7");
    row("moved lever", SignalLine{QStringLiteral("ecTBarValueChanged"), {600, false}}, "ecTBarValueChanged",
        "value 600 (50.0 %)   isBottomToTop false");
    row("screens",
        SignalLine{QStringLiteral("signalSetPeripheralDataChange"), {1, -1, QJsonArray{1920, 1080}}},
        "signalSetPeripheralDataChange", "count 1   operationScreen -1   sizes 1920 1080");
    row("press", press(), "press", "key 58 PRESET_05   finger 2   at 3,4");
    row("set", set(), "set", "widget lineEdit_IP   value \"1.2.3.4\"");
    row("wheel", wheel(), "wheel", "key TAKE   delta 0,-120");
    row("type", type(), "type", "keys Ctrl+A");
    row("answer", AnswerLine{QStringLiteral("Yes")}, "answer", "Yes");
    row("wait", WaitLine{20}, "wait", "20 ms");
    row("wait for", WaitForLine{QStringLiteral("ecButtonPressed"), 30}, "waitFor", "ecButtonPressed   30 ms");
    row("picture", ScreenshotLine{QStringLiteral("a.png")}, "screenshot", "a.png");
    row("message", MessageLine{QStringLiteral("Remind"), QStringLiteral("Set\nit?"), {}}, "message",
        "Remind   Set it?");
    row("gap", GapLine{3}, "gap", "no room for 3 lines");
}

void tst_TrafficModel::aLineIsShownInWords()
{
    QFETCH(ScenarioLine, line);
    QFETCH(QString, name);
    QFETCH(QString, half);
    QFETCH(QString, fields);
    QFETCH(QString, result);

    m_model->noted({12345.6, Direction::In, line.content});
    m_model->noted({12345.6, Direction::Out, line.content});
    QTRY_COMPARE(m_model->rowCount(), 2);
    QCOMPARE(text(0, TrafficModel::TimeColumn), QStringLiteral("12.346"));
    QCOMPARE(text(0, TrafficModel::DirectionColumn), QStringLiteral("\u2192 console"));
    QCOMPARE(text(1, TrafficModel::DirectionColumn), QStringLiteral("\u2190 console"));
    QCOMPARE(text(0, TrafficModel::NameColumn), name);
    QCOMPARE(text(0, TrafficModel::HalfColumn), half);
    QCOMPARE(text(0, TrafficModel::FieldsColumn), fields);
    QCOMPARE(text(0, TrafficModel::ResultColumn), result);
}

void tst_TrafficModel::aColorIsShownAsSuch()
{
    note(CallLine{redKey(), Half::Left, true});
    note(CallLine{fullText(), Half::Left, true});
    QTRY_COMPARE(m_model->rowCount(), 2);
    const QModelIndex fields = m_model->index(0, TrafficModel::FieldsColumn);
    for (const auto mode : {QIcon::Normal, QIcon::Selected}) {
        const QImage swatch = fields.data(Qt::DecorationRole).value<QIcon>().pixmap(64, mode).toImage();
        QVERIFY(!swatch.isNull());
        QCOMPARE(swatch.pixelColor(swatch.rect().center()), QColor(Qt::red));
    }
    QVERIFY(!m_model->index(0, TrafficModel::NameColumn).data(Qt::DecorationRole).isValid());
    QVERIFY(!m_model->index(1, TrafficModel::FieldsColumn).data(Qt::DecorationRole).isValid());
}

void tst_TrafficModel::theWholeLineIsInTheToolTip()
{
    note(SignalLine{QStringLiteral("signalUpdateSystemTime"), {QStringLiteral("<b>"), QString()}});
    QTRY_COMPARE(m_model->rowCount(), 1);
    const QString toolTip = m_model->index(0, 0).data(Qt::ToolTipRole).toString();
    QVERIFY2(toolTip.contains(QStringLiteral("&quot;args&quot;:[&quot;&lt;b&gt;&quot;,&quot;&quot;]")),
             qPrintable(toolTip));
}

void tst_TrafficModel::rolesGiveTheLineAndWhatAFilterNeeds()
{
    note(CallLine{redKey(), Half::Left, true});
    note(SignalLine{QStringLiteral("ecButtonRelease"), {16711738}}, Direction::Out);
    note(press());
    note(MessageLine{QStringLiteral("Remind"), {}, {}}, Direction::Out);
    QTRY_COMPARE(m_model->rowCount(), 4);

    const auto line = m_model->index(0, 2).data(TrafficModel::LineRole).value<ScenarioLine>();
    QCOMPARE(toJson(line), toJson({12345.6, Direction::In, CallLine{redKey(), Half::Left, true}}));
    const QVector<TrafficKind> kinds{RecordTraffic, SignalTraffic, InputTraffic, MessageTraffic};
    for (int row = 0; row < kinds.size(); ++row)
        QCOMPARE(m_model->index(row, 0).data(TrafficModel::KindRole).toInt(), int(kinds.at(row)));
    QCOMPARE(m_model->index(1, 0).data(TrafficModel::SearchRole).toString(),
             QStringLiteral("ecButtonRelease key 58 PRESET_05"));
}

void tst_TrafficModel::linesOfABurstEnterTogether()
{
    const QSignalSpy inserted(m_model.data(), &TrafficModel::rowsInserted);
    noteNumbers(0, 50);
    QCOMPARE(m_model->rowCount(), 0);
    QTRY_COMPARE(m_model->rowCount(), 50);
    QCOMPARE(inserted.count(), 1);
    noteNumbers(50, 1);
    QTRY_COMPARE(m_model->rowCount(), 51);
    QCOMPARE(inserted.count(), 2);
}

void tst_TrafficModel::nothingRunsWhileNothingIsNoted()
{
    const auto timers = m_model->findChildren<QTimer *>();
    QCOMPARE(timers.size(), 1);
    const QTimer *timer = timers.first();
    QVERIFY(!timer->isActive());
    noteNumbers(0, 2);
    QTRY_VERIFY(timer->isActive());
    QTRY_COMPARE(m_model->rowCount(), 2);
    QVERIFY(!timer->isActive());

    m_model->setPaused(true);
    noteNumbers(2, 1);
    QTRY_VERIFY(timer->isActive());
    QTRY_VERIFY(!timer->isActive());
}

void tst_TrafficModel::linesOfOtherThreadsEnterInOrder()
{
    constexpr int Threads = 4;
    constexpr int Lines = 20; // of each: as many in all as are kept
    const QSignalSpy inserted(m_model.data(), &TrafficModel::rowsInserted);
    QThread *insertedIn = nullptr;
    connect(
        m_model.data(), &TrafficModel::rowsInserted, m_model.data(),
        [&insertedIn] { insertedIn = QThread::currentThread(); }, Qt::DirectConnection);
    std::vector<std::thread> threads;
    threads.reserve(Threads);
    for (int i = 0; i < Threads; ++i)
        threads.emplace_back([this, i] { noteNumbers(i * 1000, Lines); });
    for (std::thread &thread : threads)
        thread.join();
    QTRY_COMPARE(m_model->rowCount(), Threads * Lines);
    QCOMPARE(insertedIn, thread());

    QVector<int> last(Threads, -1);
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const int value = number(row);
        QCOMPARE(value % 1000, last.at(value / 1000) + 1);
        last[value / 1000] = value % 1000;
    }
}

void tst_TrafficModel::onlyTheLastLinesAreKept()
{
    int noted = 0;
    const QSignalSpy removed(m_model.data(), &TrafficModel::rowsRemoved);
    for (int step = 0; step < 30; ++step) {
        noteNumbers(noted, 7);
        noted += 7;
        QTRY_COMPARE(number(m_model->rowCount() - 1), noted - 1);
        QVERIFY(m_model->rowCount() >= qMin(noted, LineCount));
        QVERIFY(m_model->rowCount() < LineCount + LineCount / 10);
        QCOMPARE(number(0), noted - m_model->rowCount());
    }
    QVERIFY(removed.count() > 0);
    QVERIFY2(removed.count() <= 11, "they go in larger numbers");
}

void tst_TrafficModel::theListStandsStillWhilePaused()
{
    noteNumbers(0, 3);
    QTRY_COMPARE(m_model->rowCount(), 3);
    m_model->setPaused(true);
    QSignalSpy waiting(m_model.data(), &TrafficModel::waitingChanged);
    noteNumbers(3, 2);
    QVERIFY(waiting.wait());
    QCOMPARE(waiting.takeLast().constFirst().toInt(), 2);
    noteNumbers(5, 1);
    QVERIFY(waiting.wait());
    QCOMPARE(waiting.takeLast().constFirst().toInt(), 3);
    QCOMPARE(m_model->rowCount(), 3);

    m_model->setPaused(false);
    QCOMPARE(m_model->rowCount(), 6);
    QCOMPARE(number(5), 5);
    QCOMPARE(waiting.takeLast().constFirst().toInt(), 0);
}

void tst_TrafficModel::noMoreWaitThanAreKept()
{
    m_model->setPaused(true);
    noteNumbers(0, LineCount + 30);
    m_model->setPaused(false);
    QCOMPARE(m_model->rowCount(), LineCount);
    QCOMPARE(number(0), 30);
    QCOMPARE(number(LineCount - 1), LineCount + 29);
}

void tst_TrafficModel::clearForgetsAllThatWasNoted()
{
    noteNumbers(0, 3);
    QTRY_COMPARE(m_model->rowCount(), 3);
    m_model->setPaused(true);
    noteNumbers(3, 3);
    m_model->clear();
    QCOMPARE(m_model->rowCount(), 0);
    m_model->setPaused(false);
    QCOMPARE(m_model->rowCount(), 0);
    noteNumbers(6, 1);
    QTRY_COMPARE(m_model->rowCount(), 1);
    QCOMPARE(number(0), 6);
}

void tst_TrafficModel::everyColumnHasATitle()
{
    QStringList titles;
    for (int column = 0; column < m_model->columnCount(); ++column)
        titles << m_model->headerData(column, Qt::Horizontal).toString();
    QCOMPARE(titles.size(), 6);
    QVERIFY(!titles.contains(QString()));
    QCOMPARE(titles.removeDuplicates(), 0);
}

QTEST_MAIN(tst_TrafficModel)

#include "tst_trafficmodel.moc"
