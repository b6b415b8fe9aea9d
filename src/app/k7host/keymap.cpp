// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "keymap.h"

#include <QEvent>
#include <QGraphicsItem>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionGraphicsItem>
#include <QTimer>
#include <QWheelEvent>

#include <cmath>

using Korvo::IKorvoECKeyboard;

namespace K7Host {

namespace {

constexpr qreal HalfGap = 16;
constexpr int Margin = 8;
constexpr int FlashMs = 250;
constexpr qreal Corner = 6;
constexpr qreal ReadableScale = 0.34;
constexpr qreal NameScale = 0.7; // from which on there is room for names
constexpr qreal HighestZoom = 8;
constexpr qreal ZoomStep = 1.25;
constexpr qreal WheelStep = 120; // eighths of a degree

// Pixels of the console.
constexpr int IdSize = 28;
constexpr int IdSizeWithName = 18;
constexpr int NameSize = 8;

/// A key or a label, where it is on the console.
class MapItem : public QGraphicsItem
{
public:
    enum { Type = UserType + 1 };

    MapItem(const ConsoleItem &item, const QRectF &rect)
        : m_kind(item.kind)
        , m_id(item.id)
        , m_name(item.name)
        , m_rect(rect.adjusted(1, 1, -1, -1))
    {
        setAcceptHoverEvents(true);
        setFlag(ItemIsSelectable);
        setToolTip(QStringLiteral("%1 %2 %3")
                       .arg(item.kind == ConsoleItem::Key ? QStringLiteral("Key") : QStringLiteral("Label"))
                       .arg(item.id)
                       .arg(item.name));
    }

    ConsoleItem::Kind kind() const { return m_kind; }
    quint32 id() const { return m_id; }
    QString name() const { return m_name; }

    void setLit(bool isLit)
    {
        if (m_isLit != isLit)
            update();
        m_isLit = isLit;
    }

    int type() const override { return Type; }
    QRectF boundingRect() const override { return m_rect.adjusted(-1, -1, 1, 1); }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget * /*widget*/) override
    {
        const QPalette colors = QGuiApplication::palette();
        const bool isHovered = option->state.testFlag(QStyle::State_MouseOver);
        QPen pen(colors.color(isHovered ? QPalette::Highlight : QPalette::Mid), isHovered ? 2 : 1);
        pen.setCosmetic(true);
        painter->setPen(pen);
        painter->setBrush(colors.color(ground()));
        painter->drawRoundedRect(m_rect, Corner, Corner);
        painter->setPen(colors.color(lettering()));
        drawTexts(painter);
    }

private:
    QPalette::ColorRole ground() const
    {
        const QPalette::ColorRole usual = m_kind == ConsoleItem::Key ? QPalette::Button : QPalette::Base;
        return m_isLit ? QPalette::ToolTipBase : isSelected() ? QPalette::Highlight : usual;
    }
    QPalette::ColorRole lettering() const
    {
        const QPalette::ColorRole usual = m_kind == ConsoleItem::Key ? QPalette::ButtonText : QPalette::Text;
        return m_isLit ? QPalette::ToolTipText : isSelected() ? QPalette::HighlightedText : usual;
    }
    void drawTexts(QPainter *painter) const
    {
        const bool hasName =
            QStyleOptionGraphicsItem::levelOfDetailFromTransform(painter->worldTransform()) >= NameScale;
        QFont font = painter->font();
        font.setPixelSize(hasName ? IdSizeWithName : IdSize);
        painter->setFont(font);
        const QString id = QString::number(m_id);
        if (!hasName)
            return painter->drawText(m_rect, Qt::AlignCenter, id);
        QRectF upper = m_rect;
        upper.setHeight(m_rect.height() / 2);
        painter->drawText(upper, Qt::AlignCenter, id);
        font.setPixelSize(NameSize);
        painter->setFont(font);
        painter->drawText(m_rect.adjusted(2, upper.height(), -2, 0),
                          Qt::AlignHCenter | Qt::AlignTop | Qt::TextWrapAnywhere, m_name);
    }

    const ConsoleItem::Kind m_kind;
    const quint32 m_id;
    const QString m_name;
    const QRectF m_rect;
    bool m_isLit = false;
};

/// In pixels of \a half.
QRect placeOf(const ConsoleItem &item, const IKorvoECKeyboard &half)
{
    return {item.widget->mapTo(&half, QPoint()), item.widget->size()};
}

} // namespace

