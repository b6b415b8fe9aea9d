// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolepair.h"

#include <korvo/keyboard/ikorvoeckeyboard.h>
#include <korvo/keyboard/records.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QTest>
#include <QTouchEvent>
#include <QWindow>

namespace {

constexpr char KeyName[] = "presetToolButton_5";
constexpr int WarmUps = 4;
constexpr qint64 EnoughNs = 100000000;
constexpr int BetweenClicksMs = 1000; // or the second one is a double click

bool isCounting()
{
    return QCoreApplication::arguments().contains(QLatin1String("-callgrindchild"));
}

/// Measures \a press alone: \a release makes the key ready for the next one. Instructions are counted in one
/// press; of one press there is no time to be told, so that is the mean of many.
template <typename Press, typename Release>
void measure(const Press &press, const Release &release)
{
    for (int i = 0; i < WarmUps; ++i) {
        press();
        release();
    }
    if (isCounting()) {
        QBENCHMARK_ONCE
        {
            press();
        }
        release();
        return;
    }
    qint64 spentNs = 0;
    int presses = 0;
    QElapsedTimer timer;
    for (; spentNs < EnoughNs; ++presses) {
        timer.start();
        press();
        spentNs += timer.nsecsElapsed();
        release();
    }
    QTest::setBenchmarkResult(qreal(spentNs) / presses, QTest::WalltimeNanoseconds);
}

QTouchEvent::TouchPoint finger(Qt::TouchPointState state, const QPointF &pos, const QPointF &screenPos)
{
    QTouchEvent::TouchPoint point(1);
    point.setState(state);
    point.setPos(pos);
    point.setScreenPos(screenPos);
    return point;
}

} // namespace

/// What it costs until a press has reached the host: the plug-in's signal, whose receiver counts. Where a key
/// paints before it tells, that is in the count as well.
class bench_Presses : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { m_consoles.reset(); }

    void aTouchOnAKey_data() { ConsolePair::addRows(); }
    void aTouchOnAKey();
    void aMousePressOnAKey_data() { ConsolePair::addRows(); }
    void aMousePressOnAKey();
    void aTouchOnTheWindow_data() { ConsolePair::addRows(); }
    void aTouchOnTheWindow();
    void aMousePressOnTheWindowPainted_data() { ConsolePair::addRows(); }
    void aMousePressOnTheWindowPainted();

private:
    QMouseEvent mouseEvent(QEvent::Type type) const;
    QTouchEvent touchEvent(QEvent::Type type) const;
    template <typename Event>
    void measureEvents(Event down, Event up);
    void touchWindow(Qt::TouchPointState state);
    void clickWindow(QEvent::Type type);
    QPoint onWindow() const { return m_key->mapTo(m_key->window(), m_key->rect().center()); }

    QTouchDevice *m_screen = nullptr;
    std::unique_ptr<ConsolePair> m_consoles;
    QWidget *m_key = nullptr;
    int m_pressed = 0;
    int m_released = 0;
    int m_timestamp = 0;
};

void bench_Presses::initTestCase()
{
    m_screen = QTest::createTouchDevice();
    m_consoles = std::make_unique<ConsolePair>();
    for (const bool isPlain : {false, true}) {
        ShownConsole *console = m_consoles->console(isPlain);
        console->left()->updateECButtonColor(
            std::make_shared<Korvo::ECButtonColor>()); // as a host does first
        const Korvo::IKorvoECKeyboardPlugin *plugin = console->plugin();
        connect(plugin, &Korvo::IKorvoECKeyboardPlugin::ecButtonPressed, this, [this] { ++m_pressed; });
        connect(plugin, &Korvo::IKorvoECKeyboardPlugin::ecButtonRelease, this, [this] { ++m_released; });
    }
}

void bench_Presses::init()
{
    QFETCH(bool, isPlain);
    m_key = m_consoles->console(isPlain)->child(KeyName);
    m_pressed = 0;
    m_released = 0;
}

/// A figure says nothing unless all that was done arrived.
void bench_Presses::cleanup()
{
    QVERIFY(m_pressed > WarmUps);
    QCOMPARE(m_released, m_pressed);
}

/// As the window system hands a touch in.
void bench_Presses::touchWindow(Qt::TouchPointState state)
{
    const QPoint global = m_key->mapToGlobal(m_key->rect().center());
    qt_handleTouchEvent(m_key->window()->windowHandle(), m_screen, {finger(state, {}, global)});
}

void bench_Presses::clickWindow(QEvent::Type type)
{
    const Qt::MouseButtons down = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    m_timestamp += BetweenClicksMs;
    qt_handleMouseEvent(m_key->window()->windowHandle(), onWindow(), m_key->window()->mapToGlobal(onWindow()),
                        down, Qt::LeftButton, type, Qt::NoModifier, m_timestamp);
}

QMouseEvent bench_Presses::mouseEvent(QEvent::Type type) const
{
    const Qt::MouseButtons down = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    return {type, m_key->rect().center(), Qt::LeftButton, down, Qt::NoModifier};
}

QTouchEvent bench_Presses::touchEvent(QEvent::Type type) const
{
    const bool isDown = type == QEvent::TouchBegin;
    const Qt::TouchPointState state = isDown ? Qt::TouchPointPressed : Qt::TouchPointReleased;
    return QTouchEvent(type, m_screen, Qt::NoModifier, state, {finger(state, m_key->rect().center(), {})});
}

/// From the event that the key gets.
template <typename Event>
void bench_Presses::measureEvents(Event down, Event up)
{
    measure([this, &down] { QCoreApplication::sendEvent(m_key, &down); },
            [this, &up] {
                QCoreApplication::sendEvent(m_key, &up);
                paint();
            });
}

/// A plain button takes no touch, but the mouse press that Qt makes of it.
void bench_Presses::aTouchOnAKey()
{
    QFETCH(bool, isPlain);
    if (isPlain)
        aMousePressOnAKey();
    else
        measureEvents(touchEvent(QEvent::TouchBegin), touchEvent(QEvent::TouchEnd));
}

void bench_Presses::aMousePressOnAKey()
{
    measureEvents(mouseEvent(QEvent::MouseButtonPress), mouseEvent(QEvent::MouseButtonRelease));
}

void bench_Presses::aTouchOnTheWindow()
{
    measure([this] { touchWindow(Qt::TouchPointPressed); },
            [this] {
                touchWindow(Qt::TouchPointReleased);
                paint();
            });
}

void bench_Presses::aMousePressOnTheWindowPainted()
{
    measure(
        [this] {
            clickWindow(QEvent::MouseButtonPress);
            paint();
        },
        [this] {
            clickWindow(QEvent::MouseButtonRelease);
            paint();
        });
}

QTEST_MAIN(bench_Presses)

#include "bench_presses.moc"
