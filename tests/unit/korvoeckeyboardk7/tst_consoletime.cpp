// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

// clazy:excludeall=lambda-in-connect (what is captured outlives the connections)

#include "consolefloatwidget.h"

#include "consolepanel.h"
#include "floatwidgetwidthbutton.h"
#include "support.h"

#include <korvo/widgets/datewidget.h>
#include <korvo/widgets/tumblertime.h>

#include <QButtonGroup>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFutureWatcher>
#include <QMetaMethod>
#include <QSemaphore>
#include <QTest>
#include <QThreadPool>
#include <QTime>

#include <atomic>
#include <cstdlib>
#include <ctime>

using namespace Korvo;
using Korvo::Internal::ConsoleFloatWidget;
using Korvo::Internal::FloatWidgetWidthButton;
using Korvo::Widgets::DateWidget;
using Korvo::Widgets::TumblerTime;

namespace {

void setTimeZone(const QByteArray &zone)
{
    qputenv("TZ", zone);
    ::tzset();
}

/// Moves the local time zone so that it is now \a time, until it goes.
class LocalTime
{
public:
    explicit LocalTime(const QTime &time)
        : m_zone(qgetenv("TZ"))
    {
        set(time);
    }
    ~LocalTime()
    {
        if (m_zone.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", m_zone);
        ::tzset();
    }
    Q_DISABLE_COPY(LocalTime)

    static void set(const QTime &time)
    {
        const int ahead = QDateTime::currentDateTimeUtc().time().secsTo(time);
        const QTime offset = QTime(0, 0).addSecs(qAbs(ahead));
        // A zone's sign tells how far it is behind.
        setTimeZone((ahead < 0 ? "KVC+" : "KVC-") + offset.toString("hh:mm:ss"_q).toLatin1());
    }

    /// What \a function does at \a time, within that very second.
    template <typename Function>
    void at(const QTime &time, Function function)
    {
        QTime now;
        do {
            set(time);
            function();
            now = QTime::currentTime();
        } while (now.hour() != time.hour() || now.minute() != time.minute() || now.second() != time.second());
    }

private:
    const QByteArray m_zone;
};

} // namespace

class tst_ConsoleTime : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // What the strip shows.
    void theStripShowsDateAndTime_data();
    void theStripShowsDateAndTime();
    void theSuffixIsTheWheels();
    void theClockTicks();

    // The wheels.
    void theWheelsShowTheTime_data();
    void theWheelsShowTheTime();
    void theFormIsOfTwentyFourHoursAtFirst();
    void everyHourTurnsIntoTwelveHours_data();
    void everyHourTurnsIntoTwelveHours();
    void everyHourTurnsBack_data();
    void everyHourTurnsBack();
    void everyHourSurvivesThereAndBack_data();
    void everyHourSurvivesThereAndBack();
    void theDisplayIsStoredAndTold_data();
    void theDisplayIsStoredAndTold();
    void anUncheckedDisplayOnlyRises();

    // Loading.
    void theStoredDisplayIsToldOnce_data();
    void theStoredDisplayIsToldOnce();
    void loadingShowsTodayAndNow();

    // Apply.
    void applySendsTheWheels_data();
    void applySendsTheWheels();
    void applySendsTheDateTurnedRound_data();
    void applySendsTheDateTurnedRound();
    void applyTellsInOrderFromThePool();
    void applyKeepsTheIndicatorForItsTime();
    void successIsShown();
    void everyApplyHasItsOwnWatcher();
    void aSecondApplyReplacesTheFirst();
    void settingTheTimeTellsTheStoredDisplay_data();
    void settingTheTimeTellsTheStoredDisplay();

