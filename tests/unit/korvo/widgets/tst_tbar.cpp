// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/widgets/tbar.h>

#include <QAccessible>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QScreen>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QTouchDevice>
#include <QWheelEvent>
#include <QWindow>

#include <cmath>
#include <functional>
#include <limits>

using Korvo::Widgets::tbar;

namespace {

const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinity = std::numeric_limits<double>::infinity();

int logged = 0;
void countLog(QtMsgType, const QMessageLogContext &context, const QString &)
{
    if (QLatin1String(context.category) == QLatin1String("korvo.widgets"))
        ++logged;
}

class LogCounter
{
    Q_DISABLE_COPY(LogCounter)

public:
    LogCounter()
        : m_previous(qInstallMessageHandler(countLog))
    {
        logged = 0;
    }
    ~LogCounter() { qInstallMessageHandler(m_previous); }

private:
    const QtMessageHandler m_previous;
};

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *watched)
    {
        QCoreApplication::processEvents();
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            ++m_count;
            m_region |= static_cast<QPaintEvent *>(event)->region();
        }
        return false;
    }

    // Of all that was asked for so far.
    int count() const
    {
        // Twice: what a timer of no time asks for is painted in the turn after it.
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        return m_count;
    }
    const QRegion &region() const { return m_region; }

private:
    int m_count = 0;
    QRegion m_region;
};

// A lever in a window of its own, that calibrates itself by being clicked: so the tests know nothing of where
// its parts stand but that the rail takes the right of it.
class Console
{
public:
    explicit Console(tbar::TbarDirection direction = tbar::BottomToTop)
    {
        lever.resize(152, 380);
        lever.setTbarDirection(direction);
        lever.show();
        lever.activateWindow();
        isReady = QTest::qWaitForWindowActive(&lever);

        const bool isUp = direction == tbar::BottomToTop;
        lever.setCurValue(isUp ? 0 : 100);
        click(100);
        const double upper = lever.curValue();
        lever.setCurValue(isUp ? 100 : 0);
        click(280);
        const double lower = lever.curValue();
        m_perPixel = (lower - upper) / 180;
        m_atTop = upper - 100 * m_perPixel;
        lever.setCurValue(0);
    }

    void press(double y) { QTest::mousePress(window(), Qt::LeftButton, Qt::NoModifier, at(y)); }
    void move(double y) { QTest::mouseMove(window(), at(y)); }
    void release(double y) { QTest::mouseRelease(window(), Qt::LeftButton, Qt::NoModifier, at(y)); }
    void click(double y)
    {
        press(y);
        release(y);
    }
    void wheel(const QPoint &angle)
    {
        const QPoint position = at(190);
        QWheelEvent event(position, lever.mapToGlobal(position), QPoint(), angle, angle.y(), Qt::Vertical,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&lever, &event);
    }
    QTest::QTouchEventSequence touch(bool isSentAtOnce = true)
    {
        static QTouchDevice *const screen = QTest::createTouchDevice();
        return QTest::touchEvent(&lever, screen, isSentAtOnce);
    }

    QWindow *window() const { return lever.windowHandle(); }
    static QPoint at(double y) { return QPoint(112, qRound(y)); }
    double yOf(double percent) const { return (percent - m_atTop) / m_perPixel; }
    double perPixel() const { return m_perPixel; }

    tbar lever;
    bool isReady = false;

private:
    double m_perPixel = 1;
    double m_atTop = 0;
};

