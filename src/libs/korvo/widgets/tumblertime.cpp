// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "tumblertime.h"

#include "logging.h"
#include "tumblerwheel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>

namespace Korvo::Widgets {

namespace {

const int wheelGap = 10; // pixels between wheels, wide enough for a colon

QString am()
{
    return QStringLiteral("AM");
}

QString pm()
{
    return QStringLiteral("PM");
}

QStringList numbers(int count)
{
    QStringList result;
    for (int number = 0; number < count; ++number)
        result.append(QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')));
    return result;
}

// A row is the hour, but for the row 0 of twelve.
QStringList hours(int count)
{
    if (count != 12)
        return numbers(count);
    QStringList result{QStringLiteral("12")};
    for (int hour = 1; hour < count; ++hour)
        result.append(QString::number(hour));
    return result;
}

} // namespace

class TumblerTimePrivate
{
    Q_DISABLE_COPY(TumblerTimePrivate)

public:
    explicit TumblerTimePrivate(TumblerTime *time);

    TumblerWheel *addWheel(TumblerWheel::Turning turning, const QStringList &labels);
    void setNumber(TumblerWheel *wheel, int value, int limit);
    void retranslate();
    bool focusNeighbour(int step);

    TumblerTime *const q;
    QHBoxLayout *const layout;
    TumblerWheel *const hour; // the wheels are children
    TumblerWheel *const minute;
    TumblerWheel *const second;
    TumblerWheel *const type;
};

TumblerTimePrivate::TumblerTimePrivate(TumblerTime *time)
    : q(time)
    , layout(new QHBoxLayout(time))
    , hour(addWheel(TumblerWheel::Turning::Endless, hours(24)))
    , minute(addWheel(TumblerWheel::Turning::Endless, numbers(60)))
    , second(addWheel(TumblerWheel::Turning::Endless, numbers(60)))
    , type(addWheel(TumblerWheel::Turning::ToTheEnds, {am(), pm()}))
{
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(wheelGap);
    retranslate();
}

TumblerWheel *TumblerTimePrivate::addWheel(TumblerWheel::Turning turning, const QStringList &labels)
{
    TumblerWheel *wheel = new TumblerWheel(turning, q);
    wheel->setLabels(labels, 0);
    layout->addWidget(wheel, 1);
    QObject::connect(wheel, &TumblerWheel::turned, q, &TumblerTime::timeChanged);
    return wheel;
}

void TumblerTimePrivate::setNumber(TumblerWheel *wheel, int value, int limit)
{
    if (value >= 0 && value < limit) {
        wheel->setRow(value % wheel->labels().size());
        return;
    }
    qCWarning(widgetsLog, "Tumbler \"%s\": %d is not within 0 to %d, ignored",
              qUtf8Printable(q->objectName()), value, limit - 1);
}

void TumblerTimePrivate::retranslate()
{
    hour->setAccessibleName(TumblerTime::tr("Hour"));
    minute->setAccessibleName(TumblerTime::tr("Minute"));
    second->setAccessibleName(TumblerTime::tr("Second"));
    type->setAccessibleName(TumblerTime::tr("AM or PM"));
}

// Whether a wheel has the focus; it keeps it where there is no neighbour.
bool TumblerTimePrivate::focusNeighbour(int step)
{
    const QVector<TumblerWheel *> wheels{hour, minute, second, type};
    for (int i = 0; i < wheels.size(); ++i) {
        if (!wheels.at(i)->hasFocus())
            continue;
        TumblerWheel *const next = wheels.value(i + step);
        if (next && next->isVisible())
            next->setFocus(Qt::OtherFocusReason);
        return true;
    }
    return false;
}

TumblerTime::TumblerTime(QWidget *parent)
    : QWidget(parent)
    , d(new TumblerTimePrivate(this))
{
    // A time is read from the left in every language.
    setLayoutDirection(Qt::LeftToRight);
    setFocusProxy(d->hour);
}

TumblerTime::~TumblerTime() = default;

int TumblerTime::getHour() const
{
    const int row = d->hour->row();
    return row == 0 && hourCount() == 12 ? 12 : row;
}

int TumblerTime::getMin() const
{
    return d->minute->row();
}

int TumblerTime::getSec() const
{
    return d->second->row();
}

QString TumblerTime::getTimeType() const
{
    return d->type->row() == 0 ? am() : pm();
}

void TumblerTime::setHour(int hour)
{
    d->setNumber(d->hour, hour, 24);
}

void TumblerTime::setMin(int minute)
{
    d->setNumber(d->minute, minute, 60);
}

void TumblerTime::setSec(int second)
{
    d->setNumber(d->second, second, 60);
}

void TumblerTime::setAMPM(const QString &type)
{
    if (type == am() || type == pm()) {
        d->type->setRow(type == am() ? 0 : 1);
        return;
    }
    qCWarning(widgetsLog, "Tumbler \"%s\": \"%s\" is neither AM nor PM, ignored",
              qUtf8Printable(objectName()), qUtf8Printable(type));
}

void TumblerTime::setHourList(int count)
{
    if (count != 12 && count != 24) {
        qCWarning(widgetsLog, "Tumbler \"%s\": a list of %d hours is neither of 12 nor of 24, ignored",
                  qUtf8Printable(objectName()), count);
        return;
    }
    if (count != hourCount())
        d->hour->setLabels(hours(count), getHour() % count);
}

int TumblerTime::hourCount() const
{
    return d->hour->labels().size();
}

void TumblerTime::setTypeVisible(bool isVisible)
{
    if (d->type->isHidden() == isVisible)
        d->type->setVisible(isVisible);
}

bool TumblerTime::isTypeVisible() const
{
    return !d->type->isHidden();
}

QSize TumblerTime::sizeHint() const
{
    return QSize(isTypeVisible() ? 275 : 225, 140);
}

QSize TumblerTime::minimumSizeHint() const
{
    return QSize(isTypeVisible() ? 220 : 165, 90);
}

void TumblerTime::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        d->retranslate();
    QWidget::changeEvent(event);
}

void TumblerTime::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const bool isSideways = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (!isPlain || !isSideways || !d->focusNeighbour(event->key() == Qt::Key_Right ? 1 : -1))
        QWidget::keyPressEvent(event);
}

// The wheels paint themselves; between them stand the colons.
void TumblerTime::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);

    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Active, QPalette::WindowText));
    painter.setOpacity(isEnabled() ? 0.8 : 0.3);
    for (const TumblerWheel *wheel : {d->hour, d->minute}) {
        const QRect place = wheel->geometry();
        const QPointF middle(place.right() + 1 + wheelGap / 2.0, place.y() + place.height() / 2.0);
        for (const qreal side : {-5.0, 5.0})
            painter.drawEllipse(middle + QPointF(0, side), 1.75, 1.75);
    }
}

} // namespace Korvo::Widgets