    // The end of the panel.
    void thePanelMayGoWhileTheTimeIsSet();
    void thePanelMayGoWithManyRuns();
    void thePanelMayGoWhileSuccessIsShown();
    void nothingIsToldOnceThePanelHasGone();

private:
    TumblerTime *wheels() const { return m_panel->findChild<TumblerTime *>("timeWidget"_q); }
    DateWidget *date() const { return m_panel->findChild<DateWidget *>("toolButton"_q); }
    QPushButton *displayButton(int type) const
    {
        return m_panel->findChild<QPushButton *>(type == 0 ? "pushButton_24"_q : "pushButton_12"_q);
    }
    void setDisplay(int type)
    {
        displayButton(1 - type)->setChecked(true);
        displayButton(type)->setChecked(true);
    }
    void setWheels(int hour, int minute, int second, const QString &type)
    {
        wheels()->setHour(hour);
        wheels()->setMin(minute);
        wheels()->setSec(second);
        wheels()->setAMPM(type);
    }
    void apply()
    {
        QTest::mouseClick(m_panel->findChild<QPushButton *>("pushButton_time"_q), Qt::LeftButton);
    }

    std::unique_ptr<SettingsFolder> m_settings;
    std::unique_ptr<ConsoleFloatWidget> m_panel;
    std::unique_ptr<Journal> m_journal;
};

void tst_ConsoleTime::init()
{
    m_settings = std::make_unique<SettingsFolder>();
    m_panel = std::make_unique<ConsoleFloatWidget>();
    m_panel->setDelays({90000, 0});
    m_journal = std::make_unique<Journal>(m_panel.get());
    QVERIFY(wheels() && date() && displayButton(0) && displayButton(1));
}

void tst_ConsoleTime::cleanup()
{
    m_panel.reset();
    m_journal.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(busyIndicators(), 0);
    QVERIFY(!QApplication::activeModalWidget());
    m_settings.reset();
}

void tst_ConsoleTime::theStripShowsDateAndTime_data()
{
    QTest::addColumn<int>("display");
    QTest::addColumn<QTime>("time");
    QTest::addColumn<QString>("wheel");
    QTest::addColumn<QString>("expectedTime");
    QTest::newRow("24 hours, afternoon") << 0 << QTime(15, 4, 9) << "AM"_q
                                         << "15:04:09"_q;
    QTest::newRow("24 hours, midnight") << 0 << QTime(0, 0, 0) << "AM"_q
                                        << "0:00:00"_q;
    QTest::newRow("24 hours, morning") << 0 << QTime(9, 5, 0) << "AM"_q
                                       << "9:05:00"_q;
    QTest::newRow("24 hours, no suffix") << 0 << QTime(23, 59, 58) << "PM"_q
                                         << "23:59:58"_q;
    QTest::newRow("12 hours, afternoon") << 1 << QTime(15, 4, 9) << "PM"_q
                                         << "3:04:09 PM"_q;
    QTest::newRow("12 hours, afternoon, wheel on AM") << 1 << QTime(15, 4, 9) << "AM"_q
                                                      << "3:04:09 AM"_q;
    QTest::newRow("12 hours, noon") << 1 << QTime(12, 30, 0) << "PM"_q
                                    << "12:30:00 PM"_q;
    QTest::newRow("12 hours, one") << 1 << QTime(13, 0, 1) << "PM"_q
                                   << "1:00:01 PM"_q;
    QTest::newRow("12 hours, midnight") << 1 << QTime(0, 7, 8) << "AM"_q
                                        << "0:07:08 AM"_q;
    QTest::newRow("12 hours, morning, wheel on PM") << 1 << QTime(8, 0, 59) << "PM"_q
                                                    << "8:00:59 PM"_q;
}

void tst_ConsoleTime::theStripShowsDateAndTime()
{
    QFETCH(int, display);
    QFETCH(QTime, time);
    QFETCH(QString, wheel);
    QFETCH(QString, expectedTime);
    setDisplay(display);
    wheels()->setAMPM(wheel);
    date()->setDateTime(QDate(2026, 2, 1));
    LocalTime local(time);
    for (const bool isTimer : {false, true}) {
        QSignalSpy told(m_panel.get(), &ConsoleFloatWidget::signalTimeChanged);
        local.at(time, [&, this] {
            told.clear();
            isTimer ? m_panel->handleTimeout() : m_panel->refreshTime();
        });
        QCOMPARE(told.size(), 1);
        QCOMPARE(told.constFirst().constFirst().toString(), "01/02/2026          "_q + expectedTime);
    }
}