QImage rendered(tbar *lever, const QColor &background, qreal scale = 1)
{
    QImage image(lever->size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(background);
    lever->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// Not from pictures, as the painter stands between pixels, if only by what is not seen.
QImage drawn(tbar *lever, const QColor &background)
{
    QImage image(lever->size(), QImage::Format_RGB32);
    image.fill(background);
    QPainter painter(&image);
    painter.translate(1e-6, 1e-6);
    lever->render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// What is blended into a picture first and then with the picture is rounded twice.
constexpr int roundedTwice = 2;

/// Of any channel, of all pixels.
int largestDifference(const QImage &a, const QImage &b)
{
    int largest = a.size() == b.size() ? 0 : 256;
    for (int y = 0; y < a.height() && largest < 256; ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            for (const int difference : {qRed(p) - qRed(q), qGreen(p) - qGreen(q), qBlue(p) - qBlue(q)})
                largest = qMax(largest, qAbs(difference));
        }
    }
    return largest;
}

/// Counts how often a style sheet's ground would be painted: once for the pictures, once for each drawing.
class GroundCounter : public QProxyStyle
{
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        count += element == PE_Widget ? 1 : 0;
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    mutable int count = 0;
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(Console &)>)
Q_DECLARE_METATYPE(std::function<void(tbar *)>)

class tst_tbar : public QObject
{
    Q_OBJECT

private slots:
    void aNewLeverStandsAtZeroAndGoesUp();
    void whatIsSetIsWhatIsTold_data();
    void whatIsSetIsWhatIsTold();
    void badValuesAreBroughtIntoRange_data();
    void badValuesAreBroughtIntoRange();
    void eachLeverLogsItsFirstBadValueOnly();
    void thePercentageOutlivesAChangeOfDirection();
    void whatChangesNothingPaintsNothing();
    void aMirroredValueThatIsNewIsPainted();
    void enablingAndDisablingIsPainted();
    void aPressOnTheRailMovesTheHandleThere_data();
    void aPressOnTheRailMovesTheHandleThere();
    void aPressOnTheHandleMovesNothing();
    void draggingKeepsTheOffset_data();
    void draggingKeepsTheOffset();
    void draggingStopsAtTheEnds();
    void pressesBesideTheRailGoToTheParent();
    void theOtherMouseButtonsDoNothing();
    void theFirstFingerDrags();
    void aFingerBesideTheRailMovesNothing();
    void theWheelMovesTheHandleOnTheScreen_data();
    void theWheelMovesTheHandleOnTheScreen();
    void keysMoveTheHandleOnTheScreen_data();
    void keysMoveTheHandleOnTheScreen();
    void otherKeysGoToTheParent();
    void aDisabledLeverTakesNoInput_data();
    void aDisabledLeverTakesNoInput();
    void aMouseDragEnds_data();
    void aMouseDragEnds();
    void aFingerDragEnds_data();
    void aFingerDragEnds();
    void aDragEndsWhenOnlyTheLeverIsHidden();
    void keysAndWheelDoNotDisturbADrag();
    void theHandleStandsWhereItsPercentageIs_data();
    void theHandleStandsWhereItsPercentageIs();
    void disabledItIsReadAsWell();
    void arrowsShowTheDirection_data();
    void arrowsShowTheDirection();
    void aStyleSheetSetsColorsAndBackground();
    void theFocusIsSeen();
    void edgesAreSharp_data();
    void edgesAreSharp();
    void picturesShowWhatIsDrawn_data();
    void picturesShowWhatIsDrawn();
    void picturesArePaintedOnce();
    void picturesFollowWhatChanges_data();
    void picturesFollowWhatChanges();
    void aPainterThatScalesIsDrawnOn();
    void aMovePaintsWhatChangesOnly_data();
    void aMovePaintsWhatChangesOnly();
    void whatAMoveLeavesBehindIsPainted_data();
    void whatAMoveLeavesBehindIsPainted();
    void behindAGroundOfItsOwnNothingIsPainted_data();
    void behindAGroundOfItsOwnNothingIsPainted();
    void assistiveTechnologyReadsAndMovesIt();
};

void tst_tbar::aNewLeverStandsAtZeroAndGoesUp()
{
    const tbar lever(nullptr, Qt::WindowFlags());
    QCOMPARE(lever.curValue(), 0.0);
    QCOMPARE(lever.getTbarDirection(), tbar::BottomToTop);
    QCOMPARE(int(lever.getTbarDirection()), 0);
    QCOMPARE(int(tbar::TopToBottom), 1);
    QVERIFY(!lever.isDirectionEnabled());
    QVERIFY(lever.minimumSizeHint().width() <= 120 && lever.minimumSizeHint().height() <= 300);
}

void tst_tbar::whatIsSetIsWhatIsTold_data()
{
    QTest::addColumn<double>("percent");
    QTest::newRow("start") << 0.0;
    QTest::newRow("a twelfth") << 1 / 12.0;
    QTest::newRow("no binary fraction") << 33.33;
    QTest::newRow("tiny") << 1e-300;
    QTest::newRow("end") << 100.0;
}

void tst_tbar::whatIsSetIsWhatIsTold()
{
    QFETCH(double, percent);
    tbar lever;
    lever.setCurValue(50);
    const QSignalSpy moved(&lever, &tbar::percentChanged);
    const LogCounter counter;
    lever.setCurValue(percent);
    QVERIFY(lever.curValue() == percent); // to the last bit
    QCOMPARE(moved.count(), 0);
    QCOMPARE(logged, 0);
}

void tst_tbar::badValuesAreBroughtIntoRange_data()
{
    QTest::addColumn<double>("percent");
    QTest::addColumn<double>("expected");
    QTest::newRow("below") << -0.001 << 0.0;
    QTest::newRow("above") << 100.001 << 100.0;
    QTest::newRow("far below") << -infinity << 0.0;
    QTest::newRow("far above") << infinity << 100.0;
    QTest::newRow("no number") << notANumber << 33.33;
}

void tst_tbar::badValuesAreBroughtIntoRange()
{
    QFETCH(double, percent);
    QFETCH(double, expected);
    tbar lever;
    lever.setCurValue(33.33);
    const QSignalSpy moved(&lever, &tbar::percentChanged);
    const LogCounter counter;
    lever.setCurValue(percent);
    QCOMPARE(lever.curValue(), expected);
    QCOMPARE(moved.count(), 0);
    QCOMPARE(logged, 1);
}

void tst_tbar::eachLeverLogsItsFirstBadValueOnly()
{
    const LogCounter counter;
    tbar first;
    for (const double percent : {101.0, -1.0, notANumber, 101.0})
        first.setCurValue(percent);
    QCOMPARE(logged, 1);
    tbar second;
    second.setCurValue(notANumber);
    second.setCurValue(notANumber);
    QCOMPARE(logged, 2);
}

void tst_tbar::thePercentageOutlivesAChangeOfDirection()
{
    tbar lever;
    const QSignalSpy moved(&lever, &tbar::percentChanged);
    lever.setCurValue(33.33);
    lever.setTbarDirection(tbar::TopToBottom);
    QCOMPARE(lever.getTbarDirection(), tbar::TopToBottom);
    QCOMPARE(lever.curValue(), 33.33);
    QCOMPARE(moved.count(), 0);
}

void tst_tbar::whatChangesNothingPaintsNothing()
{
    Console console;
    QVERIFY(console.isReady);
    tbar &lever = console.lever;
    lever.setDirectionEnable(true);
    lever.setCurValue(33.33);
    lever.setEnabled(false);
    QVERIFY(PaintCounter(&lever).count() == 0); // what is still to come is over
    const PaintCounter paints(&lever);

    lever.setEnabled(true);
    lever.setDirectionEnable(true);
    lever.setTbarDirection(tbar::BottomToTop);
    lever.setCurValue(33.33);
    lever.setTravelColor(lever.travelColor());
    lever.setEnabled(false);
    QCOMPARE(paints.count(), 0);
}

void tst_tbar::aMirroredValueThatIsNewIsPainted()
{
    Console console;
    QVERIFY(console.isReady);
    console.lever.setEnabled(false);
    QVERIFY(PaintCounter(&console.lever).count() == 0);
    const PaintCounter paints(&console.lever);

    console.lever.setEnabled(true);
    console.lever.setCurValue(33.33);
    console.lever.setEnabled(false);
    QCOMPARE(paints.count(), 1);
}

void tst_tbar::enablingAndDisablingIsPainted()
{
    Console console;
    QVERIFY(console.isReady);
    console.lever.clearFocus();
    const PaintCounter paints(&console.lever);
    console.lever.setEnabled(false);
    QCOMPARE(paints.count(), 1);
    console.lever.setEnabled(true);
    QCOMPARE(paints.count(), 2);
}

void tst_tbar::aPressOnTheRailMovesTheHandleThere_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("target");
    QTest::newRow("up, from the start") << int(tbar::BottomToTop) << 0.0 << 75.0;
    QTest::newRow("up, back") << int(tbar::BottomToTop) << 100.0 << 25.0;
    QTest::newRow("down, from the start") << int(tbar::TopToBottom) << 0.0 << 75.0;
    QTest::newRow("down, back") << int(tbar::TopToBottom) << 100.0 << 25.0;
}

void tst_tbar::aPressOnTheRailMovesTheHandleThere()
{
    QFETCH(int, direction);
    QFETCH(double, start);
    QFETCH(double, target);
    Console console{tbar::TbarDirection(direction)};
    QVERIFY(console.isReady);
    const bool isInUpperHalf = console.yOf(target) < 190;
    QCOMPARE(isInUpperHalf, (direction == tbar::BottomToTop) == (target > 50));

    console.lever.setCurValue(start);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    console.press(console.yOf(target));
    QCOMPARE(moved.count(), 1);
    QVERIFY(std::abs(console.lever.curValue() - target) <= std::abs(console.perPixel()));
    QCOMPARE(moved.first().at(0).toDouble(), console.lever.curValue());
    QCOMPARE(moved.first().at(1).toDouble(), start);
    console.release(console.yOf(target));
    QCOMPARE(moved.count(), 1);
}

void tst_tbar::aPressOnTheHandleMovesNothing()
{
    Console console;
    QVERIFY(console.isReady);
    console.lever.setCurValue(33.33);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    for (const int offset : {-10, 0, 10}) {
        const double y = console.yOf(33.33) + offset;
        console.press(y);
        console.move(y);
        console.release(y);
    }
    QCOMPARE(moved.count(), 0);
    QVERIFY(console.lever.curValue() == 33.33);
}

void tst_tbar::draggingKeepsTheOffset_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("offset");
    for (const int direction : {int(tbar::BottomToTop), int(tbar::TopToBottom)}) {
        for (const int offset : {-9, 0, 9})
            QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(direction).arg(offset)))
                << direction << offset;
    }
}

