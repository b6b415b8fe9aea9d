// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "tbar.h"

#include "leverpictures.h"
#include "logging.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QBasicTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <QTimerEvent>
#include <QTouchEvent>
#include <QWheelEvent>

#include <cmath>
#include <optional>

namespace Korvo::Widgets {

namespace {

// Fingers are thicker than the handle.
const qreal handleReach = 8;

enum class Holder { Nobody, Mouse, Finger };

} // namespace

class tbarPrivate
{
    Q_DISABLE_COPY(tbarPrivate)

public:
    explicit tbarPrivate(tbar *lever)
        : q(lever)
    {
    }

    static tbarPrivate *of(const tbar *lever) { return lever->d.data(); }

    const LeverGeometry &geometry();
    LeverLook look() const;
    void changeLook();
    void chooseGround();
    void paint(QPainter *painter);
    void draw(QPainter *painter, const QStyleOption &option);
    void copyPictures(QPainter *painter, const QStyleOption &option);
    void paintStyle(QPainter *painter, const QStyleOption &option) const;
    double usable(double asked);
    bool show(double asked);
    void moveByHand(double asked);
    double upwards(double step) const { return direction == tbar::BottomToTop ? step : -step; }

    bool press(const QPointF &position, Holder by);
    void drag(const QPointF &position);
    void endDrag();
    bool touch(QTouchEvent *event);
    void setColor(QColor *color, const QColor &value);
    void announceEnabled();

    tbar *const q;
    double percent = 0;
    tbar::TbarDirection direction = tbar::BottomToTop;
    bool hasArrows = false;
    bool hasLoggedBadValue = false;

    QColor railColor{0x0a, 0x0c, 0x0f};
    QColor travelColor{0xff, 0xa8, 0x2e};
    QColor handleColor{0xb4, 0xbe, 0xc8};
    QColor groundColor;

    std::optional<LeverGeometry> places; // until something changes that they depend on
    LeverPictures pictures;              // likewise
    QStyle::State picturedState;
    bool isPicturedHeld = false;

    Holder holder = Holder::Nobody;
    int finger = -1;        // id of the touch point that holds the lever
    qreal grabY = 0;        // where it was taken, and
    double grabPercent = 0; // where it stood then

