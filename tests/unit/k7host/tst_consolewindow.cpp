// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakekeyboard.h"

#include <consolewindow.h>
#include <hardwarepanel.h>
#include <powercover.h>

#include <korvo/ec/k7dropbutton.h>

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using K7Host::ConsoleWindow;
using K7Host::FakeKeyboard;
using K7Host::FakeKeyboardPlugin;
using K7Host::HardwarePanel;
using K7Host::HardwareState;
using K7Host::Power;
using K7Host::PowerCover;

using Half = QSharedPointer<FakeKeyboard>;

static const int Seam = 16; // between the halves

static HardwareState stateOf(Power power)
{
    HardwareState state;
    state.power = power;
    return state;
}

Q_DECLARE_METATYPE(K7Host::Power)

class tst_ConsoleWindow : public QObject
{
    Q_OBJECT

private slots:
    void theHalvesStandSideBySideWithTheirTopsAligned();
    void theHalvesArePolishedWithTheWindow();
    void aHalfGetsTheSizeThatItNeeds_data();
    void aHalfGetsTheSizeThatItNeeds();
    void aHalfThatWantsMoreRoomLaterGetsIt();
    void thePictureHasTheNativeSizeTimesTheFactor_data();
    void thePictureHasTheNativeSizeTimesTheFactor();
    void thePictureShowsTheHalvesOnTheDesk();
    void shownIsToldOnceAndAfterTheHalvesWerePainted();
    void aPictureBeforeTheWindowIsShownTellsNothing();
    void noKeyHasTheFocusAtTheStart();
    void theHalvesOutliveTheWindow();
    void aHalfMayGoBeforeTheWindow();
    void halvesThatAreGoneAreLeftOut();
    void thePanelStandsBelowTheLeftHalfWhereItHasRoom_data();
    void thePanelStandsBelowTheLeftHalfWhereItHasRoom();
    void thePictureShowsTheHalvesOnly_data();
    void thePictureShowsTheHalvesOnly();
    void thePanelShowsTheHardware();
    void withoutPowerTheHalvesAreCovered_data();
    void withoutPowerTheHalvesAreCovered();
    void aHeldKeyComesUpWhenItIsCovered();
    void coveredKeysTakeNoInput();
    void aConsoleThatIsOffCanBeSwitchedOn();
    void comingBackShowsTheHalvesAgain();
};

void tst_ConsoleWindow::theHalvesStandSideBySideWithTheirTopsAligned()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.ensurePolished();
    QCOMPARE(window.windowTitle(), QStringLiteral("K7"));
    QCOMPARE(plugin.left->parentWidget(), &window);
    QCOMPARE(plugin.right->parentWidget(), &window);
    QCOMPARE(plugin.left->geometry(), QRect(0, 0, 1754, 826));
    QCOMPARE(plugin.right->geometry(), QRect(1770, 0, 1719, 1050));
    QCOMPARE(window.size(), QSize(3489, 1050));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(plugin.left->isVisible());
    QVERIFY(plugin.right->isVisible());
    QCOMPARE(window.size(), QSize(3489, 1050));
}

// What is polished before would be polished anew when the window is put into another one.
void tst_ConsoleWindow::theHalvesArePolishedWithTheWindow()
{
    const FakeKeyboardPlugin plugin;
    const ConsoleWindow window(plugin.keyboards());
    QVERIFY(!plugin.left->testAttribute(Qt::WA_WState_Polished));
    QVERIFY(!plugin.right->testAttribute(Qt::WA_WState_Polished));
    window.ensurePolished();
    QVERIFY(plugin.left->testAttribute(Qt::WA_WState_Polished));
    QVERIFY(plugin.right->testAttribute(Qt::WA_WState_Polished));
}

