// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "fakekeyboard.h"

#include <inspector.h>
#include <scenario.h>
#include <traffic.h>
#include <trafficmodel.h>

#include <korvo/keyboard/constants.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QGraphicsView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace K7Host;

class tst_Inspector : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void itIsAWindowOfItsOwn();
    void linesAppearAsTheyAreNoted();
    void aWordInTheFilterHidesLines();
    void eachKindHasItsBox_data();
    void eachKindHasItsBox();
    void aPauseTellsHowManyWait();
    void clearEmptiesTheList();
    void allShownLinesAreCopied();
    void onlySelectedLinesAreCopiedInTheirOrder();
    void savedLinesCanBeReadAsAScenario();
    void whatCannotBeSavedIsTold();
    void theEndIsFollowedUnlessScrolledUp();
    void whatIsLookedAtStandsStillWhenTheOldestGo();
    void aDoubleClickPutsTheLineIntoTheForm();
    void aKeyOfTheMapGoesToTheFormAndTheFilter();
    void aKeyWithTrafficFlashesInTheMap_data();
    void aKeyWithTrafficFlashesInTheMap();
    void aSentRecordIsHandedOn();
    void aPageIsAddedBesideTheMap();
    void ctrlFGoesToTheFilter();

private:
    template <typename Widget>
    Widget *child(const char *name) const;
    QTableView *view() const { return child<QTableView>("trafficView"); }
    int shown() const { return view()->model()->rowCount(); }
    void note(const ScenarioLine::Content &content, Direction direction) const;
    void noteAll() const;
    void click(const char *button) const;
    void select(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void saveAs(const QString &fileName) const;

    QSharedPointer<FakeKeyboard> m_half;
    QScopedPointer<Inspector> m_inspector;
    QScopedPointer<Traffic> m_traffic;
};

namespace {

const char ColorLine[] = "updateECButtonColor";
const char SignalName[] = "ecButtonPressed";

std::shared_ptr<Korvo::ECButtonColor> redKey()
{
    auto color = std::make_shared<Korvo::ECButtonColor>();
    color->ButtonKey = 58;
    color->R = 255;
    return color;
}

} // namespace

void tst_Inspector::init()
{
    m_half.reset(new FakeKeyboard(Qt::darkRed, {400, 200}));
    auto *key = new QToolButton(m_half.data());
    key->setGeometry(100, 100, 64, 64);
    key->setProperty(Korvo::Constants::PROPERTY_KORVOECKEY, 58);
    key->setProperty("key", QStringLiteral("PRESET_05"));
    m_inspector.reset(new Inspector({m_half}));
    m_traffic.reset(new Traffic);
    m_traffic->addListener(m_inspector->listener());
    m_inspector->show();
    QVERIFY(QTest::qWaitForWindowActive(m_inspector.data()));
}

void tst_Inspector::cleanup()
{
    m_traffic.reset();
    m_inspector.reset();
    m_half.reset();
}

template <typename Widget>
Widget *tst_Inspector::child(const char *name) const
{
    auto *widget = m_inspector->findChild<Widget *>(QLatin1String(name));
    if (!widget)
        qFatal("There is no %s", name);
    return widget;
}

void tst_Inspector::note(const ScenarioLine::Content &content, Direction direction) const
{
    m_traffic->note(direction, content);
}

/// A line of each kind.
void tst_Inspector::noteAll() const
{
    note(CallLine{redKey(), Half::Left, true}, Direction::In);
    note(SignalLine{QLatin1String(SignalName), {0xff0000 + 58}}, Direction::Out);
    note(AnswerLine{QStringLiteral("Yes")}, Direction::In);
    note(MessageLine{QStringLiteral("Remind"), {}, {}}, Direction::Out);
    QTRY_COMPARE(shown(), 4);
}

void tst_Inspector::click(const char *button) const
{
    QTest::mouseClick(child<QPushButton>(button), Qt::LeftButton);
}

void tst_Inspector::select(int row, Qt::KeyboardModifiers modifiers) const
{
    const QRect place = view()->visualRect(view()->model()->index(row, 0));
    QVERIFY(place.isValid());
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, place.center());
}

