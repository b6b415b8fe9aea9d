// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "tumblerwheel.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTouchEvent>
#include <QWheelEvent>

#include <cmath>

namespace Korvo::Widgets {

namespace {

const qreal rowsInSight = 3.5;
const qreal tapReach = 6; // pixels that a finger shakes
const int stepMs = 160;

// A coasting wheel slows down over this time, from a speed that a finger can give.
const qreal coastMs = 1200;
const qreal slowestCoast = 0.003; // rows per ms
const qreal fastestCoast = 0.06;
// The ease of the animation starts with this many times its mean speed.
const qreal easeSlope = 3;

const qint64 speedMs = 100; // what counts for the speed of a finger
const qint64 typingMs = 1000;
const int typedLength = 2;

// Events that come through a scaled view carry no time of their own.
qint64 timeOf(const QInputEvent *event)
{
    static const QElapsedTimer clock = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return event->timestamp() != 0 ? qint64(event->timestamp()) : clock.elapsed();
}

class WheelAccessible : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit WheelAccessible(TumblerWheel *wheel)
        : QAccessibleWidget(wheel, QAccessible::SpinBox)
        , m_wheel(wheel)
    {
    }

    static QAccessibleInterface *create(const QString &, QObject *object)
    {
        TumblerWheel *wheel = qobject_cast<TumblerWheel *>(object);
        return wheel ? new WheelAccessible(wheel) : nullptr;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text type) const override
    {
        return type == QAccessible::Value ? m_wheel->labels().at(m_wheel->row())
                                          : QAccessibleWidget::text(type);
    }

    QVariant currentValue() const override { return m_wheel->row(); }
    QVariant minimumValue() const override { return 0; }
    QVariant maximumValue() const override { return m_wheel->labels().size() - 1; }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant &value) override
    {
        if (m_wheel->isEnabled())
            m_wheel->turnTo(qBound(0, value.toInt(), m_wheel->labels().size() - 1));
    }

private:
    TumblerWheel *const m_wheel;
};

} // namespace

TumblerWheel::TumblerWheel(Turning turning, QWidget *parent)
    : QWidget(parent)
    , m_turning(turning)
{
    static const bool isInstalled = [] {
        QAccessible::installFactory(WheelAccessible::create);
        return true;
    }();
    Q_UNUSED(isInstalled)

    setAttribute(Qt::WA_AcceptTouchEvents);
    setFocusPolicy(Qt::StrongFocus);

    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this](const QVariant &position) {
        showPosition(position.toReal());
        if (m_motion == Motion::Coast)
            countByHand(placeNear(m_position));
    });
    connect(&m_animation, &QVariantAnimation::finished, this, &TumblerWheel::settle);
}

void TumblerWheel::setLabels(const QStringList &labels, int row)
{
    m_labels = labels;
    setRow(row);
    updateGeometry();
}

void TumblerWheel::setRow(int row)
{
    m_row = row;
    settle();
}

void TumblerWheel::turnTo(int row)
{
    int way = row - m_row;
    if (m_turning == Turning::Endless && qAbs(way) * 2 > count())
        way += way > 0 ? -count() : count();
    stepBy(way);
}

qreal TumblerWheel::pitch() const
{
    return qMax(1.0, height() / rowsInSight);
}

// Of the places that there are.
int TumblerWheel::placeNear(qreal position) const
{
    const int place = qRound(position);
    return m_turning == Turning::Endless ? place : qBound(0, place, count() - 1);
}

int TumblerWheel::rowAt(int place) const
{
    const int rest = place % count();
    return rest < 0 ? rest + count() : rest;
}

void TumblerWheel::showPosition(qreal position)
{
    m_position = m_turning == Turning::Endless ? position : qBound(0.0, position, count() - 1.0);
    update();
}

// Comes last in what calls it: a listener may set another row, which has to hold.
void TumblerWheel::countByHand(int place)
{
    const int row = rowAt(place);
    if (row == m_row)
        return;
    m_row = row;
    QAccessibleValueChangeEvent event(this, m_labels.at(m_row));
    QAccessible::updateAccessibility(&event);
    emit turned();
}

void TumblerWheel::stepBy(int rows)
{
    m_typed.clear();
    const bool isOnItsWay = m_animation.state() == QAbstractAnimation::Running && m_motion == Motion::Step;
    const int from = isOnItsWay ? qRound(m_animation.endValue().toReal()) : placeNear(m_position);
    const int place = placeNear(from + rows);
    animate(Motion::Step, place, stepMs);
    countByHand(place);
}

