// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "panelsupport.h"
#include "support.h"

#include <korvo/widgets/slidereditframe.h>

#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>

using Korvo::Internal::ConsoleFloatWidget;
using Korvo::Widgets::SliderEditFrame;

namespace {

const char OperationMarker[] = "isScreenButtonCheckStatus";
const char Resolution[] = "screenFrame";

} // namespace

/// The peripheral screens of the settings panel.
class tst_ConsoleScreens : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void oneScreenIsThereAtFirst();
    void upToSixteenScreensCanBeChosen();
    void theNumberIsFollowedThroughAnySequence_data();
    void theNumberIsFollowedThroughAnySequence();
    void newScreensLookLikeTheFirst();
    void screensTakenAwayAreHiddenAndKept();
    void takingTheShownScreenAwayShowsTheFirst();
    void remainingScreensKeepTheirResolution();
    void aNewNumberClearsTheOperationScreen_data();
    void aNewNumberClearsTheOperationScreen();

    void aScreenShowsItsOwnResolution();
    void typedResolutionsStayInRange_data();
    void typedResolutionsStayInRange();
    void checkingMakesTheShownScreenTheOperationScreen();
    void checkingAnotherScreenMovesTheMark();
    void uncheckingClearsTheOperationScreen();
    void lookingAtAnotherScreenKeepsTheOperationScreen();
    void aStateThatConcernsAnotherScreenChangesNothing();
    void aPartlyCheckedStateChangesNothing();
    void theMarkTakesEffectAtOnce();
    void unknownScreensAreIgnored();

    void applySendsAllScreens_data();
    void applySendsAllScreens();
    void applyNeedsAnOperationScreen_data();
    void applyNeedsAnOperationScreen();
    void applyWithALostScreenSendsNothing();
    void nothingButApplySends();
    void theSectionIsShownAndHiddenAsAWhole();

private:
    void choose(int count);
    void select(int id);
    void typeSize(int width, int height);
    void typeNumber(const char *name, int value);
    void clickOperation();
    int shownId() const { return group()->checkedId(); }
    QButtonGroup *group() const;
    QPushButton *screen(int id) const { return qobject_cast<QPushButton *>(group()->button(id)); }
    QComboBox *number() const { return find<QComboBox>(m_panel.get(), "screenNumberCombox"); }
    QCheckBox *operation() const { return find<QCheckBox>(m_panel.get(), "currentPanelCheckBox"); }
    SliderEditFrame *editor(const char *name) const { return find<SliderEditFrame>(m_panel.get(), name); }
    QSize shownSize() const { return {editor("spinBox_width")->value(), editor("spinBox_height")->value()}; }
    QSize sizeOf(int id) const { return screen(id)->property(Resolution).toSize(); }
    QList<int> ids() const;
    QList<int> marked() const;
    QStringList sent() const { return m_told->only({QStringLiteral("signalSetPeripheralDataChange")}); }

    std::unique_ptr<SettingsFolder> m_folder;
    std::unique_ptr<ConsoleFloatWidget> m_panel;
    std::unique_ptr<SignalNotes> m_told;
};

void tst_ConsoleScreens::init()
{
    m_folder = std::make_unique<SettingsFolder>();
    m_panel = std::make_unique<ConsoleFloatWidget>();
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
    m_told = std::make_unique<SignalNotes>(m_panel.get());
}

void tst_ConsoleScreens::cleanup()
{
    m_told.reset();
    m_panel.reset();
    m_folder.reset();
}

QButtonGroup *tst_ConsoleScreens::group() const
{
    const QList<QPushButton *> buttons =
        find(m_panel.get(), "screenButtonFrame")->findChildren<QPushButton *>();
    for (const QPushButton *button : buttons) {
        if (button->group())
            return button->group();
    }
    qFatal("no screen has a group");
}

QList<int> tst_ConsoleScreens::ids() const
{
    QList<int> all;
    const QList<QAbstractButton *> buttons = group()->buttons();
    for (QAbstractButton *button : buttons)
        all << group()->id(button);
    return all;
}

/// The ids of the screens that are marked as the operation screen.
QList<int> tst_ConsoleScreens::marked() const
{
    QList<int> all;
    const QList<QAbstractButton *> buttons = group()->buttons();
    for (QAbstractButton *button : buttons) {
        if (button->property(OperationMarker) == QVariant(true))
            all << group()->id(button);
    }
    return all;
}