void tst_Inspector::saveAs(const QString &fileName) const
{
    click("saveButton");
    auto *dialog = m_inspector->findChild<QFileDialog *>();
    QVERIFY(dialog);
    auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    QVERIFY(edit);
    edit->setText(fileName);
    QTest::keyClick(edit, Qt::Key_Return);
    QTRY_VERIFY(!m_inspector->findChild<QFileDialog *>());
}

void tst_Inspector::itIsAWindowOfItsOwn()
{
    QCOMPARE(m_inspector->windowTitle(), QStringLiteral("K7 inspector"));
    QVERIFY(m_inspector->isWindow());
    QVERIFY(!m_inspector->testAttribute(Qt::WA_QuitOnClose));
    const Inspector owned({}, m_inspector.data());
    QVERIFY(owned.isWindow());
}

void tst_Inspector::linesAppearAsTheyAreNoted()
{
    noteAll();
    QTRY_COMPARE(child<QLabel>("statusLabel")->text(), QStringLiteral("4 of 4 lines"));
    QCOMPARE(view()->model()->index(0, 4).data().toString(),
             QStringLiteral("ButtonKey 58 PRESET_05   R 255   G 0   B 0"));
    QVERIFY(m_inspector->close());
    note(AnswerLine{QStringLiteral("No")}, Direction::In);
    QTRY_COMPARE(shown(), 5);
}

void tst_Inspector::aWordInTheFilterHidesLines()
{
    noteAll();
    QTest::keyClicks(child<QLineEdit>("filterEdit"), QStringLiteral("preset_05 pressed"));
    QCOMPARE(shown(), 1);
    QCOMPARE(child<QLabel>("statusLabel")->text(), QStringLiteral("1 of 4 lines"));
}

void tst_Inspector::eachKindHasItsBox_data()
{
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("name");

    QTest::newRow("records") << QByteArray("recordsBox") << QString::fromLatin1(ColorLine);
    QTest::newRow("signals") << QByteArray("signalsBox") << QString::fromLatin1(SignalName);
    QTest::newRow("input") << QByteArray("inputBox") << QStringLiteral("answer");
    QTest::newRow("messages") << QByteArray("messagesBox") << QStringLiteral("message");
}

void tst_Inspector::eachKindHasItsBox()
{
    QFETCH(QByteArray, box);
    QFETCH(QString, name);
    noteAll();
    auto *checkBox = child<QCheckBox>(box.constData());
    QVERIFY(checkBox->isChecked());
    QTest::mouseClick(checkBox, Qt::LeftButton, Qt::NoModifier, {10, checkBox->height() / 2});
    QCOMPARE(shown(), 3);
    for (int row = 0; row < shown(); ++row)
        QVERIFY(view()->model()->index(row, 2).data().toString() != name);
    QTest::mouseClick(checkBox, Qt::LeftButton, Qt::NoModifier, {10, checkBox->height() / 2});
    QCOMPARE(shown(), 4);
}

void tst_Inspector::aPauseTellsHowManyWait()
{
    noteAll();
    click("pauseButton");
    note(AnswerLine{QStringLiteral("No")}, Direction::In);
    note(AnswerLine{QStringLiteral("No")}, Direction::In);
    QTRY_COMPARE(child<QLabel>("statusLabel")->text(), QStringLiteral("4 of 4 lines, 2 more wait"));
    QCOMPARE(shown(), 4);
    click("pauseButton");
    QCOMPARE(shown(), 6);
    QCOMPARE(child<QLabel>("statusLabel")->text(), QStringLiteral("6 of 6 lines"));
}

void tst_Inspector::clearEmptiesTheList()
{
    noteAll();
    click("clearButton");
    QCOMPARE(shown(), 0);
    QCOMPARE(child<QLabel>("statusLabel")->text(), QStringLiteral("0 of 0 lines"));
}

void tst_Inspector::allShownLinesAreCopied()
{
    noteAll();
    child<QLineEdit>("filterEdit")->setText(QStringLiteral("58"));
    click("copyButton");
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).contains(QLatin1String(ColorLine)));
    QVERIFY(lines.at(1).contains(QLatin1String(SignalName)));
    QCOMPARE(lines.at(2), QString());
    QString error;
    QVERIFY(scenarioLineFromJson(lines.at(0).toUtf8(), &error));
    QCOMPARE(error, QString());
}