void tst_ConsoleTime::theSuffixIsTheWheels()
{
    QSignalSpy told(m_panel.get(), &ConsoleFloatWidget::signalTimeChanged);
    setDisplay(1);
    for (const QString &wheel : {"PM"_q, "AM"_q}) {
        wheels()->setAMPM(wheel);
        m_panel->refreshTime();
        QVERIFY(told.constLast().constFirst().toString().endsWith(" "_q + wheel));
    }
    // Without either button it is neither mode.
    ConsoleFloatWidget fresh;
    QSignalSpy toldFresh(&fresh, &ConsoleFloatWidget::signalTimeChanged);
    fresh.refreshTime();
    QVERIFY(toldFresh.constLast().constFirst().toString().at(21) != QLatin1Char('M'));
    QVERIFY(!toldFresh.constLast().constFirst().toString().endsWith(QLatin1Char('M')));
}

void tst_ConsoleTime::theClockTicks()
{
    QSignalSpy told(m_panel.get(), &ConsoleFloatWidget::signalTimeChanged);
    QVERIFY(told.wait(3000));
    QCOMPARE(told.size(), 1);
}

void tst_ConsoleTime::theWheelsShowTheTime_data()
{
    QTest::addColumn<int>("display");
    QTest::addColumn<int>("clockHour");
    QTest::addColumn<int>("expectedHour");
    QTest::addColumn<QString>("expectedType");
    for (int hour = 0; hour < 24; ++hour) {
        QTest::newRow(qPrintable("24 hours at %1"_q.arg(hour))) << 0 << hour << hour << "AM"_q;
        const bool isPm = hour > 11;
        const int shown = hour % 12 == 0 ? 12 : hour % 12; // the wheel has no 0
        QTest::newRow(qPrintable("12 hours at %1"_q.arg(hour)))
            << 1 << hour << shown << (isPm ? "PM"_q : "AM"_q);
    }
}

void tst_ConsoleTime::theWheelsShowTheTime()
{
    QFETCH(int, display);
    QFETCH(int, clockHour);
    QFETCH(int, expectedHour);
    QFETCH(QString, expectedType);
    setDisplay(display);
    setWheels(5, 6, 7, expectedType == "AM"_q ? "PM"_q : "AM"_q);
    wheels()->setTypeVisible(display == 0);
    const QTime time(clockHour, 41, 17);
    LocalTime local(time);
    local.at(time, [this] { m_panel->initCurrentTime(); });
    QCOMPARE(wheels()->getHour(), expectedHour);
    QCOMPARE(wheels()->getMin(), 41);
    QCOMPARE(wheels()->getSec(), 17);
    QCOMPARE(wheels()->getTimeType(), expectedType);
    QCOMPARE(wheels()->isTypeVisible(), display == 1);
}

void tst_ConsoleTime::theFormIsOfTwentyFourHoursAtFirst()
{
    QCOMPARE(wheels()->hourCount(), 24);
    QCOMPARE(displayButton(0)->group()->id(displayButton(0)), 0);
    QCOMPARE(displayButton(0)->group()->id(displayButton(1)), 1);
    QCOMPARE(displayButton(0)->text(), "24Hours"_q);
    QCOMPARE(displayButton(1)->text(), "12Hours"_q);
    QCOMPARE(date()->text(), QDate::currentDate().toString("dd/MM/yyyy"_q));
}

