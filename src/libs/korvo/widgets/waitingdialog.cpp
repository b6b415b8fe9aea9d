// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "waitingdialog.h"

#include "spinner.h"

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QTextDocument>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Korvo::Widgets {

namespace {

const int comfortableWidth = 360;
const int outerMargin = 8; // around the panel
const qreal panelRadius = 8;
const int smallestFont = 7; // pixels; what does not fit in it is cut off

// Sizes inside of the panel.
struct Measures
{
    int padding;
    int spinner;
};

const Measures roomy = {24, 56};
const Measures tight[] = {{16, 48}, {10, 32}, {6, 20}};

// The places in a panel around the middle of an area, with a text of that size below the spinner.
struct Places
{
    Places() = default;
    Places(const QRect &area, const Measures &measures, const QSize &textSize);

    QRect panel;
    QRect spinner;
    QRect text;
};

Places::Places(const QRect &area, const Measures &measures, const QSize &textSize)
{
    const int padding = measures.padding;
    const int gap = textSize.isEmpty() ? 0 : padding * 2 / 3;
    const QSize content(qMax(textSize.width(), measures.spinner), measures.spinner + gap + textSize.height());
    panel.setSize(content + 2 * QSize(padding, padding));
    panel.moveCenter(area.center());
    const QRect inner = panel.adjusted(padding, padding, -padding, -padding);
    spinner = QRect(0, inner.top(), measures.spinner, measures.spinner);
    spinner.moveLeft(inner.center().x() - measures.spinner / 2);
    text = inner.adjusted(0, measures.spinner + gap, 0, 0);
}

// Wraps the text and returns what it needs then.
QSize wrap(QTextDocument *text, int width)
{
    text->setTextWidth(width);
    text->setTextWidth(qMin(width, int(std::ceil(text->idealWidth()))));
    return text->isEmpty() ? QSize() : text->size().toSize();
}

// False when a panel with these measures does not fit, however wide it is.
bool fit(const QRect &area, const Measures &measures, QTextDocument *text, Places *places)
{
    const int widest = area.width() - 2 * measures.padding;
    for (const int width : {qMin(comfortableWidth, widest), widest}) {
        *places = Places(area, measures, wrap(text, width));
        if (area.contains(places->panel))
            return true;
    }
    return false;
}

// As large as it fits: first the panel grows, then spinner and margins shrink, at last the text does.
Places fittingPlaces(const QRect &area, QTextDocument *text, QFont font)
{
    Places places;
    for (int pixels = QFontInfo(font).pixelSize(); pixels >= smallestFont; --pixels) {
        font.setPixelSize(pixels);
        text->setDefaultFont(font);
        if (fit(area, roomy, text, &places))
            break;
        const bool isFitting = std::any_of(std::begin(tight), std::end(tight), [&](const Measures &measures) {
            return fit(area, measures, text, &places);
        });
        if (isFitting)
            break;
    }
    return places;
}

void prepare(QTextDocument *text)
{
    QTextOption option(Qt::AlignHCenter);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    text->setDefaultTextOption(option);
    text->setDocumentMargin(0);
    text->setUndoRedoEnabled(false);
}

// The widget itself or, of a shortcut or an action, that which owns it; null when none does.
const QWidget *widgetOf(const QObject *object)
{
    while (object && !object->isWidgetType())
        object = object->parent();
    return static_cast<const QWidget *>(object);
}

// Embedded in a graphics scene, as its parent may be, a window would be modal to nothing.
Qt::WindowFlags usableFlags(const QWidget *parent, Qt::WindowFlags flags)
{
    if (parent && !flags.testFlag(Qt::Window))
        return flags;
    return flags | Qt::Window | Qt::FramelessWindowHint | Qt::BypassGraphicsProxyWidget;
}

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::ContextMenu:
    case QEvent::ToolTip:
        return true;
    default:
        return false;
    }
}

} // namespace

/// While the dialog covers its parent it watches the application for what would get past it.
class WaitingDialogPrivate : public QObject
{
public:
    explicit WaitingDialogPrivate(WaitingDialog *dialog)
        : q(dialog)
        , spinner(new Spinner(dialog))
    {
        prepare(&document);
    }

    void setText(const QString &newText);
    void arrange();
    void paint(QPainter *painter) const;
    void setColor(QColor *color, const QColor &value);
    QColor levelColor() const;

