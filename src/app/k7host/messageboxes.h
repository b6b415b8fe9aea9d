// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolewidgets.h"

#include <QObject>
#include <QPointer>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QMessageBox;
QT_END_NAMESPACE

namespace K7Host {

/// Sees every message box that the console opens, and answers them on request. One without a parent is the
/// console's, too. GUI thread only.
class MessageBoxes : public QObject
{
    Q_OBJECT

public:
    explicit MessageBoxes(const ConsoleWidgets::Halves &halves, QObject *parent = nullptr);

    /// Clicks \a button (a QMessageBox::StandardButton) of the box that is open, or of the one that opens
    /// next. One answer at a time: a later one replaces one that waits.
    void answer(const QString &button);
    /// An answer waits for a box.
    bool isAnswerWaiting() const { return !m_answer.isEmpty(); }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void opened(const K7Host::MessageLine &message);
    /// Somebody, or answer(), clicked a standard button. The box has not yet acted on it.
    void answered(const K7Host::AnswerLine &answer);
    /// The box that was to be answered has no such button.
    void answerRefused(const QString &button);

private:
    void note(QMessageBox *box);
    void noteClick(const QMessageBox *box, QAbstractButton *button);
    void giveAnswer();

    const ConsoleWidgets m_widgets;
    QPointer<QMessageBox> m_box; // the last one that opened
    QString m_answer;
};

} // namespace K7Host
