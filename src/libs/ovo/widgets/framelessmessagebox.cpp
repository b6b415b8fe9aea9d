// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "framelessmessagebox.h"

#include <QAbstractButton>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QStyleOptionFrame>
#include <QWindow>

namespace Ovo::Widgets {

namespace {

// From the start: Qt embeds a dialog as soon as it has an embedded parent.
const Qt::WindowFlags flags = Qt::Dialog | Qt::FramelessWindowHint | Qt::BypassGraphicsProxyWidget;
const QSize fingerSize(88, 40);
const int roomAround = 6; // the layout, beside its own margins

// The view that shows an embedded window; null when it is not embedded.
QGraphicsView *viewOf(const QWidget *window)
{
    const QGraphicsProxyWidget *proxy = window->graphicsProxyWidget();
    const QGraphicsScene *scene = proxy ? proxy->scene() : nullptr;
    return scene ? scene->views().value(0) : nullptr;
}

QRect onScreen(const QWidget *window)
{
    const QGraphicsView *view = viewOf(window);
    if (!view)
        return window->geometry();
    const QRectF inScene = window->graphicsProxyWidget()->sceneBoundingRect();
    const QRect seen = view->mapFromScene(inScene).boundingRect() & view->viewport()->rect();
    return QRect(view->viewport()->mapToGlobal(seen.topLeft()), seen.size());
}

QRect screenAround(const QPoint &position)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens) {
        if (screen->geometry().contains(position))
            return screen->availableGeometry();
    }
    return QGuiApplication::primaryScreen()->availableGeometry();
}

} // namespace

class FramelessMessageBoxPrivate
{
    Q_DISABLE_COPY(FramelessMessageBoxPrivate)

public:
    explicit FramelessMessageBoxPrivate(FramelessMessageBox *messageBox)
        : q(messageBox)
        , title(new QLabel(messageBox))
    {
    }

    void setUp();
    void showTitle(const QString &text);
    void enlargeButtons();
    void freeInformativeText() const;
    void placeTitle();
    void moveTo(QPoint topLeft, const QRect &screen);
    void center();

    static QMessageBox::StandardButton ask(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                                           const QString &text, QMessageBox::StandardButtons buttons,
                                           QMessageBox::StandardButton defaultButton);

    FramelessMessageBox *const q;
    QLabel *const title;
    bool isDragged = false;
    QPoint grabOffset; // from the top left of the box to where it was taken
};

void FramelessMessageBoxPrivate::setUp()
{
    q->QDialog::setWindowModality(Qt::ApplicationModal); // QMessageBox's takes the flags back

    q->setTextInteractionFlags(Qt::LinksAccessibleByMouse); // or it could not be dragged by its text

    title->setObjectName(QStringLiteral("messagebox_title"));
    title->setTextFormat(Qt::PlainText);
    title->setWordWrap(true);
    title->setMargin(8);
    title->setAutoFillBackground(true);
    title->setBackgroundRole(QPalette::Highlight);
    title->setForegroundRole(QPalette::HighlightedText);
    QObject::connect(q, &QWidget::windowTitleChanged, q, [this](const QString &text) { showTitle(text); });
    showTitle(q->windowTitle());
}

void FramelessMessageBoxPrivate::showTitle(const QString &text)
{
    title->setText(text);
    title->setVisible(!text.isEmpty());
    placeTitle();
}

void FramelessMessageBoxPrivate::enlargeButtons()
{
    const QList<QAbstractButton *> buttons = q->buttons();
    for (QAbstractButton *button : buttons) {
        const QSize size = button->minimumSize().expandedTo(fingerSize);
        if (button->minimumSize() == size)
            continue;
        button->setMinimumSize(size);
        button->parentWidget()->updateGeometry(); // now, rather than in the turn after
    }
}

