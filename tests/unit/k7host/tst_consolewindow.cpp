// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "fakekeyboard.h"

#include <consolewindow.h>

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using K7Host::ConsoleWindow;
using K7Host::FakeKeyboard;
using K7Host::FakeKeyboardPlugin;

using Half = QSharedPointer<FakeKeyboard>;

static const int Seam = 16; // between the halves

class tst_ConsoleWindow : public QObject
{
    Q_OBJECT

private slots:
    void theHalvesStandSideBySideWithTheirTopsAligned();
    void aHalfGetsTheSizeThatItNeeds_data();
    void aHalfGetsTheSizeThatItNeeds();
    void aHalfThatWantsMoreRoomLaterGetsIt();
    void thePictureHasTheNativeSizeTimesTheFactor_data();
    void thePictureHasTheNativeSizeTimesTheFactor();
    void thePictureShowsTheHalvesOnADarkBackground();
    void shownIsToldOnceAndAfterTheHalvesWerePainted();
    void aPictureBeforeTheWindowIsShownTellsNothing();
    void noKeyHasTheFocusAtTheStart();
    void theHalvesOutliveTheWindow();
    void aHalfMayGoBeforeTheWindow();
    void halvesThatAreGoneAreLeftOut();
};

void tst_ConsoleWindow::theHalvesStandSideBySideWithTheirTopsAligned()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
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

void tst_ConsoleWindow::thePictureShowsTheHalvesOnADarkBackground()
{
    const FakeKeyboardPlugin plugin;
    ConsoleWindow window(plugin.keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QImage picture = window.picture(1);
    QCOMPARE(picture.pixelColor(1753, 825), QColor(Qt::darkRed));
    QCOMPARE(picture.pixelColor(1770, 0), QColor(Qt::darkBlue));
    for (const QPoint &point : {QPoint(0, 826), QPoint(1753, 1049), QPoint(1754, 0), QPoint(1769, 0)})
        QVERIFY2(picture.pixelColor(point).lightness() < 32, qPrintable(picture.pixelColor(point).name()));
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
    QCOMPARE(plugin.right->geometry(), QRect(0, 0, 1719, 1050));
    QCOMPARE(window.size(), QSize(1719, 1050));
}

QTEST_MAIN(tst_ConsoleWindow)

#include "tst_consolewindow.moc"