    void cover();
    void uncover();
    void centerOnScreen();
    bool eventFilter(QObject *watched, QEvent *event) override;

    WaitingDialog *const q;
    Spinner *const spinner; // child of the dialog
    QString text;
    QTextDocument document; // the text, as it is wrapped
    WaitingDialog::TooltipLevel level = WaitingDialog::Normal;
    Places places;

    QColor dimColor{0, 0, 0, 150};
    QColor panelColor;  // invalid: the palette's
    QColor borderColor; // invalid: the palette's
    QColor warningColor{0xff, 0xa8, 0x2e};
    QColor errorColor{0xff, 0x5a, 0x4f};

private:
    bool isCovered(const QWidget *widget) const;
    void closePopups() const;
    void keepFocus(QWidget *old, QWidget *now);
    void takeFocus();
    void giveFocusBack();

    QPointer<QWidget> m_focusBefore;
};

void WaitingDialogPrivate::setText(const QString &newText)
{
    if (text == newText)
        return;
    text = newText;
    document.setPlainText(text);
    q->setAccessibleName(text);
    q->updateGeometry();
    if (q->isWindow())
        centerOnScreen();
    arrange();
}

void WaitingDialogPrivate::arrange()
{
    const int margin = q->isWindow() ? 0 : outerMargin;
    places = fittingPlaces(q->rect().adjusted(margin, margin, -margin, -margin), &document, q->font());
    if (q->isWindow())
        places.panel = q->rect();
    spinner->setGeometry(places.spinner);
    spinner->setColors(levelColor(), q->panelColor());
    q->update();
}

void WaitingDialogPrivate::paint(QPainter *painter) const
{
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(q->panelColor());
    painter->setPen(q->borderColor());
    const QRectF panel = QRectF(places.panel).adjusted(0.5, 0.5, -0.5, -0.5);
    if (q->isWindow()) {
        painter->drawRect(panel);
    } else {
        painter->fillRect(q->rect(), dimColor);
        painter->drawRoundedRect(panel, panelRadius, panelRadius);
    }
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, q->palette().color(QPalette::Active, QPalette::WindowText));
    painter->translate(places.text.topLeft());
    document.documentLayout()->draw(painter, context);
}

QColor WaitingDialogPrivate::levelColor() const
{
    switch (level) {
    case WaitingDialog::Warning:
        return warningColor;
    case WaitingDialog::Error:
        return errorColor;
    case WaitingDialog::Normal:
        break;
    }
    return q->palette().color(QPalette::Active, QPalette::Highlight);
}

void WaitingDialogPrivate::setColor(QColor *color, const QColor &value)
{
    if (*color == value)
        return;
    *color = value;
    arrange();
    emit q->colorsChanged();
}

// Covers the parent, now that both can be seen.
void WaitingDialogPrivate::cover()
{
    q->setGeometry(q->parentWidget()->rect());
    q->raise();
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &WaitingDialogPrivate::keepFocus, Qt::UniqueConnection);
    closePopups();
    takeFocus();
}

void WaitingDialogPrivate::uncover()
{
    qApp->removeEventFilter(this);
    disconnect(qApp, &QApplication::focusChanged, this, &WaitingDialogPrivate::keepFocus);
    if (q->isHidden()) // itself, rather than an ancestor
        giveFocusBack();
}

void WaitingDialogPrivate::centerOnScreen()
{
    const QWidget *owner = q->parentWidget() ? q->parentWidget()->window() : QApplication::activeWindow();
    QRect around = QGuiApplication::primaryScreen()->availableGeometry();
    if (owner && owner != q && owner->isVisible())
        around = owner->geometry();
    q->resize(q->sizeHint());
    q->move(around.center() - q->rect().center());
}

// Windows that belong to the parent are not.
bool WaitingDialogPrivate::isCovered(const QWidget *widget) const
{
    const QWidget *parent = q->parentWidget();
    return widget && widget != q && (widget == parent || parent->isAncestorOf(widget));
}

// What was opened from below would stay above.
void WaitingDialogPrivate::closePopups() const
{
    QWidget *popup = QApplication::activePopupWidget();
    while (popup && isCovered(popup->parentWidget()) && popup->close())
        popup = QApplication::activePopupWidget();
}