// QMessageBox creates it late, with the style's flags: most let it be selected.
void FramelessMessageBoxPrivate::freeInformativeText() const
{
    if (auto *label = q->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel")))
        label->setTextInteractionFlags(q->textInteractionFlags());
}

// QMessageBox makes itself a new layout from time to time, so the title stands above it.
void FramelessMessageBoxPrivate::placeTitle()
{
    const int height = title->isHidden() ? 0 : title->heightForWidth(q->width());
    title->setGeometry(0, 0, q->width(), height);
    q->setContentsMargins(roomAround, height + roomAround, roomAround, roomAround);
}

void FramelessMessageBoxPrivate::moveTo(QPoint topLeft, const QRect &screen)
{
    topLeft.setX(qMax(screen.left(), qMin(topLeft.x(), screen.right() + 1 - q->width())));
    topLeft.setY(qMax(screen.top(), qMin(topLeft.y(), screen.bottom() + 1 - q->height())));
    q->move(topLeft);
}

void FramelessMessageBoxPrivate::center()
{
    const QWidget *window = q->parentWidget()->window();
    const QPoint middle = onScreen(window).center();
    moveTo(middle - q->rect().center(), screenAround(middle));
    // Qt knows of no window around an embedded parent.
    if (const QGraphicsView *view = viewOf(window))
        q->windowHandle()->setTransientParent(view->window()->windowHandle());
}

// Whoever deletes the parent deletes the box, so it must not live on the stack.
QMessageBox::StandardButton FramelessMessageBoxPrivate::ask(QMessageBox::Icon icon, QWidget *parent,
                                                            const QString &title, const QString &text,
                                                            QMessageBox::StandardButtons buttons,
                                                            QMessageBox::StandardButton defaultButton)
{
    const QPointer<FramelessMessageBox> box(new FramelessMessageBox(icon, title, text, buttons, parent));
    box->setDefaultButton(defaultButton);
    box->exec();
    if (!box)
        return QMessageBox::NoButton;
    const QMessageBox::StandardButton answer = box->standardButton(box->clickedButton());
    delete box;
    return answer;
}

FramelessMessageBox::FramelessMessageBox(QWidget *parent)
    : FramelessMessageBox(NoIcon, QString(), QString(), NoButton, parent)
{
}

FramelessMessageBox::FramelessMessageBox(Icon icon, const QString &title, const QString &text,
                                         StandardButtons buttons, QWidget *parent)
    : QMessageBox(icon, title, text, buttons, parent, flags)
    , d(new FramelessMessageBoxPrivate(this))
{
    d->setUp();
}

FramelessMessageBox::~FramelessMessageBox() = default;

QMessageBox::StandardButton FramelessMessageBox::warning(QWidget *parent, const QString &title,
                                                         const QString &text, StandardButtons buttons,
                                                         StandardButton defaultButton)
{
    return FramelessMessageBoxPrivate::ask(Warning, parent, title, text, buttons, defaultButton);
}

QMessageBox::StandardButton FramelessMessageBox::question(QWidget *parent, const QString &title,
                                                          const QString &text, StandardButtons buttons,
                                                          StandardButton defaultButton)
{
    return FramelessMessageBoxPrivate::ask(Question, parent, title, text, buttons, defaultButton);
}

QMessageBox::StandardButton FramelessMessageBox::information(QWidget *parent, const QString &title,
                                                             const QString &text, StandardButtons buttons,
                                                             StandardButton defaultButton)
{
    return FramelessMessageBoxPrivate::ask(Information, parent, title, text, buttons, defaultButton);
}

bool FramelessMessageBox::event(QEvent *event)
{
    if (event->type() == QEvent::LayoutRequest) {
        d->enlargeButtons();
        d->freeInformativeText();
        d->placeTitle();
    }
    return QMessageBox::event(event);
}

void FramelessMessageBox::mousePressEvent(QMouseEvent *event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (event->button() != Qt::LeftButton)
        return;
    d->isDragged = true;
    d->grabOffset = event->globalPos() - pos();
}

void FramelessMessageBox::mouseMoveEvent(QMouseEvent *event)
{
    d->isDragged = d->isDragged && event->buttons().testFlag(Qt::LeftButton);
    event->setAccepted(d->isDragged);
    if (d->isDragged)
        d->moveTo(event->globalPos() - d->grabOffset, screenAround(event->globalPos()));
}

void FramelessMessageBox::mouseReleaseEvent(QMouseEvent *event)
{
    event->setAccepted(event->button() == Qt::LeftButton);
    if (event->button() == Qt::LeftButton)
        d->isDragged = false;
}

void FramelessMessageBox::paintEvent(QPaintEvent *event)
{
    QMessageBox::paintEvent(event);
    QStyleOptionFrame option;
    option.initFrom(this);
    option.lineWidth = 1;
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameMenu, &option, &painter, this);
}

void FramelessMessageBox::resizeEvent(QResizeEvent *event)
{
    QMessageBox::resizeEvent(event);
    d->placeTitle();
}

void FramelessMessageBox::showEvent(QShowEvent *event)
{
    const bool isPlaced = testAttribute(Qt::WA_Moved);
    QMessageBox::showEvent(event);
    // Its size depends on the title and the buttons, and its place on its size.
    QEvent layout(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(this, &layout);
    if (!event->spontaneous() && !isPlaced && parentWidget())
        d->center();
}

} // namespace Ovo::Widgets
