// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include <korvo/widgets/datewidget.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QWindow>

#include <functional>

using Korvo::Widgets::DateWidget;

namespace {

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

QCalendarWidget *calendarOf(const DateWidget *button)
{
    return button->findChild<QCalendarWidget *>();
}

QTableView *daysOf(const DateWidget *button)
{
    return button->findChild<QTableView *>();
}

bool isOpen(const DateWidget *button)
{
    return calendarOf(button) && calendarOf(button)->isVisible();
}

QString titleOf(const DateWidget *button)
{
    return button->findChild<QLabel *>(QStringLiteral("calendarTitle"))->text();
}

QToolButton *arrowOf(const DateWidget *button, const char *name)
{
    const QList<QToolButton *> arrows = button->findChildren<QToolButton *>();
    for (QToolButton *arrow : arrows) {
        if (arrow->accessibleName() == QLatin1String(name))
            return arrow;
    }
    qFatal("no such arrow");
    return nullptr;
}

QStringList dayNames(const DateWidget *button)
{
    QStringList result;
    for (int column = 0; column < 7; ++column)
        result.append(daysOf(button)->model()->index(0, column).data().toString());
    return result;
}

// Of the month shown: the first cell of that number, that does not end the month before.
QPoint placeOf(const DateWidget *button, int day)
{
    const QTableView *days = daysOf(button);
    bool hasBegun = false;
    for (int cell = 7; cell < 7 * 7; ++cell) {
        const QModelIndex index = days->model()->index(cell / 7, cell % 7);
        hasBegun = hasBegun || index.data().toInt() == 1;
        if (hasBegun && index.data().toInt() == day)
            return days->visualRect(index).center();
    }
    return QPoint(-1, -1);
}

void clickDay(const DateWidget *button, int day)
{
    QTest::mouseClick(daysOf(button)->viewport(), Qt::LeftButton, Qt::NoModifier, placeOf(button, day));
}

// A button above another one, in a window.
class Desk
{
public:
    Desk()
    {
        window.resize(400, 300);
        button.setGeometry(20, 20, 140, 36);
        other.setGeometry(20, 250, 140, 36);
        button.setDateTime(QDate(2026, 11, 5));
        window.show();
        window.activateWindow();
        isReady = QTest::qWaitForWindowActive(&window);
        button.setFocus();
    }

    // Through the window, where a press meets the pop-up first.
    void click(const QWidget &target)
    {
        const QPoint at = target.geometry().center();
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
        QCoreApplication::processEvents();
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    }

    QWidget window;
    DateWidget button{&window};
    QPushButton other{&window};
    bool isReady = false;
};

// A window in a scaled view, as the console's halves are.
class ScaledDesk
{
public:
    explicit ScaledDesk(qreal scale)
        : window(new QWidget)
        , button(new DateWidget(window))
    {
        window->resize(700, 700);
        button->setGeometry(10, 20, 140, 36);
        button->setDateTime(QDate(2026, 11, 5));
        view.setScene(&scene);
        m_proxy = scene.addWidget(window);
        view.setFrameShape(QFrame::NoFrame);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        view.scale(scale, scale);
        view.setSceneRect(0, 0, 700, 700);
        view.setFixedSize(QSize(700, 700) * scale);
        view.show();
        view.activateWindow();
        isReady = QTest::qWaitForWindowActive(&view);
    }

    void click(const QPoint &inWindow)
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.mapFromScene(inWindow));
    }
    void key(Qt::Key key) { QTest::keyClick(view.viewport(), key); }
    QRectF inWindow(const QWidget *popup) const
    {
        const QGraphicsProxyWidget *proxy = popup->graphicsProxyWidget();
        return proxy ? m_proxy->mapRectFromScene(proxy->sceneBoundingRect()) : QRectF();
    }

    QGraphicsScene scene;
    QGraphicsView view;
    QWidget *const window; // owned by the scene
    DateWidget *const button;
    bool isReady = false;

private:
    QGraphicsProxyWidget *m_proxy = nullptr;
};

} // namespace

using Act = std::function<void(Desk &)>;
Q_DECLARE_METATYPE(Act)