void WaitingDialogPrivate::keepFocus(QWidget * /*old*/, QWidget *now)
{
    if (isCovered(now))
        takeFocus();
}

void WaitingDialogPrivate::takeFocus()
{
    QWidget *current = q->window()->focusWidget();
    if (current == q)
        return;
    if (current && (!m_focusBefore || isCovered(current)))
        m_focusBefore = current;
    q->setFocus(Qt::OtherFocusReason);
}

void WaitingDialogPrivate::giveFocusBack()
{
    QWidget *before = m_focusBefore;
    m_focusBefore = nullptr;
    if (q->window()->focusWidget() != q)
        return;
    q->clearFocus(); // or Qt gives it to whichever comes next
    if (before && before->window() == q->window() && before->isVisible())
        before->setFocus(Qt::OtherFocusReason);
}

bool WaitingDialogPrivate::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize:
        if (watched == q->parent())
            q->setGeometry(q->parentWidget()->rect());
        break;
    case QEvent::ChildAdded:
        if (watched == q->parent())
            q->raise();
        break;
    case QEvent::ZOrderChange:
        if (watched != q && watched->parent() == q->parent())
            q->raise();
        break;
    case QEvent::Shortcut:
        return isCovered(widgetOf(watched));
    default:
        break;
    }
    return false;
}

WaitingDialog::WaitingDialog(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, usableFlags(parent, flags))
    , d(new WaitingDialogPrivate(this))
{
    if (isWindow())
        setWindowModality(Qt::ApplicationModal);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setFocusPolicy(Qt::StrongFocus);
    hide(); // also when the parent is shown later
}

WaitingDialog::~WaitingDialog()
{
    hide(); // gives the focus back
}

void WaitingDialog::showWaitingDialog(const QString &text, TooltipLevel level)
{
    d->level = level;
    d->setText(text);
    d->arrange();
    show();
}

void WaitingDialog::hideWaitingDialog()
{
    hide();
}

QString WaitingDialog::text() const
{
    return d->text;
}

WaitingDialog::TooltipLevel WaitingDialog::level() const
{
    return d->level;
}

bool WaitingDialog::isSpinning() const
{
    return d->spinner->isTurning();
}

QColor WaitingDialog::dimColor() const
{
    return d->dimColor;
}

void WaitingDialog::setDimColor(const QColor &color)
{
    d->setColor(&d->dimColor, color);
}

QColor WaitingDialog::panelColor() const
{
    return d->panelColor.isValid() ? d->panelColor : palette().color(QPalette::Active, QPalette::Window);
}

void WaitingDialog::setPanelColor(const QColor &color)
{
    d->setColor(&d->panelColor, color);
}

QColor WaitingDialog::borderColor() const
{
    return d->borderColor.isValid() ? d->borderColor : palette().color(QPalette::Active, QPalette::Mid);
}

void WaitingDialog::setBorderColor(const QColor &color)
{
    d->setColor(&d->borderColor, color);
}

QColor WaitingDialog::warningColor() const
{
    return d->warningColor;
}

void WaitingDialog::setWarningColor(const QColor &color)
{
    d->setColor(&d->warningColor, color);
}

QColor WaitingDialog::errorColor() const
{
    return d->errorColor;
}

void WaitingDialog::setErrorColor(const QColor &color)
{
    d->setColor(&d->errorColor, color);
}

QSize WaitingDialog::sizeHint() const
{
    ensurePolished();
    QTextDocument text(d->text);
    prepare(&text);
    text.setDefaultFont(font());
    return Places(QRect(), roomy, wrap(&text, comfortableWidth)).panel.size();
}

bool WaitingDialog::event(QEvent *event)
{
    if (!isInput(event->type()))
        return QWidget::event(event);
    event->accept(); // or it would go on to the parent
    return true;
}

void WaitingDialog::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        d->arrange();
        break;
    default:
        break;
    }
}

void WaitingDialog::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!event->spontaneous());
}

void WaitingDialog::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!isWindow() && !event->spontaneous())
        d->uncover();
}

void WaitingDialog::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    d->paint(&painter);
}

void WaitingDialog::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    d->arrange();
}

void WaitingDialog::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    if (isWindow())
        d->centerOnScreen();
    else
        d->cover();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace Korvo::Widgets
