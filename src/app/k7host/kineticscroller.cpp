// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "kineticscroller.h"

#include "glide.h"
#include "inputevents.h"

#include <korvo/widgets/switchcontrol.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QVector>

namespace K7Host {

namespace {

constexpr int SpeedMemoryMs = 150; // what a finger did before does not count

bool isViewport(const QWidget *widget)
{
    const auto *area = qobject_cast<const QAbstractScrollArea *>(widget->parentWidget());
    return area && area->viewport() == widget;
}

/// The innermost area around \a widget, within \a window, that can be scrolled that way.
QScrollArea *areaAround(QWidget *widget, const QWidget *window, Qt::Orientation orientation)
{
    for (; widget != window; widget = widget->parentWidget()) {
        auto *area = qobject_cast<QScrollArea *>(widget->parentWidget());
        if (area && area->viewport() == widget &&
            barOf(area, orientation)->minimum() < barOf(area, orientation)->maximum())
            return area;
    }
    return nullptr;
}

/// Scroll areas and their viewports ask for touches too, and refuse them.
bool takesTouch(const QWidget *widget)
{
    return widget->testAttribute(Qt::WA_AcceptTouchEvents) && !isViewport(widget) &&
           !qobject_cast<const QAbstractScrollArea *>(widget);
}

bool isOnHandle(const QWidget *widget, const QPoint &at)
{
    const auto *slider = qobject_cast<const QSlider *>(widget);
    if (!slider)
        return false;
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.subControls = QStyle::SC_All;
    option.orientation = slider->orientation();
    option.state.setFlag(QStyle::State_Horizontal, slider->orientation() == Qt::Horizontal);
    option.minimum = slider->minimum();
    option.maximum = slider->maximum();
    option.sliderPosition = slider->sliderPosition();
    option.sliderValue = slider->value();
    option.upsideDown = slider->orientation() == Qt::Horizontal
                            ? slider->invertedAppearance() != slider->isRightToLeft()
                            : !slider->invertedAppearance();
    option.direction = Qt::LeftToRight;
    return slider->style()
        ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, slider)
        .contains(at);
}

/// Whether drags that begin there are the widget's own.
bool keepsDrags(const QWidget *widget, const QPoint &at)
{
    return takesTouch(widget) || qobject_cast<const QScrollBar *>(widget) ||
           (widget->isEnabled() && isOnHandle(widget, at));
}

/// Whether it may do something already when it is pressed.
bool mayActOnPress(const QWidget *widget)
{
    const bool wantsClicks = (widget->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus;
    const bool actsOnRelease = qobject_cast<const QAbstractButton *>(widget) ||
                               qobject_cast<const Korvo::Widgets::SwitchControl *>(widget);
    return widget->isEnabled() && !actsOnRelease && !isViewport(widget) &&
           (wantsClicks || widget->focusProxy());
}

bool isAnimated(const QWidget *widget)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 10, 0)
    return widget->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, widget) > 0;
#else
    return widget->style()->styleHint(QStyle::SH_Widget_Animate, nullptr, widget);
#endif
}

void markTouched(QWidget *widget, bool isTouched)
{
    widget->setProperty("isTouched", isTouched);
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

} // namespace

class KineticScroller::Private
{
public:
    explicit Private(QWidget *watched)
        : window(watched)
    {
    }

    bool press(QWidget *widget, const QMouseEvent &event);
    bool move(QWidget *widget, const QMouseEvent &event);
    bool release(QWidget *widget, const QMouseEvent &event);
    bool touch(const QWidget *widget, QEvent *event);
    void noteTime(const QEvent &event);
    void forget();

    QWidget *const window;
    Glide glide;
    qint64 now = 0;              // when the last mouse event happened
    bool isSending = false;      // own events
    QPointer<QWidget> lostFocus; // to the press that follows

private:
    /// What became of a press.
    enum class Stage {
        Idle,     // it is of no interest
        Given,    // the widget has got it
        HeldBack, // the widget gets it later, if at all
        Dropped,  // nobody gets it, but it may still scroll
        Scrolls
    };

