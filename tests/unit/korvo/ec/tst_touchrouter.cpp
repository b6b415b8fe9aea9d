// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/ec/k7dropbutton.h>
#include <korvo/ec/touchrouter.h>

#include <QFrame>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTouchDevice>

#include <memory>

using Korvo::EC::K7DropButton;
using Korvo::EC::TouchRouter;

namespace {

/// Two keys on a frame that has much bare room, and a control that takes touches itself.
class Panel : public QWidget
{
public:
    Panel()
    {
        resize(400, 200);
        frame.setGeometry(0, 0, 300, 200);
        first.setGeometry(0, 0, 100, 100);
        second.setGeometry(100, 0, 100, 100);
        own.setGeometry(300, 0, 100, 200);
        own.setAttribute(Qt::WA_AcceptTouchEvents);
    }

    class Own : public QWidget
    {
    public:
        using QWidget::QWidget;
        QList<QEvent::Type> events;

    protected:
        bool event(QEvent *event) override
        {
            switch (event->type()) {
            case QEvent::TouchBegin:
            case QEvent::TouchUpdate:
            case QEvent::TouchEnd:
                events << event->type();
                return true;
            default:
                return QWidget::event(event);
            }
        }
    };

    QFrame frame{this};
    K7DropButton first{&frame};
    K7DropButton second{&frame};
    Own own{this};
};

const QPoint OnFirst(50, 50);
const QPoint OnSecond(150, 50);
const QPoint OnFrame(150, 150);
const QPoint OnOwn(350, 100);

} // namespace

class tst_TouchRouter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aHandOnTheFrameTakesNoFinger();
    void aHandThatComesLaterTakesNoFinger();
    void othersKeepTheirTouches();
    void fingersOnOneKeyAreOneTouch();
    void keysStillWorkInAnotherWindow();
    void aKeyDeletedUnderTheFingerIsLeftAlone();
    void cancellingEndsEveryTouch();
    void anOpenPopupKeepsFingersFromKeys();

private:
    QWidget *window() const { return m_panel.get(); }
    QTest::QTouchEventSequence fingers() { return QTest::touchEvent(m_panel.get(), m_device, false); }

    QTouchDevice *const m_device = QTest::createTouchDevice();
    std::unique_ptr<Panel> m_panel;
};

void tst_TouchRouter::init()
{
    m_panel = std::make_unique<Panel>();
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_panel.get()));
}

void tst_TouchRouter::cleanup()
{
    m_panel.reset();
}

void tst_TouchRouter::aHandOnTheFrameTakesNoFinger()
{
    const QSignalSpy firstPressed(&m_panel->first, &QAbstractButton::pressed);
    const QSignalSpy secondPressed(&m_panel->second, &QAbstractButton::pressed);
    QTest::QTouchEventSequence touch = fingers();
    touch.press(0, OnFrame, window()).commit();
    touch.stationary(0).press(1, OnFirst, window()).commit();
    QCOMPARE(firstPressed.count(), 1);
    touch.stationary(0).stationary(1).press(2, OnSecond, window()).commit();
    QCOMPARE(secondPressed.count(), 1);
    QVERIFY(m_panel->first.isDown());

    touch.stationary(0).release(1, OnFirst, window()).stationary(2).commit();
    QVERIFY(!m_panel->first.isDown());
    QVERIFY(m_panel->second.isDown());
    touch.release(0, OnFrame, window()).release(2, OnSecond, window()).commit();
    QVERIFY(!m_panel->second.isDown());
    QCOMPARE(firstPressed.count(), 1);
    QCOMPARE(secondPressed.count(), 1);
}

void tst_TouchRouter::aHandThatComesLaterTakesNoFinger()
{
    const QSignalSpy released(&m_panel->first, &QAbstractButton::released);
    QTest::QTouchEventSequence touch = fingers();
    touch.press(0, OnFirst, window()).commit();
    touch.stationary(0).press(1, OnFrame, window()).commit();
    touch.move(0, OnFirst + QPoint(3, 3), window()).move(1, OnFrame + QPoint(3, 3), window()).commit();
    QVERIFY(m_panel->first.isDown());
    touch.stationary(0).stationary(1).press(2, OnSecond, window()).commit();
    QVERIFY(m_panel->second.isDown());
    QCOMPARE(released.count(), 0);
    touch.release(0, OnFirst, window()).release(1, OnFrame, window()).release(2, OnSecond, window()).commit();
    QCOMPARE(released.count(), 1);
    QVERIFY(!m_panel->second.isDown());
}

