// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "messageboxes.h"

#include "inputevents.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QMetaEnum>
#include <QTimer>

namespace K7Host {

namespace {

QMetaEnum standardButtons()
{
    return QMetaEnum::fromType<QDialogButtonBox::StandardButtons>(); // the same values
}

void clickOn(QWidget *button)
{
    const QPointer<QWidget> guard = button;
    const QPoint middle = button->rect().center();
    sendMouse(button, QEvent::MouseButtonPress, middle);
    if (guard)
        sendMouse(button, QEvent::MouseButtonRelease, middle);
}

} // namespace

MessageBoxes::MessageBoxes(const ConsoleWidgets::Halves &halves, QObject *parent)
    : QObject(parent)
    , m_widgets(halves)
{
    qApp->installEventFilter(this);
}

void MessageBoxes::answer(const QString &button)
{
    m_answer = button;
    giveAnswer();
}

bool MessageBoxes::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show) {
        auto *box = qobject_cast<QMessageBox *>(watched);
        if (box && (!box->parent() || m_widgets.contain(box->parent())))
            note(box);
    }
    return false;
}

void MessageBoxes::note(QMessageBox *box)
{
    m_box = box;
    disconnect(box, &QMessageBox::buttonClicked, this, nullptr); // it may have been open before
    connect(box, &QMessageBox::buttonClicked, this,
            [this, box](QAbstractButton *button) { noteClick(box, button); });
    emit opened({box->windowTitle(), box->text(), box->informativeText()});
    // From its own event loop: it is not shown yet.
    QTimer::singleShot(0, this, &MessageBoxes::giveAnswer);
}

void MessageBoxes::noteClick(const QMessageBox *box, QAbstractButton *button)
{
    const char *name = standardButtons().valueToKey(box->standardButton(button));
    if (name)
        emit answered({QString::fromLatin1(name)});
}

void MessageBoxes::giveAnswer()
{
    if (m_answer.isEmpty() || !m_box || !m_box->isVisible())
        return;
    const QString name = m_answer;
    m_answer.clear();
    const int value = standardButtons().keyToValue(name.toLatin1().constData());
    if (QAbstractButton *button = m_box->button(static_cast<QMessageBox::StandardButton>(value)))
        clickOn(button);
    else
        emit answerRefused(name);
}

} // namespace K7Host