class tst_DateWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aNewOneShowsToday();
    void theTextIsTheSameEverywhere_data();
    void theTextIsTheSameEverywhere();
    void settingIsSilent();
    void noDateIsLoggedAndChangesNothing();
    void itOpensByHand_data();
    void itOpensByHand();
    void otherKeysDoNotOpen();
    void aClickOnADayPicksIt_data();
    void aClickOnADayPicksIt();
    void keysPickADay();
    void theSameDayIsNoChange();
    void itClosesAndKeepsTheDate_data();
    void itClosesAndKeepsTheDate();
    void onlyAPressOnTheButtonEndsAtThePopup();
    void itOpensAtItsDateAgain();
    void aDateThatIsSetShowsInTheOpenCalendar();
    void theArrowsTurnThePages_data();
    void theArrowsTurnThePages();
    void theYearsAre2000To2099();
    void aDateOutsideOfTheCalendarIsShown_data();
    void aDateOutsideOfTheCalendarIsShown();
    void itIsMadeForFingers();
    void itSpeaksTheLanguage_data();
    void itSpeaksTheLanguage();
    void itFollowsTheLanguageWhileOpen();
    void itStaysOnTheScreen_data();
    void itStaysOnTheScreen();
    void itStaysInAScaledWindow_data();
    void itStaysInAScaledWindow();
    void aScaledOneIsUsedAsAnyOther();
    void theButtonMayGoWhileOpen();
};

void tst_DateWidget::init()
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void tst_DateWidget::aNewOneShowsToday()
{
    const QDate before = QDate::currentDate();
    const DateWidget button;
    QVERIFY(button.date() == before || button.date() == QDate::currentDate());
    QCOMPARE(QDate::fromString(button.text(), QStringLiteral("dd/MM/yyyy")), button.date());
    QVERIFY(!calendarOf(&button));
}

void tst_DateWidget::theTextIsTheSameEverywhere_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("expected");
    for (const char *locale : {"en_US", "de_DE", "ar_EG", "hi_IN"}) {
        const QString name = QLatin1String(locale);
        QTest::newRow(locale) << name << QDate(2026, 11, 5) << "05/11/2026";
        QTest::newRow(qPrintable(name + QStringLiteral(" first")))
            << name << QDate(2000, 1, 1) << "01/01/2000";
        QTest::newRow(qPrintable(name + QStringLiteral(" last")))
            << name << QDate(2099, 12, 31) << "31/12/2099";
        QTest::newRow(qPrintable(name + QStringLiteral(" leap")))
            << name << QDate(2028, 2, 29) << "29/02/2028";
    }
}

void tst_DateWidget::theTextIsTheSameEverywhere()
{
    QFETCH(QString, locale);
    QFETCH(QDate, date);
    QLocale::setDefault(QLocale(locale));
    DateWidget button;
    button.setLocale(QLocale(locale));
    button.setDateTime(date);
    QTEST(button.text(), "expected");
    QCOMPARE(button.date(), date);
}

void tst_DateWidget::settingIsSilent()
{
    DateWidget button;
    const QSignalSpy changed(&button, &DateWidget::dateChanged);
    button.setDateTime(QDate(2030, 1, 2));
    QCOMPARE(changed.count(), 0);
}

void tst_DateWidget::noDateIsLoggedAndChangesNothing()
{
    DateWidget button;
    button.setDateTime(QDate(2030, 1, 2));
    const LogCounter counter;
    button.setDateTime(QDate());
    button.setDateTime(QDate(2030, 2, 30));
    QCOMPARE(logged, 2);
    QCOMPARE(button.date(), QDate(2030, 1, 2));
    QCOMPARE(button.text(), QStringLiteral("02/01/2030"));
}

void tst_DateWidget::itOpensByHand_data()
{
    QTest::addColumn<Act>("act");
    const auto row = [](const char *name, const Act &act) { QTest::newRow(name) << act; };
    row("click", [](Desk &desk) { desk.click(desk.button); });
    row("Space", [](Desk &desk) { QTest::keyClick(&desk.button, Qt::Key_Space); });
    row("Return", [](Desk &desk) { QTest::keyClick(&desk.button, Qt::Key_Return); });
    row("Enter", [](Desk &desk) { QTest::keyClick(&desk.button, Qt::Key_Enter, Qt::KeypadModifier); });
    row("Down", [](Desk &desk) { QTest::keyClick(&desk.button, Qt::Key_Down); });
}

