// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/widgets/tumblertime.h>

#include <QAccessible>
#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImage>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTouchDevice>
#include <QVBoxLayout>
#include <QVariantAnimation>
#include <QWheelEvent>
#include <QWindow>

#include <functional>

using Korvo::Widgets::TumblerTime;

namespace {

// Of a tumbler that is 140 pixels high.
const int pitch = 40;
const int middle = 70;

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

class EventCounter : public QObject
{
public:
    EventCounter(QWidget *watched, QEvent::Type type)
        : m_type(type)
    {
        QCoreApplication::processEvents();
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return false;
    }

    int count = 0;

private:
    const QEvent::Type m_type;
};

// A tumbler in a window, and a hand that keeps its own time.
class Desk
{
public:
    Desk()
    {
        QVBoxLayout *layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&time);
        time.setFixedSize(275, 140);
        window.show();
        window.activateWindow();
        isReady = QTest::qWaitForWindowActive(&window);
        moved.reset(new QSignalSpy(&time, &TumblerTime::timeChanged));
    }

    QWidget *wheel(const char *name) const
    {
        const QList<QWidget *> wheels = time.findChildren<QWidget *>();
        for (QWidget *wheel : wheels) {
            if (wheel->accessibleName() == QLatin1String(name))
                return wheel;
        }
        qFatal("no wheel of that name");
        return nullptr;
    }
    QWidget *hour() const { return wheel("Hour"); }
    QWidget *minute() const { return wheel("Minute"); }
    QWidget *type() const { return wheel("AM or PM"); }

    static QAbstractAnimation *motion(const QWidget *wheel)
    {
        return wheel->findChild<QAbstractAnimation *>();
    }
    static bool isTurning(const QWidget *wheel)
    {
        return motion(wheel)->state() == QAbstractAnimation::Running;
    }
    static void finish(const QWidget *wheel) { motion(wheel)->setCurrentTime(motion(wheel)->duration()); }

    bool mouse(QEvent::Type type, QWidget *wheel, int y, int afterMs, Qt::MouseButton button = Qt::LeftButton)
    {
        m_now += ulong(afterMs);
        const bool isUp = type == QEvent::MouseButtonRelease;
        const QPoint at(wheel->width() / 2, y);
        QMouseEvent event(type, at, wheel->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : button,
                          isUp ? Qt::NoButton : button, Qt::NoModifier);
        event.setTimestamp(m_now);
        event.ignore();
        QApplication::sendEvent(wheel, &event);
        return event.isAccepted();
    }
    void press(QWidget *wheel, int y) { mouse(QEvent::MouseButtonPress, wheel, y, 1000); }
    void move(QWidget *wheel, int y, int afterMs = 20) { mouse(QEvent::MouseMove, wheel, y, afterMs); }
    void release(QWidget *wheel, int y, int afterMs = 500)
    {
        mouse(QEvent::MouseButtonRelease, wheel, y, afterMs);
    }
    // Down the screen for a positive way, and still at its end.
    void drag(QWidget *wheel, int way)
    {
        press(wheel, middle);
        for (int step = 1; step <= 10; ++step)
            move(wheel, middle + way * step / 10);
        release(wheel, middle + way);
    }
    void flick(QWidget *wheel, int way)
    {
        press(wheel, middle);
        move(wheel, middle + way / 2, 20);
        move(wheel, middle + way, 20);
        release(wheel, middle + way, 5);
    }
    void key(QWidget *wheel, int code, const QString &text = QString(), int afterMs = 10)
    {
        m_now += ulong(afterMs);
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier, text);
        event.setTimestamp(m_now);
        QApplication::sendEvent(wheel, &event);
    }
    static bool roll(QWidget *wheel, int angle)
    {
        const QPoint at = wheel->rect().center();
        QWheelEvent event(at, wheel->mapToGlobal(at), QPoint(), QPoint(0, angle), angle, Qt::Vertical,
                          Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(wheel, &event);
        return event.isAccepted();
    }
    static QTest::QTouchEventSequence touch(QWidget *wheel)
    {
        static QTouchDevice *const screen = QTest::createTouchDevice();
        return QTest::touchEvent(wheel, screen);
    }

    QString shown() const
    {
        return QStringLiteral("%1:%2:%3 %4")
            .arg(time.getHour())
            .arg(time.getMin())
            .arg(time.getSec())
            .arg(time.getTimeType());
    }

    QWidget window;
    TumblerTime time;
    QScopedPointer<QSignalSpy> moved;
    bool isReady = false;

private:
    ulong m_now = 1000;
};

QString darkDesk()
{
    return QStringLiteral("Korvo--Widgets--TumblerTime { color: white; background-color: black;"
                          " selection-background-color: #000060; }");
}

QImage rendered(TumblerTime *time)
{
    QImage image(time->size(), QImage::Format_RGB32);
    image.fill(Qt::black);
    time->render(&image);
    return image;
}

// The brightest of a row of text.
int brightest(const QImage &image, const QRect &place)
{
    int result = 0;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x)
            result = qMax(result, qGray(image.pixel(x, y)));
    }
    return result;
}

} // namespace