void tst_tbar::draggingKeepsTheOffset()
{
    QFETCH(int, direction);
    QFETCH(int, offset);
    Console console{tbar::TbarDirection(direction)};
    QVERIFY(console.isReady);
    console.lever.setCurValue(40);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);

    const int start = qRound(console.yOf(40) + offset);
    console.press(start);
    console.move(start + 20);
    QCOMPARE(moved.count(), 1);
    QVERIFY(qAbs(console.lever.curValue() - (40 + 20 * console.perPixel())) < 1e-6);
    QCOMPARE(moved.first().at(1).toDouble(), 40.0);
    const double between = console.lever.curValue();

    console.move(start - 15);
    QCOMPARE(moved.count(), 2);
    QVERIFY(qAbs(console.lever.curValue() - (40 - 15 * console.perPixel())) < 1e-6);
    QCOMPARE(moved.last().at(1).toDouble(), between);

    console.release(start - 15);
    console.move(start + 60);
    QCOMPARE(moved.count(), 2);
}

void tst_tbar::draggingStopsAtTheEnds()
{
    Console console;
    QVERIFY(console.isReady);
    console.lever.setCurValue(90);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    console.press(console.yOf(90));
    console.move(5);
    QCOMPARE(console.lever.curValue(), 100.0);
    console.move(3);
    console.move(5);
    QCOMPARE(moved.count(), 1);
    console.move(375);
    QCOMPARE(console.lever.curValue(), 0.0);
    QCOMPARE(moved.count(), 2);
    console.release(375);
    QCOMPARE(moved.count(), 2);
}

void tst_tbar::pressesBesideTheRailGoToTheParent()
{
    Console console;
    QVERIFY(console.isReady);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(12, 100), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&console.lever, &press);
    QVERIFY(!press.isAccepted());
    QCOMPARE(moved.count(), 0);
}

void tst_tbar::theOtherMouseButtonsDoNothing()
{
    Console console;
    QVERIFY(console.isReady);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
        QTest::mouseClick(console.window(), button, Qt::NoModifier, Console::at(100));
    QCOMPARE(moved.count(), 0);
}