/// Chooses from the popup, as a hand does.
void tst_ConsoleScreens::choose(int count)
{
    number()->showPopup();
    QAbstractItemView *view = number()->view();
    QTRY_VERIFY(view->isVisible());
    const QModelIndex item = view->model()->index(count - 1, 0);
    view->scrollTo(item);
    QTest::mouseMove(view->viewport(), view->visualRect(item).center());
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(item).center());
    QTRY_VERIFY(!view->isVisible());
    QCoreApplication::processEvents(); // the layout shows new screens
    QCOMPARE(number()->currentText(), QString::number(count));
}

void tst_ConsoleScreens::select(int id)
{
    QTest::mouseClick(screen(id), Qt::LeftButton);
    QCOMPARE(shownId(), id);
}

void tst_ConsoleScreens::typeNumber(const char *name, int value)
{
    auto *field = editor(name)->findChild<QSpinBox *>();
    QVERIFY(field);
    field->selectAll();
    QTest::keyClicks(field, QString::number(value));
    QTest::keyClick(field, Qt::Key_Return);
}

void tst_ConsoleScreens::typeSize(int width, int height)
{
    typeNumber("spinBox_width", width);
    typeNumber("spinBox_height", height);
    QCOMPARE(shownSize(), QSize(width, height));
}

void tst_ConsoleScreens::clickOperation()
{
    const bool before = operation()->isChecked();
    QTest::mouseClick(operation(), Qt::LeftButton, Qt::NoModifier, QPoint(6, operation()->height() / 2));
    QCOMPARE(operation()->isChecked(), !before);
}

void tst_ConsoleScreens::oneScreenIsThereAtFirst()
{
    QCOMPARE(ids(), QList<int>{0});
    QCOMPARE(shownId(), 0);
    QCOMPARE(shownSize(), QSize(1920, 1080));
    QCOMPARE(sizeOf(0), QSize(1920, 1080));
    QVERIFY(!operation()->isChecked());
    QCOMPARE(screen(0)->property(OperationMarker), QVariant(false));
    QVERIFY(group()->exclusive());
    QVERIFY(!group()->parent());
    QCOMPARE(m_told->lines, QStringList());
}

void tst_ConsoleScreens::upToSixteenScreensCanBeChosen()
{
    QCOMPARE(number()->count(), 16);
    for (int i = 0; i < 16; ++i) {
        QCOMPARE(number()->itemText(i), QString::number(i + 1));
        QVERIFY(number()->itemIcon(i).isNull());
    }
    QCOMPARE(number()->currentText(), QStringLiteral("1"));
    QVERIFY(!number()->isEditable());
    QCOMPARE(QByteArray(number()->view()->metaObject()->className()), QByteArray("QListView"));
}

void tst_ConsoleScreens::theNumberIsFollowedThroughAnySequence_data()
{
    QTest::addColumn<QList<int>>("numbers");
    QTest::newRow("one more") << QList<int>{2};
    QTest::newRow("all at once, and back") << QList<int>{16, 1};
    QTest::newRow("up, down and up") << QList<int>{4, 2, 4};
    QTest::newRow("up and down in steps") << QList<int>{2, 3, 4, 3, 2, 1};
    QTest::newRow("to and fro") << QList<int>{16, 1, 16, 1, 16, 8};
    QTest::newRow("the same again") << QList<int>{5, 5};
}

void tst_ConsoleScreens::theNumberIsFollowedThroughAnySequence()
{
    QFETCH(QList<int>, numbers);
    const auto *layout = qobject_cast<QHBoxLayout *>(find(m_panel.get(), "screenButtonFrame")->layout());
    for (const int count : numbers) {
        choose(count);
        QList<int> expected;
        for (int id = 0; id < count; ++id)
            expected << id;
        QCOMPARE(ids(), expected);
        QCOMPARE(shownId(), 0);

        // Those that are shown stand in a row, from the first to the last, before the stretch.
        QVERIFY(layout);
        QVERIFY(layout->itemAt(layout->count() - 1)->spacerItem());
        QList<int> row;
        for (int i = 0; i < layout->count() - 1; ++i) {
            auto *button = qobject_cast<QPushButton *>(layout->itemAt(i)->widget());
            QVERIFY(button);
            QCOMPARE(button->group() == group(), !button->isHidden());
            if (!button->isHidden())
                row << group()->id(button);
        }
        QCOMPARE(row, expected);
    }
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(m_told->lines, QStringList());
}