void tst_DateWidget::itOpensByHand()
{
    QFETCH(Act, act);
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy changed(&desk.button, &DateWidget::dateChanged);
    QVERIFY(!calendarOf(&desk.button));
    act(desk);
    QVERIFY(isOpen(&desk.button));
    QCOMPARE(calendarOf(&desk.button)->selectedDate(), QDate(2026, 11, 5));
    QCOMPARE(changed.count(), 0);
}

void tst_DateWidget::otherKeysDoNotOpen()
{
    Desk desk;
    QTest::keyClick(&desk.button, Qt::Key_Up);
    QTest::keyClick(&desk.button, Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(&desk.button, Qt::Key_Escape);
    desk.button.setEnabled(false);
    desk.click(desk.button);
    QTest::keyClick(&desk.button, Qt::Key_Return);
    QVERIFY(!calendarOf(&desk.button));
}

void tst_DateWidget::aClickOnADayPicksIt_data()
{
    QTest::addColumn<int>("day");
    QTest::addColumn<QDate>("expected");
    QTest::newRow("first") << 1 << QDate(2026, 11, 1);
    QTest::newRow("next") << 6 << QDate(2026, 11, 6);
    QTest::newRow("last") << 30 << QDate(2026, 11, 30);
}

void tst_DateWidget::aClickOnADayPicksIt()
{
    QFETCH(int, day);
    QFETCH(QDate, expected);
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy changed(&desk.button, &DateWidget::dateChanged);
    desk.click(desk.button);
    clickDay(&desk.button, day);
    QVERIFY(!isOpen(&desk.button));
    QCOMPARE(desk.button.date(), expected);
    QCOMPARE(desk.button.text(), expected.toString(QStringLiteral("dd/MM/yyyy")));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toDate(), expected);
    QVERIFY(desk.button.hasFocus());
}

void tst_DateWidget::keysPickADay()
{
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy changed(&desk.button, &DateWidget::dateChanged);
    QTest::keyClick(&desk.button, Qt::Key_Return);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(desk.button.text(), QStringLiteral("05/11/2026"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!isOpen(&desk.button));
    QCOMPARE(desk.button.date(), QDate(2026, 11, 13));
    QCOMPARE(changed.count(), 1);
    QVERIFY(desk.button.hasFocus());
}

void tst_DateWidget::theSameDayIsNoChange()
{
    Desk desk;
    const QSignalSpy changed(&desk.button, &DateWidget::dateChanged);
    desk.click(desk.button);
    clickDay(&desk.button, 5);
    QVERIFY(!isOpen(&desk.button));
    desk.click(desk.button);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(!isOpen(&desk.button));
    QCOMPARE(changed.count(), 0);
}

void tst_DateWidget::itClosesAndKeepsTheDate_data()
{
    QTest::addColumn<Act>("act");
    const auto row = [](const char *name, const Act &act) { QTest::newRow(name) << act; };
    row("Escape", [](Desk &) { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); });
    row("second click", [](Desk &desk) { desk.click(desk.button); });
    row("press elsewhere", [](Desk &desk) {
        QTest::mouseClick(desk.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(395, 5));
    });
    row("button hidden", [](Desk &desk) { desk.button.hide(); });
    row("button disabled", [](Desk &desk) { desk.button.setEnabled(false); });
}

void tst_DateWidget::itClosesAndKeepsTheDate()
{
    QFETCH(Act, act);
    Desk desk;
    QVERIFY(desk.isReady);
    const QSignalSpy changed(&desk.button, &DateWidget::dateChanged);
    for (int time = 0; time < 2; ++time) {
        desk.click(desk.button);
        QVERIFY(isOpen(&desk.button));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(calendarOf(&desk.button)->selectedDate(), QDate(2026, 11, 6));
        act(desk);
        QVERIFY(!isOpen(&desk.button));
        desk.button.show();
        desk.button.setEnabled(true);
        QCOMPARE(desk.button.text(), QStringLiteral("05/11/2026"));
        QCOMPARE(changed.count(), 0);
    }
    QCOMPARE(desk.button.findChildren<QCalendarWidget *>().count(), 1);
}