using Act = std::function<void(Desk &)>;
Q_DECLARE_METATYPE(Act)

class tst_TumblerTime : public QObject
{
    Q_OBJECT

private slots:
    void aNewOneShowsMidnightOf24Hours();
    void hoursReadBackAsShown_data();
    void hoursReadBackAsShown();
    void aNewListOfHoursKeepsTheHour_data();
    void aNewListOfHoursKeepsTheHour();
    void badValuesAreLoggedAndChangeNothing_data();
    void badValuesAreLoggedAndChangeNothing();
    void settersAreSilent();
    void amAndPmDoNotDependOnTheirWheel();
    void wheelsShareTheWidth_data();
    void wheelsShareTheWidth();
    void draggingTurnsRowByRow_data();
    void draggingTurnsRowByRow();
    void theValueIsTheNearestRowDuringADrag();
    void whatIsLetGoBetweenRowsSettles();
    void aFlickGoesOnAndSettlesOnARow_data();
    void aFlickGoesOnAndSettlesOnARow();
    void aFlickOfAmStopsAtPm();
    void aFlickEndsByItself();
    void aPressStopsAFlick();
    void aPressOnARowTurnsToIt_data();
    void aPressOnARowTurnsToIt();
    void twoTapsAreTwoRows();
    void otherButtonsAreTakenAndDoNothing();
    void theFirstFingerTurns();
    void itIsTurnedInAScaledView();
    void keysTurn_data();
    void keysTurn();
    void itTurnsTheShorterWay();
    void typedDigitsAreANumber_data();
    void typedDigitsAreANumber();
    void leftRightAndTabGoFromWheelToWheel();
    void theMouseWheelTurnsWhatHasTheFocus();
    void partsOfANotchAddUp();
    void nothingReachesThePageBehind();
    void disabledItTakesNoInput();
    void aTurnEnds_data();
    void aTurnEnds();
    void whatAListenerSetsHolds();
    void nothingIsPaintedAtRest();
    void theMiddleRowIsTheBrightest();
    void focusAndDisabledAreSeen();
    void assistiveTechnologyReadsAndTurnsIt();
};

void tst_TumblerTime::aNewOneShowsMidnightOf24Hours()
{
    const TumblerTime time;
    QCOMPARE(time.getHour(), 0);
    QCOMPARE(time.getMin(), 0);
    QCOMPARE(time.getSec(), 0);
    QCOMPARE(time.getTimeType(), QStringLiteral("AM"));
    QCOMPARE(time.hourCount(), 24);
    QVERIFY(time.isTypeVisible());
}

void tst_TumblerTime::hoursReadBackAsShown_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("expected");
    for (int hour = 0; hour < 24; ++hour)
        QTest::newRow(qPrintable(QStringLiteral("24 %1").arg(hour))) << 24 << hour << hour;
    for (int hour = 1; hour <= 12; ++hour) {
        QTest::newRow(qPrintable(QStringLiteral("12 %1").arg(hour))) << 12 << hour << hour;
        if (hour < 12)
            QTest::newRow(qPrintable(QStringLiteral("12 %1").arg(hour + 12))) << 12 << hour + 12 << hour;
    }
    QTest::newRow("12 0") << 12 << 0 << 12;
}

void tst_TumblerTime::hoursReadBackAsShown()
{
    QFETCH(int, count);
    QFETCH(int, hour);
    QFETCH(int, expected);
    TumblerTime time;
    time.setHourList(count);
    time.setHour(5);
    time.setAMPM(QStringLiteral("PM"));
    const LogCounter counter;
    time.setHour(hour);
    QCOMPARE(time.getHour(), expected);
    QCOMPARE(time.getTimeType(), QStringLiteral("PM"));
    QCOMPARE(logged, 0);
}

void tst_TumblerTime::aNewListOfHoursKeepsTheHour_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("expected");
    QTest::newRow("midnight") << 24 << 0 << 12 << 12;
    QTest::newRow("one") << 24 << 1 << 12 << 1;
    QTest::newRow("eleven") << 24 << 11 << 12 << 11;
    QTest::newRow("noon") << 24 << 12 << 12 << 12;
    QTest::newRow("one in the afternoon") << 24 << 13 << 12 << 1;
    QTest::newRow("last") << 24 << 23 << 12 << 11;
    QTest::newRow("same list") << 24 << 23 << 24 << 23;
    QTest::newRow("twelve of twelve") << 12 << 12 << 24 << 12;
    QTest::newRow("one of twelve") << 12 << 1 << 24 << 1;
    QTest::newRow("eleven of twelve") << 12 << 11 << 24 << 11;
    QTest::newRow("same list of twelve") << 12 << 12 << 12 << 12;
}

void tst_TumblerTime::aNewListOfHoursKeepsTheHour()
{
    QFETCH(int, from);
    QFETCH(int, hour);
    QFETCH(int, to);
    QFETCH(int, expected);
    TumblerTime time;
    time.setHourList(from);
    time.setHour(hour);
    const QSignalSpy moved(&time, &TumblerTime::timeChanged);
    time.setHourList(to);
    QCOMPARE(time.hourCount(), to);
    QCOMPARE(time.getHour(), expected);
    QCOMPARE(moved.count(), 0);
}