void tst_ConsoleScreens::newScreensLookLikeTheFirst()
{
    choose(16);
    for (int id = 0; id < 16; ++id) {
        const QPushButton *button = screen(id);
        QVERIFY(button->isCheckable());
        QCOMPARE(button->isChecked(), id == 0);
        QVERIFY(!button->autoDefault());
        QCOMPARE(button->minimumSize(), QSize(64, 36));
        QCOMPARE(button->maximumSize(), QSize(64, 36));
        QCOMPARE(button->property(Resolution), QVariant(QSize(1920, 1080)));
        QCOMPARE(button->property(OperationMarker), QVariant(false));
        QCOMPARE(button->parentWidget()->objectName(), QStringLiteral("screenButtonFrame"));
        QVERIFY(button->isVisible());
    }
}

void tst_ConsoleScreens::screensTakenAwayAreHiddenAndKept()
{
    choose(4);
    select(2);
    typeSize(3840, 2160);
    const QPointer<QPushButton> second(screen(1));
    const QPointer<QPushButton> third(screen(2));
    const QPointer<QPushButton> fourth(screen(3));

    choose(2);
    for (const QPointer<QPushButton> &gone : {third, fourth}) {
        QVERIFY(gone);
        QVERIFY(gone->isHidden());
        QVERIFY(!gone->isChecked());
        QVERIFY(!gone->group());
    }
    QCOMPARE(screen(1), second.data());
    QVERIFY(!second->isHidden());

    choose(4);
    QVERIFY(screen(2) != third.data());
    QVERIFY(screen(3) != fourth.data());
    QCOMPARE(sizeOf(2), QSize(1920, 1080));
    QCOMPARE(sizeOf(3), QSize(1920, 1080));
    QVERIFY(third->isHidden());
}

void tst_ConsoleScreens::takingTheShownScreenAwayShowsTheFirst()
{
    choose(3);
    typeSize(800, 600);
    select(2);
    typeSize(3840, 2160);
    choose(2);
    QCOMPARE(shownId(), 0);
    QCOMPARE(shownSize(), QSize(800, 600));
    QCOMPARE(sizeOf(0), QSize(800, 600));
    QCOMPARE(sizeOf(1), QSize(1920, 1080));
}

void tst_ConsoleScreens::remainingScreensKeepTheirResolution()
{
    choose(4);
    select(1);
    typeSize(2560, 1440);
    choose(2);
    QCOMPARE(shownId(), 1); // one that stays is shown on
    QCOMPARE(shownSize(), QSize(2560, 1440));
    choose(4);
    QCOMPARE(shownId(), 1);
    QCOMPARE(sizeOf(0), QSize(1920, 1080));
    QCOMPARE(sizeOf(1), QSize(2560, 1440));
    QCOMPARE(sizeOf(2), QSize(1920, 1080));
}

void tst_ConsoleScreens::aNewNumberClearsTheOperationScreen_data()
{
    QTest::addColumn<int>("operationScreen");
    QTest::addColumn<int>("shown");
    QTest::addColumn<int>("number");
    QTest::newRow("fewer, it is taken away") << 3 << 3 << 2;
    QTest::newRow("fewer, it stays") << 0 << 0 << 2;
    QTest::newRow("fewer, it stays and another is shown") << 1 << 3 << 2;
    QTest::newRow("more") << 1 << 1 << 6;
    QTest::newRow("more, and another is shown") << 1 << 2 << 6;
}

void tst_ConsoleScreens::aNewNumberClearsTheOperationScreen()
{
    QFETCH(int, operationScreen);
    QFETCH(int, shown);
    QFETCH(int, number);
    choose(4);
    select(operationScreen);
    clickOperation();
    const QPointer<QPushButton> button(screen(operationScreen));
    QCOMPARE(button->property(OperationMarker), QVariant(true));
    select(shown);

    choose(number);
    QCOMPARE(marked(), QList<int>());
    QCOMPARE(button->property(OperationMarker), QVariant(false));
    QVERIFY(!operation()->isChecked());
    const BoxAnswers answers(QMessageBox::Ok);
    QTest::mouseClick(find<QPushButton>(m_panel.get(), "peripheralApply"), Qt::LeftButton);
    QCOMPARE(answers.boxes.size(), 1);
    QCOMPARE(sent(), QStringList());
}