void tst_ConsoleWindow::aHalfGetsTheSizeThatItNeeds_data()
{
    QTest::addColumn<QSize>("formSize");
    QTest::addColumn<QSize>("hint");
    QTest::addColumn<QSize>("minimum");
    QTest::addColumn<QSize>("maximum");
    QTest::addColumn<QSize>("expectedSize");
    const QSize none(0, 0);
    const QSize noLimit(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QTest::newRow("the form's size") << QSize(300, 200) << QSize() << none << noLimit << QSize(300, 200);
    QTest::newRow("a smaller hint") << QSize(300, 200) << QSize(30, 20) << none << noLimit << QSize(300, 200);
    QTest::newRow("a wider hint") << QSize(300, 200) << QSize(500, 20) << none << noLimit << QSize(500, 200);
    QTest::newRow("a taller hint") << QSize(300, 200) << QSize(30, 900) << none << noLimit << QSize(300, 900);
    QTest::newRow("a taller hint with a limit")
        << QSize(300, 200) << QSize(30, 900) << none << QSize(QWIDGETSIZE_MAX, 250) << QSize(300, 250);
    QTest::newRow("a wider hint with a limit")
        << QSize(300, 200) << QSize(500, 20) << none << QSize(350, QWIDGETSIZE_MAX) << QSize(350, 200);
    QTest::newRow("a minimum") << QSize(300, 200) << QSize() << QSize(400, 0) << noLimit << QSize(400, 200);
}

void tst_ConsoleWindow::aHalfGetsTheSizeThatItNeeds()
{
    QFETCH(QSize, formSize);
    QFETCH(QSize, hint);
    QFETCH(QSize, minimum);
    QFETCH(QSize, maximum);
    const Half half(new FakeKeyboard(Qt::red, formSize));
    half->hint = hint;
    half->setMinimumSize(minimum);
    half->setMaximumSize(maximum);
    const Half neighbour(new FakeKeyboard(Qt::blue, QSize(10, 10)));
    const ConsoleWindow window({half, neighbour});
    window.ensurePolished();
    QTEST(half->size(), "expectedSize");
    QCOMPARE(neighbour->pos(), QPoint(half->width() + Seam, 0));
    QCOMPARE(window.size(), half->size() + QSize(Seam + 10, 0));
}

void tst_ConsoleWindow::aHalfThatWantsMoreRoomLaterGetsIt()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    plugin.left->hint = QSize(1800, 848);
    plugin.left->updateGeometry();
    QTRY_COMPARE(plugin.left->geometry(), QRect(0, 0, 1800, 848));
    QCOMPARE(plugin.right->geometry(), QRect(1816, 0, 1719, 1050));
    QCOMPARE(window.size(), QSize(3535, 1050));
}

void tst_ConsoleWindow::thePictureHasTheNativeSizeTimesTheFactor_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::addColumn<QSize>("expectedSize");
    QTest::newRow("a quarter") << 0.25 << QSize(872, 263);
    QTest::newRow("half") << 0.5 << QSize(1745, 525);
    QTest::newRow("one") << 1.0 << QSize(3489, 1050);
    QTest::newRow("double") << 2.0 << QSize(6978, 2100);
}

void tst_ConsoleWindow::thePictureHasTheNativeSizeTimesTheFactor()
{
    QFETCH(qreal, factor);
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QImage picture = window.picture(factor);
    QTEST(picture.size(), "expectedSize");
    // The whole console is in it, down to the right half's last corner.
    QCOMPARE(picture.pixelColor(picture.width() - 2, picture.height() - 2), QColor(Qt::darkBlue));
    QCOMPARE(picture.pixelColor(1, 1), QColor(Qt::darkRed));
}

void tst_ConsoleWindow::thePictureShowsTheHalvesOnTheDesk()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QImage picture = window.picture(1);
    QCOMPARE(picture.pixelColor(1753, 825), QColor(Qt::darkRed));
    QCOMPARE(picture.pixelColor(1770, 0), QColor(Qt::darkBlue));
    for (const QPoint &point : {QPoint(0, 826), QPoint(1753, 1049), QPoint(1754, 0), QPoint(1769, 0)})
        QCOMPARE(picture.pixelColor(point).rgb(), window.palette().color(QPalette::Window).rgb());
}

void tst_ConsoleWindow::shownIsToldOnceAndAfterTheHalvesWerePainted()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    int leftPaints = 0;
    int rightPaints = 0;
    connect(&window, &ConsoleWindow::shown, this, [&] {
        leftPaints = plugin.left->paintCount;
        rightPaints = plugin.right->paintCount;
    });
    const QSignalSpy shown(&window, &ConsoleWindow::shown);
    window.show();
    QTRY_COMPARE(shown.count(), 1);
    QVERIFY(leftPaints > 0);
    QVERIFY(rightPaints > 0);

    window.repaint();
    QCoreApplication::processEvents();
    QCOMPARE(shown.count(), 1);
}