void tst_TumblerTime::badValuesAreLoggedAndChangeNothing_data()
{
    QTest::addColumn<Act>("act");
    const auto row = [](const char *name, const Act &act) { QTest::newRow(name) << act; };
    row("hour 24", [](Desk &desk) { desk.time.setHour(24); });
    row("hour -1", [](Desk &desk) { desk.time.setHour(-1); });
    row("minute 60", [](Desk &desk) { desk.time.setMin(60); });
    row("minute -1", [](Desk &desk) { desk.time.setMin(-1); });
    row("second 60", [](Desk &desk) { desk.time.setSec(60); });
    row("second -1", [](Desk &desk) { desk.time.setSec(-1); });
    row("no type", [](Desk &desk) { desk.time.setAMPM(QString()); });
    row("lower case", [](Desk &desk) { desk.time.setAMPM(QStringLiteral("am")); });
    row("no hours", [](Desk &desk) { desk.time.setHourList(0); });
    row("13 hours", [](Desk &desk) { desk.time.setHourList(13); });
}

void tst_TumblerTime::badValuesAreLoggedAndChangeNothing()
{
    QFETCH(Act, act);
    for (const int count : {12, 24}) {
        Desk desk;
        desk.time.setHourList(count);
        desk.time.setHour(9);
        desk.time.setMin(58);
        desk.time.setSec(7);
        desk.time.setAMPM(QStringLiteral("PM"));
        const LogCounter counter;
        act(desk);
        QCOMPARE(desk.shown(), QStringLiteral("9:58:7 PM"));
        QCOMPARE(desk.time.hourCount(), count);
        QCOMPARE(logged, 1);
        act(desk);
        QCOMPARE(logged, 2);
    }
}

void tst_TumblerTime::settersAreSilent()
{
    Desk desk;
    desk.time.setHour(23);
    desk.time.setMin(59);
    desk.time.setSec(58);
    desk.time.setAMPM(QStringLiteral("PM"));
    QCOMPARE(desk.shown(), QStringLiteral("23:59:58 PM"));
    desk.time.setHourList(12);
    desk.time.setTypeVisible(false);
    QCOMPARE(desk.shown(), QStringLiteral("11:59:58 PM"));
    QVERIFY(!Desk::isTurning(desk.hour()));
    QCOMPARE(desk.moved->count(), 0);
}

void tst_TumblerTime::amAndPmDoNotDependOnTheirWheel()
{
    TumblerTime time;
    time.setTypeVisible(false);
    QVERIFY(!time.isTypeVisible());
    time.setAMPM(QStringLiteral("PM"));
    QCOMPARE(time.getTimeType(), QStringLiteral("PM"));
    time.setTypeVisible(true);
    QVERIFY(time.isTypeVisible());
    QCOMPARE(time.getTimeType(), QStringLiteral("PM"));
}

void tst_TumblerTime::wheelsShareTheWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("hasType");
    QTest::newRow("four") << 275 << true;
    QTest::newRow("three") << 225 << false;
}

void tst_TumblerTime::wheelsShareTheWidth()
{
    QFETCH(int, width);
    QFETCH(bool, hasType);
    Desk desk;
    desk.time.setTypeVisible(hasType);
    desk.time.setFixedWidth(width);
    QCOMPARE(desk.time.sizeHint().width(), width);
    QTRY_COMPARE(desk.hour()->x(), 0);
    QWidget *const last = desk.wheel(hasType ? "AM or PM" : "Second");
    QTRY_COMPARE(last->geometry().right(), width - 1);
    QVERIFY(qAbs(last->width() - desk.hour()->width()) <= 1);
    QCOMPARE(desk.hour()->height(), 140);
    QCOMPARE(desk.type()->isVisible(), hasType);
}

void tst_TumblerTime::draggingTurnsRowByRow_data()
{
    QTest::addColumn<QString>("wheel");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("rows"); // up the screen
    QTest::addColumn<QString>("expected");
    QTest::newRow("hour") << "Hour" << 24 << 3 << "13:30:30 AM";
    QTest::newRow("hour back") << "Hour" << 24 << -3 << "7:30:30 AM";
    QTest::newRow("hour over midnight") << "Hour" << 24 << 14 << "0:30:30 AM";
    QTest::newRow("hour under midnight") << "Hour" << 24 << -11 << "23:30:30 AM";
    QTest::newRow("of 12, to 12") << "Hour" << 12 << 2 << "12:30:30 AM";
    QTest::newRow("of 12, over 12") << "Hour" << 12 << 3 << "1:30:30 AM";
    QTest::newRow("of 12, under 1") << "Hour" << 12 << -11 << "11:30:30 AM";
    QTest::newRow("minute") << "Minute" << 24 << 1 << "10:31:30 AM";
    QTest::newRow("minute over") << "Minute" << 24 << 30 << "10:0:30 AM";
    QTest::newRow("minute under") << "Minute" << 24 << -31 << "10:59:30 AM";
    QTest::newRow("second back") << "Second" << 24 << -4 << "10:30:26 AM";
    QTest::newRow("to PM") << "AM or PM" << 24 << 1 << "10:30:30 PM";
    QTest::newRow("beyond PM") << "AM or PM" << 24 << 3 << "10:30:30 PM";
    QTest::newRow("before AM") << "AM or PM" << 24 << -3 << "10:30:30 AM";
}

