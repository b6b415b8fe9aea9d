// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "textticker.h"

#include "ownpalette.h"

#include <QEvent>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QTextLayout>
#include <QTimer>
#include <QtMath>

#include <optional>

namespace Korvo::EC {

namespace {

constexpr int tickMs = 28; // one pixel a tick: about 36 pixels a second
constexpr int ticksAtStart = 1000 / tickMs;
constexpr int gapCharacters = 4;
constexpr int edge = 1;    // around the label
constexpr int padding = 3; // from there to the text

/// The clock of all tickers; it ends with the last one that holds it.
std::shared_ptr<QTimer> sharedClock()
{
    static std::weak_ptr<QTimer> clock;
    std::shared_ptr<QTimer> running = clock.lock();
    if (!running) {
        running = std::make_shared<QTimer>();
        running->setTimerType(Qt::PreciseTimer);
        running->start(tickMs);
        clock = running;
    }
    return running;
}

QString singleLine(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (QChar &character : text) {
        switch (character.unicode()) {
        case '\n':
        case '\v':
        case '\f':
        case '\r':
        case QChar::LineSeparator:
        case QChar::ParagraphSeparator:
            character = QLatin1Char(' ');
            break;
        default:
            break;
        }
    }
    return text;
}

} // namespace

class TextTicker::Private : public QObject
{
public:
    explicit Private(TextTicker *label)
        : m_label(label)
    {
        m_line.setCacheEnabled(true); // drawn more often than laid out
    }

    void arrange();
    void layOutAnew();
    void setShown(bool isShown);
    bool isShown() const { return m_isShown; }
    void chooseGround();
    bool hasOwnGround() const { return m_hasOwnGround; }
    void paintGround(QPainter *painter, const QRect &dirty) const;
    void paint(QPainter *painter, const QRect &dirty);
    QSize sizeFor(int characters) const;

private:
    QRect area() const;
    QPoint lineStart() const;
    int gap();
    void drawLine(QPainter *painter, const QPoint &start) const;
    void drawMoving(QPainter *painter, const QPoint &start);
    void paintStrip(qreal pixelRatio, QRgb text, QRgb ground);
    int offset() const { return qMax(0, m_tick - ticksAtStart); }
    void layOut();
    void updateClock();
    void advance();

