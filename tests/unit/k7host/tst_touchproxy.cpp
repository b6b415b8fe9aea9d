// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <scaledview.h>

#include <korvo/ec/k7dropbutton.h>

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>
#include <QTouchDevice>
#include <QTouchEvent>

#include <memory>

using K7Host::ScaledView;
using Korvo::EC::K7DropButton;

namespace {

/// Two keys, the second one in a frame, and a control that knows the mouse only. Shown at half its size.
class Console : public QWidget
{
public:
    Console()
    {
        setFixedSize(400, 200);
        first.setGeometry(0, 0, 100, 100);
        frame.setGeometry(200, 0, 200, 200);
        second.setGeometry(100, 100, 100, 100);
        mouseOnly.setGeometry(0, 150, 100, 50);
        area.setGeometry(100, 0, 100, 100);
        area.setAttribute(Qt::WA_AcceptTouchEvents);
        area.setWidget(new QPushButton);
        area.setWidgetResizable(true);
    }

    K7DropButton first{this};
    QFrame frame{this};
    K7DropButton second{&frame};
    QPushButton mouseOnly{this};
    QScrollArea area{this};
};

const QPoint OnFirst(25, 25);
const QPoint OnSecond(175, 75);
const QPoint OnMouseOnly(25, 88);
const QPoint InArea(75, 8);
const QPoint OnNothing(75, 75);

} // namespace

class tst_TouchProxy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aFingerPressesTheKeyUnderIt();
    void twoFingersHoldTwoKeys();
    void aFingerThatSlidesOffLetsGo();
    void aFingerThatSlidesOntoAKeyDoesNotPressIt();
    void aFingerOnAControlWithoutTouchActsAsTheMouse();
    void aFingerInAScrollAreaActsAsTheMouse();
    void aKeyThatGoesWhileItIsTouchedIsLeftAlone();
    void heldKeysComeUpWhenTheWindowIsLeft_data();
    void heldKeysComeUpWhenTheWindowIsLeft();

private:
    QTest::QTouchEventSequence touch() { return QTest::touchEvent(m_view->viewport(), m_device); }

    QTouchDevice *const m_device = QTest::createTouchDevice();
    std::unique_ptr<Console> m_console;
    std::unique_ptr<ScaledView> m_view;
};