void tst_ConsoleTime::everyHourTurnsIntoTwelveHours_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("expectedHour");
    QTest::addColumn<QString>("expectedType");
    QTest::newRow("0 shows as 12") << 0 << 12 << "AM"_q;
    for (int hour = 1; hour < 13; ++hour)
        QTest::newRow(qPrintable(QString::number(hour))) << hour << hour << "AM"_q;
    for (int hour = 13; hour < 24; ++hour)
        QTest::newRow(qPrintable(QString::number(hour))) << hour << hour - 12 << "PM"_q;
}

void tst_ConsoleTime::everyHourTurnsIntoTwelveHours()
{
    QFETCH(int, hour);
    QFETCH(int, expectedHour);
    QFETCH(QString, expectedType);
    setDisplay(0);
    for (const QString &before : {"AM"_q, "PM"_q}) {
        displayButton(0)->setChecked(true);
        setWheels(hour, 8, 9, before);
        QTest::mouseClick(displayButton(1), Qt::LeftButton);
        QCOMPARE(wheels()->hourCount(), 12);
        QCOMPARE(wheels()->getHour(), expectedHour);
        QCOMPARE(wheels()->getTimeType(), expectedType);
        QVERIFY(wheels()->isTypeVisible());
        QCOMPARE(wheels()->minimumWidth(), 275);
        QCOMPARE(wheels()->maximumWidth(), 275);
        QCOMPARE(wheels()->getMin(), 8);
        QCOMPARE(wheels()->getSec(), 9);
    }
}

void tst_ConsoleTime::everyHourTurnsBack_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("expectedHour");
    for (int hour = 1; hour < 13; ++hour) {
        QTest::newRow(qPrintable("%1 AM"_q.arg(hour))) << hour << "AM"_q << hour;
        QTest::newRow(qPrintable("%1 PM"_q.arg(hour))) << hour << "PM"_q << (hour == 12 ? 0 : hour + 12);
    }
}

void tst_ConsoleTime::everyHourTurnsBack()
{
    QFETCH(int, hour);
    QFETCH(QString, type);
    QFETCH(int, expectedHour);
    setDisplay(1);
    setWheels(hour, 8, 9, type);
    QTest::mouseClick(displayButton(0), Qt::LeftButton);
    QCOMPARE(wheels()->hourCount(), 24);
    QCOMPARE(wheels()->getHour(), expectedHour);
    QVERIFY(!wheels()->isTypeVisible());
    QCOMPARE(wheels()->minimumWidth(), 225);
    QCOMPARE(wheels()->maximumWidth(), 225);
    QCOMPARE(wheels()->getMin(), 8);
    QCOMPARE(wheels()->getSec(), 9);
}

void tst_ConsoleTime::everyHourSurvivesThereAndBack_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("expectedHour");
    QTest::newRow("0 comes back as 12") << 0 << 12;
    for (int hour = 1; hour < 24; ++hour)
        QTest::newRow(qPrintable(QString::number(hour))) << hour << hour;
}

void tst_ConsoleTime::everyHourSurvivesThereAndBack()
{
    QFETCH(int, hour);
    QFETCH(int, expectedHour);
    setDisplay(0);
    wheels()->setHour(hour);
    displayButton(1)->setChecked(true);
    displayButton(0)->setChecked(true);
    QCOMPARE(wheels()->getHour(), expectedHour);
}

void tst_ConsoleTime::theDisplayIsStoredAndTold_data()
{
    QTest::addColumn<int>("display");
    QTest::newRow("24 hours") << 0;
    QTest::newRow("12 hours") << 1;
}