void TumblerWheel::animate(Motion motion, int place, qreal durationMs)
{
    m_animation.stop();
    if (!isVisible()) {
        showPosition(place);
        return;
    }
    m_motion = motion;
    m_animation.setStartValue(m_position);
    m_animation.setEndValue(qreal(place));
    m_animation.setDuration(qRound(durationMs));
    m_animation.start();
}

// Leaves the wheel standing on the row that counts.
void TumblerWheel::settle()
{
    m_animation.stop();
    m_holder = Holder::Nobody;
    m_finger = -1;
    showPosition(m_row);
}

bool TumblerWheel::press(qreal y, qint64 ms, Holder by)
{
    if (m_holder != Holder::Nobody)
        return false;
    // Two taps in a row are two steps, but the one that stops a coasting wheel is none.
    const bool isCoasting = m_animation.state() == QAbstractAnimation::Running && m_motion == Motion::Coast;
    m_animation.stop();
    if (!isCoasting)
        showPosition(m_row);
    m_isTap = !isCoasting;
    m_typed.clear();
    m_holder = by;
    m_grabY = y;
    m_grabPosition = m_position;
    m_samples = {{y, ms}};
    return true;
}

void TumblerWheel::drag(qreal y, qint64 ms)
{
    while (!m_samples.isEmpty() && ms - m_samples.constFirst().ms > speedMs)
        m_samples.removeFirst();
    m_samples.append({y, ms});
    if (qAbs(y - m_grabY) > tapReach)
        m_isTap = false;
    showPosition(m_grabPosition - (y - m_grabY) / pitch());
    if (!m_isTap)
        countByHand(placeNear(m_position));
}

void TumblerWheel::release(qreal y, qint64 ms)
{
    m_holder = Holder::Nobody;
    m_finger = -1;
    if (m_isTap)
        stepBy(qRound((y - height() / 2.0) / pitch()));
    else
        letTurn(rowsPerMs(ms));
}

// Of the hand that lets go; the wheel goes up where its rows go down.
qreal TumblerWheel::rowsPerMs(qint64 ms) const
{
    int first = 0;
    while (first < m_samples.size() && ms - m_samples.at(first).ms > speedMs)
        ++first;
    if (first >= m_samples.size())
        return 0;
    const qreal way = m_samples.constLast().y - m_samples.at(first).y;
    const qint64 time = qMax<qint64>(1, ms - m_samples.at(first).ms);
    return qBound(-fastestCoast, -way / pitch() / time, fastestCoast);
}

void TumblerWheel::letTurn(qreal rowsPerMs)
{
    if (qAbs(rowsPerMs) < slowestCoast) {
        stepBy(0);
        return;
    }
    // The time is such that the wheel goes on as fast as the finger was.
    const int place = placeNear(m_position + rowsPerMs * coastMs / easeSlope);
    animate(Motion::Coast, place, qMax<qreal>(stepMs, easeSlope * (place - m_position) / rowsPerMs));
}

bool TumblerWheel::touch(QTouchEvent *event)
{
    const QList<QTouchEvent::TouchPoint> points = event->touchPoints();
    event->accept();
    if (event->type() == QEvent::TouchBegin) {
        if (press(points.constFirst().pos().y(), timeOf(event), Holder::Finger))
            m_finger = points.constFirst().id();
        return true;
    }
    for (const QTouchEvent::TouchPoint &point : points) {
        if (m_holder != Holder::Finger || point.id() != m_finger)
            continue;
        if (point.state() == Qt::TouchPointReleased)
            release(point.pos().y(), timeOf(event));
        else if (point.state() == Qt::TouchPointMoved)
            drag(point.pos().y(), timeOf(event));
    }
    return true;
}

// Whether the text was of use.
bool TumblerWheel::type(const QString &text, qint64 ms)
{
    if (!text.at(0).isLetterOrNumber())
        return false;
    const bool goesOn = m_typed.size() < typedLength && ms - m_typedMs <= typingMs;
    const QString entry = goesOn ? m_typed + text : text;
    const bool isEntry = rowOf(entry) >= 0;
    const int row = isEntry ? rowOf(entry) : rowOf(text);
    const bool isNumber = m_labels.constFirst().at(0).isDigit() && text.at(0).isDigit();
    if (row >= 0)
        turnTo(row);
    // Last, since turning ends the entry. A zero that is no number of its own may begin one.
    m_typed = isEntry ? entry : text;
    m_typedMs = ms;
    return row >= 0 || isNumber;
}