    bool isPaintedEnabled = true;
    QBasicTimer enabledTimer;
};

const LeverGeometry &tbarPrivate::geometry()
{
    if (!places)
        places.emplace(q->contentsRect(), q->font(), hasArrows, direction);
    return *places;
}

// For all that shows but the percentage, and what the pictures are compared with.
void tbarPrivate::changeLook()
{
    places.reset();
    pictures = LeverPictures();
    q->update();
}

// Nothing behind the lever has to be painted when it moves, if it covers all.
void tbarPrivate::chooseGround()
{
    q->setAttribute(Qt::WA_OpaquePaintEvent, groundColor.isValid() && groundColor.alpha() == 255);
}

LeverLook tbarPrivate::look() const
{
    LeverLook look;
    look.percent = percent;
    look.direction = direction;
    look.hasArrows = hasArrows;
    look.isEnabled = q->isEnabled();
    look.isHeld = holder != Holder::Nobody;
    look.font = q->font();
    look.rail = railColor;
    look.travel = travelColor;
    look.handle = handleColor;
    look.ground = groundColor;
    // The active text even while disabled: a mirror has to be read.
    look.scale = q->palette().color(QPalette::Active, QPalette::WindowText);
    return look;
}

// What becomes of a value that code asked for.
double tbarPrivate::usable(double asked)
{
    const double result = std::isnan(asked) ? percent : qBound(0.0, asked, 100.0);
    if (result == asked || hasLoggedBadValue)
        return result;
    hasLoggedBadValue = true;
    qCWarning(widgetsLog,
              "T-bar \"%s\": %g percent is not within 0 to 100, taken as %g; further ones are not logged",
              qUtf8Printable(q->objectName()), asked, result);
    return result;
}

bool tbarPrivate::show(double asked)
{
    if (asked == percent)
        return false;
    q->update(geometry().reach(percent) | geometry().reach(asked));
    percent = asked;
    QAccessibleValueChangeEvent event(q, percent);
    QAccessible::updateAccessibility(&event);
    return true;
}

void tbarPrivate::moveByHand(double asked)
{
    const double previous = percent;
    if (show(qBound(0.0, asked, 100.0)))
        emit q->percentChanged(percent, previous);
}

void tbarPrivate::paint(QPainter *painter)
{
    QStyleOption option;
    option.initFrom(q);
    if (LeverPictures::suit(*painter))
        copyPictures(painter, option);
    else
        draw(painter, option);
}

void tbarPrivate::draw(QPainter *painter, const QStyleOption &option)
{
    if (groundColor.isValid())
        painter->fillRect(q->rect(), groundColor);
    paintStyle(painter, option);
    paintStillParts(painter, geometry(), look());
    paintHandle(painter, geometry(), look());
}

void tbarPrivate::copyPictures(QPainter *painter, const QStyleOption &option)
{
    const bool isHeld = holder != Holder::Nobody;
    if (pictures.areEmpty() || picturedState != option.state || isPicturedHeld != isHeld) {
        pictures.paintAnew(q, geometry(), look(), [&](QPainter *canvas) { paintStyle(canvas, option); });
        picturedState = option.state;
        isPicturedHeld = isHeld;
    }
    pictures.copyTo(painter, geometry(), percent);
}

// What a style sheet asks for.
void tbarPrivate::paintStyle(QPainter *painter, const QStyleOption &option) const
{
    q->style()->drawPrimitive(QStyle::PE_Widget, &option, painter, q);
}

bool tbarPrivate::press(const QPointF &position, Holder by)
{
    if (holder != Holder::Nobody || !geometry().rail.contains(position))
        return false;

    const qreal y = geometry().yAt(percent);
    const QRectF handle = geometry().crossbar(y).united(geometry().stem(y));
    const bool isOnHandle =
        handle.adjusted(-handleReach, -handleReach, handleReach, handleReach).contains(position);
    holder = by;
    grabY = position.y();
    grabPercent = isOnHandle ? percent : geometry().percentAt(position.y());
    q->update();
    moveByHand(grabPercent);
    return true;
}

void tbarPrivate::drag(const QPointF &position)
{
    moveByHand(grabPercent + geometry().percentOf(position.y() - grabY));
}

void tbarPrivate::endDrag()
{
    if (holder == Holder::Nobody)
        return;
    holder = Holder::Nobody;
    finger = -1;
    q->update();
}

bool tbarPrivate::touch(QTouchEvent *event)
{
    if (event->type() == QEvent::TouchBegin) {
        const QTouchEvent::TouchPoint first = event->touchPoints().constFirst();
        const bool isTaken = press(first.pos(), Holder::Finger);
        if (isTaken)
            finger = first.id();
        event->setAccepted(isTaken);
        return isTaken;
    }

    const QList<QTouchEvent::TouchPoint> points = event->touchPoints();
    for (const QTouchEvent::TouchPoint &point : points) {
        if (holder != Holder::Finger || point.id() != finger)
            continue;
        drag(point.pos());
        if (point.state() == Qt::TouchPointReleased)
            endDrag();
    }
    event->accept();
    return true;
}

void tbarPrivate::setColor(QColor *color, const QColor &value)
{
    if (*color == value)
        return;
    *color = value;
    changeLook();
    emit q->colorsChanged();
}

void tbarPrivate::announceEnabled()
{
    enabledTimer.stop();
    if (isPaintedEnabled != q->isEnabled())
        q->update();
    QAccessible::State changed;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(q, changed);
    QAccessible::updateAccessibility(&event);
}

namespace {

class LeverAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit LeverAccessible(tbar *lever)
        : QAccessibleWidget(lever, QAccessible::Slider)
        , m_lever(lever)
    {
    }

    static QAccessibleInterface *create(const QString &, QObject *object)
    {
        tbar *lever = qobject_cast<tbar *>(object);
        return lever ? new LeverAccessible(lever) : nullptr;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return m_lever->curValue(); }
    QVariant minimumValue() const override { return 0.0; }
    QVariant maximumValue() const override { return 100.0; }
    QVariant minimumStepSize() const override { return 1.0; }
    void setCurrentValue(const QVariant &value) override
    {
        if (m_lever->isEnabled())
            tbarPrivate::of(m_lever)->moveByHand(value.toDouble());
    }

private:
    tbar *const m_lever;
};

} // namespace

tbar::tbar(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , d(new tbarPrivate(this))
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(LeverAccessible::create);
        return true;
    }();
    Q_UNUSED(isInstalled)

    setAttribute(Qt::WA_AcceptTouchEvents);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    setAccessibleName(tr("T-bar"));
}

tbar::~tbar() = default;

void tbar::setDirectionEnable(bool enable)
{
    if (d->hasArrows == enable)
        return;
    d->hasArrows = enable;
    d->changeLook();
}