void tst_ConsoleTime::theDisplayIsStoredAndTold()
{
    QFETCH(int, display);
    displayButton(1 - display)->setChecked(true);
    m_journal->takeLines();
    QVariant storedThen;
    const QObject scope; // of what the connections capture
    connect(m_panel.get(), &ConsoleFloatWidget::signalTimeTypeChanged, &scope,
            [&, this] { storedThen = m_settings->onDisk("timeDiaplay"_q); });
    QTest::mouseClick(displayButton(display), Qt::LeftButton);
    QCOMPARE(m_journal->takeLines(), QStringList{"type %1"_q.arg(display)});
    QCOMPARE(storedThen, QVariant(QString::number(display)));
    QVERIFY(displayButton(display)->isFlat());
    QVERIFY(!displayButton(1 - display)->isFlat());
    QTest::mouseClick(displayButton(display), Qt::LeftButton);
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_ConsoleTime::anUncheckedDisplayOnlyRises()
{
    setDisplay(1);
    setWheels(3, 4, 5, "PM"_q);
    m_journal->takeLines();
    for (const int id : {0, 1}) {
        displayButton(id)->setFlat(true);
        m_panel->slotTimeDisplayChanged(id, false);
        QVERIFY(!displayButton(id)->isFlat());
    }
    m_panel->slotTimeDisplayChanged(9, false);
    QCOMPARE(m_journal->lines(), QStringList());
    QCOMPARE(m_settings->onDisk("timeDiaplay"_q).toInt(), 1);
    QCOMPARE(wheels()->getHour(), 3);
    QCOMPARE(wheels()->hourCount(), 12);
}

void tst_ConsoleTime::theStoredDisplayIsToldOnce_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("expectedDisplay");
    QTest::addColumn<int>("expectedButton");
    QTest::newRow("never stored") << QVariant() << 0 << 0;
    QTest::newRow("24 hours") << QVariant(0) << 0 << 0;
    QTest::newRow("12 hours") << QVariant(1) << 1 << 1;
    QTest::newRow("no number") << QVariant("often"_q) << 0 << 0;
    QTest::newRow("another") << QVariant(7) << 7 << -1;
    QTest::newRow("negative") << QVariant(-1) << -1 << -1;
}

void tst_ConsoleTime::theStoredDisplayIsToldOnce()
{
    QFETCH(QVariant, stored);
    QFETCH(int, expectedDisplay);
    QFETCH(int, expectedButton);
    if (stored.isValid())
        m_settings->store("timeDiaplay"_q, stored);
    for (const bool isFirst : {true, false}) {
        m_journal->takeLines();
        m_panel->initParm();
        QCOMPARE(m_journal->linesOf("type"_q), QStringList{"type %1"_q.arg(expectedDisplay)});
        QCOMPARE(displayButton(0)->group()->checkedId(), expectedButton);
        QCOMPARE(m_settings->onDisk("timeDiaplay"_q).toInt(), expectedDisplay);
        QCOMPARE(wheels()->hourCount(), expectedDisplay == 1 ? 12 : 24);
        if (expectedButton >= 0) {
            QVERIFY(displayButton(expectedButton)->isFlat());
            QVERIFY(!displayButton(1 - expectedButton)->isFlat());
            QCOMPARE(wheels()->maximumWidth(), expectedButton == 1 ? 275 : 225);
        }
        Q_UNUSED(isFirst)
    }
}

void tst_ConsoleTime::loadingShowsTodayAndNow()
{
    m_settings->store("timeDiaplay"_q, 1);
    date()->setDateTime(QDate(2001, 2, 3));
    const QTime time(15, 4, 9);
    LocalTime local(time);
    local.at(time, [this] { m_panel->initParm(); });
    QCOMPARE(wheels()->getHour(), 3);
    QCOMPARE(wheels()->getMin(), 4);
    QCOMPARE(wheels()->getSec(), 9);
    QCOMPARE(wheels()->getTimeType(), "PM"_q);
    QVERIFY(wheels()->isTypeVisible());
    QCOMPARE(date()->text(), QDate::currentDate().toString("dd/MM/yyyy"_q));
}