KeyMap::KeyMap(QWidget *parent)
    : QGraphicsView(parent)
    , m_flashTimer(new QTimer(this))
{
    m_flashTimer->setSingleShot(true);
    m_flashTimer->setInterval(FlashMs);
    connect(m_flashTimer, &QTimer::timeout, this, &KeyMap::endFlash);
    setScene(new QGraphicsScene(this));
    setBackgroundRole(QPalette::Window);
    setRenderHint(QPainter::Antialiasing);
    setTransformationAnchor(AnchorUnderMouse);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
}

KeyMap::~KeyMap() = default;

void KeyMap::setHalves(const QList<QWeakPointer<IKorvoECKeyboard>> &halves)
{
    m_halves = halves;
    for (const auto &half : halves) {
        if (const auto keyboard = half.toStrongRef())
            keyboard->installEventFilter(this);
    }
    drawHalves();
}

void KeyMap::flash(ConsoleItem::Kind kind, quint32 id)
{
    auto *item = qgraphicsitem_cast<MapItem *>(m_items.value({kind, id}));
    if (!item || !isVisible())
        return;
    item->setLit(true);
    if (!m_flashTimer->isActive())
        m_flashTimer->start();
}

bool KeyMap::eventFilter(QObject *watched, QEvent *event)
{
    // The children of a half have their places a little later.
    const bool isPlaced = event->type() == QEvent::Show || event->type() == QEvent::Resize;
    if (isPlaced && qobject_cast<IKorvoECKeyboard *>(watched))
        QTimer::singleShot(0, this, &KeyMap::drawHalves);
    return QGraphicsView::eventFilter(watched, event);
}

void KeyMap::mousePressEvent(QMouseEvent *event)
{
    QGraphicsView::mousePressEvent(event);
    const auto *item = qgraphicsitem_cast<MapItem *>(itemAt(event->pos()));
    if (!item || event->button() != Qt::LeftButton)
        return;
    if (item->kind() == ConsoleItem::Key)
        emit keyClicked(item->id(), item->name());
    else
        emit labelClicked(item->id(), item->name());
}

void KeyMap::resizeEvent(QResizeEvent *event)
{
    QGraphicsView::resizeEvent(event);
    applyZoom();
}

void KeyMap::showEvent(QShowEvent *event)
{
    drawHalves();
    QGraphicsView::showEvent(event);
}

void KeyMap::changeEvent(QEvent *event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        drawHalves();
}

void KeyMap::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        return QGraphicsView::wheelEvent(event);
    m_zoom = qBound(1.0, m_zoom * std::pow(ZoomStep, event->angleDelta().y() / WheelStep), HighestZoom);
    applyZoom();
    event->accept();
}

void KeyMap::drawHalves()
{
    m_items.clear();
    scene()->clear();
    qreal left = 0;
    for (const auto &half : qAsConst(m_halves)) {
        if (const auto keyboard = half.toStrongRef())
            left += drawHalf(*keyboard, left) + HalfGap;
    }
    scene()->setSceneRect(scene()->itemsBoundingRect());
    applyZoom();
}

void KeyMap::endFlash()
{
    for (QGraphicsItem *item : qAsConst(m_items))
        qgraphicsitem_cast<MapItem *>(item)->setLit(false);
}

qreal KeyMap::drawHalf(const IKorvoECKeyboard &half, qreal left)
{
    const auto items = consoleItems(half);
    QRect keys;
    for (const ConsoleItem &item : items)
        keys |= placeOf(item, half);
    // No more than what holds keys: the smaller the map, the larger its ids.
    const QRect shown = keys.adjusted(-Margin, -Margin, Margin, Margin);
    const QPointF offset = QPointF(left, 0) - shown.topLeft();
    scene()->addRect(QRectF(shown).translated(offset), Qt::NoPen, palette().color(QPalette::AlternateBase));
    for (const ConsoleItem &item : items) {
        auto *mapItem = new MapItem(item, QRectF(placeOf(item, half)).translated(offset));
        scene()->addItem(mapItem);
        m_items.insert({item.kind, item.id}, mapItem);
    }
    return shown.width();
}

void KeyMap::applyZoom()
{
    const QSizeF needed = sceneRect().size();
    const QSizeF room = maximumViewportSize();
    if (needed.isEmpty() || room.isEmpty())
        return;
    const qreal scrollBarWidth = verticalScrollBar()->sizeHint().width();
    const qreal asWide = (room.width() - scrollBarWidth) / needed.width();
    const qreal asHigh = room.height() / needed.height();
    const qreal scale = m_zoom * qMin(asWide, qMax(asHigh, ReadableScale));
    setTransform(QTransform::fromScale(scale, scale));
}

} // namespace K7Host
