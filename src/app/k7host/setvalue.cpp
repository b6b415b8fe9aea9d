// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "setvalue.h"

#include "inputevents.h"

#include <korvo/widgets/datewidget.h>
#include <korvo/widgets/slidereditframe.h>
#include <korvo/widgets/switchcontrol.h>
#include <korvo/widgets/tbar.h>
#include <korvo/widgets/tumblertime.h>
#include <ovo/widgets/iplineedit.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionButton>
#include <QWheelEvent>

#include <cmath>

using Korvo::Widgets::DateWidget;
using Korvo::Widgets::SliderEditFrame;
using Korvo::Widgets::SwitchControl;
using Korvo::Widgets::tbar;
using Korvo::Widgets::TumblerTime;
using Ovo::Widgets::IPLineEdit;

namespace K7Host {

namespace {

constexpr double NumberTolerance = 0.005;

/// Tab, as it were, until the widget has the focus.
void focus(QWidget *widget)
{
    widget->setFocus(Qt::TabFocusReason);
}

/// Where keys go that are typed after focus().
QWidget *keyReceiver(const QWidget *widget)
{
    QWidget *focused = widget->window()->focusWidget();
    return focused ? focused : widget->window();
}

void typeInto(const QWidget *widget, const QString &text)
{
    for (const QChar character : text)
        sendCharacter(keyReceiver(widget), character);
}

void replaceText(QWidget *widget, const QString &text)
{
    focus(widget);
    sendKey(keyReceiver(widget), Qt::CTRL + Qt::Key_A);
    if (text.isEmpty())
        sendKey(keyReceiver(widget), Qt::Key_Delete);
    typeInto(widget, text);
}

bool isNear(double number, const QJsonValue &value)
{
    return value.isDouble() && std::abs(number - value.toDouble()) < NumberTolerance;
}

/// Presses \a key until \a distance, of the widget to its value, is less than \a reach or does not shrink any
/// more.
template <typename Distance>
void repeatKey(QWidget *receiver, int key, double reach, const Distance &distance)
{
    const QPointer<QWidget> guard(receiver);
    for (double rest = distance(); guard && rest >= reach;) {
        sendKey(receiver, key);
        const double next = guard ? distance() : rest;
        if (next >= rest)
            return;
        rest = next;
    }
}

// Each kind: what is done, and whether the widget shows the value; the second is also asked before.

void enter(IPLineEdit *editor, const QJsonValue &value)
{
    replaceText(editor, value.toString());
}

bool shows(const IPLineEdit *editor, const QJsonValue &value)
{
    return value.isString() && editor->text() == value.toString();
}

void enter(QLineEdit *editor, const QJsonValue &value)
{
    if (value.isString())
        replaceText(editor, value.toString());
}

bool shows(const QLineEdit *editor, const QJsonValue &value)
{
    return value.isString() && editor->text() == value.toString();
}

void enterNumber(QAbstractSpinBox *editor, const QString &number)
{
    replaceText(editor, number);
    sendKey(keyReceiver(editor), Qt::Key_Return);
}

QLocale plainLocale(const QWidget *widget)
{
    QLocale locale = widget->locale();
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return locale;
}

void enter(QSpinBox *editor, const QJsonValue &value)
{
    if (value.isDouble())
        enterNumber(editor, plainLocale(editor).toString(value.toDouble(), 'f', 0));
}

bool shows(const QSpinBox *editor, const QJsonValue &value)
{
    return isNear(editor->value(), value);
}

void enter(QDoubleSpinBox *editor, const QJsonValue &value)
{
    if (value.isDouble())
        enterNumber(editor, plainLocale(editor).toString(value.toDouble(), 'f', editor->decimals()));
}

bool shows(const QDoubleSpinBox *editor, const QJsonValue &value)
{
    return isNear(editor->value(), value);
}

void enter(SliderEditFrame *frame, const QJsonValue &value)
{
    if (auto *editor = frame->findChild<QSpinBox *>())
        enter(editor, value);
}

bool shows(const SliderEditFrame *frame, const QJsonValue &value)
{
    return isNear(frame->value(), value);
}

void enter(QAbstractSlider *slider, const QJsonValue &value)
{
    if (!value.isDouble())
        return;
    focus(slider);
    const auto distance = [&] { return std::abs(slider->value() - value.toDouble()); };
    const auto isTooLow = [&] { return slider->value() < value.toDouble(); };
    repeatKey(slider, isTooLow() ? Qt::Key_PageUp : Qt::Key_PageDown, slider->pageStep(), distance);
    repeatKey(slider, isTooLow() ? Qt::Key_Up : Qt::Key_Down, 1, distance);
}

bool shows(const QAbstractSlider *slider, const QJsonValue &value)
{
    return isNear(slider->value(), value);
}

void enter(tbar *lever, const QJsonValue &value)
{
    if (!value.isDouble())
        return;
    const double way = value.toDouble() - lever->curValue();
    const int delta = qRound(way * QWheelEvent::DefaultDeltasPerStep);
    const bool isUp = lever->getTbarDirection() == tbar::BottomToTop;
    sendWheel(lever, lever->rect().center(), {0, isUp ? delta : -delta});
}

bool shows(const tbar *lever, const QJsonValue &value)
{
    return isNear(lever->curValue(), value);
}

void enter(SwitchControl *control, const QJsonValue &value)
{
    if (!value.isBool())
        return;
    const QPointer<QWidget> guard(control);
    sendMouse(control, QEvent::MouseButtonPress, control->rect().center());
    if (guard)
        sendMouse(control, QEvent::MouseButtonRelease, control->rect().center());
}

bool shows(const SwitchControl *control, const QJsonValue &value)
{
    return value.isBool() && control->isToggled() == value.toBool();
}

/// Where a button takes clicks: a check box may be wider than its mark and text.
QPoint markOf(const QAbstractButton *button)
{
    if (!qobject_cast<const QCheckBox *>(button) && !qobject_cast<const QRadioButton *>(button))
        return button->rect().center();
    QStyleOptionButton option;
    option.initFrom(button);
    const bool isBox = qobject_cast<const QCheckBox *>(button);
    const auto mark = isBox ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator;
    return button->style()->subElementRect(mark, &option, button).center();
}

void enter(QAbstractButton *button, const QJsonValue &value)
{
    if (!value.isBool() || !button->isCheckable())
        return;
    const QPoint at = markOf(button);
    const QPointer<QWidget> guard(button);
    sendMouse(button, QEvent::MouseButtonPress, at);
    if (guard)
        sendMouse(button, QEvent::MouseButtonRelease, at);
}

bool shows(const QAbstractButton *button, const QJsonValue &value)
{
    return value.isBool() && button->isCheckable() && button->isChecked() == value.toBool();
}

int itemOf(const QComboBox *box, const QJsonValue &value)
{
    return value.isString() ? box->findText(value.toString()) : value.toInt(-1);
}

void enter(QComboBox *box, const QJsonValue &value)
{
    const int item = itemOf(box, value);
    if (item < 0 || item >= box->count() || !box->isEnabled())
        return;
    focus(box);
    sendKey(box, Qt::Key_F4);
    // The list of a box is its own, and shown by it.
    QAbstractItemView *list = box->view();
    const auto distance = [&] { return std::abs(double(list->currentIndex().row()) - item); };
    const bool isBelow = list->currentIndex().row() < item;
    repeatKey(list, isBelow ? Qt::Key_Down : Qt::Key_Up, 1, distance);
    sendKey(list, list->currentIndex().row() == item ? Qt::Key_Return : Qt::Key_Escape);
}

bool shows(const QComboBox *box, const QJsonValue &value)
{
    return box->currentIndex() >= 0 && box->currentIndex() == itemOf(box, value);
}

QDate dateOf(const QJsonValue &value)
{
    return QLocale::c().toDate(value.toString(), QStringLiteral("dd/MM/yyyy"));
}

int monthsOf(const QDate &date)
{
    return date.year() * 12 + date.month();
}

/// Turns an open calendar, which has the keys, to a day.
void turnTo(const QCalendarWidget *calendar, const QDate &wanted)
{
    QWidget *days = keyReceiver(calendar);
    const auto months = [&] {
        return std::abs(double(monthsOf(calendar->selectedDate()) - monthsOf(wanted)));
    };
    const auto distance = [&] { return std::abs(double(calendar->selectedDate().daysTo(wanted))); };
    repeatKey(days, calendar->selectedDate() < wanted ? Qt::Key_PageDown : Qt::Key_PageUp, 1, months);
    repeatKey(days, calendar->selectedDate() < wanted ? Qt::Key_Down : Qt::Key_Up, 7, distance);
    repeatKey(days, Qt::Key_Left, 1, distance); // one of both leads away from it, and stops
    repeatKey(days, Qt::Key_Right, 1, distance);
    if (distance() > 0)
        repeatKey(days, Qt::Key_Left, 1, distance);
}

void enter(DateWidget *button, const QJsonValue &value)
{
    const QDate date = dateOf(value);
    if (!date.isValid() || !button->isEnabled())
        return;
    focus(button);
    sendKey(button, Qt::Key_Down);
    const auto *calendar = button->findChild<QCalendarWidget *>();
    if (!calendar || !calendar->isVisible())
        return;
    turnTo(calendar, date);
    sendKey(keyReceiver(calendar), calendar->selectedDate() == date ? Qt::Key_Return : Qt::Key_Escape);
}

bool shows(const DateWidget *button, const QJsonValue &value)
{
    return value.isString() && button->text() == value.toString();
}

/// Texts of the wheels, empty for one that is to stay; none when the value is no time.
std::optional<QStringList> wheelTexts(const QJsonValue &value)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A(\\d\\d):(\\d\\d)(?::(\\d\\d))?(?: ([AP]M))?\\z"));
    const QRegularExpressionMatch match = pattern.match(value.toString());
    if (!match.hasMatch())
        return {};
    return QStringList{match.captured(1), match.captured(2), match.captured(3), match.captured(4)};
}

void enter(TumblerTime *time, const QJsonValue &value)
{
    const auto texts = wheelTexts(value);
    if (!texts || !time->isEnabled())
        return;
    focus(time);
    for (const QString &text : *texts) {
        typeInto(time, text.left(text.endsWith(QLatin1Char('M')) ? 1 : -1)); // its first letter
        sendKey(keyReceiver(time), Qt::Key_Right);
    }
}

bool shows(const TumblerTime *time, const QJsonValue &value)
{
    const auto texts = wheelTexts(value);
    if (!texts)
        return false;
    const auto isAt = [](const QString &text, int shown) { return text.isEmpty() || text.toInt() == shown; };
    const QString type = texts->at(3);
    const bool isType = type.isEmpty() || (time->isTypeVisible() && time->getTimeType() == type);
    return isType && isAt(texts->at(0), time->getHour()) && isAt(texts->at(1), time->getMin()) &&
           isAt(texts->at(2), time->getSec());
}

enum class Outcome { OtherKind, Set, Refused };

template <typename Widget>
Outcome setAs(QWidget *widget, const QJsonValue &value)
{
    const QPointer<Widget> target(qobject_cast<Widget *>(widget));
    if (!target)
        return Outcome::OtherKind;
    if (!shows(target.data(), value))
        enter(target.data(), value);
    // One that went with what it did is past asking.
    return !target || shows(target.data(), value) ? Outcome::Set : Outcome::Refused;
}

using Setter = Outcome (*)(QWidget *, const QJsonValue &);

// The first that fits holds: a date is a button as well.
const Setter setters[] = {
    setAs<IPLineEdit>,      setAs<QLineEdit>,   setAs<QSpinBox>,        setAs<QDoubleSpinBox>,
    setAs<SliderEditFrame>, setAs<tbar>,        setAs<QAbstractSlider>, setAs<SwitchControl>,
    setAs<DateWidget>,      setAs<TumblerTime>, setAs<QComboBox>,       setAs<QAbstractButton>,
};

QString shown(const QJsonValue &value)
{
    return value.isString() ? QLatin1Char('"') + value.toString() + QLatin1Char('"')
                            : value.toVariant().toString();
}

} // namespace

std::optional<QString> setValue(QWidget *widget, const QJsonValue &value)
{
    const QString kind = QLatin1String(widget->metaObject()->className());
    const auto *button = qobject_cast<const QAbstractButton *>(widget);
    const bool isPlainButton = button && !button->isCheckable() && !qobject_cast<DateWidget *>(widget);
    const QPointer<QWidget> guard(widget);
    for (const Setter setAsKind : setters) {
        if (isPlainButton)
            break;
        switch (setAsKind(widget, value)) {
        case Outcome::Set:
            return {};
        case Outcome::Refused:
            return QStringLiteral("does not take %1%2")
                .arg(shown(value), guard->isEnabled() ? QString() : QStringLiteral(": it is disabled"));
        case Outcome::OtherKind:
            break;
        }
    }
    return QStringLiteral("is a %1, which has no value to set").arg(kind);
}

} // namespace K7Host