    struct Page
    {
        QPointer<QScrollArea> area; // none, if nothing can be scrolled that way
        int start = 0;              // value of the scroll bar when the finger came down
    };

    Page pageAround(QWidget *widget, Qt::Orientation direction) const;
    Page &page() { return orientation == Qt::Vertical ? vertical : horizontal; }
    bool isOnItsWay(const QPoint &way);
    void begin();
    bool goAcross();
    bool handOver();
    void drag(const QPoint &place);
    void send(QWidget *widget, QEvent::Type type, const QPoint &at);
    void takeLostFocus();
    void giveFocusBack();

    Stage stage = Stage::Idle;
    QPointer<QWidget> pressed;
    QEvent::Type pressType = QEvent::None; // a double click is one too
    QPoint pressAt;                        // in the widget, and
    QPoint pressPlace;                     // in the window
    QPointer<QWidget> focusBefore;         // null when the press has not moved it
    Page vertical;
    Page horizontal;
    Qt::Orientation orientation = Qt::Vertical;
    QVector<DragSample> samples;
};

bool KineticScroller::Private::press(QWidget *widget, const QMouseEvent &event)
{
    const bool isPassedOn = !event.spontaneous() && pressed && widget->isAncestorOf(pressed);
    if (event.button() != Qt::LeftButton || !window->isAncestorOf(widget) || isPassedOn)
        return false;
    forget();
    takeLostFocus();
    const bool isCaught = glide.moves(widget);
    if (isCaught)
        glide.stop();
    vertical = pageAround(widget, Qt::Vertical);
    horizontal = pageAround(widget, Qt::Horizontal);
    if (!vertical.area && !horizontal.area)
        return false;
    if (!isCaught && keepsDrags(widget, event.pos()))
        return false;
    pressed = widget;
    pressType = event.type();
    pressAt = event.pos();
    pressPlace = widget->mapTo(window, pressAt);
    samples = {{0, now}};
    stage = isCaught ? Stage::Dropped : mayActOnPress(widget) ? Stage::HeldBack : Stage::Given;
    if (isCaught)
        giveFocusBack();
    else if (stage == Stage::HeldBack)
        markTouched(widget, true);
    return stage != Stage::Given;
}

bool KineticScroller::Private::move(QWidget *widget, const QMouseEvent &event)
{
    if (stage == Stage::Idle || !window->isAncestorOf(widget))
        return false;
    if (!pressed || !event.buttons().testFlag(Qt::LeftButton)) {
        forget(); // the release was lost
        return false;
    }
    const QPoint place = widget->mapTo(window, event.pos());
    if (stage != Stage::Scrolls) {
        const QPoint way = place - pressPlace;
        if (qMax(qAbs(way.x()), qAbs(way.y())) < QApplication::startDragDistance())
            return stage != Stage::Given;
        if (!isOnItsWay(way))
            return goAcross();
        begin();
    }
    drag(place);
    return true;
}

bool KineticScroller::Private::release(QWidget *widget, const QMouseEvent &event)
{
    if (stage == Stage::Idle || event.button() != Qt::LeftButton || !window->isAncestorOf(widget))
        return false;
    if (stage == Stage::HeldBack)
        return handOver();
    const bool isTaken = stage != Stage::Given;
    if (stage == Stage::Scrolls) {
        drag(widget->mapTo(window, event.pos()));
        if (page().area && isAnimated(page().area))
            glide.start(page().area, orientation, samples);
    }
    forget();
    return isTaken;
}

/// Only what takes touches gets them. Others are left to the mouse.
bool KineticScroller::Private::touch(const QWidget *widget, QEvent *event)
{
    if (!glide.moves(widget) || !takesTouch(widget))
        return false;
    glide.stop();
    takeLostFocus();
    giveFocusBack();
    event->accept();
    return true;
}

/// A scaled view gets the time, and makes events without it. Who plays a trace gives none at all: the page
/// has no momentum then.
void KineticScroller::Private::noteTime(const QEvent &event)
{
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: {
        const ulong ms = static_cast<const QMouseEvent &>(event).timestamp();
        now = ms != 0 ? static_cast<qint64>(ms) : now;
        return;
    }
    default:
        return;
    }
}