void tst_TouchRouter::othersKeepTheirTouches()
{
    QTest::QTouchEventSequence touch = fingers();
    touch.press(0, OnFirst, window()).commit();
    touch.stationary(0).press(1, OnOwn, window()).commit();
    touch.stationary(0).move(1, OnOwn + QPoint(5, 5), window()).commit();
    touch.release(0, OnFirst, window()).release(1, OnOwn, window()).commit();
    QCOMPARE(m_panel->own.events,
             (QList<QEvent::Type>{QEvent::TouchBegin, QEvent::TouchUpdate, QEvent::TouchEnd}));
}

void tst_TouchRouter::fingersOnOneKeyAreOneTouch()
{
    const QSignalSpy pressed(&m_panel->first, &QAbstractButton::pressed);
    const QSignalSpy released(&m_panel->first, &QAbstractButton::released);
    QTest::QTouchEventSequence touch = fingers();
    touch.press(0, OnFirst, window()).press(1, OnFirst + QPoint(10, 0), window()).commit();
    QCOMPARE(pressed.count(), 1);
    touch.release(0, OnFirst, window()).stationary(1).commit();
    touch.release(1, OnFirst + QPoint(10, 0), window()).commit();
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(released.count(), 1);
}

void tst_TouchRouter::keysStillWorkInAnotherWindow()
{
    Panel other;
    m_panel->frame.setParent(&other);
    m_panel->frame.show();
    other.frame.hide();
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));

    QTest::QTouchEventSequence touch = QTest::touchEvent(&other, m_device, false);
    touch.press(0, OnFrame, &other).commit();
    touch.stationary(0).press(1, OnFirst, &other).commit();
    QVERIFY(m_panel->first.isDown());
    touch.release(0, OnFrame, &other).release(1, OnFirst, &other).commit();
    QVERIFY(!m_panel->first.isDown());
    m_panel->frame.setParent(m_panel.get());
}

void tst_TouchRouter::aKeyDeletedUnderTheFingerIsLeftAlone()
{
    auto *passing = new K7DropButton(&m_panel->frame);
    passing->setGeometry(200, 0, 100, 100);
    passing->show();
    const QPoint onPassing(250, 50);
    QTest::QTouchEventSequence touch = fingers();
    touch.press(0, onPassing, window()).commit();
    QVERIFY(passing->isDown());
    delete passing;
    touch.move(0, OnFirst, window()).commit();
    touch.release(0, OnFirst, window()).commit();
    QVERIFY(!m_panel->first.isDown());
}

void tst_TouchRouter::cancellingEndsEveryTouch()
{
    const auto isKey = [](const QWidget *widget) {
        return qobject_cast<const K7DropButton *>(widget) != nullptr;
    };
    TouchRouter router(m_panel.get(), isKey);
    QList<QTouchEvent::TouchPoint> points;
    for (const QPoint &pos : {OnFirst, OnSecond, OnFrame}) {
        QTouchEvent::TouchPoint point(points.size());
        point.setState(Qt::TouchPointPressed);
        point.setPos(pos);
        points << point;
    }
    const QTouchEvent begin(QEvent::TouchBegin, m_device, Qt::NoModifier, Qt::TouchPointPressed, points);
    const TouchRouter::Points others = router.route(begin);
    QCOMPARE(others.size(), 1);
    QCOMPARE(others.constFirst().id(), 2);
    QVERIFY(m_panel->first.isDown());
    QVERIFY(m_panel->second.isDown());

    router.cancel();
    QVERIFY(!m_panel->first.isDown());
    QVERIFY(!m_panel->second.isDown());
}

void tst_TouchRouter::anOpenPopupKeepsFingersFromKeys()
{
    const QSignalSpy pressed(&m_panel->first, &QAbstractButton::pressed);
    QMenu menu;
    menu.addAction(QStringLiteral("entry"));
    menu.popup(m_panel->mapToGlobal(QPoint(300, 150)));
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QTest::QTouchEventSequence touch = fingers();
    touch.press(0, OnFirst, window()).commit();
    touch.release(0, OnFirst, window()).commit();
    QCOMPARE(pressed.count(), 0);
}

QTEST_MAIN(tst_TouchRouter)

#include "tst_touchrouter.moc"