void tst_ConsoleScreens::aScreenShowsItsOwnResolution()
{
    choose(3);
    typeSize(800, 8192);
    select(1);
    QCOMPARE(shownSize(), QSize(1920, 1080));
    typeSize(8192, 600);
    select(2);
    QCOMPARE(shownSize(), QSize(1920, 1080));
    select(0);
    QCOMPARE(shownSize(), QSize(800, 8192));
    select(1);
    QCOMPARE(shownSize(), QSize(8192, 600));
    QCOMPARE(sizeOf(0), QSize(800, 8192));
    QCOMPARE(sizeOf(1), QSize(8192, 600));
    QCOMPARE(sizeOf(2), QSize(1920, 1080));
    QCOMPARE(m_told->lines, QStringList());
}

void tst_ConsoleScreens::typedResolutionsStayInRange_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("typed");
    QTest::addColumn<QSize>("expected");
    const QByteArray width("spinBox_width");
    const QByteArray height("spinBox_height");
    QTest::newRow("least width") << width << 800 << QSize(800, 1080);
    QTest::newRow("most width") << width << 8192 << QSize(8192, 1080);
    QTest::newRow("too narrow") << width << 799 << QSize(800, 1080);
    QTest::newRow("too wide") << width << 8193 << QSize(8192, 1080);
    QTest::newRow("least height") << height << 600 << QSize(1920, 600);
    QTest::newRow("most height") << height << 8192 << QSize(1920, 8192);
    QTest::newRow("too low") << height << 599 << QSize(1920, 600);
    QTest::newRow("too high") << height << 8193 << QSize(1920, 8192);
}

void tst_ConsoleScreens::typedResolutionsStayInRange()
{
    QFETCH(QByteArray, name);
    QFETCH(int, typed);
    QFETCH(QSize, expected);
    QCOMPARE(editor("spinBox_width")->minimum(), 800);
    QCOMPARE(editor("spinBox_width")->maximum(), 8192);
    QCOMPARE(editor("spinBox_height")->minimum(), 600);
    QCOMPARE(editor("spinBox_height")->maximum(), 8192);

    editor(name.constData())->setValue(typed);
    QCOMPARE(sizeOf(0), expected);
    typeNumber(name.constData(), 1000);
    typeNumber(name.constData(), qBound(editor(name.constData())->minimum(), typed, 8192));
    QCOMPARE(sizeOf(0), expected);
    QCOMPARE(shownSize(), expected);
}

void tst_ConsoleScreens::checkingMakesTheShownScreenTheOperationScreen()
{
    choose(3);
    select(1);
    clickOperation();
    QCOMPARE(marked(), QList<int>{1});
    QCOMPARE(screen(1)->property(OperationMarker), QVariant(true));
    QCOMPARE(m_told->lines, QStringList());
}

void tst_ConsoleScreens::checkingAnotherScreenMovesTheMark()
{
    choose(3);
    clickOperation();
    select(2);
    QVERIFY(!operation()->isChecked());
    clickOperation();
    QCOMPARE(marked(), QList<int>{2});
    select(0);
    QVERIFY(!operation()->isChecked());
    select(2);
    QVERIFY(operation()->isChecked());
}

void tst_ConsoleScreens::uncheckingClearsTheOperationScreen()
{
    choose(2);
    select(1);
    clickOperation();
    clickOperation();
    QCOMPARE(marked(), QList<int>());
    select(0);
    select(1);
    QVERIFY(!operation()->isChecked());
}

void tst_ConsoleScreens::lookingAtAnotherScreenKeepsTheOperationScreen()
{
    choose(3);
    select(1);
    clickOperation();
    for (const int id : {0, 2, 0, 1}) {
        select(id);
        QCOMPARE(operation()->isChecked(), id == 1);
        QCOMPARE(marked(), QList<int>{1});
    }
}

void tst_ConsoleScreens::aStateThatConcernsAnotherScreenChangesNothing()
{
    choose(2);
    clickOperation();
    select(1);
    m_panel->slotPanelCheckStateChanged(Qt::Unchecked);
    QCOMPARE(marked(), QList<int>{0});
    select(0);
    QVERIFY(operation()->isChecked());
}