void tst_tbar::theFirstFingerDrags()
{
    Console console;
    QVERIFY(console.isReady);
    console.lever.setCurValue(40);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    const int start = qRound(console.yOf(40) + 5);

    QTest::QTouchEventSequence touch = console.touch(false);
    touch.press(3, Console::at(start), &console.lever).commit();
    QCOMPARE(moved.count(), 0);
    touch.move(3, Console::at(start - 20), &console.lever).commit();
    QCOMPARE(moved.count(), 1);
    QVERIFY(qAbs(console.lever.curValue() - (40 - 20 * console.perPixel())) < 1e-6);

    const double held = console.lever.curValue();
    touch.stationary(3).press(4, Console::at(300), &console.lever).commit();
    touch.stationary(3).move(4, Console::at(200), &console.lever).commit();
    QVERIFY(console.lever.curValue() == held);

    touch.move(3, Console::at(start - 30), &console.lever).stationary(4).commit();
    QCOMPARE(moved.count(), 2);
    touch.release(3, Console::at(start - 30), &console.lever).stationary(4).commit();
    const double left = console.lever.curValue();
    touch.move(4, Console::at(100), &console.lever).commit();
    touch.release(4, Console::at(100), &console.lever).commit();
    QVERIFY(console.lever.curValue() == left);
    QCOMPARE(moved.count(), 2);
}

void tst_tbar::aFingerBesideTheRailMovesNothing()
{
    Console console;
    QVERIFY(console.isReady);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    console.touch().press(0, QPoint(12, 100), &console.lever);
    console.touch().move(0, Console::at(100), &console.lever);
    console.touch().release(0, Console::at(100), &console.lever);
    QCOMPARE(moved.count(), 0);
}

void tst_tbar::theWheelMovesTheHandleOnTheScreen_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("expected");
    const int up = tbar::BottomToTop;
    const int down = tbar::TopToBottom;
    QTest::newRow("up, away") << up << QPoint(0, 120) << 33.33 << 34.33;
    QTest::newRow("up, near") << up << QPoint(0, -120) << 33.33 << 32.33;
    QTest::newRow("down, away") << down << QPoint(0, 120) << 33.33 << 32.33;
    QTest::newRow("down, near") << down << QPoint(0, -120) << 33.33 << 34.33;
    QTest::newRow("three notches") << up << QPoint(0, 360) << 33.33 << 36.33;
    QTest::newRow("a fine wheel") << up << QPoint(0, 30) << 33.0 << 33.25;
    QTest::newRow("sideways") << up << QPoint(120, 0) << 33.33 << 33.33;
    QTest::newRow("into the end") << up << QPoint(0, 120) << 99.5 << 100.0;
    QTest::newRow("at the end") << up << QPoint(0, 120) << 100.0 << 100.0;
}

void tst_tbar::theWheelMovesTheHandleOnTheScreen()
{
    QFETCH(int, direction);
    QFETCH(QPoint, angle);
    QFETCH(double, start);
    QFETCH(double, expected);
    Console console{tbar::TbarDirection(direction)};
    QVERIFY(console.isReady);
    console.lever.setCurValue(start);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    console.wheel(angle);
    QCOMPARE(console.lever.curValue(), expected);
    QCOMPARE(moved.count(), start == expected ? 0 : 1);
}

void tst_tbar::keysMoveTheHandleOnTheScreen_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("expected");
    const int up = tbar::BottomToTop;
    const int down = tbar::TopToBottom;
    QTest::newRow("up, Up") << up << int(Qt::Key_Up) << 33.33 << 34.33;
    QTest::newRow("up, Down") << up << int(Qt::Key_Down) << 33.33 << 32.33;
    QTest::newRow("up, Page Up") << up << int(Qt::Key_PageUp) << 33.33 << 43.33;
    QTest::newRow("up, Page Down") << up << int(Qt::Key_PageDown) << 33.33 << 23.33;
    QTest::newRow("up, Home") << up << int(Qt::Key_Home) << 33.33 << 0.0;
    QTest::newRow("up, End") << up << int(Qt::Key_End) << 33.33 << 100.0;
    QTest::newRow("down, Up") << down << int(Qt::Key_Up) << 33.33 << 32.33;
    QTest::newRow("down, Down") << down << int(Qt::Key_Down) << 33.33 << 34.33;
    QTest::newRow("down, Page Up") << down << int(Qt::Key_PageUp) << 33.33 << 23.33;
    QTest::newRow("down, Page Down") << down << int(Qt::Key_PageDown) << 33.33 << 43.33;
    QTest::newRow("down, Home") << down << int(Qt::Key_Home) << 33.33 << 0.0;
    QTest::newRow("down, End") << down << int(Qt::Key_End) << 33.33 << 100.0;
    QTest::newRow("into the end") << up << int(Qt::Key_PageUp) << 95.0 << 100.0;
    QTest::newRow("at the end") << up << int(Qt::Key_Up) << 100.0 << 100.0;
    QTest::newRow("at the start") << up << int(Qt::Key_Home) << 0.0 << 0.0;
}

void tst_tbar::keysMoveTheHandleOnTheScreen()
{
    QFETCH(int, direction);
    QFETCH(int, key);
    QFETCH(double, start);
    QFETCH(double, expected);
    Console console{tbar::TbarDirection(direction)};
    QVERIFY(console.isReady);
    console.lever.setCurValue(start);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    QTest::keyClick(console.window(), Qt::Key(key));
    QCOMPARE(console.lever.curValue(), expected);
    QCOMPARE(moved.count(), start == expected ? 0 : 1);
    if (!moved.isEmpty()) {
        QCOMPARE(moved.first().at(0).toDouble(), expected);
        QCOMPARE(moved.first().at(1).toDouble(), start);
    }
}