void tst_Inspector::onlySelectedLinesAreCopiedInTheirOrder()
{
    noteAll();
    select(2);
    select(1, Qt::ControlModifier);
    QTest::keyClick(view(), Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).contains(QLatin1String(SignalName)));
    QVERIFY(lines.at(1).contains(QLatin1String("answer")));
}

void tst_Inspector::savedLinesCanBeReadAsAScenario()
{
    const QTemporaryDir dir;
    const QString fileName = dir.filePath(QStringLiteral("lines.jsonl"));
    noteAll();
    saveAs(fileName);
    Scenario scenario;
    const auto fault = readScenario(fileName, &scenario);
    QVERIFY2(!fault, qPrintable(fault ? fault->text : QString()));
    QCOMPARE(scenario.steps.size(), 4);
    QVERIFY(scenario.isTrace());
    for (int row = 0; row < 4; ++row) {
        const auto line = view()->model()->index(row, 0).data(TrafficModel::LineRole).value<ScenarioLine>();
        QCOMPARE(toJson(scenario.steps.at(row).line), toJson(line));
    }
    QCOMPARE(child<QLabel>("faultLabel")->text(), QString());
}

void tst_Inspector::whatCannotBeSavedIsTold()
{
    const QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("gone"));
    QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("gone")));
    noteAll();
    click("saveButton");
    auto *dialog = m_inspector->findChild<QFileDialog *>();
    QVERIFY(dialog);
    emit dialog->fileSelected(folder + QStringLiteral("/none/lines.jsonl"));
    const QString fault = child<QLabel>("faultLabel")->text();
    QVERIFY2(fault.startsWith(QStringLiteral("Cannot save %1/none/lines.jsonl: ").arg(folder)),
             qPrintable(fault));
    dialog->reject();
    QTRY_VERIFY(!m_inspector->findChild<QFileDialog *>());

    saveAs(folder + QStringLiteral("/lines.jsonl"));
    QCOMPARE(child<QLabel>("faultLabel")->text(), QString());
}

void tst_Inspector::theEndIsFollowedUnlessScrolledUp()
{
    const QScrollBar *bar = view()->verticalScrollBar();
    const auto noteMany = [this](int count) {
        const int before = shown();
        for (int i = 0; i < count; ++i)
            note(AnswerLine{QStringLiteral("No")}, Direction::In);
        QTRY_COMPARE(shown(), before + count);
    };
    noteMany(100);
    QVERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), bar->maximum());
    noteMany(100);
    QCOMPARE(bar->value(), bar->maximum());

    QTest::keyClick(view(), Qt::Key_PageUp);
    QTest::keyClick(view(), Qt::Key_PageUp);
    view()->verticalScrollBar()->setValue(40);
    noteMany(100);
    QCOMPARE(bar->value(), 40);
    view()->verticalScrollBar()->setValue(bar->maximum());
    noteMany(10);
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_Inspector::whatIsLookedAtStandsStillWhenTheOldestGo()
{
    constexpr int Looked = 15000;
    auto noteUpTo = [this, noted = 0](int end) mutable {
        for (; noted < end; ++noted)
            note(WaitLine{noted}, Direction::In);
    };
    const auto top = [this] {
        const QModelIndex index = view()->indexAt({view()->width() / 2, 1});
        return index.sibling(index.row(), TrafficModel::FieldsColumn).data().toString();
    };
    noteUpTo(TrafficModel::DefaultLineCount);
    QTRY_COMPARE(shown(), TrafficModel::DefaultLineCount);
    view()->verticalScrollBar()->setValue(Looked);
    QCOMPARE(top(), QStringLiteral("15000 ms"));
    noteUpTo(TrafficModel::DefaultLineCount * 3 / 2);
    QTRY_COMPARE(view()->model()->index(0, TrafficModel::FieldsColumn).data().toString(),
                 QStringLiteral("10000 ms"));
    QCOMPARE(top(), QStringLiteral("15000 ms"));
}

