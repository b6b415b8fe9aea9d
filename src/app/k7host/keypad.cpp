// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "keypad.h"

#include "ui_keypad.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

namespace K7Host {

namespace {

constexpr int Gap = 6; // pixels between field and keypad

/// The nearest to \a wanted at which \a length lies within \a from to \a to, both included.
int fitted(int wanted, int length, int from, int to)
{
    return std::max(from, std::min(wanted, to + 1 - length));
}

} // namespace

Keypad::Keypad(QWidget *parent)
    : QFrame(parent)
    , m_ui(new Ui::Keypad)
{
    m_ui->setupUi(this);
    hide();
    // What misses the keys is not meant for what lies under the keypad.
    setAttribute(Qt::WA_NoMousePropagation);
    // Also where the window gives it no background.
    setAutoFillBackground(true);

    setFocusProxy(focusedIn(window()));
    qApp->installEventFilter(this);

    const QAbstractButton *const digits[] = {m_ui->key_0, m_ui->key_1, m_ui->key_2, m_ui->key_3, m_ui->key_4,
                                             m_ui->key_5, m_ui->key_6, m_ui->key_7, m_ui->key_8, m_ui->key_9};
    int key = Qt::Key_0;
    for (const QAbstractButton *digit : digits) {
        connect(digit, &QAbstractButton::pressed, this, [this, digit, key] { type(key, digit->text()); });
        ++key;
    }
    // The key of a comma is another one; editors look at the text.
    connect(m_ui->key_point, &QAbstractButton::pressed, this, [this] {
        const QString point = m_ui->key_point->text();
        type(point.at(0).unicode(), point);
    });
    connect(m_ui->key_back, &QAbstractButton::pressed, this,
            [this] { type(Qt::Key_Backspace, QStringLiteral("\b")); });
    connect(m_ui->key_left, &QAbstractButton::pressed, this, [this] { type(Qt::Key_Left); });
    connect(m_ui->key_right, &QAbstractButton::pressed, this, [this] { type(Qt::Key_Right); });
    connect(m_ui->key_clear, &QAbstractButton::pressed, this, &Keypad::clear);
    // These close, so the finger leaves them first: it must not end on what stood behind.
    connect(m_ui->key_enter, &QAbstractButton::clicked, this, [this] {
        type(Qt::Key_Return, QStringLiteral("\r"));
        emit done();
    });
    connect(m_ui->key_close, &QAbstractButton::clicked, this, &Keypad::done);
}

Keypad::~Keypad() = default;

void Keypad::setPoint(QChar point)
{
    m_ui->key_point->setText(point);
}

bool Keypad::eventFilter(QObject *watched, QEvent *event)
{
    // A click gives the focus to the next widget around it that takes it, unless it meets one before whose
    // proxy has it already.
    if (event->type() == QEvent::FocusIn && watched->isWidgetType() && watched == focusedIn(window()))
        setFocusProxy(static_cast<QWidget *>(watched));
    return false;
}

/// As a keyboard does: a press may move the focus, and the release goes to who has it then.
void Keypad::type(int key, const QString &text, Qt::KeyboardModifiers modifiers)
{
    for (const auto eventType : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (QWidget *focused = focusedIn(window())) {
            QKeyEvent event(eventType, key, modifiers, text);
            QCoreApplication::sendEvent(focused, &event);
        }
    }
}

void Keypad::clear()
{
    type(Qt::Key_A, QString(), Qt::ControlModifier);
    type(Qt::Key_Delete, QStringLiteral("\x7f"));
}

QWidget *focusedIn(const QWidget *window)
{
    QWidget *focused = window->focusWidget();
    return focused && focused->hasFocus() ? focused : nullptr;
}

std::optional<QPoint> placeBeside(const QRect &field, const QSize &size, const QRect &bounds)
{
    const int x = fitted(field.left(), size.width(), bounds.left(), bounds.right());
    const int y = fitted(field.top(), size.height(), bounds.top(), bounds.bottom());
    const QPoint places[] = {{x, field.bottom() + 1 + Gap},
                             {x, field.top() - Gap - size.height()},
                             {field.right() + 1 + Gap, y},
                             {field.left() - Gap - size.width(), y}};
    const auto *const found = std::find_if(std::begin(places), std::end(places), [&](const QPoint &place) {
        return bounds.contains(QRect(place, size));
    });
    return found == std::end(places) ? std::nullopt : std::make_optional(*found);
}

} // namespace K7Host