void tst_tbar::otherKeysGoToTheParent()
{
    tbar lever;
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
    QKeyEvent shortcut(QEvent::KeyPress, Qt::Key_Up, Qt::ControlModifier);
    for (QKeyEvent *event : {&letter, &shortcut}) {
        QCoreApplication::sendEvent(&lever, event);
        QVERIFY(!event->isAccepted());
    }
    QCOMPARE(lever.curValue(), 0.0);
}

void tst_tbar::aDisabledLeverTakesNoInput_data()
{
    using Input = std::function<void(Console &)>;
    QTest::addColumn<Input>("input");
    QTest::newRow("press on the rail") << Input([](Console &console) { console.click(100); });
    QTest::newRow("drag") << Input([](Console &console) {
        console.press(console.yOf(50));
        console.move(100);
        console.release(100);
    });
    QTest::newRow("finger") << Input([](Console &console) {
        console.touch().press(0, Console::at(100), &console.lever);
        console.touch().move(0, Console::at(150), &console.lever);
        console.touch().release(0, Console::at(150), &console.lever);
    });
    QTest::newRow("wheel") << Input([](Console &console) { console.wheel(QPoint(0, 120)); });
    QTest::newRow("key") << Input([](Console &console) { QTest::keyClick(console.window(), Qt::Key_End); });
}

void tst_tbar::aDisabledLeverTakesNoInput()
{
    QFETCH(std::function<void(Console &)>, input);
    Console console;
    QVERIFY(console.isReady);
    console.lever.setCurValue(50);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    console.lever.setEnabled(false);
    input(console);
    QCOMPARE(moved.count(), 0);
    QCOMPARE(console.lever.curValue(), 50.0);

    console.lever.setEnabled(true);
    console.lever.setFocus();
    input(console);
    QVERIFY(moved.count() > 0);
}

void tst_tbar::aMouseDragEnds_data()
{
    using Act = std::function<void(Console &)>;
    QTest::addColumn<Act>("act");
    QTest::newRow("disabled") << Act([](Console &console) {
        console.lever.setEnabled(false);
        console.lever.setEnabled(true);
    });
    QTest::newRow("hidden") << Act([](Console &console) {
        console.lever.hide();
        console.lever.show();
    });
    QTest::newRow("another window") << Act([](Console &) {
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
    });
    QTest::newRow("turned round") << Act(
        [](Console &console) { console.lever.setTbarDirection(tbar::TopToBottom); });
}

void tst_tbar::aMouseDragEnds()
{
    QFETCH(std::function<void(Console &)>, act);
    Console console;
    QVERIFY(console.isReady);
    console.lever.setCurValue(50);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    const double start = console.yOf(50);
    console.press(start);
    console.move(start - 10);
    QCOMPARE(moved.count(), 1);
    act(console);
    console.move(start - 50);
    console.release(start - 50);
    QCOMPARE(moved.count(), 1);
}

void tst_tbar::aFingerDragEnds_data()
{
    using Act = std::function<void(Console &)>;
    QTest::addColumn<Act>("act");
    QTest::newRow("disabled") << Act([](Console &console) {
        console.lever.setEnabled(false);
        console.lever.setEnabled(true);
    });
    QTest::newRow("cancelled") << Act([](Console &console) {
        QTouchEvent cancel(QEvent::TouchCancel);
        QCoreApplication::sendEvent(&console.lever, &cancel);
    });
    QTest::newRow("hidden") << Act([](Console &console) {
        console.lever.hide();
        console.lever.show();
    });
}

void tst_tbar::aFingerDragEnds()
{
    QFETCH(std::function<void(Console &)>, act);
    Console console;
    QVERIFY(console.isReady);
    console.lever.setCurValue(50);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    const double start = console.yOf(50);
    console.touch().press(0, Console::at(start), &console.lever);
    console.touch().move(0, Console::at(start - 10), &console.lever);
    QCOMPARE(moved.count(), 1);
    act(console);
    console.touch().move(0, Console::at(start - 50), &console.lever);
    console.touch().release(0, Console::at(start - 50), &console.lever);
    QCOMPARE(moved.count(), 1);

    console.click(100);
    QCOMPARE(moved.count(), 2);
}

void tst_tbar::aDragEndsWhenOnlyTheLeverIsHidden()
{
    QWidget window;
    window.resize(152, 380);
    tbar lever(&window);
    lever.resize(window.size());
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QSignalSpy moved(&lever, &tbar::percentChanged);
    QTest::mousePress(&lever, Qt::LeftButton, Qt::NoModifier, Console::at(100));
    QCOMPARE(moved.count(), 1);
    lever.hide();
    lever.show();
    QMouseEvent move(QEvent::MouseMove, Console::at(150), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&lever, &move);
    QCOMPARE(moved.count(), 1);
}

void tst_tbar::keysAndWheelDoNotDisturbADrag()
{
    Console console;
    QVERIFY(console.isReady);
    console.lever.setCurValue(50);
    const QSignalSpy moved(&console.lever, &tbar::percentChanged);
    console.press(console.yOf(50));
    QTest::keyClick(console.window(), Qt::Key_End);
    console.wheel(QPoint(0, 120));
    QCOMPARE(moved.count(), 0);
    console.release(console.yOf(50));
    QTest::keyClick(console.window(), Qt::Key_End);
    QCOMPARE(moved.count(), 1);
}