void tst_TumblerTime::draggingTurnsRowByRow()
{
    QFETCH(QString, wheel);
    QFETCH(int, count);
    QFETCH(int, rows);
    QFETCH(QString, expected);
    Desk desk;
    desk.time.setHourList(count);
    desk.time.setHour(10);
    desk.time.setMin(30);
    desk.time.setSec(30);
    const bool isChange = desk.shown() != expected;
    QWidget *const turned = desk.wheel(qPrintable(wheel));
    desk.drag(turned, -rows * pitch);
    QCOMPARE(desk.shown(), expected);
    QCOMPARE(desk.moved->isEmpty(), !isChange);
    const int moves = desk.moved->count();
    Desk::finish(turned);
    QCOMPARE(desk.shown(), expected);
    QCOMPARE(desk.moved->count(), moves);
}

void tst_TumblerTime::theValueIsTheNearestRowDuringADrag()
{
    Desk desk;
    desk.press(desk.minute(), middle);
    desk.move(desk.minute(), middle - pitch * 4 / 10);
    QCOMPARE(desk.time.getMin(), 0);
    QCOMPARE(desk.moved->count(), 0);
    desk.move(desk.minute(), middle - pitch * 6 / 10);
    QCOMPARE(desk.time.getMin(), 1);
    QCOMPARE(desk.moved->count(), 1);
    desk.move(desk.minute(), middle - pitch * 4 / 10);
    QCOMPARE(desk.time.getMin(), 0);
    QCOMPARE(desk.moved->count(), 2);
}

void tst_TumblerTime::whatIsLetGoBetweenRowsSettles()
{
    Desk desk;
    desk.time.setMin(9);
    const QImage atRest = rendered(&desk.time);
    desk.time.setMin(10);
    desk.drag(desk.minute(), pitch * 7 / 10);
    QCOMPARE(desk.time.getMin(), 9);
    QVERIFY(Desk::isTurning(desk.minute()));
    QVERIFY(rendered(&desk.time) != atRest);
    Desk::finish(desk.minute());
    QVERIFY(!Desk::isTurning(desk.minute()));
    QCOMPARE(desk.time.getMin(), 9);
    QCOMPARE(rendered(&desk.time), atRest);
}

void tst_TumblerTime::aFlickGoesOnAndSettlesOnARow_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("up") << -60;
    QTest::newRow("down") << 60;
}

void tst_TumblerTime::aFlickGoesOnAndSettlesOnARow()
{
    QFETCH(int, way);
    const int forward = way < 0 ? 1 : -1;
    Desk desk;
    desk.time.setMin(30);
    desk.flick(desk.minute(), way);
    const int letGo = desk.time.getMin();
    QVERIFY(qAbs(letGo - 30) <= 2);
    const int moves = desk.moved->count();
    QVERIFY(Desk::isTurning(desk.minute()));

    // Slower and slower.
    QAbstractAnimation *const motion = Desk::motion(desk.minute());
    motion->setCurrentTime(motion->duration() / 2);
    const int halfWay = desk.time.getMin();
    QVERIFY((halfWay - letGo) * forward > 0);
    QVERIFY(desk.moved->count() > moves);
    Desk::finish(desk.minute());
    QVERIFY(!Desk::isTurning(desk.minute()));
    const int settled = desk.time.getMin();
    QVERIFY((settled - letGo) * forward >= 5);
    QVERIFY((settled - halfWay) * forward >= 0);
    QVERIFY((settled - halfWay) * forward < (halfWay - letGo) * forward);

    const QImage atRest = rendered(&desk.time);
    desk.time.setMin(settled);
    QCOMPARE(rendered(&desk.time), atRest);
}

void tst_TumblerTime::aFlickOfAmStopsAtPm()
{
    Desk desk;
    desk.flick(desk.type(), -100);
    Desk::finish(desk.type());
    QCOMPARE(desk.time.getTimeType(), QStringLiteral("PM"));
    QCOMPARE(desk.moved->count(), 1);
    QVERIFY(!Desk::isTurning(desk.type()));
}

void tst_TumblerTime::aFlickEndsByItself()
{
    Desk desk;
    desk.flick(desk.minute(), -40);
    QVERIFY(Desk::isTurning(desk.minute()));
    QTRY_VERIFY(!Desk::isTurning(desk.minute()));
    QVERIFY(desk.time.getMin() > 2);
}

void tst_TumblerTime::aPressStopsAFlick()
{
    Desk desk;
    desk.flick(desk.minute(), -60);
    Desk::motion(desk.minute())->setCurrentTime(200);
    const int stopped = desk.time.getMin();
    // On another row: that is not asked for.
    desk.press(desk.minute(), middle - pitch);
    QVERIFY(!Desk::isTurning(desk.minute()));
    desk.release(desk.minute(), middle - pitch);
    Desk::finish(desk.minute());
    QCOMPARE(desk.time.getMin(), stopped);
}