void tst_ConsoleWindow::aPictureBeforeTheWindowIsShownTellsNothing()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    const QSignalSpy shown(&window, &ConsoleWindow::shown);
    QCOMPARE(window.picture(1).size(), QSize(3489, 1050));
    QCoreApplication::processEvents();
    QCOMPARE(shown.count(), 0);
}

void tst_ConsoleWindow::noKeyHasTheFocusAtTheStart()
{
    const FakeKeyboardPlugin plugin;
    plugin.keyboards();
    QPushButton key(plugin.left.data());
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QVERIFY(!key.hasFocus());
    QTest::keyClick(&window, Qt::Key_Tab);
    QVERIFY(key.hasFocus());
}

void tst_ConsoleWindow::theHalvesOutliveTheWindow()
{
    const FakeKeyboardPlugin plugin;
    {
        ConsoleWindow window(plugin.keyboards());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }
    QVERIFY(!plugin.left->parentWidget());
    QVERIFY(!plugin.right->parentWidget());
    QVERIFY(!plugin.left->isVisible());
    QCOMPARE(plugin.right->displayName(), QColor(Qt::darkBlue).name());
}

void tst_ConsoleWindow::aHalfMayGoBeforeTheWindow()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    plugin.left.reset();
    QCOMPARE(window.picture(1).size(), QSize(3489, 1050));
    QVERIFY(plugin.right->isVisible());
}

void tst_ConsoleWindow::halvesThatAreGoneAreLeftOut()
{
    const FakeKeyboardPlugin plugin;
    const auto halves = plugin.keyboards();
    plugin.left.reset();
    const ConsoleWindow window(halves);
    window.ensurePolished();
    QCOMPARE(plugin.right->geometry(), QRect(0, 0, 1719, 1050));
    QCOMPARE(window.size(), QSize(1719, 1050));
}

void tst_ConsoleWindow::thePanelStandsBelowTheLeftHalfWhereItHasRoom_data()
{
    QTest::addColumn<QSize>("left");
    QTest::addColumn<QSize>("right");
    QTest::addColumn<QRect>("expectedPlace"); // null: hidden
    QTest::newRow("as drawn") << QSize(1754, 826) << QSize(1719, 1050) << QRect(0, 842, 1754, 208);
    QTest::newRow("left half taller") << QSize(1754, 848) << QSize(1719, 1050) << QRect(0, 864, 1754, 186);
    QTest::newRow("too low") << QSize(1754, 980) << QSize(1719, 1050) << QRect();
    QTest::newRow("too narrow") << QSize(800, 500) << QSize(1719, 1050) << QRect();
    QTest::newRow("right half lower") << QSize(1754, 826) << QSize(1719, 600) << QRect();
}

void tst_ConsoleWindow::thePanelStandsBelowTheLeftHalfWhereItHasRoom()
{
    QFETCH(QSize, left);
    QFETCH(QSize, right);
    QFETCH(QRect, expectedPlace);
    const Half leftHalf(new FakeKeyboard(Qt::red, left));
    const Half rightHalf(new FakeKeyboard(Qt::blue, right));
    ConsoleWindow window({leftHalf, rightHalf});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const HardwarePanel *panel = window.hardwarePanel();
    QCOMPARE(panel->isVisible(), expectedPlace.isValid());
    if (panel->isVisible())
        QCOMPARE(panel->geometry(), expectedPlace);
    QCOMPARE(window.size(), QSize(left.width() + Seam + right.width(), qMax(left.height(), right.height())));
}

void tst_ConsoleWindow::thePictureShowsTheHalvesOnly_data()
{
    QTest::addColumn<Power>("power");
    QTest::newRow("on") << Power::On;
    QTest::newRow("off") << Power::Off;
}

void tst_ConsoleWindow::thePictureShowsTheHalvesOnly()
{
    QFETCH(Power, power);
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(window.hardwarePanel()->isVisible());
    window.showHardware(stateOf(power));
    const QImage picture = window.picture(1);
    const QRgb background = picture.pixel(1760, 10);
    QCOMPARE(picture.copy(0, 826, 1754, 224), [background] {
        QImage plain(1754, 224, QImage::Format_RGB32);
        plain.fill(background);
        return plain;
    }());
    QCOMPARE(picture.pixelColor(800, 400), QColor(Qt::darkRed));
    QCOMPARE(picture.pixelColor(2500, 400), QColor(Qt::darkBlue));
}