void tst_ConsoleTime::applySendsTheWheels_data()
{
    QTest::addColumn<int>("display");
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("minute");
    QTest::addColumn<int>("second");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("expectedTime");
    QTest::newRow("no leading zeros") << 0 << 9 << 5 << 0 << "AM"_q
                                      << "9:5:0"_q;
    QTest::newRow("midnight") << 0 << 0 << 0 << 0 << "AM"_q
                              << "0:0:0"_q;
    QTest::newRow("last second") << 0 << 23 << 59 << 59 << "AM"_q
                                 << "23:59:59"_q;
    QTest::newRow("24 hours ignore PM") << 0 << 9 << 10 << 11 << "PM"_q
                                        << "9:10:11"_q;
    QTest::newRow("24 hours, noon, ignores PM") << 0 << 12 << 0 << 0 << "PM"_q
                                                << "12:0:0"_q;
    for (int hour = 1; hour < 13; ++hour) {
        QTest::newRow(qPrintable("%1 AM"_q.arg(hour))) << 1 << hour << 4 << 9 << "AM"_q
                                                       << "%1:4:9"_q.arg(hour);
        QTest::newRow(qPrintable("%1 PM"_q.arg(hour))) << 1 << hour << 4 << 9 << "PM"_q
                                                       << "%1:4:9"_q.arg(hour == 12 ? 0 : hour + 12);
    }
}

void tst_ConsoleTime::applySendsTheWheels()
{
    QFETCH(int, display);
    QFETCH(int, hour);
    QFETCH(int, minute);
    QFETCH(int, second);
    QFETCH(QString, type);
    QFETCH(QString, expectedTime);
    setDisplay(display);
    setWheels(hour, minute, second, type);
    date()->setDateTime(QDate(2026, 11, 15));
    m_journal->takeLines();
    const BoxAnswerer answerer;
    apply();
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QCOMPARE(m_journal->lines(), (QStringList{"set 2026-11-15 %1 elsewhere"_q.arg(expectedTime),
                                              "type %1 elsewhere"_q.arg(display)}));
}

void tst_ConsoleTime::applySendsTheDateTurnedRound_data()
{
    QTest::addColumn<QDate>("shown");
    QTest::addColumn<QString>("expectedDate");
    QTest::newRow("fifteenth") << QDate(2026, 11, 15) << "2026-11-15"_q;
    QTest::newRow("second month") << QDate(2026, 2, 1) << "2026-02-01"_q;
    QTest::newRow("leap day") << QDate(2028, 2, 29) << "2028-02-29"_q;
    QTest::newRow("last") << QDate(2099, 12, 31) << "2099-12-31"_q;
}

void tst_ConsoleTime::applySendsTheDateTurnedRound()
{
    QFETCH(QDate, shown);
    QFETCH(QString, expectedDate);
    date()->setDateTime(shown);
    setDisplay(0);
    setWheels(1, 2, 3, "AM"_q);
    const BoxAnswerer answerer;
    apply();
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QCOMPARE(m_journal->linesOf("set"_q), QStringList{"set %1 1:2:3 elsewhere"_q.arg(expectedDate)});
    QCOMPARE(date()->date(), shown);
}

void tst_ConsoleTime::applyTellsInOrderFromThePool()
{
    setDisplay(1);
    QSemaphore isSetting;
    QSemaphore mayGoOn;
    std::atomic<QThread *> ranOn{nullptr};
    const QObject scope; // of what the connections capture
    connect(
        m_panel.get(), &ConsoleFloatWidget::signalUpdateSystemTime, &scope,
        [&] {
            ranOn = QThread::currentThread();
            isSetting.release();
            mayGoOn.acquire();
        },
        Qt::DirectConnection);
    m_journal->takeLines();
    const BoxAnswerer answerer;
    const int active = QThreadPool::globalInstance()->activeThreadCount();
    apply();
    QVERIFY(isSetting.tryAcquire(1, 5000));
    QVERIFY(ranOn != m_panel->thread());
    QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), active + 1);
    QCOMPARE(m_journal->lines().size(), 1);
    QCOMPARE(busyText(), "time updating , please wait."_q);
    // The stored display, not the shown one, and what it is by then.
    m_panel->slotTimeDisplayChanged(0, true);
    mayGoOn.release();
    QTRY_COMPARE(answerer.boxes.size(), 1);
    const QStringList lines = m_journal->lines();
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).startsWith("set "_q) && lines.at(0).endsWith(" elsewhere"_q));
    QCOMPARE(lines.mid(1), (QStringList{"type 0"_q, "type 0 elsewhere"_q}));
}

