// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolewindow.h"

#include "hardwarepanel.h"
#include "powercover.h"

#include <korvo/widgets/waitingdialog.h>

#include <QCoreApplication>
#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

using Korvo::IKorvoECKeyboard;

namespace K7Host {

namespace {

constexpr int Seam = 16; // pixels between the halves

} // namespace

ConsoleWindow::ConsoleWindow(const QList<QWeakPointer<IKorvoECKeyboard>> &halves, QWidget *parent)
    : QWidget(parent)
    , m_panel(new HardwarePanel(this))
    , m_cover(new PowerCover(this))
{
    setWindowTitle(QStringLiteral("K7"));
    setAccessibleName(windowTitle()); // inside of another window too
    m_cover->hide();
    connect(m_cover, &PowerCover::switchOnRequested, this, &ConsoleWindow::switchOnRequested);
    for (const auto &half : halves) {
        if (const auto keyboard = half.toStrongRef()) {
            m_halves.push_back({half, keyboard->size()});
            keyboard->setParent(this);
            if (keyboard->isHidden())
                keyboard->show();
        }
    }
    // No key looks focused before somebody moves the focus to one.
    setFocusPolicy(Qt::ClickFocus);
    setFocus();
}

ConsoleWindow::~ConsoleWindow()
{
    for (const Half &half : m_halves) {
        if (const auto keyboard = half.keyboard.toStrongRef())
            keyboard->setParent(nullptr);
    }
}

QImage ConsoleWindow::picture(qreal factor)
{
    ensurePolished(); // which gives it its size
    QImage image((QSizeF(size()) * factor).toSize(), QImage::Format_RGB32);
    image.fill(palette().color(QPalette::Window));
    // Scaled by the painter: rendering to an image with a pixel ratio below 1 leaves part of it out.
    QPainter painter(&image);
    painter.scale(factor, factor);
    for (const Half &half : m_halves) {
        if (const auto keyboard = half.keyboard.toStrongRef())
            keyboard->render(&painter, keyboard->pos(), {}, DrawChildren);
    }
    return image;
}

void ConsoleWindow::showHardware(const HardwareState &state)
{
    m_panel->showState(state);
    if (state.power != Power::On)
        cover(state.power);
    else if (!m_cover->isHidden())
        uncover();
}

bool ConsoleWindow::event(QEvent *event)
{
    // A half wants another size, now that the style sheet has reached all of its children.
    if (event->type() == QEvent::LayoutRequest)
        placeHalves();
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::Polish) {
        polishChildren();
        placeHalves();
    }
    return isHandled;
}

bool ConsoleWindow::focusNextPrevChild(bool next)
{
    // The focus does not go to what is covered.
    return m_cover->isHidden() && QWidget::focusNextPrevChild(next);
}

void ConsoleWindow::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), palette().color(QPalette::Window));
    if (isVisible() && !m_isShown) {
        m_isShown = true;
        // The halves are painted after their window.
        QTimer::singleShot(0, this, &ConsoleWindow::shown);
    }
}

/// Sizes depend on fonts and borders, which come with the style sheet. Not before the window is polished
/// itself: what is polished and then put into another window is all polished anew.
void ConsoleWindow::polishChildren()
{
    const auto children = findChildren<QWidget *>();
    for (const QWidget *child : children)
        child->ensurePolished();
}

void ConsoleWindow::placeHalves()
{
    QRect all;
    QRect first;
    for (const Half &half : m_halves) {
        const auto keyboard = half.keyboard.toStrongRef();
        if (!keyboard)
            continue;
        // A form may be drawn smaller than what its layout needs.
        const QSize wanted =
            half.formSize.expandedTo(keyboard->minimumSizeHint()).expandedTo(keyboard->minimumSize());
        const int left = all.isNull() ? 0 : all.right() + 1 + Seam;
        keyboard->setGeometry(QRect(QPoint(left, 0), wanted.boundedTo(keyboard->maximumSize())));
        all |= keyboard->geometry();
        if (first.isNull())
            first = keyboard->geometry();
    }
    setFixedSize(all.size());
    m_cover->setGeometry(all);
    const int top = first.bottom() + 1 + Seam;
    placePanel({first.left(), top, first.width(), all.bottom() + 1 - top});
}

void ConsoleWindow::placePanel(const QRect &room)
{
    const QSize needed = m_panel->minimumSizeHint();
    const bool fits = needed.width() <= room.width() && needed.height() <= room.height();
    m_panel->setVisible(fits);
    if (fits)
        m_panel->setGeometry(room);
}

void ConsoleWindow::cover(Power power)
{
    m_cover->setPower(power);
    if (!m_cover->isHidden())
        return;
    // Keys that are held come up.
    QEvent deactivate(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(this, &deactivate);
    m_cover->raise();
    m_panel->raise();
    m_cover->show();
    m_cover->setFocus();
}

void ConsoleWindow::uncover()
{
    // A console that has restarted does not wait for anything any more.
    const auto indicators = findChildren<Korvo::Widgets::WaitingDialog *>();
    for (Korvo::Widgets::WaitingDialog *indicator : indicators)
        indicator->hideWaitingDialog();
    m_cover->hide();
    setFocus();
}

} // namespace K7Host