    TextTicker *const m_label;
    std::shared_ptr<QTimer> m_clock; // held while the text scrolls before someone's eyes
    QTextLayout m_line;
    QSize m_lineSize;
    std::optional<int> m_gap; // asking the font takes time, and most lines do not scroll
    QPixmap m_strip;          // the line on its ground, as it was last drawn moving
    QRgb m_stripText = 0;
    QRgb m_stripGround = 0;
    QString m_text; // what m_line was laid out from
    bool m_isLaidOut = false;
    bool m_scrolls = false;
    bool m_hasOwnGround = false;
    bool m_isShown = false; // isVisible() stays true in a minimised window
    int m_tick = 0;
};

/// Brings everything in line with the label's text and room. Cheap when nothing changed.
void TextTicker::Private::arrange()
{
    if (!m_isLaidOut || m_text != m_label->text())
        layOut();

    const int room = area().width();
    const bool scrolls = room > 0 && m_lineSize.width() > room;
    if (scrolls != m_scrolls) {
        m_scrolls = scrolls;
        m_strip = QPixmap();
        m_tick = 0;
    }
    updateClock();
}

void TextTicker::Private::layOut()
{
    m_text = m_label->text();
    m_line.setText(singleLine(m_text));
    m_line.setFont(m_label->font());
    m_line.beginLayout();
    QTextLine line = m_line.createLine();
    if (line.isValid())
        line.setNumColumns(m_text.size()); // on one line, however long it is, from the left
    m_line.endLayout();
    const QRectF bounds = m_line.boundingRect();
    m_lineSize = QSize(qCeil(line.isValid() ? line.naturalTextWidth() : 0), qCeil(bounds.height()));
    m_gap.reset();
    m_strip = QPixmap();
    m_isLaidOut = true;
    m_tick = 0;
}

void TextTicker::Private::layOutAnew()
{
    m_isLaidOut = false;
    if (m_isShown)
        arrange();
}

void TextTicker::Private::setShown(bool isShown)
{
    m_isShown = isShown;
    if (isShown)
        arrange();
    else
        updateClock();
}

void TextTicker::Private::updateClock()
{
    const bool isNeeded = m_isShown && m_scrolls;
    if (isNeeded == bool(m_clock))
        return;

    m_tick = 0;
    if (isNeeded) {
        m_clock = sharedClock();
        connect(m_clock.get(), &QTimer::timeout, this, &Private::advance);
    } else {
        disconnect(m_clock.get(), &QTimer::timeout, this, &Private::advance);
        m_clock.reset();
    }
}

void TextTicker::Private::advance()
{
    const int shownOffset = offset();
    ++m_tick;
    if (offset() >= m_lineSize.width() + gap())
        m_tick = 0; // the second copy stands where the first began
    if (offset() != shownOffset)
        m_label->update(area() & QRect(0, lineStart().y(), m_label->width(), m_lineSize.height()));
}

QRect TextTicker::Private::area() const
{
    const int margin = m_label->margin();
    return m_label->contentsRect().adjusted(margin, margin, -margin, -margin);
}

/// Between the end of the line and its second copy.
int TextTicker::Private::gap()
{
    if (!m_gap)
        m_gap = gapCharacters * m_label->fontMetrics().averageCharWidth();
    return *m_gap;
}

/// Where the line begins when it does not scroll, or stands still.
QPoint TextTicker::Private::lineStart() const
{
    Qt::Alignment alignment = QStyle::visualAlignment(m_label->layoutDirection(), m_label->alignment());
    if (m_scrolls)
        alignment = Qt::AlignLeft | (alignment & Qt::AlignVertical_Mask);
    return QStyle::alignedRect(Qt::LeftToRight, alignment, m_lineSize, area()).topLeft();
}

void TextTicker::Private::drawLine(QPainter *painter, const QPoint &start) const
{
    // Whole device pixels keep the glyphs crisp, and their distances the same from tick to tick.
    const qreal ratio = painter->device()->devicePixelRatioF();
    m_line.draw(painter, QPointF(qRound(start.x() * ratio) / ratio, start.y()));
}

/// A picture of the line is moved: drawing all its glyphs takes ten times as long, at each tick. Where the
/// ground is not the label's own, or the painter scales, the line is drawn.
void TextTicker::Private::drawMoving(QPainter *painter, const QPoint &start)
{
    if (!hasOwnGround() || painter->deviceTransform().type() > QTransform::TxTranslate) {
        drawLine(painter, start);
        return;
    }
    const qreal ratio = painter->device()->devicePixelRatioF();
    const QRgb text = painter->pen().color().rgba();
    const QRgb ground = m_label->palette().color(QPalette::Window).rgb();
    if (m_strip.isNull() || !qFuzzyCompare(m_strip.devicePixelRatio(), ratio) || m_stripText != text ||
        m_stripGround != ground)
        paintStrip(ratio, text, ground);
    painter->drawPixmap(QPointF(qRound(start.x() * ratio) / ratio, start.y()), m_strip);
}

void TextTicker::Private::paintStrip(qreal pixelRatio, QRgb text, QRgb ground)
{
    m_strip = QPixmap(m_lineSize * pixelRatio);
    m_strip.setDevicePixelRatio(pixelRatio);
    m_strip.fill(ground);
    m_stripText = text;
    m_stripGround = ground;
    QPainter painter(&m_strip);
    painter.setPen(QColor::fromRgba(text));
    m_line.draw(&painter, QPointF());
}

/// A ground of its own is opaque, so that nothing behind the label has to be painted when its text changes.
void TextTicker::Private::chooseGround()
{
    if (m_label->testAttribute(Qt::WA_StyledBackground)) {
        // The style sets it for a sheet with a ground, but leaves it when the next sheet has none.
        m_label->setAttribute(Qt::WA_StyledBackground, false);
        m_label->style()->polish(m_label);
    }
    const bool isOwn =
        hasOwnPalette("Korvo::EC::TextTicker") && !m_label->testAttribute(Qt::WA_StyledBackground);
    m_label->setAttribute(Qt::WA_OpaquePaintEvent, isOwn);
    if (isOwn == m_hasOwnGround)
        return;
    m_hasOwnGround = isOwn;
    const QMargins around(edge + padding, edge, edge + padding, edge);
    const QMargins margins = m_label->contentsMargins();
    m_label->setContentsMargins(isOwn ? margins + around : margins - around);
}

/// As much of it as \a dirty needs: a new text leaves the line around it alone.
void TextTicker::Private::paintGround(QPainter *painter, const QRect &dirty) const
{
    const QRect inside = m_label->rect().adjusted(edge, edge, -edge, -edge);
    const QPalette palette = m_label->palette();
    if (!inside.contains(dirty))
        painter->fillRect(m_label->rect(), QColor(palette.color(QPalette::Mid).rgb()));
    painter->fillRect(inside, QColor(palette.color(QPalette::Window).rgb()));
}

void TextTicker::Private::paint(QPainter *painter, const QRect &dirty)
{
    // Where a text or a tick has asked for the painting the painter is clipped already, at no cost.
    const bool reachesOut = m_scrolls || m_lineSize.height() > area().height();
    if (reachesOut && !area().contains(dirty))
        painter->setClipRect(area());
    painter->setPen(m_label->palette().color(m_label->foregroundRole()));
    if (!m_scrolls) {
        drawLine(painter, lineStart());
        return;
    }

    const QPoint first = lineStart() - QPoint(offset(), 0);
    const QPoint second = first + QPoint(m_lineSize.width() + gap(), 0);
    drawMoving(painter, first);
    if (second.x() <= area().right())
        drawMoving(painter, second);
}

QSize TextTicker::Private::sizeFor(int characters) const
{
    m_label->ensurePolished();
    const QFontMetrics metrics = m_label->fontMetrics();
    const QMargins contents = m_label->contentsMargins();
    const int margins = 2 * m_label->margin();
    return QSize(characters * metrics.averageCharWidth() + contents.left() + contents.right() + margins,
                 metrics.height() + contents.top() + contents.bottom() + margins);
}

TextTicker::TextTicker(QWidget *parent)
    : QLabel(parent)
    , m_d(std::make_unique<Private>(this))
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
}