void tst_ConsoleTime::applyKeepsTheIndicatorForItsTime()
{
    m_panel->setDelays({90000, 300});
    const BoxAnswerer answerer;
    QElapsedTimer clock;
    clock.start();
    apply();
    QCOMPARE(busyText(), "time updating , please wait."_q);
    QTRY_COMPARE(m_journal->lines().size(), 2); // both at the start of it
    QVERIFY(clock.elapsed() < 300);
    QCOMPARE(busyText(), "time updating , please wait."_q);
    QTRY_COMPARE(busyText(), QString());
    QVERIFY2(clock.elapsed() >= 299, qPrintable(QString::number(clock.elapsed())));
    QTRY_COMPARE(answerer.boxes.size(), 1);
}

void tst_ConsoleTime::successIsShown()
{
    QString busyMeanwhile = "?"_q;
    int toldBefore = 0;
    QSignalSpy told(m_panel.get(), &ConsoleFloatWidget::signalTimeChanged);
    const BoxAnswerer answerer([&] {
        busyMeanwhile = busyText();
        toldBefore = told.size();
    });
    apply();
    QTRY_COMPARE(answerer.boxes.size(), 1);
    const BoxAnswerer::Seen &box = answerer.boxes.constFirst();
    QCOMPARE(box.title, "Remind"_q);
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.text, "The time setting was successful."_q);
    QCOMPARE(box.informativeText, QString());
    QCOMPARE(box.buttons, QStringList{"OK"_q});
    QCOMPARE(busyMeanwhile, QString());
    QVERIFY(toldBefore >= 1); // the strip shows the new time before the box
    QTRY_VERIFY(!QApplication::activeModalWidget());
}

void tst_ConsoleTime::everyApplyHasItsOwnWatcher()
{
    const BoxAnswerer answerer;
    for (int i = 1; i <= 5; ++i) {
        apply();
        QTRY_COMPARE(answerer.boxes.size(), i);
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QCOMPARE(busyText(), QString());
        QCOMPARE(busyIndicators(), 1);
    }
    QVERIFY(letPass(20));
    QCOMPARE(answerer.boxes.size(), 5);
    QCOMPARE(m_journal->linesOf("set"_q).size(), 5);
}

void tst_ConsoleTime::aSecondApplyReplacesTheFirst()
{
    QSemaphore isSetting;
    QSemaphore mayGoOn;
    const QObject scope; // of what the connections capture
    connect(
        m_panel.get(), &ConsoleFloatWidget::signalUpdateSystemTime, &scope,
        [&] {
            isSetting.release();
            mayGoOn.acquire();
        },
        Qt::DirectConnection);
    const BoxAnswerer answerer;
    setDisplay(0);
    setWheels(1, 0, 0, "AM"_q);
    apply();
    QVERIFY(isSetting.tryAcquire(1, 5000));
    setWheels(2, 0, 0, "AM"_q);
    m_panel->slotTimeChanged();
    QVERIFY(isSetting.tryAcquire(1, 5000));
    QVERIFY(letPass(20));
    QCOMPARE(answerer.boxes.size(), 0);
    QCOMPARE(busyText(), "time updating , please wait."_q);
    mayGoOn.release(2);
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QTRY_COMPARE(busyText(), QString());
    QVERIFY(letPass(50));
    QCOMPARE(answerer.boxes.size(), 1); // of the one that is watched
    QCOMPARE(m_journal->linesOf("set"_q).size(), 2);

    apply();
    QVERIFY(isSetting.tryAcquire(1, 5000));
    mayGoOn.release();
    QTRY_COMPARE(answerer.boxes.size(), 2);
}