bool tbar::isDirectionEnabled() const
{
    return d->hasArrows;
}

void tbar::setTbarDirection(TbarDirection direction)
{
    if (d->direction == direction)
        return;
    d->endDrag();
    d->direction = direction;
    d->changeLook();
}

tbar::TbarDirection tbar::getTbarDirection() const
{
    return d->direction;
}

void tbar::setCurValue(double percent)
{
    d->show(d->usable(percent));
}

double tbar::curValue() const
{
    return d->percent;
}

QColor tbar::railColor() const
{
    return d->railColor;
}

void tbar::setRailColor(const QColor &color)
{
    d->setColor(&d->railColor, color);
}

QColor tbar::travelColor() const
{
    return d->travelColor;
}

void tbar::setTravelColor(const QColor &color)
{
    d->setColor(&d->travelColor, color);
}

QColor tbar::handleColor() const
{
    return d->handleColor;
}

void tbar::setHandleColor(const QColor &color)
{
    d->setColor(&d->handleColor, color);
}

QColor tbar::groundColor() const
{
    return d->groundColor;
}

void tbar::setGroundColor(const QColor &color)
{
    d->setColor(&d->groundColor, color);
    d->chooseGround();
}

QSize tbar::sizeHint() const
{
    return QSize(152, 380);
}

QSize tbar::minimumSizeHint() const
{
    return QSize(120, 300);
}

bool tbar::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return isEnabled() && d->touch(static_cast<QTouchEvent *>(event));
    case QEvent::TouchCancel:
    case QEvent::WindowDeactivate:
        d->endDrag();
        break;
    case QEvent::Resize:
    case QEvent::ContentsRectChange:
        d->changeLook();
        break;
    default:
        break;
    }
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
        d->chooseGround(); // a style sheet with a background or a border has taken it back
    return isHandled;
}

void tbar::changeEvent(QEvent *event)
{
    if (event->type() != QEvent::EnabledChange) {
        d->changeLook();
        QWidget::changeEvent(event);
        return;
    }
    if (!isEnabled())
        d->endDrag();
    // A mirror is enabled and disabled around every value that it is given. The look follows once that is
    // over, so that a value which changes nothing paints nothing.
    d->enabledTimer.start(0, this);
}

void tbar::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == d->enabledTimer.timerId())
        d->announceEnabled();
    else
        QWidget::timerEvent(event);
}

void tbar::hideEvent(QHideEvent *event)
{
    d->endDrag();
    QWidget::hideEvent(event);
}

void tbar::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    double target = d->percent;
    switch (isPlain ? event->key() : 0) {
    case Qt::Key_Up:
        target += d->upwards(1);
        break;
    case Qt::Key_Down:
        target -= d->upwards(1);
        break;
    case Qt::Key_PageUp:
        target += d->upwards(10);
        break;
    case Qt::Key_PageDown:
        target -= d->upwards(10);
        break;
    case Qt::Key_Home:
        target = 0;
        break;
    case Qt::Key_End:
        target = 100;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (d->holder == Holder::Nobody)
        d->moveByHand(target);
}

void tbar::wheelEvent(QWheelEvent *event)
{
    if (event->angleDelta().y() == 0) {
        QWidget::wheelEvent(event);
        return;
    }
    event->accept();
    if (d->holder == Holder::Nobody)
        d->moveByHand(d->percent +
                      d->upwards(event->angleDelta().y() / double(QWheelEvent::DefaultDeltasPerStep)));
}

void tbar::mousePressEvent(QMouseEvent *event)
{
    event->setAccepted(event->button() == Qt::LeftButton && d->press(event->localPos(), Holder::Mouse));
}

void tbar::mouseMoveEvent(QMouseEvent *event)
{
    if (d->holder != Holder::Mouse) {
        event->ignore();
        return;
    }
    if (event->buttons() & Qt::LeftButton)
        d->drag(event->localPos());
    else
        d->endDrag();
}

void tbar::mouseReleaseEvent(QMouseEvent *event)
{
    const bool isOurs = d->holder == Holder::Mouse && event->button() == Qt::LeftButton;
    event->setAccepted(isOurs);
    if (isOurs)
        d->endDrag();
}

void tbar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    d->paint(&painter);
    d->isPaintedEnabled = isEnabled();

    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Active, QPalette::Highlight), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(contentsRect()).adjusted(2, 2, -2, -2), 6, 6);
    }
}

} // namespace Korvo::Widgets
