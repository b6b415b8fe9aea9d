// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "switchcontrol.h"

#include "mixed.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QVariantAnimation>

#include <cmath>

namespace Korvo::Widgets {

namespace {

const qreal ringWidth = 2;
const qreal ringGap = 2;
const qreal disabledShare = 0.4; // of a color, the rest is the track's
const int slideMs = 120;

} // namespace

class SwitchControlPrivate
{
    Q_DISABLE_COPY(SwitchControlPrivate)

public:
    explicit SwitchControlPrivate(SwitchControl *control)
        : q(control)
    {
    }

    static SwitchControlPrivate *of(const SwitchControl *control) { return control->d.data(); }

    bool set(bool on);
    void toggleByHand(bool on);

    QRectF track() const;
    qreal travel() const { return track().width() - track().height(); }
    qreal alongTravel(qreal x) const;
    bool isOnKnob(const QPointF &position) const;

    void press(const QPointF &position);
    void drag(const QPointF &position);
    void release(const QPointF &position);
    void cancelPress();

    int slideDuration() const;
    void slideHome();
    void jumpHome();
    void showKnob(qreal place);
    QColor shown(const QColor &color) const;
    void paintTrack(QPainter *painter) const;
    void paintKnob(QPainter *painter) const;
    void setColor(QColor *color, const QColor &value);

    SwitchControl *const q;
    bool isOn = false;
    qreal knob = 0; // where it is shown: from 0, off, to 1, on
    QVariantAnimation slide;

    bool isPressed = false;
    bool isKnobHeld = false; // only the knob can be dragged
    bool isDragged = false;
    qreal grabX = 0;    // where the knob was taken, and
    qreal grabKnob = 0; // where it was shown then

    QColor trackColor{0x2b, 0x30, 0x37};
    QColor onColor{0x2b, 0x8c, 0xff};
    QColor knobColor{0xdd, 0xe2, 0xe8};
};

// Whether that is a change.
bool SwitchControlPrivate::set(bool on)
{
    if (isOn == on)
        return false;
    isOn = on;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(q, changed);
    QAccessible::updateAccessibility(&event);
    return true;
}

void SwitchControlPrivate::toggleByHand(bool on)
{
    const bool isChange = set(on);
    slideHome();
    if (isChange)
        emit q->toggled(on);
}

// As large as fits, with room for the focus ring around it.
QRectF SwitchControlPrivate::track() const
{
    const qreal margin = ringWidth + ringGap;
    const QRectF room = QRectF(q->contentsRect()).adjusted(margin, margin, -margin, -margin);
    QSizeF size = QSizeF(q->sizeHint()) - QSizeF(2 * margin, 2 * margin);
    size.scale(room.size().expandedTo(QSizeF(0, 0)), Qt::KeepAspectRatio);
    QRectF track(QPointF(), size);
    track.moveCenter(room.center());
    return track;
}

// The share of the knob's travel that is as long as x.
qreal SwitchControlPrivate::alongTravel(qreal x) const
{
    const qreal share = x / qMax(1.0, travel());
    return q->isRightToLeft() ? -share : share;
}

bool SwitchControlPrivate::isOnKnob(const QPointF &position) const
{
    const qreal fromOff = 0.5 + alongTravel(position.x() - track().center().x());
    return std::abs(fromOff - knob) * travel() <= track().height() / 2;
}

void SwitchControlPrivate::press(const QPointF &position)
{
    isPressed = true;
    isDragged = false;
    isKnobHeld = isOnKnob(position);
    grabX = position.x();
    grabKnob = knob;
    q->update();
}

void SwitchControlPrivate::drag(const QPointF &position)
{
    const qreal way = position.x() - grabX;
    if (isKnobHeld && std::abs(way) >= QApplication::startDragDistance())
        isDragged = true;
    if (!isDragged)
        return;
    slide.stop();
    showKnob(qBound(0.0, grabKnob + alongTravel(way), 1.0));
}

void SwitchControlPrivate::release(const QPointF &position)
{
    isPressed = false;
    q->update();
    if (isDragged)
        toggleByHand(knob > 0.5);
    else if (QRectF(q->rect()).contains(position))
        toggleByHand(!isOn);
}

void SwitchControlPrivate::cancelPress()
{
    if (!isPressed)
        return;
    isPressed = false;
    q->update();
    slideHome();
}

int SwitchControlPrivate::slideDuration() const
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 10, 0)
    return qMin(slideMs, q->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, q));
#else
    return q->style()->styleHint(QStyle::SH_Widget_Animate, nullptr, q) ? slideMs : 0;
#endif
}

void SwitchControlPrivate::slideHome()
{
    const int duration = q->isVisible() ? slideDuration() : 0;
    const qreal home = isOn ? 1 : 0;
    if (duration <= 0 || knob == home) {
        jumpHome();
        return;
    }
    slide.stop();
    slide.setStartValue(knob);
    slide.setEndValue(home);
    slide.setDuration(duration);
    slide.start();
}

void SwitchControlPrivate::jumpHome()
{
    slide.stop();
    showKnob(isOn ? 1 : 0);
}

void SwitchControlPrivate::showKnob(qreal place)
{
    if (knob == place)
        return;
    knob = place;
    q->update();
}

// Opaque while disabled too, so that the knob covers its mark.
QColor SwitchControlPrivate::shown(const QColor &color) const
{
    return q->isEnabled() ? color : mixed(trackColor, color, disabledShare);
}