void tst_ConsoleScreens::aPartlyCheckedStateChangesNothing()
{
    choose(2);
    m_panel->slotPanelCheckStateChanged(Qt::PartiallyChecked);
    QCOMPARE(marked(), QList<int>());
    clickOperation();
    m_panel->slotPanelCheckStateChanged(Qt::PartiallyChecked);
    QCOMPARE(marked(), QList<int>{0});
    select(1);
    m_panel->slotPanelCheckStateChanged(Qt::PartiallyChecked);
    QCOMPARE(marked(), QList<int>{0});
}

void tst_ConsoleScreens::theMarkTakesEffectAtOnce()
{
    m_panel->setStyleSheet(QStringLiteral(
        "QPushButton[isScreenButtonCheckStatus=\"true\"] { border: 0; background: #ff0000; }"
        "QPushButton[isScreenButtonCheckStatus=\"false\"] { border: 0; background: #0000ff; }"));
    choose(3);
    const auto colors = [this] {
        QStringList names;
        for (int id = 0; id < 3; ++id)
            names << screen(id)->grab().toImage().pixelColor(3, 3).name();
        return names;
    };
    const QString red(QStringLiteral("#ff0000"));
    const QString blue(QStringLiteral("#0000ff"));
    QCOMPARE(colors(), (QStringList{blue, blue, blue}));
    select(1);
    clickOperation();
    QCOMPARE(colors(), (QStringList{blue, red, blue}));
    select(2);
    clickOperation();
    QCOMPARE(colors(), (QStringList{blue, blue, red}));
    clickOperation();
    QCOMPARE(colors(), (QStringList{blue, blue, blue}));

    select(1);
    clickOperation();
    choose(4);
    QCOMPARE(colors(), (QStringList{blue, blue, blue}));
}

void tst_ConsoleScreens::unknownScreensAreIgnored()
{
    choose(2);
    typeSize(800, 600);
    for (const int id : {-2, -1, 2, 16, 1000})
        m_panel->slotScreenButtonToggled(id, true);
    QCOMPARE(shownSize(), QSize(800, 600));
    m_panel->slotScreenButtonToggled(1, false);
    QCOMPARE(shownSize(), QSize(800, 600));
    QCOMPARE(sizeOf(0), QSize(800, 600));
    QCOMPARE(sizeOf(1), QSize(1920, 1080));
}

void tst_ConsoleScreens::applySendsAllScreens_data()
{
    QTest::addColumn<QVector<QSize>>("sizes");
    QTest::addColumn<int>("operationScreen");
    QTest::addColumn<QString>("expected");
    const QSize common(1920, 1080);
    QTest::newRow("one") << QVector<QSize>{common} << 0 << "1, 0, [1920 1080]";
    QTest::newRow("three, the second operates")
        << QVector<QSize>{{3840, 2160}, common, common} << 1 << "3, 1, [3840 2160 1920 1080 1920 1080]";
    QTest::newRow("all different, the first operates")
        << QVector<QSize>{{800, 600}, {8192, 8192}, {1024, 768}} << 0 << "3, 0, [800 600 8192 8192 1024 768]";
    QTest::newRow("the last operates")
        << QVector<QSize>{common, {1280, 720}} << 1 << "2, 1, [1920 1080 1280 720]";
    QStringList sixteen;
    for (int id = 0; id < 16; ++id)
        sixteen << QStringLiteral("8192 600");
    QTest::newRow("sixteen") << QVector<QSize>(16, QSize(8192, 600)) << 15
                             << QStringLiteral("16, 15, [%1]").arg(sixteen.join(QLatin1Char(' ')));
}

void tst_ConsoleScreens::applySendsAllScreens()
{
    QFETCH(QVector<QSize>, sizes);
    QFETCH(int, operationScreen);
    QFETCH(QString, expected);
    if (sizes.size() > 1)
        choose(sizes.size());
    for (int id = 0; id < sizes.size(); ++id) {
        select(id);
        typeSize(sizes.at(id).width(), sizes.at(id).height());
    }
    select(operationScreen);
    clickOperation();
    select(0); // what is shown does not matter

    const BoxAnswers answers(QMessageBox::Ok);
    const QVariantMap stored = m_folder->stored();
    for (int times = 1; times <= 2; ++times) {
        QTest::mouseClick(find<QPushButton>(m_panel.get(), "peripheralApply"), Qt::LeftButton);
        QCOMPARE(m_told->take(),
                 QStringList{QStringLiteral("signalSetPeripheralDataChange(%1)").arg(expected)});
    }
    QVERIFY(m_panel->updateConsoleData());
    QCOMPARE(m_told->lines.size(), 1);
    QCOMPARE(answers.boxes.size(), 0);
    QCOMPARE(m_folder->stored(), stored);
}

