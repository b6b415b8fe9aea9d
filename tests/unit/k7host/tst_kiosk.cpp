// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "fakekeyboard.h"

#include <consolewindow.h>
#include <hardwarepanel.h>
#include <kiosk.h>
#include <powercover.h>
#include <scaledview.h>

#include <korvo/ec/k7dropbutton.h>
#include <ovo/widgets/framelessmessagebox.h>

#include <QApplication>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <memory>

using K7Host::ConsoleWindow;
using K7Host::FakeKeyboardPlugin;
using K7Host::HardwareState;
using K7Host::Kiosk;
using K7Host::PowerCover;
using K7Host::ScaledView;
using Korvo::EC::K7DropButton;
using Ovo::Widgets::FramelessMessageBox;

class tst_Kiosk : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void eachHalfFillsAScreenOfItsOwn();
    void onASingleScreenOneIsAboveTheOther();
    void withMoreScreensTheFirstTwoAreUsed();
    void itFollowsScreensThatComeAndGo();
    void withoutAnyScreenNothingChanges();
    void theScreensOfTheSystemAreFilled();
    void anExplicitScaleWins();
    void aHalfThatGrowsIsFittedAgain();

    void keysAreReachedInEveryArrangement_data();
    void keysAreReachedInEveryArrangement();
    void aHeldKeyComesUpWhenItsScreenGoes();
    void aMessageBoxOpensOverItsHalf_data();
    void aMessageBoxOpensOverItsHalf();
    void bothHalvesAreCoveredWithoutPower();

    void thereIsNoFrameAndNoCursor();
    void shownIsToldOnceForBothHalves();
    void thePictureIsThatOfTheWindow_data();
    void thePictureIsThatOfTheWindow();
    void escapeQuitsNothing();
    void closingAWindowQuits();
    void theHalvesOutliveIt();

private:
    void make(qreal scale = 0);
    ScaledView *view(int half) const;
    QWidget *windowOf(int half) const { return view(half)->window(); }
    QRect placeOf(int half) const { return view(half)->geometry(); }
    void click(const QWidget *key, int half) const;

    std::unique_ptr<FakeKeyboardPlugin> m_plugin;
    std::unique_ptr<K7DropButton> m_leftKey;
    std::unique_ptr<K7DropButton> m_rightKey;
    std::unique_ptr<Kiosk> m_kiosk;
};

static const QSize LeftSize(1754, 826);
static const QSize RightSize(1719, 1050);
static const QRect FirstScreen(0, 0, 1920, 1080);
static const QRect SecondScreen(1920, 0, 1280, 1024);

static qreal fitting(const QSize &native, const QSize &room)
{
    return qMin(room.width() / qreal(native.width()), room.height() / qreal(native.height()));
}

void tst_Kiosk::init()
{
    m_plugin = std::make_unique<FakeKeyboardPlugin>();
    m_plugin->keyboards();
    m_leftKey = std::make_unique<K7DropButton>(m_plugin->left.data());
    m_rightKey = std::make_unique<K7DropButton>(m_plugin->right.data());
    m_leftKey->setGeometry(100, 100, 80, 80);
    m_rightKey->setGeometry(1500, 900, 80, 80);
    make();
}

void tst_Kiosk::cleanup()
{
    m_kiosk.reset();
    m_leftKey.reset();
    m_rightKey.reset();
    m_plugin.reset();
}

void tst_Kiosk::make(qreal scale)
{
    m_kiosk.reset();
    m_kiosk = std::make_unique<Kiosk>(m_plugin->keyboards(), scale);
}

ScaledView *tst_Kiosk::view(int half) const
{
    const auto windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        const auto views = window->findChildren<ScaledView *>();
        for (ScaledView *view : views) {
            if (view->scene()->items().contains(m_kiosk->consoles().at(half)->graphicsProxyWidget()))
                return view;
        }
    }
    qFatal("no view of half %d", half);
}

void tst_Kiosk::click(const QWidget *key, int half) const
{
    const qreal factor = view(half)->factor();
    const QPoint at = view(half)->mapTo(windowOf(half), key->geometry().center() * factor);
    QTest::mouseClick(windowOf(half)->windowHandle(), Qt::LeftButton, {}, at);
}