void tst_Inspector::aDoubleClickPutsTheLineIntoTheForm()
{
    noteAll();
    const QPoint place = view()->visualRect(view()->model()->index(0, 2)).center();
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(child<QDoubleSpinBox>("ButtonKey")->value(), 58.0);
    QCOMPARE(child<QDoubleSpinBox>("R")->value(), 255.0);
}

void tst_Inspector::aKeyOfTheMapGoesToTheFormAndTheFilter()
{
    noteAll();
    auto *map = child<QGraphicsView>("keyMap");
    QTest::mouseClick(map->viewport(), Qt::LeftButton, Qt::NoModifier,
                      map->mapFromScene(map->sceneRect().center()));
    QCOMPARE(child<QDoubleSpinBox>("ButtonKey")->value(), 58.0);
    QCOMPARE(child<QLineEdit>("filterEdit")->text(), QStringLiteral("PRESET_05"));
    QCOMPARE(shown(), 2);
}

void tst_Inspector::aKeyWithTrafficFlashesInTheMap_data()
{
    QTest::addColumn<ScenarioLine>("line");
    QTest::addColumn<bool>("flashes");

    const auto row = [](const char *title, const ScenarioLine::Content &content, bool flashes) {
        QTest::newRow(title) << ScenarioLine{{}, {}, content} << flashes;
    };
    auto text = std::make_shared<Korvo::ECOLEDText>();
    text->OledKey = 58;
    const auto signal = [](const char *name, int argument) {
        return SignalLine{QLatin1String(name), {argument}};
    };
    row("colour", CallLine{redKey(), Half::Left, true}, true);
    row("key goes down", signal("ecButtonPressed", 0xff0000 + 58), true);
    row("key comes up", signal("ecButtonRelease", 0xff0000 + 58), true);
    row("another key", signal("ecButtonPressed", 0xff0000 + 59), false);
    row("another signal", signal("ecTBarValueChanged", 0xff0000 + 58), false);
    row("text for a label of that id", CallLine{text, Half::Left, true}, false);
    row("no record", CallLine{std::shared_ptr<Korvo::ECButtonColor>(), Half::Left, true}, false);
}

void tst_Inspector::aKeyWithTrafficFlashesInTheMap()
{
    QFETCH(ScenarioLine, line);
    QFETCH(bool, flashes);
    auto *map = child<QGraphicsView>("keyMap");
    QTest::mouseMove(child<QLineEdit>("filterEdit")); // no key is hovered
    // Of the only key, below its name.
    const QPointF place = map->sceneRect().center() + QPointF(0, 25);
    const auto color = [map, place] {
        return map->viewport()->grab().toImage().pixelColor(map->mapFromScene(place));
    };
    const QColor before = color();
    note(line.content, Direction::In);
    QTRY_COMPARE(shown(), 1);
    QCOMPARE(color() != before, flashes);
    QTRY_COMPARE(color(), before);
}

void tst_Inspector::aSentRecordIsHandedOn()
{
    QStringList sent;
    connect(m_inspector.data(), &Inspector::callRequested, this,
            [&sent](const HostCall &call, std::optional<Half> half) {
                sent << operationName(call) + (half ? halfName(*half) : QString());
            });
    click("sendButton");
    QCOMPARE(sent, QStringList{QLatin1String(ColorLine)});
}

void tst_Inspector::aPageIsAddedBesideTheMap()
{
    auto *pages = child<QTabWidget>("pages");
    const QPointer<QLabel> page = new QLabel;
    m_inspector->addPage(page, QStringLiteral("Latency"));
    QCOMPARE(pages->count(), 2);
    QCOMPARE(pages->tabText(1), QStringLiteral("Latency"));
    m_traffic.reset();
    m_inspector.reset();
    QVERIFY(!page);
}

void tst_Inspector::ctrlFGoesToTheFilter()
{
    view()->setFocus();
    QVERIFY(!child<QLineEdit>("filterEdit")->hasFocus());
    QTest::keyClick(view(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(child<QLineEdit>("filterEdit")->hasFocus());
}

QTEST_MAIN(tst_Inspector)

#include "tst_inspector.moc"
