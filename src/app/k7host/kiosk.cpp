// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "kiosk.h"

#include "consolewindow.h"
#include "display.h"
#include "scaledview.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace K7Host {

namespace {

constexpr qreal LargestFactor = 4;
constexpr int GapOfHalves = 16; // between the halves, at their native size

} // namespace

/// Fills a screen, with views in its middle, one below the other.
class KioskWindow : public QWidget
{
public:
    explicit KioskWindow(qreal scale)
        : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint)
        , m_scale(scale)
    {
        setObjectName(QStringLiteral("kioskWindow"));
        setWindowTitle(QStringLiteral("K7 console"));
        setAttribute(Qt::WA_StyledBackground);
    }

    void setViews(const QList<ScaledView *> &views);
    void fill(const QRect &place);
    void placeViews();

protected:
    void resizeEvent(QResizeEvent * /*event*/) override { placeViews(); }
    void closeEvent(QCloseEvent * /*event*/) override { QCoreApplication::quit(); }

private:
    const qreal m_scale;
    QList<ScaledView *> m_views;
};

void KioskWindow::setViews(const QList<ScaledView *> &views)
{
    m_views = views;
    for (ScaledView *view : views) {
        if (view->parentWidget() != this)
            view->setParent(this);
        view->show();
    }
    placeViews();
}

void KioskWindow::fill(const QRect &place)
{
    if (isVisible() && geometry() == place)
        return;
    // A window that fills a screen already stays on that one.
    hide();
    setGeometry(place);
    showFullScreen();
}

void KioskWindow::placeViews()
{
    QSize needed(0, -GapOfHalves);
    for (const ScaledView *view : qAsConst(m_views)) {
        const QSize native = view->nativeSize();
        needed =
            QSize(std::max(needed.width(), native.width()), needed.height() + GapOfHalves + native.height());
    }
    if (needed.isEmpty())
        return;
    const qreal factor = m_scale > 0 ? m_scale : fittingFactor(needed, size(), LargestFactor);
    qreal top = (height() - needed.height() * factor) / 2;
    for (ScaledView *view : qAsConst(m_views)) {
        view->setFactor(factor);
        view->move((width() - view->width()) / 2, qRound(top));
        top += (view->nativeSize().height() + GapOfHalves) * factor;
    }
}

Kiosk::Kiosk(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves, qreal scale)
{
    for (const auto &half : halves) {
        if (half.isNull())
            continue;
        auto console = std::make_unique<ConsoleWindow>(QList<QWeakPointer<Korvo::IKorvoECKeyboard>>{half});
        auto window = std::make_unique<KioskWindow>(scale);
        auto *view = new ScaledView(console.get(), 1);
        window->setViews({view});
        // With the style sheet, for one. The view may have moved to another window.
        connect(view, &ScaledView::nativeSizeChanged, this, [this] {
            for (const Half &any : m_halves)
                any.window->placeViews();
        });
        connect(console.get(), &ConsoleWindow::shown, this, [this] {
            if (++m_shownCount == static_cast<int>(m_halves.size()))
                emit shown();
        });
        m_halves.push_back({std::move(console), std::move(window), view});
    }
    if (m_halves.size() > 1) {
        m_halves.front().view->setNeighbor(m_halves.back().view);
        m_halves.back().view->setNeighbor(m_halves.front().view);
    }
    m_settling.setSingleShot(true);
    m_settling.setInterval(0);
    connect(&m_settling, &QTimer::timeout, this, &Kiosk::arrangeOnScreens);
}

Kiosk::~Kiosk()
{
    setCursorShown(true);
}

QList<ConsoleWindow *> Kiosk::consoles() const
{
    QList<ConsoleWindow *> consoles;
    for (const Half &half : m_halves)
        consoles << half.console.get();
    return consoles;
}

QWidget *Kiosk::mainWindow() const
{
    return m_halves.front().window.get();
}

QImage Kiosk::picture(qreal factor) const
{
    QSizeF size(0, 0);
    for (const Half &half : m_halves) {
        const QSizeF console = half.console->size();
        const qreal gap = size.isEmpty() ? 0 : GapOfHalves;
        size = QSizeF(size.width() + gap + console.width(), std::max(size.height(), console.height()));
    }
    QImage image((size * factor).toSize(), QImage::Format_RGB32);
    image.fill(mainWindow()->palette().color(QPalette::Window));
    QPainter painter(&image);
    painter.scale(factor, factor);
    for (const Half &half : m_halves) {
        painter.drawImage(QRectF({}, half.console->size()), half.console->picture(factor));
        painter.translate(half.console->width() + GapOfHalves, 0);
    }
    return image;
}

void Kiosk::show()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens)
        follow(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
        follow(screen);
        m_settling.start();
    });
    const auto settle = [this] { m_settling.start(); };
    connect(qApp, &QGuiApplication::screenRemoved, this, settle);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, settle);
    arrangeOnScreens();
    setCursorShown(false);
}

void Kiosk::arrange(const QList<QRect> &places)
{
    if (m_halves.empty() || places.isEmpty())
        return; // a moment without any screen
    const bool isShared = static_cast<int>(m_halves.size()) > places.size();
    QList<ScaledView *> all;
    for (const Half &half : m_halves)
        all << half.view;
    for (int i = 0; i < all.size(); ++i) {
        KioskWindow *window = m_halves.at(static_cast<std::size_t>(i)).window.get();
        if (isShared && i > 0) {
            window->setViews({});
            window->hide();
            continue;
        }
        window->setViews(isShared ? all : QList<ScaledView *>{all.at(i)});
        window->fill(places.at(i));
    }
}

void Kiosk::setCursorShown(bool isShown)
{
    if (isShown == m_isCursorShown)
        return;
    m_isCursorShown = isShown;
    if (isShown)
        QGuiApplication::restoreOverrideCursor();
    else
        QGuiApplication::setOverrideCursor(Qt::BlankCursor);
}

void Kiosk::follow(QScreen *screen)
{
    connect(screen, &QScreen::geometryChanged, this, [this] { m_settling.start(); });
}

void Kiosk::arrangeOnScreens()
{
    QList<QRect> places;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        places << screen->geometry();
    arrange(places);
}

} // namespace K7Host