void tst_tbar::theHandleStandsWhereItsPercentageIs_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<double>("percent");
    QTest::addColumn<int>("third"); // of the screen, from the top
    QTest::newRow("up, 0") << int(tbar::BottomToTop) << 0.0 << 2;
    QTest::newRow("up, 50") << int(tbar::BottomToTop) << 50.0 << 1;
    QTest::newRow("up, 100") << int(tbar::BottomToTop) << 100.0 << 0;
    QTest::newRow("down, 0") << int(tbar::TopToBottom) << 0.0 << 0;
    QTest::newRow("down, 50") << int(tbar::TopToBottom) << 50.0 << 1;
    QTest::newRow("down, 100") << int(tbar::TopToBottom) << 100.0 << 2;
}

void tst_tbar::theHandleStandsWhereItsPercentageIs()
{
    QFETCH(int, direction);
    QFETCH(double, percent);
    QFETCH(int, third);
    tbar lever;
    lever.resize(152, 380);
    lever.setHandleColor(Qt::red);
    lever.setTbarDirection(tbar::TbarDirection(direction));
    lever.setCurValue(percent);

    for (const bool isEnabled : {true, false}) {
        lever.setEnabled(isEnabled);
        const QImage image = rendered(&lever, Qt::black);
        int rows = 0;
        for (int y = 0; y < image.height(); ++y) {
            const QRgb pixel = image.pixel(90, y); // the crossbar, beside the slit
            if (qRed(pixel) < 100 || qRed(pixel) < 2 * qGreen(pixel))
                continue;
            QCOMPARE(y * 3 / image.height(), third);
            ++rows;
        }
        QVERIFY(rows > 10);
    }
}

void tst_tbar::disabledItIsReadAsWell()
{
    tbar lever;
    lever.resize(152, 380);
    lever.setCurValue(33.33);
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::black);
    lever.setPalette(palette);
    const QImage enabled = rendered(&lever, Qt::black);
    lever.setEnabled(false);
    const QImage disabled = rendered(&lever, Qt::black);

    const QRect scale(0, 0, 60, 380);
    QCOMPARE(disabled.copy(scale), enabled.copy(scale));
    QVERIFY(disabled != enabled); // and told apart
    int white = 0;
    for (int y = 0; y < scale.height(); ++y) {
        for (int x = 0; x < scale.width(); ++x)
            white += disabled.pixelColor(x, y) == Qt::white ? 1 : 0;
    }
    QVERIFY(white > 50);
}

void tst_tbar::arrowsShowTheDirection_data()
{
    QTest::addColumn<bool>("hasArrows");
    QTest::addColumn<int>("direction");
    QTest::addColumn<bool>("isTopLit");
    QTest::addColumn<bool>("isBottomLit");
    QTest::newRow("none") << false << int(tbar::BottomToTop) << false << false;
    QTest::newRow("up") << true << int(tbar::BottomToTop) << true << false;
    QTest::newRow("down") << true << int(tbar::TopToBottom) << false << true;
}

void tst_tbar::arrowsShowTheDirection()
{
    QFETCH(bool, hasArrows);
    QFETCH(int, direction);
    QFETCH(bool, isTopLit);
    QFETCH(bool, isBottomLit);
    tbar lever;
    lever.resize(152, 380);
    lever.setTravelColor(Qt::green);
    lever.setDirectionEnable(hasArrows);
    QCOMPARE(lever.isDirectionEnabled(), hasArrows);
    lever.setTbarDirection(tbar::TbarDirection(direction));
    const QImage image = rendered(&lever, Qt::black);
    const auto isLit = [&image](const QRect &part) {
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                if (image.pixelColor(x, y) == Qt::green)
                    return true;
            }
        }
        return false;
    };
    // At 0 percent nothing else of the rail is lit.
    QCOMPARE(isLit(QRect(80, 0, 72, 40)), isTopLit);
    QCOMPARE(isLit(QRect(80, 340, 72, 40)), isBottomLit);
}

void tst_tbar::aStyleSheetSetsColorsAndBackground()
{
    tbar lever;
    lever.resize(152, 380);
    const QSignalSpy changed(&lever, &tbar::colorsChanged);
    lever.setStyleSheet(
        QStringLiteral("Korvo--Widgets--tbar { background: #102030; border: 3px solid #405060;"
                       " qproperty-railColor: #010203; qproperty-travelColor: #040506;"
                       " qproperty-handleColor: #070809; }"));
    lever.ensurePolished();
    QCOMPARE(lever.railColor(), QColor(1, 2, 3));
    QCOMPARE(lever.travelColor(), QColor(4, 5, 6));
    QCOMPARE(lever.handleColor(), QColor(7, 8, 9));
    QCOMPARE(changed.count(), 3);
    const QImage image = rendered(&lever, Qt::black);
    QCOMPARE(image.pixelColor(1, 1), QColor(0x40, 0x50, 0x60));
    QCOMPARE(image.pixelColor(5, 20), QColor(0x10, 0x20, 0x30));
}

void tst_tbar::theFocusIsSeen()
{
    Console console;
    QVERIFY(console.isReady);
    QPalette palette;
    palette.setColor(QPalette::Highlight, Qt::magenta);
    console.lever.setPalette(palette);
    console.lever.setFocus();
    QVERIFY(console.lever.hasFocus());
    QCOMPARE(rendered(&console.lever, Qt::black).pixelColor(76, 1), QColor(Qt::magenta));
    console.lever.clearFocus();
    QVERIFY(rendered(&console.lever, Qt::black).pixelColor(76, 1) != QColor(Qt::magenta));
}

void tst_tbar::edgesAreSharp_data()
{
    QTest::addColumn<double>("scale");
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0})
        QTest::newRow(qPrintable(QString::number(scale))) << scale;
}