void SwitchControlPrivate::paintTrack(QPainter *painter) const
{
    const QRectF shape = track();
    const qreal height = shape.height();
    QColor rim = shown(knobColor);
    rim.setAlphaF(0.5);
    painter->setPen(QPen(rim, 1));
    painter->setBrush(mixed(trackColor, shown(onColor), knob));
    painter->drawRoundedRect(shape.adjusted(0.5, 0.5, -0.5, -0.5), height / 2, height / 2);

    // A mark at each end; the knob stands on the one that does not hold.
    const qreal size = height * 0.18;
    const QPointF inset(height * 0.55, 0);
    const QPointF left(shape.left(), shape.center().y());
    const QPointF right(shape.right(), shape.center().y());
    painter->setPen(QPen(shown(knobColor), height * 0.1, Qt::SolidLine, Qt::RoundCap));
    painter->setBrush(Qt::NoBrush);
    painter->drawLine(left + inset - QPointF(0, size), left + inset + QPointF(0, size));
    painter->drawEllipse(right - inset, size, size);
}

void SwitchControlPrivate::paintKnob(QPainter *painter) const
{
    const QRectF shape = track();
    const qreal radius = shape.height() / 2;
    const qreal gap = isPressed ? 3.5 : 2.5;
    painter->setPen(Qt::NoPen);
    painter->setBrush(shown(knobColor));
    painter->drawEllipse(QPointF(shape.left() + radius + knob * travel(), shape.center().y()), radius - gap,
                         radius - gap);
}

void SwitchControlPrivate::setColor(QColor *color, const QColor &value)
{
    if (*color == value)
        return;
    *color = value;
    q->update();
    emit q->colorsChanged();
}

namespace {

class SwitchAccessible : public QAccessibleWidget
{
public:
    explicit SwitchAccessible(SwitchControl *control)
        : QAccessibleWidget(control, QAccessible::CheckBox)
        , m_control(control)
    {
    }

    static QAccessibleInterface *create(const QString &, QObject *object)
    {
        SwitchControl *control = qobject_cast<SwitchControl *>(object);
        return control ? new SwitchAccessible(control) : nullptr;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = true;
        state.checked = m_control->isToggled();
        return state;
    }

    QStringList actionNames() const override
    {
        return QStringList(toggleAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name != toggleAction())
            QAccessibleWidget::doAction(name);
        else if (m_control->isEnabled())
            SwitchControlPrivate::of(m_control)->toggleByHand(!m_control->isToggled());
    }

private:
    SwitchControl *const m_control;
};

} // namespace

SwitchControl::SwitchControl(QWidget *parent)
    : QWidget(parent)
    , d(new SwitchControlPrivate(this))
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(SwitchAccessible::create);
        return true;
    }();
    Q_UNUSED(isInstalled)

    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&d->slide, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &place) { d->showKnob(place.toReal()); });
}

SwitchControl::~SwitchControl() = default;

bool SwitchControl::isToggled() const
{
    return d->isOn;
}

void SwitchControl::setToggle(bool on)
{
    if (!d->set(on))
        return;
    d->isPressed = false;
    d->slideHome();
    update();
}

QColor SwitchControl::trackColor() const
{
    return d->trackColor;
}

void SwitchControl::setTrackColor(const QColor &color)
{
    d->setColor(&d->trackColor, color);
}

QColor SwitchControl::onColor() const
{
    return d->onColor;
}

void SwitchControl::setOnColor(const QColor &color)
{
    d->setColor(&d->onColor, color);
}

QColor SwitchControl::knobColor() const
{
    return d->knobColor;
}

void SwitchControl::setKnobColor(const QColor &color)
{
    d->setColor(&d->knobColor, color);
}

QSize SwitchControl::sizeHint() const
{
    return QSize(66, 36);
}

QSize SwitchControl::minimumSizeHint() const
{
    return sizeHint();
}

bool SwitchControl::event(QEvent *event)
{
    if (event->type() == QEvent::WindowDeactivate)
        d->cancelPress();
    return QWidget::event(event);
}

void SwitchControl::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        d->cancelPress();
    QWidget::changeEvent(event);
}

void SwitchControl::hideEvent(QHideEvent *event)
{
    d->cancelPress();
    d->jumpHome();
    QWidget::hideEvent(event);
}

void SwitchControl::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    bool target = d->isOn;
    switch (isPlain ? event->key() : 0) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        target = !d->isOn;
        break;
    case Qt::Key_Left:
        target = isRightToLeft();
        break;
    case Qt::Key_Right:
        target = !isRightToLeft();
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat() && !d->isPressed)
        d->toggleByHand(target);
}

void SwitchControl::mousePressEvent(QMouseEvent *event)
{
    const bool isOurs = event->button() == Qt::LeftButton;
    event->setAccepted(isOurs);
    if (isOurs)
        d->press(event->localPos());
}

void SwitchControl::mouseMoveEvent(QMouseEvent *event)
{
    event->setAccepted(d->isPressed);
    if (d->isPressed)
        d->drag(event->localPos());
}

void SwitchControl::mouseReleaseEvent(QMouseEvent *event)
{
    const bool isOurs = d->isPressed && event->button() == Qt::LeftButton;
    event->setAccepted(isOurs);
    if (isOurs)
        d->release(event->localPos());
}

void SwitchControl::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);

    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF track = d->track();
    if (hasFocus()) {
        const qreal reach = ringGap + ringWidth / 2;
        const QRectF ring = track.adjusted(-reach, -reach, reach, reach);
        painter.setPen(QPen(palette().color(QPalette::Active, QPalette::Highlight), ringWidth));
        painter.drawRoundedRect(ring, ring.height() / 2, ring.height() / 2);
    }

    if (isRightToLeft()) {
        painter.translate(2 * track.center().x(), 0);
        painter.scale(-1, 1);
    }
    d->paintTrack(&painter);
    d->paintKnob(&painter);
}

} // namespace Korvo::Widgets