void tst_DateWidget::onlyAPressOnTheButtonEndsAtThePopup()
{
    Desk desk;
    desk.click(desk.button);
    const QWidget *popup = calendarOf(&desk.button)->window();
    desk.click(desk.button);
    QVERIFY(popup->testAttribute(Qt::WA_NoMouseReplay));
    desk.click(desk.button);
    QTest::mouseClick(desk.window.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(395, 5));
    QVERIFY(!popup->isVisible());
    QVERIFY(!popup->testAttribute(Qt::WA_NoMouseReplay));
}

void tst_DateWidget::itOpensAtItsDateAgain()
{
    Desk desk;
    desk.click(desk.button);
    QTest::mouseClick(arrowOf(&desk.button, "Next year"), Qt::LeftButton);
    QCOMPARE(titleOf(&desk.button), QStringLiteral("November 2027"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(desk.button.hasFocus());
    desk.click(desk.button);
    QCOMPARE(titleOf(&desk.button), QStringLiteral("November 2026"));
    QCOMPARE(calendarOf(&desk.button)->selectedDate(), QDate(2026, 11, 5));
}

void tst_DateWidget::aDateThatIsSetShowsInTheOpenCalendar()
{
    Desk desk;
    const QSignalSpy changed(&desk.button, &DateWidget::dateChanged);
    desk.click(desk.button);
    desk.button.setDateTime(QDate(2031, 3, 9));
    QVERIFY(isOpen(&desk.button));
    QCOMPARE(titleOf(&desk.button), QStringLiteral("March 2031"));
    QCOMPARE(calendarOf(&desk.button)->selectedDate(), QDate(2031, 3, 9));
    QCOMPARE(changed.count(), 0);
}

void tst_DateWidget::theArrowsTurnThePages_data()
{
    QTest::addColumn<QString>("arrow");
    QTest::addColumn<int>("times");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QDate>("picked"); // by the day 7
    QTest::newRow("previous year") << "Previous year" << 1 << "November 2025" << QDate(2025, 11, 7);
    QTest::newRow("previous month") << "Previous month" << 11 << "December 2025" << QDate(2025, 12, 7);
    QTest::newRow("next month") << "Next month" << 2 << "January 2027" << QDate(2027, 1, 7);
    QTest::newRow("next year") << "Next year" << 3 << "November 2029" << QDate(2029, 11, 7);
}

void tst_DateWidget::theArrowsTurnThePages()
{
    QFETCH(QString, arrow);
    QFETCH(int, times);
    QFETCH(QString, title);
    QFETCH(QDate, picked);
    Desk desk;
    const QSignalSpy changed(&desk.button, &DateWidget::dateChanged);
    desk.click(desk.button);
    for (int time = 0; time < times; ++time)
        QTest::mouseClick(arrowOf(&desk.button, qPrintable(arrow)), Qt::LeftButton);
    QVERIFY(isOpen(&desk.button));
    QCOMPARE(titleOf(&desk.button), title);
    QCOMPARE(desk.button.text(), QStringLiteral("05/11/2026"));
    QCOMPARE(changed.count(), 0);
    clickDay(&desk.button, 7);
    QCOMPARE(desk.button.date(), picked);
}

void tst_DateWidget::theYearsAre2000To2099()
{
    Desk desk;
    desk.button.setDateTime(QDate(2000, 2, 1));
    desk.click(desk.button);
    QToolButton *const previous = arrowOf(&desk.button, "Previous month");
    QVERIFY(previous->isEnabled());
    QTest::mouseClick(previous, Qt::LeftButton);
    QCOMPARE(titleOf(&desk.button), QStringLiteral("January 2000"));
    QVERIFY(!previous->isEnabled());
    QVERIFY(!arrowOf(&desk.button, "Previous year")->isEnabled());
    QVERIFY(arrowOf(&desk.button, "Next year")->isEnabled());

    desk.button.setDateTime(QDate(2099, 11, 1));
    QToolButton *const next = arrowOf(&desk.button, "Next month");
    QVERIFY(next->isEnabled());
    QTest::mouseClick(next, Qt::LeftButton);
    QCOMPARE(titleOf(&desk.button), QStringLiteral("December 2099"));
    QVERIFY(!next->isEnabled());
    QVERIFY(!arrowOf(&desk.button, "Next year")->isEnabled());
    QVERIFY(previous->isEnabled());
    clickDay(&desk.button, 31);
    QCOMPARE(desk.button.date(), QDate(2099, 12, 31));
}

void tst_DateWidget::aDateOutsideOfTheCalendarIsShown_data()
{
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");
    QTest::newRow("before") << QDate(1970, 1, 1) << "01/01/1970"
                            << "January 2000";
    QTest::newRow("after") << QDate(2106, 2, 7) << "07/02/2106"
                           << "December 2099";
}

void tst_DateWidget::aDateOutsideOfTheCalendarIsShown()
{
    QFETCH(QDate, date);
    Desk desk;
    desk.button.setDateTime(date);
    QCOMPARE(desk.button.date(), date);
    QTEST(desk.button.text(), "text");
    desk.click(desk.button);
    QTEST(titleOf(&desk.button), "title");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(desk.button.date(), date);
}

void tst_DateWidget::itIsMadeForFingers()
{
    Desk desk;
    desk.click(desk.button);
    const QTableView *days = daysOf(&desk.button);
    QCOMPARE(days->model()->columnCount(), 7); // no numbers of weeks
    for (int cell = 7; cell < 7 * 7; ++cell) {
        const QRect place = days->visualRect(days->model()->index(cell / 7, cell % 7));
        QVERIFY(place.width() >= 36 && place.height() >= 36);
        QVERIFY(days->viewport()->rect().contains(place));
    }
    for (const char *name : {"Previous year", "Previous month", "Next month", "Next year"}) {
        const QSize size = arrowOf(&desk.button, name)->size();
        QVERIFY(size.width() >= 40 && size.height() >= 40);
    }
}

void tst_DateWidget::itSpeaksTheLanguage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("firstDay");
    QTest::newRow("English") << "en_US"
                             << "October 2026"
                             << "Sun";
    QTest::newRow("British") << "en_GB"
                             << "October 2026"
                             << "Mon";
    QTest::newRow("German") << "de_DE"
                            << "Oktober 2026"
                            << "Mo";
    QTest::newRow("Italian") << "it_IT"
                             << "ottobre 2026"
                             << "lun";
}

void tst_DateWidget::itSpeaksTheLanguage()
{
    QFETCH(QString, locale);
    QFETCH(QString, firstDay);
    QLocale::setDefault(QLocale(locale));
    Desk desk;
    desk.button.setDateTime(QDate(2026, 10, 5));
    desk.click(desk.button);
    QTEST(titleOf(&desk.button), "title");
    QVERIFY(dayNames(&desk.button).constFirst().startsWith(firstDay));
}

void tst_DateWidget::itFollowsTheLanguageWhileOpen()
{
    Desk desk;
    desk.button.setDateTime(QDate(2026, 10, 5));
    desk.click(desk.button);
    QCOMPARE(dayNames(&desk.button).constFirst(), QStringLiteral("Sun"));
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QEvent event(QEvent::LanguageChange);
    QApplication::sendEvent(&desk.button, &event);
    QVERIFY(isOpen(&desk.button));
    QCOMPARE(titleOf(&desk.button), QStringLiteral("Oktober 2026"));
    QVERIFY(dayNames(&desk.button).constFirst().startsWith(QLatin1String("Mo")));
    QCOMPARE(desk.button.text(), QStringLiteral("05/10/2026"));
}

void tst_DateWidget::itStaysOnTheScreen_data()
{
    QTest::addColumn<QPoint>("place"); // of the button, in hundredths of the screen
    QTest::addColumn<bool>("isBelow");
    QTest::newRow("top left") << QPoint(0, 0) << true;
    QTest::newRow("top right") << QPoint(100, 0) << true;
    QTest::newRow("middle right") << QPoint(100, 30) << true;
    QTest::newRow("bottom right") << QPoint(100, 100) << false;
    QTest::newRow("bottom left") << QPoint(0, 100) << false;
}

void tst_DateWidget::itStaysOnTheScreen()
{
    QFETCH(QPoint, place);
    QFETCH(bool, isBelow);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    DateWidget button;
    button.setWindowFlags(Qt::FramelessWindowHint);
    button.resize(140, 36);
    button.move(screen.x() + (screen.width() - 140) * place.x() / 100,
                screen.y() + (screen.height() - 36) * place.y() / 100);
    button.show();
    QVERIFY(QTest::qWaitForWindowActive(&button));
    QTest::mouseClick(&button, Qt::LeftButton);
    const QRect popup = calendarOf(&button)->window()->frameGeometry();
    QVERIFY(screen.contains(popup));
    QCOMPARE(popup.top() > button.geometry().bottom(), isBelow);
    QVERIFY(!popup.intersects(button.geometry()));
}

void tst_DateWidget::itStaysInAScaledWindow_data()
{
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QPoint>("expected");
    for (const qreal scale : {0.5, 0.73, 1.0, 1.4}) {
        const QByteArray name = QByteArray::number(scale);
        // Beside, or moved into the window (x); below or above (y).
        QTest::newRow("top left, " + name) << scale << QPoint(10, 20) << QPoint(0, 1);
        QTest::newRow("beyond the left, " + name) << scale << QPoint(-60, 20) << QPoint(1, 1);
        QTest::newRow("right, " + name) << scale << QPoint(550, 20) << QPoint(-1, 1);
        QTest::newRow("bottom right, " + name) << scale << QPoint(550, 650) << QPoint(-1, -1);
    }
}

void tst_DateWidget::itStaysInAScaledWindow()
{
    QFETCH(qreal, scale);
    QFETCH(QPoint, place);
    QFETCH(QPoint, expected);
    ScaledDesk desk(scale);
    QVERIFY(desk.isReady);
    desk.button->move(place);
    desk.click(desk.button->geometry().center());
    QVERIFY(isOpen(desk.button));
    const QRectF popup = desk.inWindow(calendarOf(desk.button)->window());
    QVERIFY(QRectF(desk.window->rect()).contains(popup));
    const QRectF button = desk.button->geometry();
    QVERIFY(!popup.intersects(button.adjusted(2, 2, -2, -2)));
    QCOMPARE(popup.center().y() > button.center().y(), expected.y() > 0);
    QVERIFY(expected.y() > 0 ? popup.top() - button.bottom() < 3 : button.top() - popup.bottom() < 3);
    QVERIFY(expected.x() != 0 || qAbs(popup.left() - button.left()) < 3);
}

void tst_DateWidget::aScaledOneIsUsedAsAnyOther()
{
    ScaledDesk desk(0.73);
    QVERIFY(desk.isReady);
    const QSignalSpy changed(desk.button, &DateWidget::dateChanged);
    const QPoint onButton = desk.button->geometry().center();
    desk.click(onButton);
    QVERIFY(isOpen(desk.button));
    desk.click(onButton);
    QVERIFY(!isOpen(desk.button));
    QVERIFY(desk.button->hasFocus());

    desk.click(onButton);
    QVERIFY(isOpen(desk.button));
    desk.key(Qt::Key_Right);
    desk.key(Qt::Key_Escape);
    QVERIFY(!isOpen(desk.button));
    QCOMPARE(desk.button->text(), QStringLiteral("05/11/2026"));
    QVERIFY(desk.button->hasFocus());

    desk.key(Qt::Key_Down);
    QVERIFY(isOpen(desk.button));
    desk.key(Qt::Key_Right);
    desk.key(Qt::Key_Return);
    QVERIFY(!isOpen(desk.button));
    QCOMPARE(desk.button->text(), QStringLiteral("06/11/2026"));

    desk.click(onButton);
    const QWidget *days = daysOf(desk.button)->viewport();
    const QPoint day = days->mapTo(days->window(), placeOf(desk.button, 24));
    desk.click((desk.inWindow(days->window()).topLeft() + day).toPoint());
    QVERIFY(!isOpen(desk.button));
    QCOMPARE(desk.button->text(), QStringLiteral("24/11/2026"));
    QCOMPARE(changed.count(), 2);

    desk.click(onButton);
    desk.click(QPoint(690, 10));
    QVERIFY(!isOpen(desk.button));
    desk.click(onButton);
    QVERIFY(isOpen(desk.button));
}

void tst_DateWidget::theButtonMayGoWhileOpen()
{
    QWidget window;
    DateWidget *const button = new DateWidget(&window);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::mouseClick(button, Qt::LeftButton);
    const QPointer<QCalendarWidget> calendar = calendarOf(button);
    QVERIFY(calendar && calendar->isVisible());
    delete button;
    QVERIFY(!calendar);
    QVERIFY(!QApplication::activePopupWidget());
}

QTEST_MAIN(tst_DateWidget)
#include "tst_datewidget.moc"