void tst_tbar::edgesAreSharp()
{
    QFETCH(double, scale);
    tbar lever;
    lever.resize(152, 380);
    lever.setRailColor(Qt::black);
    QPalette palette;
    palette.setColor(QPalette::WindowText, Qt::white);
    lever.setPalette(palette);
    const QImage image = rendered(&lever, Qt::blue, scale);

    // A column that runs through all ticks and nothing else: the background, 3 bright ticks, 18 dim ones.
    int columns = 0;
    for (int x = 0; x < image.width() / 2; ++x) {
        QSet<QRgb> colors;
        int bright = 0;
        int dim = 0;
        for (int y = 1; y < image.height(); ++y) {
            const QRgb pixel = image.pixel(x, y);
            const bool starts = pixel != image.pixel(x, y - 1);
            bright += starts && pixel == QColor(Qt::white).rgb() ? 1 : 0;
            dim += starts && pixel != QColor(Qt::white).rgb() && pixel != QColor(Qt::blue).rgb() ? 1 : 0;
            colors << pixel;
        }
        columns += colors.size() == 3 && bright == 3 && dim == 18 ? 1 : 0;
    }
    QVERIFY(columns > 0);

    // The upper and the right edge of the rail: the background, a line, the rail.
    QSet<QRgb> upper;
    QSet<QRgb> right;
    for (int i = 0; i < 20 * scale; ++i) {
        upper << image.pixel(qRound(130 * scale), i);
        right << image.pixel(image.width() - 1 - i, image.height() / 3);
    }
    QCOMPARE(upper.size(), 3);
    QCOMPARE(right.size(), 3);
}

void tst_tbar::picturesShowWhatIsDrawn_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<QColor>("ground");
    for (const int direction : {int(tbar::BottomToTop), int(tbar::TopToBottom)}) {
        const char *name = direction == tbar::BottomToTop ? "up" : "down";
        QTest::addRow("%s, a ground of its own", name) << direction << QColor(Qt::darkBlue);
        QTest::addRow("%s, a ground that shines through", name) << direction << QColor(0, 0, 255, 100);
        QTest::addRow("%s, no ground", name) << direction << QColor();
    }
}

void tst_tbar::picturesShowWhatIsDrawn()
{
    QFETCH(int, direction);
    QFETCH(QColor, ground);
    tbar lever;
    lever.resize(152, 380);
    lever.setTbarDirection(tbar::TbarDirection(direction));
    lever.setDirectionEnable(true);
    lever.setGroundColor(ground);
    for (const double percent : {0.0, 0.01, 2.0, 4.999, 5.0, 5.001, 33.33, 49.99, 50.0, 99.0, 99.99, 100.0}) {
        lever.setCurValue(percent);
        const QImage pictured = rendered(&lever, Qt::darkGreen);
        const int difference = largestDifference(pictured, drawn(&lever, Qt::darkGreen));
        QVERIFY2(difference <= roundedTwice,
                 qPrintable(QStringLiteral("%1: %2").arg(percent).arg(difference)));
    }
}

void tst_tbar::picturesArePaintedOnce()
{
    GroundCounter style;
    tbar lever;
    lever.resize(152, 380);
    lever.setStyle(&style);
    rendered(&lever, Qt::black);
    QCOMPARE(style.count, 1);
    for (const double percent : {10.0, 11.0, 90.0}) {
        lever.setEnabled(true);
        lever.setCurValue(percent);
        lever.setEnabled(false);
        lever.setEnabled(true);
        rendered(&lever, Qt::black);
    }
    QCOMPARE(style.count, 1);
}