void tst_ConsoleScreens::applyNeedsAnOperationScreen_data()
{
    QTest::addColumn<int>("answer");
    QTest::newRow("answered") << int(QMessageBox::Ok);
    QTest::newRow("closed") << int(QMessageBox::NoButton);
}

void tst_ConsoleScreens::applyNeedsAnOperationScreen()
{
    QFETCH(int, answer);
    choose(3);
    const BoxAnswers answers(static_cast<QMessageBox::StandardButton>(answer));
    QTest::mouseClick(find<QPushButton>(m_panel.get(), "peripheralApply"), Qt::LeftButton);
    QCOMPARE(answers.boxes.size(), 1);
    const ShownBox &box = answers.boxes.constFirst();
    QCOMPARE(box.title, QStringLiteral("Remind"));
    QCOMPARE(box.text, QStringLiteral("Please select q6 operation screen."));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(sent(), QStringList());

    select(2);
    clickOperation();
    QTest::mouseClick(find<QPushButton>(m_panel.get(), "peripheralApply"), Qt::LeftButton);
    QCOMPARE(answers.boxes.size(), 1);
    QCOMPARE(sent().size(), 1);
}

void tst_ConsoleScreens::applyWithALostScreenSendsNothing()
{
    choose(3);
    clickOperation();
    delete screen(1);
    const LogKeeper log;
    const BoxAnswers answers(QMessageBox::Ok);
    QTest::mouseClick(find<QPushButton>(m_panel.get(), "peripheralApply"), Qt::LeftButton);
    QVERIFY(!m_panel->updateConsoleData());
    QCOMPARE(m_told->lines, QStringList());
    QCOMPARE(answers.boxes.size(), 0);
    QCOMPARE(log.lines().size(), 2);
    const QStringList lines = log.lines();
    for (const QString &line : lines) {
        QVERIFY2(
            line.startsWith(QLatin1String(" m_pScreenButtonGroup button not found... button Index is : ")),
            qPrintable(line));
        QVERIFY2(line.endsWith(QLatin1String(" 1")), qPrintable(line));
    }
}

void tst_ConsoleScreens::nothingButApplySends()
{
    choose(4);
    select(2);
    clickOperation();
    typeSize(1024, 768);
    m_panel->initPeripheralModule(false);
    m_panel->initPeripheralModule(true);
    choose(2);
    m_panel->initParm();
    QCOMPARE(sent(), QStringList());
}

void tst_ConsoleScreens::theSectionIsShownAndHiddenAsAWhole()
{
    const QList<QByteArray> names{"label_peripheral",   "label_screenNumber",   "label_resolution",
                                  "label_currentPanel", "label_width",          "label_height",
                                  "screenNumberCombox", "screenScrollArea",     "spinBox_width",
                                  "spinBox_height",     "currentPanelCheckBox", "peripheralApply"};
    const auto hidden = [this] {
        QSet<QByteArray> all;
        const QList<QWidget *> widgets = m_panel->findChildren<QWidget *>();
        for (const QWidget *widget : widgets) {
            if (widget->isHidden())
                all << widget->objectName().toLatin1();
        }
        return all;
    };
    const QSet<QByteArray> before = hidden();
    for (const QByteArray &name : names)
        QVERIFY2(find(m_panel.get(), name.constData())->isVisible(), name.constData());

    auto *apply = find<QPushButton>(m_panel.get(), "peripheralApply");
    apply->setAutoDefault(true);
    m_panel->initPeripheralModule(false);
    QSet<QByteArray> expected = before;
    for (const QByteArray &name : names)
        expected << name;
    QCOMPARE(hidden(), expected);
    QVERIFY(!apply->autoDefault());
    m_panel->initPeripheralModule(false);
    QCOMPARE(hidden(), expected);

    apply->setAutoDefault(true);
    m_panel->initPeripheralModule(true);
    QCOMPARE(hidden(), before);
    QVERIFY(!apply->autoDefault());

    // What the section is set to outlives its hiding.
    choose(2);
    clickOperation();
    m_panel->initPeripheralModule(false);
    m_panel->initPeripheralModule(true);
    QCOMPARE(marked(), QList<int>{0});
    QCOMPARE(ids().size(), 2);
}

QTEST_MAIN(tst_ConsoleScreens)

#include "tst_consolescreens.moc"