void tst_ConsoleWindow::thePanelShowsTheHardware()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    HardwareState state;
    state.screens.sizes = {QSize(1, 2), QSize(3, 4)};
    window.showHardware(state);
    const auto *count = window.hardwarePanel()->findChild<QLabel *>(QStringLiteral("screenCountLabel"));
    QVERIFY(count);
    QCOMPARE(count->text(), QStringLiteral("2"));
}

void tst_ConsoleWindow::withoutPowerTheHalvesAreCovered_data()
{
    QTest::addColumn<Power>("power");
    QTest::addColumn<QString>("expectedText");
    QTest::addColumn<bool>("expectedButton");
    QTest::newRow("restarting") << Power::Restarting << QStringLiteral("Restarting \u2026") << false;
    QTest::newRow("off") << Power::Off << QStringLiteral("The console is off") << true;
}

void tst_ConsoleWindow::withoutPowerTheHalvesAreCovered()
{
    QFETCH(Power, power);
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto *cover = window.findChild<PowerCover *>();
    QVERIFY(cover);
    QVERIFY(!cover->isVisible());

    window.showHardware(stateOf(power));
    QVERIFY(cover->isVisible());
    const QImage image = window.grab().toImage();
    for (const QPoint &point : {QPoint(5, 5), QPoint(1700, 800), QPoint(1760, 5), QPoint(3480, 1040)})
        QCOMPARE(image.pixelColor(point).rgb(), cover->palette().color(QPalette::Shadow).rgb());
    QVERIFY(window.hardwarePanel()->isVisible());
    const QPoint onPanel = window.hardwarePanel()->geometry().center();
    QVERIFY(window.hardwarePanel()->isAncestorOf(window.childAt(onPanel)) ||
            window.childAt(onPanel) == window.hardwarePanel());

    const auto *reason = cover->findChild<QLabel *>();
    const auto *button = cover->findChild<QPushButton *>();
    QVERIFY(reason && button);
    QTEST(reason->text(), "expectedText");
    QTEST(button->isVisible(), "expectedButton");
}

void tst_ConsoleWindow::aHeldKeyComesUpWhenItIsCovered()
{
    const FakeKeyboardPlugin plugin;
    plugin.keyboards();
    Korvo::EC::K7DropButton key(plugin.left.data());
    key.resize(60, 60);
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QSignalSpy released(&key, &QAbstractButton::released);
    QTest::mousePress(&key, Qt::LeftButton);
    QVERIFY(key.isDown());
    window.showHardware(stateOf(Power::Restarting));
    QCOMPARE(released.count(), 1);
    QVERIFY(!key.isDown());
    QTest::mouseRelease(&key, Qt::LeftButton);
    QCOMPARE(released.count(), 1);
}

void tst_ConsoleWindow::coveredKeysTakeNoInput()
{
    const FakeKeyboardPlugin plugin;
    plugin.keyboards();
    QPushButton key(plugin.left.data());
    key.setGeometry(100, 100, 60, 60);
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QSignalSpy pressed(&key, &QAbstractButton::pressed);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(130, 130));
    QCOMPARE(pressed.count(), 1);
    key.setFocus();

    window.showHardware(stateOf(Power::Restarting));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(130, 130));
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
        QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    }
    QVERIFY(!key.hasFocus());
    QCOMPARE(pressed.count(), 1);
}

void tst_ConsoleWindow::aConsoleThatIsOffCanBeSwitchedOn()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QSignalSpy asked(&window, &ConsoleWindow::switchOnRequested);
    window.showHardware(stateOf(Power::Restarting));
    window.showHardware(stateOf(Power::Off));
    auto *button = window.findChild<PowerCover *>()->findChild<QPushButton *>();
    QVERIFY(button && button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(asked.count(), 1);
}

void tst_ConsoleWindow::comingBackShowsTheHalvesAgain()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.showHardware(stateOf(Power::Off));
    window.showHardware(stateOf(Power::On));
    QVERIFY(!window.findChild<PowerCover *>()->isVisible());
    QCOMPARE(window.grab().toImage().pixelColor(5, 5), QColor(Qt::darkRed));
    QVERIFY(window.hasFocus());
    QTest::keyClick(&window, Qt::Key_Tab); // the focus moves again
}

QTEST_MAIN(tst_ConsoleWindow)

#include "tst_consolewindow.moc"