void tst_Kiosk::eachHalfFillsAScreenOfItsOwn()
{
    m_kiosk->arrange({FirstScreen, SecondScreen});
    QVERIFY(windowOf(0) != windowOf(1));
    const QSize natives[] = {LeftSize, RightSize};
    for (const int half : {0, 1}) {
        QVERIFY(windowOf(half)->isVisible() && windowOf(half)->isFullScreen());
        QCOMPARE(view(half)->nativeSize(), natives[half]);
        const QSize room = windowOf(half)->size();
        const qreal expected = fitting(natives[half], room);
        QVERIFY(view(half)->factor() <= expected && view(half)->factor() > expected - 0.01);
        QVERIFY((placeOf(half).center() - windowOf(half)->rect().center()).manhattanLength() <= 2);
        QVERIFY(windowOf(half)->rect().contains(placeOf(half)));
    }
}

void tst_Kiosk::onASingleScreenOneIsAboveTheOther()
{
    m_kiosk->arrange({FirstScreen});
    QCOMPARE(windowOf(0), windowOf(1));
    QCOMPARE(view(0)->factor(), view(1)->factor());
    const qreal expected = fitting(QSize(1754, 826 + 16 + 1050), windowOf(0)->size());
    QVERIFY(view(0)->factor() <= expected && view(0)->factor() > expected - 0.01);
    QVERIFY(placeOf(0).bottom() < placeOf(1).top());
    QVERIFY(windowOf(0)->rect().contains(placeOf(0) | placeOf(1)));
    for (const int half : {0, 1})
        QVERIFY(qAbs(placeOf(half).center().x() - windowOf(0)->rect().center().x()) <= 1);
    const int above = placeOf(0).top();
    const int below = windowOf(0)->height() - placeOf(1).bottom() - 1;
    QVERIFY(qAbs(above - below) <= 2);
}

void tst_Kiosk::withMoreScreensTheFirstTwoAreUsed()
{
    m_kiosk->arrange({FirstScreen, SecondScreen, QRect(3200, 0, 800, 600)});
    QVERIFY(windowOf(0) != windowOf(1));
    QCOMPARE(m_kiosk->mainWindow(), windowOf(0));
}

void tst_Kiosk::itFollowsScreensThatComeAndGo()
{
    m_kiosk->arrange({FirstScreen, SecondScreen});
    QWidget *second = windowOf(1);
    const qreal factor = view(1)->factor();
    for (int i = 0; i < 2; ++i) {
        m_kiosk->arrange({SecondScreen});
        QCOMPARE(windowOf(1), m_kiosk->mainWindow());
        QVERIFY(view(0)->isVisible() && view(1)->isVisible());
        QVERIFY(!second->isVisible());
        QVERIFY(view(1)->factor() < factor);
        m_kiosk->arrange({FirstScreen, SecondScreen});
        QCOMPARE(windowOf(1), second);
        QVERIFY(view(0)->isVisible() && view(1)->isVisible());
        QCOMPARE(view(1)->factor(), factor);
    }
}

void tst_Kiosk::withoutAnyScreenNothingChanges()
{
    m_kiosk->arrange({FirstScreen});
    const QRect place = placeOf(1);
    m_kiosk->arrange({});
    QVERIFY(view(0)->isVisible() && view(1)->isVisible());
    QCOMPARE(placeOf(1), place);
}

void tst_Kiosk::theScreensOfTheSystemAreFilled()
{
    QCOMPARE(QGuiApplication::screens().size(), 1);
    m_kiosk->show();
    QCOMPARE(windowOf(1), windowOf(0));
    QCOMPARE(windowOf(0)->geometry(), QGuiApplication::primaryScreen()->geometry());
    // Whatever changes about them is looked at again.
    windowOf(0)->resize(100, 100);
    emit QGuiApplication::primaryScreen()->geometryChanged(QRect());
    QTRY_COMPARE(windowOf(0)->geometry(), QGuiApplication::primaryScreen()->geometry());
    windowOf(0)->resize(100, 100);
    emit qApp->screenRemoved(QGuiApplication::primaryScreen());
    QTRY_COMPARE(windowOf(0)->geometry(), QGuiApplication::primaryScreen()->geometry());
}