void tst_TumblerTime::aPressOnARowTurnsToIt_data()
{
    QTest::addColumn<int>("y");
    QTest::addColumn<int>("expected");
    QTest::newRow("in the middle") << middle << 0;
    QTest::newRow("edge of the middle") << middle + pitch / 2 - 2 << 0;
    QTest::newRow("below") << middle + pitch << 1;
    QTest::newRow("above") << middle - pitch << 59;
    QTest::newRow("at the bottom") << 137 << 2;
    QTest::newRow("at the top") << 0 << 58;
}

void tst_TumblerTime::aPressOnARowTurnsToIt()
{
    QFETCH(int, y);
    QFETCH(int, expected);
    Desk desk;
    const QPoint at = desk.minute()->mapTo(&desk.window, QPoint(20, y));
    QTest::mousePress(desk.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseMove(desk.window.windowHandle(), at + QPoint(3, 2)); // a shaky hand
    QCOMPARE(desk.time.getMin(), 0);
    QTest::mouseRelease(desk.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    QCOMPARE(desk.time.getMin(), expected);
    QCOMPARE(desk.moved->count(), expected == 0 ? 0 : 1);
    Desk::finish(desk.minute());
    QCOMPARE(desk.time.getMin(), expected);
    QVERIFY(desk.minute()->hasFocus());
}

void tst_TumblerTime::twoTapsAreTwoRows()
{
    Desk desk;
    for (int tap = 0; tap < 2; ++tap) {
        desk.press(desk.minute(), middle + pitch);
        desk.release(desk.minute(), middle + pitch);
    }
    QCOMPARE(desk.time.getMin(), 2);
}

void tst_TumblerTime::otherButtonsAreTakenAndDoNothing()
{
    Desk desk;
    QVERIFY(desk.mouse(QEvent::MouseButtonPress, desk.minute(), 10, 1, Qt::RightButton));
    desk.mouse(QEvent::MouseMove, desk.minute(), 100, 1, Qt::RightButton);
    desk.mouse(QEvent::MouseButtonRelease, desk.minute(), 100, 1, Qt::RightButton);
    QCOMPARE(desk.time.getMin(), 0);
    QVERIFY(!Desk::isTurning(desk.minute()));
}

void tst_TumblerTime::theFirstFingerTurns()
{
    Desk desk;
    QWidget *const wheel = desk.minute();
    Desk::touch(wheel).press(4, QPoint(20, middle), wheel);
    Desk::touch(wheel).move(4, QPoint(20, middle - 2 * pitch), wheel).press(5, QPoint(30, middle), wheel);
    QCOMPARE(desk.time.getMin(), 2);
    Desk::touch(wheel).stationary(4).move(5, QPoint(30, middle + pitch), wheel);
    QCOMPARE(desk.time.getMin(), 2);
    Desk::touch(wheel).stationary(4).release(5, QPoint(30, middle + pitch), wheel);
    Desk::touch(wheel).move(4, QPoint(20, middle - 3 * pitch), wheel);
    QCOMPARE(desk.time.getMin(), 3);
    Desk::touch(wheel).release(4, QPoint(20, middle - 3 * pitch), wheel);
    Desk::finish(wheel);
    QVERIFY(desk.time.getMin() >= 3);
    const int settled = desk.time.getMin();
    Desk::touch(wheel).press(6, QPoint(20, middle), wheel);
    Desk::touch(wheel).release(6, QPoint(20, middle), wheel);
    QCOMPARE(desk.time.getMin(), settled);
}

void tst_TumblerTime::itIsTurnedInAScaledView()
{
    QGraphicsScene scene;
    TumblerTime *const time = new TumblerTime;
    time->setFixedSize(275, 140);
    scene.addWidget(time);
    QGraphicsView view(&scene);
    view.setFrameShape(QFrame::NoFrame);
    view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    view.scale(0.5, 0.5);
    view.resize(400, 300);
    view.show();
    view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view));

    QWindow *const window = view.windowHandle();
    const QSignalSpy moved(time, &TumblerTime::timeChanged);
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, QPoint(15, 60));
    QTest::mouseMove(window, QPoint(15, 40));
    QCOMPARE(time->getHour(), 1);
    QTest::mouseMove(window, QPoint(15, 20));
    QCOMPARE(time->getHour(), 2);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, QPoint(15, 20));
    const auto *motion = time->findChild<QVariantAnimation *>();
    QCOMPARE(motion->state(), QAbstractAnimation::Running);
    QTRY_COMPARE(motion->state(), QAbstractAnimation::Stopped);
    QVERIFY(moved.count() > 2);
}