void tst_tbar::picturesFollowWhatChanges_data()
{
    using Act = std::function<void(tbar *)>;
    QTest::addColumn<Act>("act");
    QTest::newRow("palette") << Act([](tbar *lever) {
        QPalette palette = lever->palette();
        palette.setColor(QPalette::WindowText, Qt::red);
        lever->setPalette(palette);
    });
    QTest::newRow("font") << Act([](tbar *lever) {
        QFont font = lever->font();
        font.setPixelSize(20);
        lever->setFont(font);
    });
    QTest::newRow("size") << Act([](tbar *lever) { lever->resize(160, 420); });
    QTest::newRow("margins") << Act([](tbar *lever) { lever->setContentsMargins(5, 6, 7, 8); });
    QTest::newRow("disabled") << Act([](tbar *lever) { lever->setEnabled(false); });
    QTest::newRow("held") << Act([](tbar *lever) {
        QMouseEvent press(QEvent::MouseButtonPress, Console::at(100), Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(lever, &press);
    });
    QTest::newRow("direction") << Act([](tbar *lever) { lever->setTbarDirection(tbar::TopToBottom); });
    QTest::newRow("arrows") << Act([](tbar *lever) { lever->setDirectionEnable(true); });
    QTest::newRow("rail") << Act([](tbar *lever) { lever->setRailColor(Qt::red); });
    QTest::newRow("travel") << Act([](tbar *lever) { lever->setTravelColor(Qt::red); });
    QTest::newRow("handle") << Act([](tbar *lever) { lever->setHandleColor(Qt::red); });
    QTest::newRow("ground") << Act([](tbar *lever) { lever->setGroundColor(Qt::red); });
    QTest::newRow("style sheet") << Act([](tbar *lever) {
        lever->setStyleSheet(QStringLiteral("Korvo--Widgets--tbar { border: 2px solid red; }"));
    });
}

void tst_tbar::picturesFollowWhatChanges()
{
    QFETCH(std::function<void(tbar *)>, act);
    tbar lever;
    lever.resize(152, 380);
    lever.setGroundColor(Qt::black);
    lever.setStyleSheet(QStringLiteral("Korvo--Widgets--tbar { border: 2px solid blue; }"));
    lever.setCurValue(50);
    const QImage before = rendered(&lever, Qt::green);
    QVERIFY(largestDifference(before, drawn(&lever, Qt::green)) <= roundedTwice);
    act(&lever);
    const QImage after = rendered(&lever, Qt::green);
    QVERIFY(after != before);
    QVERIFY(largestDifference(after, drawn(&lever, Qt::green)) <= roundedTwice);
}

void tst_tbar::aPainterThatScalesIsDrawnOn()
{
    GroundCounter style;
    tbar lever;
    lever.resize(152, 380);
    lever.setStyle(&style);
    rendered(&lever, Qt::black);
    for (const double scale : {1.5, 2.0, 3.0})
        rendered(&lever, Qt::black, scale);
    QCOMPARE(style.count, 4);
    rendered(&lever, Qt::black);
    QCOMPARE(style.count, 4); // the pictures are still good
}

void tst_tbar::aMovePaintsWhatChangesOnly_data()
{
    QTest::addColumn<int>("direction");
    QTest::newRow("up") << int(tbar::BottomToTop);
    QTest::newRow("down") << int(tbar::TopToBottom);
}

void tst_tbar::aMovePaintsWhatChangesOnly()
{
    QFETCH(int, direction);
    Console console{tbar::TbarDirection(direction)};
    QVERIFY(console.isReady);
    console.lever.setCurValue(40);
    const PaintCounter paints(&console.lever);
    console.lever.setCurValue(41);
    QCOMPARE(paints.count(), 1);
    const QRect painted = paints.region().boundingRect();
    QVERIFY(painted.contains(Console::at(console.yOf(40))));
    QVERIFY(painted.contains(Console::at(console.yOf(41))));
    QVERIFY2(painted.height() < 60, qPrintable(QString::number(painted.height())));
    QVERIFY2(painted.left() > 20, qPrintable(QString::number(painted.left()))); // without the figures
}

void tst_tbar::whatAMoveLeavesBehindIsPainted_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<int>("height");
    for (const int height : {380, 150}) {
        QTest::addRow("up, %d", height) << int(tbar::BottomToTop) << height;
        QTest::addRow("down, %d", height) << int(tbar::TopToBottom) << height;
    }
}

void tst_tbar::whatAMoveLeavesBehindIsPainted()
{
    QFETCH(int, direction);
    QFETCH(int, height);
    tbar lever;
    lever.resize(152, height);
    lever.setGroundColor(Qt::darkBlue);
    lever.setTbarDirection(tbar::TbarDirection(direction));
    lever.show();
    QVERIFY(QTest::qWaitForWindowExposed(&lever));
    QVERIFY(PaintCounter(&lever).count() == 0);
    for (const double percent : {50.0, 49.0, 0.0, 0.01, 7.0, 5.0, 4.99, 80.0, 20.0, 100.0, 99.5}) {
        lever.setCurValue(percent);
        QCoreApplication::processEvents();
        const QImage shown = lever.screen()->grabWindow(lever.winId()).toImage();
        QCOMPARE(largestDifference(shown, rendered(&lever, Qt::green)), 0);
    }
}

void tst_tbar::behindAGroundOfItsOwnNothingIsPainted_data()
{
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QString>("styleSheet");
    QTest::addColumn<bool>("isOpaque");
    const QString background = QStringLiteral("background: rgba(255, 0, 0, 50%); border: 2px solid red;");
    QTest::newRow("no ground") << QColor() << QString() << false;
    QTest::newRow("a ground that shines through") << QColor(0, 0, 0, 200) << QString() << false;
    QTest::newRow("its own") << QColor(Qt::darkBlue) << QString() << true;
    QTest::newRow("its own, under a style sheet's") << QColor(Qt::darkBlue) << background << true;
}

void tst_tbar::behindAGroundOfItsOwnNothingIsPainted()
{
    QFETCH(QColor, ground);
    QFETCH(QString, styleSheet);
    QFETCH(bool, isOpaque);
    QWidget window;
    window.resize(152, 380);
    tbar lever(&window);
    lever.resize(window.size());
    lever.setGroundColor(ground);
    lever.setStyleSheet(styleSheet);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const PaintCounter paints(&lever);
    const PaintCounter paintsBehind(&window);
    lever.setCurValue(50);
    QCOMPARE(paints.count(), 1);
    QCOMPARE(paintsBehind.count(), isOpaque ? 0 : 1);
    QCOMPARE(rendered(&lever, Qt::black) == rendered(&lever, Qt::white), isOpaque);
}

void tst_tbar::assistiveTechnologyReadsAndMovesIt()
{
    tbar lever;
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&lever);
    QVERIFY(accessible);
    QVERIFY(!accessible->text(QAccessible::Name).isEmpty());
    QCOMPARE(accessible->role(), QAccessible::Slider);
    QAccessibleValueInterface *value = accessible->valueInterface();
    QVERIFY(value);
    QCOMPARE(value->minimumValue().toDouble(), 0.0);
    QCOMPARE(value->maximumValue().toDouble(), 100.0);

    lever.setCurValue(33.33);
    QCOMPARE(value->currentValue().toDouble(), 33.33);

    const QSignalSpy moved(&lever, &tbar::percentChanged);
    value->setCurrentValue(40.0);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(lever.curValue(), 40.0);
    lever.setEnabled(false);
    value->setCurrentValue(50.0);
    QCOMPARE(moved.count(), 1);
}

QTEST_MAIN(tst_tbar)

#include "tst_tbar.moc"