void tst_TouchProxy::init()
{
    m_console = std::make_unique<Console>();
    m_view = std::make_unique<ScaledView>(m_console.get(), 0.5);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void tst_TouchProxy::cleanup()
{
    m_view.reset();
    m_console.reset();
}

void tst_TouchProxy::aFingerPressesTheKeyUnderIt()
{
    const QSignalSpy pressed(&m_console->second, &QAbstractButton::pressed);
    const QSignalSpy clicked(&m_console->second, &QAbstractButton::clicked);
    const QSignalSpy other(&m_console->first, &QAbstractButton::pressed);
    touch().press(0, OnSecond, m_view->viewport());
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(clicked.count(), 0);
    touch().release(0, OnSecond, m_view->viewport());
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(other.count(), 0);
}

void tst_TouchProxy::twoFingersHoldTwoKeys()
{
    const QSignalSpy firstReleased(&m_console->first, &QAbstractButton::released);
    const QSignalSpy secondReleased(&m_console->second, &QAbstractButton::released);
    QTest::QTouchEventSequence fingers = QTest::touchEvent(m_view->viewport(), m_device, false);
    fingers.press(0, OnFirst, m_view->viewport()).commit();
    fingers.stationary(0).press(1, OnSecond, m_view->viewport()).commit();
    QVERIFY(m_console->first.isDown());
    QVERIFY(m_console->second.isDown());

    fingers.release(0, OnFirst, m_view->viewport()).stationary(1).commit();
    QCOMPARE(firstReleased.count(), 1);
    QVERIFY(m_console->second.isDown());
    QCOMPARE(secondReleased.count(), 0);

    fingers.release(1, OnSecond, m_view->viewport()).commit();
    QCOMPARE(firstReleased.count(), 1);
    QCOMPARE(secondReleased.count(), 1);
}

void tst_TouchProxy::aFingerThatSlidesOffLetsGo()
{
    const QSignalSpy released(&m_console->first, &QAbstractButton::released);
    const QSignalSpy clicked(&m_console->first, &QAbstractButton::clicked);
    touch().press(0, OnFirst, m_view->viewport());
    touch().move(0, OnNothing, m_view->viewport());
    QCOMPARE(released.count(), 1);
    touch().release(0, OnNothing, m_view->viewport());
    QCOMPARE(released.count(), 1);
    QCOMPARE(clicked.count(), 0);
}

void tst_TouchProxy::aFingerThatSlidesOntoAKeyDoesNotPressIt()
{
    const QSignalSpy firstReleased(&m_console->first, &QAbstractButton::released);
    const QSignalSpy pressed(&m_console->second, &QAbstractButton::pressed);
    touch().press(0, OnFirst, m_view->viewport());
    touch().move(0, OnSecond, m_view->viewport());
    touch().release(0, OnSecond, m_view->viewport());
    QCOMPARE(firstReleased.count(), 1);
    QCOMPARE(pressed.count(), 0);
}

void tst_TouchProxy::aFingerOnAControlWithoutTouchActsAsTheMouse()
{
    const QSignalSpy clicked(&m_console->mouseOnly, &QAbstractButton::clicked);
    touch().press(0, OnMouseOnly, m_view->viewport());
    QVERIFY(m_console->mouseOnly.isDown());
    touch().release(0, OnMouseOnly, m_view->viewport());
    QCOMPARE(clicked.count(), 1);
}

void tst_TouchProxy::aFingerInAScrollAreaActsAsTheMouse()
{
    const QSignalSpy clicked(qobject_cast<QPushButton *>(m_console->area.widget()),
                             &QAbstractButton::clicked);
    touch().press(0, InArea, m_view->viewport());
    touch().release(0, InArea, m_view->viewport());
    QCOMPARE(clicked.count(), 1);
}

void tst_TouchProxy::aKeyThatGoesWhileItIsTouchedIsLeftAlone()
{
    auto *passing = new K7DropButton(m_console.get());
    passing->setGeometry(100, 0, 100, 100);
    passing->show();
    const QPointer<K7DropButton> guard(passing);
    connect(passing, &QAbstractButton::pressed, passing, [passing] { delete passing; });
    touch().press(0, InArea, m_view->viewport());
    QVERIFY(!guard);
    touch().move(0, OnFirst, m_view->viewport());
    touch().release(0, OnFirst, m_view->viewport());
    QVERIFY(!m_console->first.isDown());
}

void tst_TouchProxy::heldKeysComeUpWhenTheWindowIsLeft_data()
{
    QTest::addColumn<bool>("byFinger");
    QTest::addColumn<QByteArray>("way");
    for (const char *way : {"deactivated", "blocked", "hidden"}) {
        QTest::addRow("mouse, %s", way) << false << QByteArray(way);
        QTest::addRow("finger, %s", way) << true << QByteArray(way);
    }
    QTest::newRow("finger, cancelled") << true << QByteArray("cancelled");
}

void tst_TouchProxy::heldKeysComeUpWhenTheWindowIsLeft()
{
    QFETCH(bool, byFinger);
    QFETCH(QByteArray, way);

    const QSignalSpy released(&m_console->second, &QAbstractButton::released);
    QApplication::setActiveWindow(m_view.get());
    if (byFinger)
        touch().press(0, OnSecond, m_view->viewport());
    else
        QTest::mousePress(m_view->viewport(), Qt::LeftButton, {}, OnSecond);
    QVERIFY(m_console->second.isDown());
    QCOMPARE(released.count(), 0);

    QWidget elsewhere;
    QDialog dialog;
    if (way == "deactivated") {
        elsewhere.show();
        QApplication::setActiveWindow(&elsewhere);
    } else if (way == "blocked") {
        dialog.open();
    } else if (way == "hidden") {
        m_view->hide();
    } else {
        QTouchEvent cancel(QEvent::TouchCancel, m_device);
        QCoreApplication::sendEvent(m_view->viewport(), &cancel);
    }
    QTRY_COMPARE(released.count(), 1);
    QVERIFY(!m_console->second.isDown());
}

QTEST_MAIN(tst_TouchProxy)

#include "tst_touchproxy.moc"