void tst_TumblerTime::keysTurn_data()
{
    QTest::addColumn<QString>("wheel");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("up") << "Hour" << int(Qt::Key_Up) << "1:57:0 AM";
    QTest::newRow("down") << "Hour" << int(Qt::Key_Down) << "3:57:0 AM";
    QTest::newRow("page up wraps") << "Hour" << int(Qt::Key_PageUp) << "21:57:0 AM";
    QTest::newRow("page down wraps") << "Minute" << int(Qt::Key_PageDown) << "2:2:0 AM";
    QTest::newRow("up wraps") << "Second" << int(Qt::Key_Up) << "2:57:59 AM";
    QTest::newRow("home") << "Minute" << int(Qt::Key_Home) << "2:0:0 AM";
    QTest::newRow("end") << "Hour" << int(Qt::Key_End) << "23:57:0 AM";
    QTest::newRow("up stops at AM") << "AM or PM" << int(Qt::Key_Up) << "2:57:0 AM";
    QTest::newRow("down to PM") << "AM or PM" << int(Qt::Key_Down) << "2:57:0 PM";
    QTest::newRow("page down stops at PM") << "AM or PM" << int(Qt::Key_PageDown) << "2:57:0 PM";
    QTest::newRow("P") << "AM or PM" << int(Qt::Key_P) << "2:57:0 PM";
    QTest::newRow("A") << "AM or PM" << int(Qt::Key_A) << "2:57:0 AM";
    QTest::newRow("a letter on numbers") << "Hour" << int(Qt::Key_A) << "2:57:0 AM";
}

void tst_TumblerTime::keysTurn()
{
    QFETCH(QString, wheel);
    QFETCH(int, key);
    QFETCH(QString, expected);
    Desk desk;
    QVERIFY(desk.isReady);
    desk.time.setHour(2);
    desk.time.setMin(57);
    const bool isChange = desk.shown() != expected;
    QWidget *const turned = desk.wheel(qPrintable(wheel));
    turned->setFocus();
    QTest::keyClick(turned, Qt::Key(key), Qt::ControlModifier);
    QCOMPARE(desk.moved->count(), 0);
    QTest::keyClick(turned, Qt::Key(key));
    QCOMPARE(desk.shown(), expected);
    QCOMPARE(desk.moved->count(), isChange ? 1 : 0);
    Desk::finish(turned);
    QCOMPARE(desk.shown(), expected);
    QCOMPARE(desk.moved->count(), isChange ? 1 : 0);
}

void tst_TumblerTime::itTurnsTheShorterWay()
{
    Desk desk;
    desk.time.setHour(22);
    QTest::keyClick(desk.hour(), Qt::Key_Home);
    const auto *forward = qobject_cast<QVariantAnimation *>(Desk::motion(desk.hour()));
    QCOMPARE(forward->endValue().toReal() - forward->startValue().toReal(), 2.0);
    Desk::finish(desk.hour());
    QTest::keyClick(desk.hour(), Qt::Key_End);
    QCOMPARE(forward->endValue().toReal() - forward->startValue().toReal(), -1.0);
    QCOMPARE(desk.time.getHour(), 23);
}

void tst_TumblerTime::typedDigitsAreANumber_data()
{
    QTest::addColumn<QString>("wheel");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("digits"); // a space waits for longer than an entry lasts
    QTest::addColumn<QString>("expected");
    QTest::newRow("one") << "Minute" << 24 << "7"
                         << "9:7:0 AM";
    QTest::newRow("two") << "Minute" << 24 << "42"
                         << "9:42:0 AM";
    QTest::newRow("leading zero") << "Minute" << 24 << "05"
                                  << "9:5:0 AM";
    QTest::newRow("too late") << "Minute" << 24 << "4 2"
                              << "9:2:0 AM";
    QTest::newRow("third begins again") << "Minute" << 24 << "423"
                                        << "9:3:0 AM";
    QTest::newRow("four are two numbers") << "Minute" << 24 << "4231"
                                          << "9:31:0 AM";
    QTest::newRow("no number of three") << "Minute" << 24 << "012"
                                        << "9:2:0 AM";
    QTest::newRow("no such number") << "Minute" << 24 << "75"
                                    << "9:5:0 AM";
    QTest::newRow("goes on after one") << "Minute" << 24 << "751"
                                       << "9:51:0 AM";
    QTest::newRow("hour") << "Hour" << 24 << "23"
                          << "23:0:0 AM";
    QTest::newRow("no such hour") << "Hour" << 24 << "24"
                                  << "4:0:0 AM";
    QTest::newRow("twelve of 12") << "Hour" << 12 << "12"
                                  << "12:0:0 AM";
    QTest::newRow("one of 12") << "Hour" << 12 << "1"
                               << "1:0:0 AM";
    QTest::newRow("zero of 12") << "Hour" << 12 << "0"
                                << "9:0:0 AM";
    QTest::newRow("zero first of 12") << "Hour" << 12 << "04"
                                      << "4:0:0 AM";
    QTest::newRow("thirteen of 12") << "Hour" << 12 << "13"
                                    << "3:0:0 AM";
    QTest::newRow("AM knows no digits") << "AM or PM" << 24 << "12"
                                        << "9:0:0 AM";
    QTest::newRow("letters") << "AM or PM" << 24 << "pap"
                             << "9:0:0 PM";
}