TextTicker::~TextTicker() = default;

void TextTicker::setText(const QString &text)
{
    if (text == this->text())
        return;
    QLabel::setText(text);
    if (m_d->isShown())
        m_d->arrange();
}

QSize TextTicker::sizeHint() const
{
    return m_d->sizeFor(10);
}

QSize TextTicker::minimumSizeHint() const
{
    return m_d->sizeFor(3);
}

bool TextTicker::event(QEvent *event)
{
    const bool isHandled = QLabel::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
        m_d->chooseGround();
    return isHandled;
}

void TextTicker::paintEvent(QPaintEvent *event)
{
    m_d->arrange(); // the text may have been set through QLabel
    QPainter painter(this);
    if (m_d->hasOwnGround())
        m_d->paintGround(&painter, event->rect());
    if (frameShape() != NoFrame || testAttribute(Qt::WA_StyledBackground))
        drawFrame(&painter);
    m_d->paint(&painter, event->rect());
}

void TextTicker::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    if (m_d->isShown())
        m_d->arrange();
}

void TextTicker::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_d->layOutAnew();
}

void TextTicker::showEvent(QShowEvent *event)
{
    QLabel::showEvent(event);
    m_d->setShown(true);
}

void TextTicker::hideEvent(QHideEvent *event)
{
    QLabel::hideEvent(event);
    m_d->setShown(false);
}

} // namespace Korvo::EC
