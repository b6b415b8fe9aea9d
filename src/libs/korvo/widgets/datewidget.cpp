// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "datewidget.h"

#include "logging.h"

#include <QCalendarWidget>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMouseEvent>
#include <QScreen>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <QWindow>

namespace Korvo::Widgets {

namespace {

// For fingers.
const QSize cellSize(54, 42);
const QSize arrowSize(52, 44);

// A calendar in a pop-up below or above a button. The arrows of its own bar are larger than the ones that
// QCalendarWidget has, and leave out its menu and spin box, which want a mouse and a keyboard.
class CalendarPopup : public QFrame
{
public:
    explicit CalendarPopup(QWidget *button);

    QCalendarWidget *calendar() const { return m_calendar; }
    void open(const QDate &date);
    void speak(const QLocale &locale);

protected:
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    using Turn = void (QCalendarWidget::*)();
    QToolButton *addArrow(QHBoxLayout *bar, const QString &sign, Turn turn);
    void showTitle();
    QRect room() const;
    void place();

    QWidget *const m_button;
    QCalendarWidget *const m_calendar;
    QLabel *const m_title;
    QToolButton *m_previousYear = nullptr;
    QToolButton *m_previousMonth = nullptr;
    QToolButton *m_nextMonth = nullptr;
    QToolButton *m_nextYear = nullptr;
};

CalendarPopup::CalendarPopup(QWidget *button)
    : QFrame(button, Qt::Popup | Qt::FramelessWindowHint)
    , m_button(button)
    , m_calendar(new QCalendarWidget(this))
    , m_title(new QLabel(this))
{
    setObjectName(QStringLiteral("calendarPopup"));
    setFrameShape(QFrame::StyledPanel);

    m_calendar->setNavigationBarVisible(false);
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setDateEditEnabled(false);
    m_calendar->setDateRange(QDate(2000, 1, 1), QDate(2099, 12, 31));
    // Red weekends are hard to read on a dark desk.
    m_calendar->setWeekdayTextFormat(Qt::Saturday, QTextCharFormat());
    m_calendar->setWeekdayTextFormat(Qt::Sunday, QTextCharFormat());
    // A row for the names of the days, and six weeks.
    m_calendar->setMinimumSize(7 * cellSize.width(), 7 * cellSize.height());

    m_title->setObjectName(QStringLiteral("calendarTitle"));
    m_title->setAlignment(Qt::AlignCenter);

    QHBoxLayout *bar = new QHBoxLayout;
    bar->setSpacing(2);
    m_previousYear = addArrow(bar, QString(QChar(0x00ab)), &QCalendarWidget::showPreviousYear);
    m_previousMonth = addArrow(bar, QString(QChar(0x2039)), &QCalendarWidget::showPreviousMonth);
    bar->addWidget(m_title, 1);
    m_nextMonth = addArrow(bar, QString(QChar(0x203a)), &QCalendarWidget::showNextMonth);
    m_nextYear = addArrow(bar, QString(QChar(0x00bb)), &QCalendarWidget::showNextYear);

    QVBoxLayout *layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(bar);
    layout->addWidget(m_calendar, 1);
    connect(m_calendar, &QCalendarWidget::currentPageChanged, this, &CalendarPopup::showTitle);
}

QToolButton *CalendarPopup::addArrow(QHBoxLayout *bar, const QString &sign, Turn turn)
{
    QToolButton *arrow = new QToolButton(this);
    arrow->setObjectName(QStringLiteral("calendarArrow"));
    arrow->setText(sign);
    arrow->setFixedSize(arrowSize);
    // The keys stay with the days, where Page Up and Page Down turn the months.
    arrow->setFocusPolicy(Qt::NoFocus);
    QFont font = arrow->font();
    font.setPixelSize(24);
    arrow->setFont(font);
    connect(arrow, &QToolButton::clicked, m_calendar, turn);
    bar->addWidget(arrow);
    return arrow;
}

void CalendarPopup::open(const QDate &date)
{
    speak(QLocale());
    m_calendar->setSelectedDate(date);
    // The page may have been turned away from the day the last time.
    m_calendar->showSelectedDate();
    place();
    show();
    m_calendar->setFocus(Qt::PopupFocusReason);
}

void CalendarPopup::speak(const QLocale &locale)
{
    setLayoutDirection(locale.textDirection());
    m_calendar->setLocale(locale);
    m_calendar->setFirstDayOfWeek(locale.firstDayOfWeek());
    m_previousYear->setAccessibleName(DateWidget::tr("Previous year"));
    m_previousMonth->setAccessibleName(DateWidget::tr("Previous month"));
    m_nextMonth->setAccessibleName(DateWidget::tr("Next month"));
    m_nextYear->setAccessibleName(DateWidget::tr("Next year"));
    showTitle();
}

void CalendarPopup::showTitle()
{
    const QLocale locale = m_calendar->locale();
    const QDate first(m_calendar->yearShown(), m_calendar->monthShown(), 1);
    m_title->setText(DateWidget::tr("%1 %2", "month year")
                         .arg(locale.standaloneMonthName(first.month()))
                         .arg(first.year()));
    const QDate start = m_calendar->minimumDate();
    const QDate end = m_calendar->maximumDate();
    m_previousYear->setEnabled(first > start);
    m_previousMonth->setEnabled(first > start);
    m_nextMonth->setEnabled(first.addMonths(1) < end);
    m_nextYear->setEnabled(first.addMonths(1) < end);
}

// What the pop-up may cover, in the button's coordinates.
QRect CalendarPopup::room() const
{
    const QWidget *window = m_button->window();
    if (window->graphicsProxyWidget())
        return QRect(m_button->mapFrom(window, QPoint()), window->size());
    const QWindow *handle = window->windowHandle();
    const QScreen *screen = handle ? handle->screen() : QGuiApplication::primaryScreen();
    const QRect free = screen->availableGeometry();
    return QRect(m_button->mapFromGlobal(free.topLeft()), free.size());
}

void CalendarPopup::place()
{
    resize(sizeHint());
    const QRect free = room();
    const int below = m_button->height();
    const int spaceBelow = free.y() + free.height() - below;
    const int spaceAbove = -free.y();
    const bool isBelow = spaceBelow >= height() || spaceBelow >= spaceAbove;
    const auto within = [](int value, int least, int most) { return qMax(least, qMin(value, most)); };
    const int x = within(0, free.x(), free.x() + free.width() - width());
    const int y = within(isBelow ? below : -height(), free.y(), free.y() + free.height() - height());
    move(m_button->mapToGlobal(QPoint(x, y)));
}

void CalendarPopup::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    if (m_button->isVisible())
        m_button->setFocus(Qt::PopupFocusReason);
}

void CalendarPopup::mousePressEvent(QMouseEvent *event)
{
    // A press on the button closes as any press elsewhere; handed on to the button it would open again.
    const QPoint onButton = m_button->mapFromGlobal(event->globalPos());
    setAttribute(Qt::WA_NoMouseReplay, m_button->rect().contains(onButton));
    QFrame::mousePressEvent(event);
}

} // namespace