void tst_Kiosk::anExplicitScaleWins()
{
    make(0.3);
    m_kiosk->arrange({FirstScreen, SecondScreen});
    for (const int half : {0, 1}) {
        QCOMPARE(view(half)->factor(), 0.3);
        QVERIFY((placeOf(half).center() - windowOf(half)->rect().center()).manhattanLength() <= 2);
    }
}

void tst_Kiosk::aHalfThatGrowsIsFittedAgain()
{
    m_kiosk->arrange({FirstScreen, SecondScreen});
    m_plugin->left->hint = QSize(4000, 900);
    m_plugin->left->updateGeometry();
    QTRY_COMPARE(view(0)->nativeSize(), QSize(4000, 900));
    QVERIFY(windowOf(0)->rect().contains(placeOf(0)));
}

void tst_Kiosk::keysAreReachedInEveryArrangement_data()
{
    QTest::addColumn<int>("screenCount");
    QTest::newRow("a screen each") << 2;
    QTest::newRow("one screen") << 1;
}

void tst_Kiosk::keysAreReachedInEveryArrangement()
{
    QFETCH(int, screenCount);
    m_kiosk->arrange(QList<QRect>{FirstScreen, SecondScreen}.mid(0, screenCount));
    const QSignalSpy left(m_leftKey.get(), &K7DropButton::clicked);
    const QSignalSpy right(m_rightKey.get(), &K7DropButton::clicked);
    click(m_leftKey.get(), 0);
    QCOMPARE(left.count(), 1);
    click(m_rightKey.get(), 1);
    QCOMPARE(right.count(), 1);

    QTouchDevice *screen = QTest::createTouchDevice();
    const QPoint at = m_rightKey->geometry().center() * view(1)->factor();
    QWindow *window = windowOf(1)->windowHandle();
    QTest::touchEvent(window, screen).press(0, view(1)->mapTo(windowOf(1), at), window);
    QVERIFY(m_rightKey->isDown());
    QTest::touchEvent(window, screen).release(0, view(1)->mapTo(windowOf(1), at), window);
    QCOMPARE(right.count(), 2);
    QCOMPARE(left.count(), 1);
}

void tst_Kiosk::aHeldKeyComesUpWhenItsScreenGoes()
{
    m_kiosk->arrange({FirstScreen, SecondScreen});
    QApplication::setActiveWindow(windowOf(1));
    QVERIFY(QTest::qWaitForWindowActive(windowOf(1)));
    const QSignalSpy released(m_rightKey.get(), &K7DropButton::released);
    const QPoint at = m_rightKey->geometry().center() * view(1)->factor();
    QTest::mousePress(windowOf(1)->windowHandle(), Qt::LeftButton, {}, view(1)->mapTo(windowOf(1), at));
    QVERIFY(m_rightKey->isDown());
    m_kiosk->arrange({FirstScreen});
    QVERIFY(!m_rightKey->isDown());
    QCOMPARE(released.count(), 1);
}

void tst_Kiosk::aMessageBoxOpensOverItsHalf_data()
{
    keysAreReachedInEveryArrangement_data();
}

void tst_Kiosk::aMessageBoxOpensOverItsHalf()
{
    QFETCH(int, screenCount);
    m_kiosk->arrange(QList<QRect>{FirstScreen, SecondScreen}.mid(0, screenCount));
    FramelessMessageBox box(m_rightKey.get());
    box.setText(QStringLiteral("Restart?"));
    QPushButton *yes = box.addButton(QMessageBox::Yes);
    const QSignalSpy pressed(m_leftKey.get(), &K7DropButton::pressed);
    bool isOverItsHalf = false;
    QTimer::singleShot(0, &box, [&] {
        const QPoint middle = view(1)->mapToGlobal(view(1)->rect().center());
        isOverItsHalf = box.isVisible() && (box.frameGeometry().center() - middle).manhattanLength() <= 4;
        click(m_leftKey.get(), 0); // waits for the answer
        QTest::mouseClick(yes, Qt::LeftButton);
    });
    QCOMPARE(box.exec(), static_cast<int>(QMessageBox::Yes));
    QVERIFY(isOverItsHalf);
    QCOMPARE(pressed.count(), 0);
    click(m_leftKey.get(), 0);
    QCOMPARE(pressed.count(), 1);
}