void tst_ConsoleTime::settingTheTimeTellsTheStoredDisplay_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("expectedDisplay");
    QTest::newRow("never stored") << QVariant() << 0;
    QTest::newRow("24 hours") << QVariant(0) << 0;
    QTest::newRow("12 hours") << QVariant(1) << 1;
    QTest::newRow("no number") << QVariant("often"_q) << 0;
}

void tst_ConsoleTime::settingTheTimeTellsTheStoredDisplay()
{
    QFETCH(QVariant, stored);
    QFETCH(int, expectedDisplay);
    if (stored.isValid())
        m_settings->store("timeDiaplay"_q, stored);
    int result = -1;
    QString date = "2026-02-01"_q;
    QString time = "9:5:0"_q;
    runElsewhere([&] { result = m_panel->setSystemTime(date, time); });
    QCOMPARE(result, 0);
    QCOMPARE(m_journal->lines(),
             (QStringList{"set 2026-02-01 9:5:0 elsewhere"_q, "type %1 elsewhere"_q.arg(expectedDisplay)}));
}

void tst_ConsoleTime::thePanelMayGoWhileTheTimeIsSet()
{
    m_panel->setDelays({90000, 60000});
    const BoxAnswerer answerer;
    apply();
    QTRY_COMPARE(m_journal->lines().size(), 2);
    m_journal->takeLines();
    QElapsedTimer clock;
    clock.start();
    m_panel.reset();
    QVERIFY(clock.elapsed() < 10000);
    QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0);
    QCoreApplication::processEvents();
    QVERIFY(answerer.boxes.isEmpty());
    QCOMPARE(m_journal->lines(), QStringList());
}

void tst_ConsoleTime::thePanelMayGoWithManyRuns()
{
    m_panel->setDelays({90000, 60000});
    const BoxAnswerer answerer;
    const int runs = QThreadPool::globalInstance()->maxThreadCount() + 3; // more than may run at once
    for (int i = 0; i < runs; ++i)
        m_panel->slotTimeChanged();
    QTRY_VERIFY(!m_journal->lines().isEmpty());
    QElapsedTimer clock;
    clock.start();
    m_panel.reset();
    QVERIFY(clock.elapsed() < 10000);
    QVERIFY(QThreadPool::globalInstance()->waitForDone(5000));
    QVERIFY(m_journal->linesOf("set"_q).size() <= QThreadPool::globalInstance()->maxThreadCount());
    m_journal->takeLines();
    QCoreApplication::processEvents();
    QCOMPARE(m_journal->lines(), QStringList());
    QVERIFY(answerer.boxes.isEmpty());
}

void tst_ConsoleTime::thePanelMayGoWhileSuccessIsShown()
{
    const BoxAnswerer answerer([this] { m_panel.reset(); });
    apply();
    QTRY_COMPARE(answerer.boxes.size(), 1);
    QVERIFY(!m_panel);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QCoreApplication::processEvents();
}

void tst_ConsoleTime::nothingIsToldOnceThePanelHasGone()
{
    auto button = std::make_unique<FloatWidgetWidthButton>(nullptr);
    auto *panel = button->findChild<ConsoleFloatWidget *>();
    QVERIFY(panel);
    panel->setDelays({90000, 60000});
    QObject host;
    int late = 0;
    connect(button.get(), &FloatWidgetWidthButton::signalUpdateSystemTime, &host, [&late] { ++late; });
    const Journal journal(panel);
    panel->slotTimeChanged();
    // No events meanwhile.
    QElapsedTimer clock;
    clock.start();
    while (journal.lines().size() < 2 && clock.elapsed() < 5000)
        QThread::yieldCurrentThread();
    QCOMPARE(journal.lines().size(), 2);
    button.reset();
    QCoreApplication::processEvents();
    QCOMPARE(late, 0);
}

QTEST_MAIN(tst_ConsoleTime)

#include "tst_consoletime.moc"