void KineticScroller::Private::forget()
{
    if (stage == Stage::HeldBack && pressed)
        markTouched(pressed, false);
    stage = Stage::Idle;
    pressed.clear();
}

KineticScroller::Private::Page KineticScroller::Private::pageAround(QWidget *widget,
                                                                    Qt::Orientation direction) const
{
    Page page;
    page.area = areaAround(widget, window, direction);
    page.start = page.area ? barOf(page.area, direction)->value() : 0;
    return page;
}

/// Whether something can be scrolled that way; that is what will be scrolled.
bool KineticScroller::Private::isOnItsWay(const QPoint &way)
{
    orientation = qAbs(way.y()) > qAbs(way.x()) ? Qt::Vertical : Qt::Horizontal;
    return page().area;
}

void KineticScroller::Private::begin()
{
    const bool isGiven = stage == Stage::Given;
    const QPointer<QWidget> widget = pressed;
    if (stage == Stage::HeldBack)
        markTouched(widget, false);
    stage = Stage::Scrolls;
    samples.first().place = along(orientation, pressPlace);
    const int outside = pressed->mapFrom(window, QPoint(0, -1)).y();
    if (isGiven)
        send(widget, QEvent::MouseButtonRelease, {pressAt.x(), outside});
    giveFocusBack();
}

/// Whether the move is of no concern to the widget.
bool KineticScroller::Private::goAcross()
{
    if (stage != Stage::HeldBack)
        return stage == Stage::Dropped;
    if (!qobject_cast<QComboBox *>(pressed))
        return handOver();
    markTouched(pressed, false); // its list would open under the finger
    stage = Stage::Dropped;
    return true;
}

/// Gives the widget the press that was held back. Whether that was its end, so that nothing can follow.
bool KineticScroller::Private::handOver()
{
    const QPointer<QWidget> widget = pressed;
    forget();
    send(widget, pressType, pressAt);
    return !widget;
}

void KineticScroller::Private::drag(const QPoint &place)
{
    const int reached = along(orientation, place);
    if (page().area)
        barOf(page().area, orientation)->setValue(page().start + along(orientation, pressPlace) - reached);
    if (samples.constLast().ms >= now)
        samples.removeLast();
    samples.append({reached, now});
    while (now - samples.constFirst().ms > SpeedMemoryMs)
        samples.removeFirst();
}

void KineticScroller::Private::send(QWidget *widget, QEvent::Type type, const QPoint &at)
{
    const QScopedValueRollback<bool> sending(isSending, true);
    sendMouse(widget, type, at);
}

/// The press that has just come may have moved it.
void KineticScroller::Private::takeLostFocus()
{
    focusBefore = lostFocus;
    lostFocus.clear();
}

/// As after a popup: nothing is selected anew.
void KineticScroller::Private::giveFocusBack()
{
    if (focusBefore)
        focusBefore->setFocus(Qt::PopupFocusReason);
    focusBefore.clear();
}

KineticScroller::KineticScroller(QWidget *window)
    : QObject(window)
    , d(new Private(window))
{
    qApp->installEventFilter(this);
}

KineticScroller::~KineticScroller() = default;

bool KineticScroller::eventFilter(QObject *watched, QEvent *event)
{
    d->noteTime(*event);
    if (!watched->isWidgetType() || d->isSending)
        return false;
    auto *widget = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return d->press(widget, *static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return d->move(widget, *static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return d->release(widget, *static_cast<QMouseEvent *>(event));
    case QEvent::TouchBegin:
        return d->touch(widget, event);
    case QEvent::Wheel:
        if (d->glide.moves(widget))
            d->glide.stop();
        return false;
    case QEvent::FocusOut:
        if (static_cast<QFocusEvent *>(event)->reason() == Qt::MouseFocusReason)
            d->lostFocus = widget;
        return false;
    case QEvent::WindowDeactivate:
        if (widget == d->window)
            d->forget();
        return false;
    default:
        return false;
    }
}

} // namespace K7Host