int TumblerWheel::rowOf(const QString &text) const
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    for (int row = 0; row < count(); ++row) {
        if (isNumber ? m_labels.at(row).toInt() == number
                     : m_labels.at(row).startsWith(text, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

bool TumblerWheel::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        return isEnabled() && touch(static_cast<QTouchEvent *>(event));
    case QEvent::TouchCancel:
    case QEvent::WindowDeactivate:
        settle();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void TumblerWheel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        settle();
    QWidget::changeEvent(event);
}

void TumblerWheel::focusOutEvent(QFocusEvent *event)
{
    m_typed.clear();
    QWidget::focusOutEvent(event);
}

void TumblerWheel::hideEvent(QHideEvent *event)
{
    settle();
    QWidget::hideEvent(event);
}

void TumblerWheel::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
    if (!isPlain || m_holder != Holder::Nobody) {
        QWidget::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_Up:
        stepBy(-1);
        break;
    case Qt::Key_Down:
        stepBy(1);
        break;
    case Qt::Key_PageUp:
        stepBy(-5);
        break;
    case Qt::Key_PageDown:
        stepBy(5);
        break;
    case Qt::Key_Home:
        turnTo(0);
        break;
    case Qt::Key_End:
        turnTo(count() - 1);
        break;
    default:
        if (event->text().isEmpty() || !type(event->text(), timeOf(event)))
            QWidget::keyPressEvent(event);
    }
}

void TumblerWheel::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus() || event->angleDelta().y() == 0) {
        event->ignore();
        return;
    }
    event->accept();
    if (m_holder != Holder::Nobody)
        return;
    m_wheelRest += event->angleDelta().y();
    const int rows = m_wheelRest / QWheelEvent::DefaultDeltasPerStep;
    m_wheelRest -= rows * QWheelEvent::DefaultDeltasPerStep;
    if (rows != 0)
        stepBy(-rows);
}

void TumblerWheel::mousePressEvent(QMouseEvent *event)
{
    // Accepted whatever it does: it is not meant for the page behind.
    event->accept();
    if (event->button() == Qt::LeftButton)
        press(event->localPos().y(), timeOf(event), Holder::Mouse);
}

void TumblerWheel::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    if (m_holder != Holder::Mouse)
        return;
    if (event->buttons() & Qt::LeftButton)
        drag(event->localPos().y(), timeOf(event));
    else
        settle();
}

void TumblerWheel::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (m_holder == Holder::Mouse && event->button() == Qt::LeftButton)
        release(event->localPos().y(), timeOf(event));
}

void TumblerWheel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    paintDrum(&painter);
    paintRows(&painter);
    if (!hasFocus())
        return;
    painter.setPen(QPen(parentWidget()->palette().color(QPalette::Active, QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
}

void TumblerWheel::paintDrum(QPainter *painter) const
{
    const QPalette colors = parentWidget()->palette();
    const QColor &face = colors.color(QPalette::Active, QPalette::Base);
    QLinearGradient curve(0, 0, 0, height());
    curve.setColorAt(0, face.darker(150));
    curve.setColorAt(0.5, face);
    curve.setColorAt(1, face.darker(150));
    painter->setPen(Qt::NoPen);
    painter->setBrush(curve);
    painter->drawRoundedRect(rect(), 6, 6);
    if (!isEnabled())
        return;

    QColor band = colors.color(QPalette::Active, QPalette::Highlight);
    band.setAlphaF(hasFocus() ? 0.55 : 0.3);
    painter->setBrush(band);
    painter->drawRect(QRectF(0, (height() - pitch()) / 2, width(), pitch()));
}

// Rows grow smaller and fade towards the edges, as on a drum.
void TumblerWheel::paintRows(QPainter *painter) const
{
    QFont font = parentWidget()->font();
    font.setPixelSize(qMax(1, qRound(qMin(pitch() * 0.72, width() * 0.5))));
    font.setBold(true);
    painter->setFont(font);
    painter->setPen(parentWidget()->palette().color(QPalette::Active, QPalette::Text));

    const int reach = int(std::ceil(rowsInSight / 2));
    const int middle = qRound(m_position);
    for (int place = middle - reach; place <= middle + reach; ++place) {
        if (m_turning == Turning::ToTheEnds && place != placeNear(place))
            continue;
        const qreal away = place - m_position;
        const qreal scale = 1 - 0.22 * qMin<qreal>(2, qAbs(away));
        painter->save();
        painter->setOpacity(qMax<qreal>(0, 1 - 0.5 * qAbs(away)) * (isEnabled() ? 1 : 0.4));
        painter->translate(width() / 2.0, height() / 2.0 + away * pitch());
        painter->scale(scale, scale);
        painter->drawText(QRectF(-width(), -pitch(), 2 * width(), 2 * pitch()), Qt::AlignCenter,
                          m_labels.at(rowAt(place)));
        painter->restore();
    }
}

} // namespace Korvo::Widgets