void tst_Kiosk::bothHalvesAreCoveredWithoutPower()
{
    m_kiosk->arrange({FirstScreen, SecondScreen});
    HardwareState state;
    state.power = K7Host::Power::Off;
    const auto consoles = m_kiosk->consoles();
    QCOMPARE(consoles.size(), 2);
    for (ConsoleWindow *console : consoles) {
        console->showHardware(state);
        QVERIFY(console->findChild<PowerCover *>()->isVisible());
        QVERIFY(!console->hardwarePanel()->isVisible());
    }
}

void tst_Kiosk::thereIsNoFrameAndNoCursor()
{
    QVERIFY(!QGuiApplication::overrideCursor());
    m_kiosk->show();
    QVERIFY(m_kiosk->mainWindow()->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(QGuiApplication::overrideCursor());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::BlankCursor);
    m_kiosk->setCursorShown(true);
    QVERIFY(!QGuiApplication::overrideCursor());
    m_kiosk->setCursorShown(false);
    m_kiosk->setCursorShown(false);
    m_kiosk.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_Kiosk::shownIsToldOnceForBothHalves()
{
    int paintedHalves = 0;
    connect(m_kiosk.get(), &Kiosk::shown, this, [&] {
        paintedHalves = int(m_plugin->left->paintCount > 0) + int(m_plugin->right->paintCount > 0);
    });
    const QSignalSpy shown(m_kiosk.get(), &Kiosk::shown);
    m_kiosk->arrange({FirstScreen, SecondScreen});
    QTRY_COMPARE(shown.count(), 1);
    QCOMPARE(paintedHalves, 2);
    m_kiosk->arrange({FirstScreen});
    QCoreApplication::processEvents();
    QCOMPARE(shown.count(), 1);
}

void tst_Kiosk::thePictureIsThatOfTheWindow_data()
{
    QTest::addColumn<qreal>("factor");
    QTest::newRow("native") << 1.0;
    QTest::newRow("half") << 0.5;
}

void tst_Kiosk::thePictureIsThatOfTheWindow()
{
    QFETCH(qreal, factor);
    m_kiosk->arrange({FirstScreen, SecondScreen});
    const QImage picture = m_kiosk->picture(factor);
    m_kiosk.reset();
    ConsoleWindow window(m_plugin->keyboards());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QImage expected = window.picture(factor);
    QCOMPARE(picture.size(), expected.size());
    if (factor == 1)
        QCOMPARE(picture, expected);
}

void tst_Kiosk::escapeQuitsNothing()
{
    m_kiosk->arrange({FirstScreen});
    const QSignalSpy quits(qApp, &QCoreApplication::aboutToQuit);
    QTest::keyClick(windowOf(0)->windowHandle(), Qt::Key_Escape);
    QVERIFY(windowOf(0)->isVisible());
    QCOMPARE(quits.count(), 0);
}

void tst_Kiosk::closingAWindowQuits()
{
    m_kiosk->arrange({FirstScreen, SecondScreen});
    QTimer::singleShot(0, this, [this] { windowOf(1)->close(); });
    QTimer::singleShot(5000, m_kiosk.get(), [] { QCoreApplication::exit(1); });
    QCOMPARE(QApplication::exec(), 0);
}

void tst_Kiosk::theHalvesOutliveIt()
{
    m_kiosk->arrange({FirstScreen});
    m_kiosk.reset();
    QVERIFY(m_plugin->left && !m_plugin->left->parentWidget());
    QVERIFY(m_plugin->right && !m_plugin->right->parentWidget());
}

QTEST_MAIN(tst_Kiosk)

#include "tst_kiosk.moc"