class DateWidgetPrivate
{
    Q_DISABLE_COPY(DateWidgetPrivate)

public:
    explicit DateWidgetPrivate(DateWidget *button)
        : q(button)
    {
    }

    void show(const QDate &shown);
    void toggle();
    void pick(const QDate &picked);

    DateWidget *const q;
    QDate date;
    CalendarPopup *popup = nullptr; // a child of the button, made when it is first needed
};

void DateWidgetPrivate::show(const QDate &shown)
{
    date = shown;
    q->setText(QLocale::c().toString(date, QStringLiteral("dd/MM/yyyy")));
    q->setAccessibleDescription(q->text());
    if (popup)
        popup->calendar()->setSelectedDate(date);
}

void DateWidgetPrivate::toggle()
{
    if (!popup) {
        popup = new CalendarPopup(q);
        const auto take = [this](const QDate &picked) { pick(picked); };
        QObject::connect(popup->calendar(), &QCalendarWidget::clicked, q, take);
        QObject::connect(popup->calendar(), &QCalendarWidget::activated, q, take);
    }
    if (popup->isVisible())
        popup->close();
    else
        popup->open(date);
}

void DateWidgetPrivate::pick(const QDate &picked)
{
    popup->close();
    if (picked == date)
        return;
    show(picked);
    emit q->dateChanged(picked);
}

DateWidget::DateWidget(QWidget *parent)
    : QToolButton(parent)
    , d(new DateWidgetPrivate(this))
{
    setFocusPolicy(Qt::StrongFocus);
    d->show(QDate::currentDate());
    connect(this, &QToolButton::clicked, this, [this] { d->toggle(); });
}

DateWidget::~DateWidget() = default;

QDate DateWidget::date() const
{
    return d->date;
}

void DateWidget::setDateTime(const QDate &date)
{
    if (date.isValid()) {
        d->show(date);
        return;
    }
    qCWarning(widgetsLog, "Date \"%s\": no date to show, ignored", qUtf8Printable(objectName()));
}

void DateWidget::changeEvent(QEvent *event)
{
    const bool isLanguage = event->type() == QEvent::LanguageChange || event->type() == QEvent::LocaleChange;
    if (isLanguage && d->popup)
        d->popup->speak(QLocale());
    if (event->type() == QEvent::EnabledChange && !isEnabled() && d->popup)
        d->popup->close();
    QToolButton::changeEvent(event);
}

void DateWidget::hideEvent(QHideEvent *event)
{
    if (d->popup)
        d->popup->close();
    QToolButton::hideEvent(event);
}

void DateWidget::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool opens =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Down;
    if (isPlain && opens)
        d->toggle();
    else
        QToolButton::keyPressEvent(event);
}

} // namespace Korvo::Widgets