void tst_TumblerTime::typedDigitsAreANumber()
{
    QFETCH(QString, wheel);
    QFETCH(int, count);
    QFETCH(QString, digits);
    QFETCH(QString, expected);
    Desk desk;
    desk.time.setHourList(count);
    desk.time.setHour(9);
    QWidget *const typedOn = desk.wheel(qPrintable(wheel));
    int pause = 10;
    for (const QChar digit : digits) {
        if (digit == QLatin1Char(' ')) {
            pause = 1001;
            continue;
        }
        desk.key(typedOn, 0, QString(digit), pause);
        pause = 990;
    }
    QCOMPARE(desk.shown(), expected);
    Desk::finish(typedOn);
    QCOMPARE(desk.shown(), expected);
}

void tst_TumblerTime::leftRightAndTabGoFromWheelToWheel()
{
    Desk desk;
    QVERIFY(desk.isReady);
    desk.time.setFocus();
    QVERIFY(desk.hour()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QVERIFY(desk.hour()->hasFocus());
    for (const char *next : {"Minute", "Second", "AM or PM", "AM or PM"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QVERIFY2(desk.wheel(next)->hasFocus(), next);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QVERIFY(desk.wheel("Second")->hasFocus());
    desk.time.setTypeVisible(false);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QVERIFY(desk.wheel("Second")->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(desk.hour()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(desk.minute()->hasFocus());
    QCOMPARE(desk.moved->count(), 0);
}

void tst_TumblerTime::theMouseWheelTurnsWhatHasTheFocus()
{
    Desk desk;
    QVERIFY(desk.isReady);
    desk.hour()->setFocus();
    QVERIFY(!Desk::roll(desk.minute(), -120));
    QCOMPARE(desk.time.getMin(), 0);
    QVERIFY(!desk.minute()->hasFocus());
    desk.minute()->setFocus();
    QVERIFY(Desk::roll(desk.minute(), -120));
    QCOMPARE(desk.time.getMin(), 1);
    QVERIFY(Desk::roll(desk.minute(), 240));
    QCOMPARE(desk.time.getMin(), 59);
    QCOMPARE(desk.moved->count(), 2);
}

void tst_TumblerTime::partsOfANotchAddUp()
{
    Desk desk;
    QVERIFY(desk.isReady);
    desk.minute()->setFocus();
    for (const int expected : {0, 0, 1, 1, 1, 2}) {
        QVERIFY(Desk::roll(desk.minute(), -40));
        QCOMPARE(desk.time.getMin(), expected);
    }
}

void tst_TumblerTime::nothingReachesThePageBehind()
{
    Desk desk;
    EventCounter pressed(&desk.window, QEvent::MouseButtonPress);
    EventCounter moved(&desk.window, QEvent::MouseMove);
    QTest::mousePress(desk.minute(), Qt::LeftButton);
    QTest::mouseRelease(desk.minute(), Qt::LeftButton);
    desk.drag(desk.minute(), 300);
    QCOMPARE(pressed.count, 0);
    QCOMPARE(moved.count, 0);
    // The counter does count what the page gets.
    QTest::mousePress(&desk.time, Qt::LeftButton, Qt::NoModifier,
                      QPoint(desk.hour()->geometry().right() + 3, middle));
    QCOMPARE(pressed.count, 1);
}

void tst_TumblerTime::disabledItTakesNoInput()
{
    Desk desk;
    QWidget *const wheel = desk.minute();
    wheel->setFocus();
    desk.time.setEnabled(false);
    QTest::keyClick(wheel, Qt::Key_Up);
    desk.drag(wheel, 100);
    desk.flick(wheel, 100);
    Desk::roll(wheel, 120);
    Desk::touch(wheel).press(1, QPoint(20, 20), wheel);
    Desk::touch(wheel).release(1, QPoint(20, 20), wheel);
    QTest::mouseClick(wheel, Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QCOMPARE(desk.time.getMin(), 0);
    QCOMPARE(desk.moved->count(), 0);
    desk.time.setEnabled(true);
    desk.drag(wheel, 100);
    QVERIFY(desk.time.getMin() != 0);
}

void tst_TumblerTime::aTurnEnds_data()
{
    QTest::addColumn<bool>("isFlick");
    QTest::addColumn<Act>("act");
    for (const bool isFlick : {true, false}) {
        const auto row = [isFlick](const QString &name, const Act &act) {
            QTest::newRow(qPrintable(name + QLatin1String(isFlick ? " in a flick" : " in a drag")))
                << isFlick << act;
        };
        row(QStringLiteral("hidden"), [](Desk &desk) { desk.time.hide(); });
        row(QStringLiteral("window hidden"), [](Desk &desk) { desk.window.hide(); });
        row(QStringLiteral("disabled"), [](Desk &desk) { desk.time.setEnabled(false); });
        row(QStringLiteral("set"), [](Desk &desk) { desk.time.setMin(desk.time.getMin()); });
        row(QStringLiteral("deactivated"), [](Desk &desk) {
            QEvent event(QEvent::WindowDeactivate);
            QApplication::sendEvent(&desk.window, &event);
        });
    }
}

void tst_TumblerTime::aTurnEnds()
{
    QFETCH(bool, isFlick);
    QFETCH(Act, act);
    Desk desk;
    if (isFlick) {
        desk.flick(desk.minute(), -60);
        Desk::motion(desk.minute())->setCurrentTime(150);
    } else {
        desk.press(desk.minute(), middle);
        desk.move(desk.minute(), middle - pitch * 13 / 10);
    }
    const int shown = desk.time.getMin();
    const int moves = desk.moved->count();
    QVERIFY(shown > 0);
    act(desk);
    QVERIFY(!Desk::isTurning(desk.minute()));
    desk.time.setEnabled(true);
    desk.move(desk.minute(), middle + 5 * pitch);
    desk.release(desk.minute(), middle + 5 * pitch);
    QCOMPARE(desk.time.getMin(), shown);
    QCOMPARE(desk.moved->count(), moves);
    desk.time.show();
    const QImage atRest = rendered(&desk.time);
    desk.time.setMin(shown);
    QCOMPARE(rendered(&desk.time), atRest);
}

void tst_TumblerTime::whatAListenerSetsHolds()
{
    Desk desk;
    connect(&desk.time, &TumblerTime::timeChanged, &desk.time, [&desk] { desk.time.setMin(20); });
    QTest::keyClick(desk.minute(), Qt::Key_Down);
    QCOMPARE(desk.time.getMin(), 20);
    QVERIFY(!Desk::isTurning(desk.minute()));
    desk.flick(desk.minute(), -100);
    if (Desk::isTurning(desk.minute()))
        Desk::finish(desk.minute());
    QCOMPARE(desk.time.getMin(), 20);
    QVERIFY(!Desk::isTurning(desk.minute()));
}

void tst_TumblerTime::nothingIsPaintedAtRest()
{
    Desk desk;
    QVERIFY(desk.isReady);
    QTest::keyClick(desk.minute(), Qt::Key_Down);
    QTRY_VERIFY(!Desk::isTurning(desk.minute()));
    EventCounter painted(desk.minute(), QEvent::Paint);
    QCoreApplication::processEvents();
    QCOMPARE(painted.count, 0);
    QTest::keyClick(desk.minute(), Qt::Key_Down);
    QTRY_VERIFY(painted.count > 1);
}

void tst_TumblerTime::theMiddleRowIsTheBrightest()
{
    Desk desk;
    desk.window.setStyleSheet(
        QStringLiteral("Korvo--Widgets--TumblerTime { color: white; background-color: black;"
                       " selection-background-color: #000060; }"));
    desk.time.setAMPM(QStringLiteral("PM"));
    const QImage image = rendered(&desk.time);
    const QRect row =
        desk.hour()->geometry().adjusted(4, middle - pitch / 2 + 2, -4, -(middle - pitch / 2 + 2));
    const int inMiddle = brightest(image, row);
    QVERIFY(inMiddle > 220);
    QVERIFY(brightest(image, row.translated(0, -pitch)) < inMiddle - 60);
    QVERIFY(brightest(image, row.translated(0, -pitch)) > 60);
    QVERIFY(brightest(image, row.translated(0, pitch)) < inMiddle - 60);
    QVERIFY(qBlue(image.pixel(row.topLeft())) > qRed(image.pixel(row.topLeft())) + 10);
    // Nothing comes after PM.
    QCOMPARE(brightest(image, row.translated(desk.type()->x(), pitch)), 0);
}

void tst_TumblerTime::focusAndDisabledAreSeen()
{
    Desk desk;
    QVERIFY(desk.isReady);
    desk.window.setStyleSheet(darkDesk());
    desk.hour()->setFocus();
    const QImage hourFocus = rendered(&desk.time);
    desk.minute()->setFocus();
    const QImage minuteFocus = rendered(&desk.time);
    QVERIFY(hourFocus.copy(desk.hour()->geometry()) != minuteFocus.copy(desk.hour()->geometry()));
    desk.time.setEnabled(false);
    const QImage disabled = rendered(&desk.time);
    const QRect row = desk.wheel("Second")->geometry().adjusted(4, middle - 12, -4, -(middle - 12));
    QVERIFY(brightest(disabled, row) < brightest(minuteFocus, row) - 60);
}

void tst_TumblerTime::assistiveTechnologyReadsAndTurnsIt()
{
    Desk desk;
    desk.time.setHourList(12);
    QAccessibleInterface *const hour = QAccessible::queryAccessibleInterface(desk.hour());
    QVERIFY(hour && hour->valueInterface());
    QCOMPARE(hour->role(), QAccessible::SpinBox);
    QCOMPARE(hour->text(QAccessible::Name), QStringLiteral("Hour"));
    QCOMPARE(hour->text(QAccessible::Value), QStringLiteral("12"));
    hour->valueInterface()->setCurrentValue(11);
    QCOMPARE(desk.time.getHour(), 11);
    QCOMPARE(hour->text(QAccessible::Value), QStringLiteral("11"));
    QCOMPARE(desk.moved->count(), 1);
    desk.time.setEnabled(false);
    hour->valueInterface()->setCurrentValue(3);
    QCOMPARE(desk.time.getHour(), 11);
}

QTEST_MAIN(tst_TumblerTime)
#include "tst_tumblertime.moc"
