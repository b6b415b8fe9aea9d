// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolewindow.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>

using Korvo::IKorvoECKeyboard;

namespace K7Host {

namespace {

constexpr QRgb Background = 0xff101215;
constexpr int Seam = 16; // pixels between the halves

} // namespace

ConsoleWindow::ConsoleWindow(const QList<QWeakPointer<IKorvoECKeyboard>> &halves, QWidget *parent)
    : QWidget(parent)
{
    setWindowTitle(QStringLiteral("K7"));
    for (const auto &half : halves) {
        if (const auto keyboard = half.toStrongRef()) {
            m_halves.push_back({half, keyboard->size()});
            keyboard->setParent(this);
            keyboard->show();
            // Sizes depend on fonts and borders, which come with the style sheet.
            const auto children = keyboard->findChildren<QWidget *>();
            for (const QWidget *child : children)
                child->ensurePolished();
        }
    }
    placeHalves();
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
    QImage image((QSizeF(size()) * factor).toSize(), QImage::Format_RGB32);
    // Scaled by the painter: rendering to an image with a pixel ratio below 1 leaves part of it out.
    QPainter painter(&image);
    painter.scale(factor, factor);
    render(&painter);
    return image;
}

bool ConsoleWindow::event(QEvent *event)
{
    // A half wants another size, now that the style sheet has reached all of its children.
    if (event->type() == QEvent::LayoutRequest)
        placeHalves();
    return QWidget::event(event);
}

void ConsoleWindow::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), QColor::fromRgb(Background));
    if (isVisible() && !m_isShown) {
        m_isShown = true;
        // The halves are painted after their window.
        QTimer::singleShot(0, this, &ConsoleWindow::shown);
    }
}

void ConsoleWindow::placeHalves()
{
    int left = 0;
    for (const Half &half : m_halves) {
        const auto keyboard = half.keyboard.toStrongRef();
        if (!keyboard)
            continue;
        // A form may be drawn smaller than what its layout needs.
        const QSize wanted =
            half.formSize.expandedTo(keyboard->minimumSizeHint()).expandedTo(keyboard->minimumSize());
        keyboard->setGeometry(QRect(QPoint(left, 0), wanted.boundedTo(keyboard->maximumSize())));
        left = keyboard->geometry().right() + 1 + Seam;
    }
    setFixedSize(childrenRect().size());
}

} // namespace K7Host
