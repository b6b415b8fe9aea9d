// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include <korvo/widgets/waitingdialog.h>
#include <ovo/widgets/framelessmessagebox.h>

namespace Korvo::Internal {

using Ovo::Widgets::FramelessMessageBox;
using Widgets::WaitingDialog;

void ConsoleFloatWidget::slotRestart()
{
    confirmPowerEvent(Restart, tr("Are you sure to restart console?"), tr("restarting , please wait."));
}

void ConsoleFloatWidget::slotShutdown()
{
    confirmPowerEvent(Shutdown, tr("Are you sure to shutdown console?"), tr("shutting down , please wait."));
}

void ConsoleFloatWidget::confirmPowerEvent(eECRestartType type, const QString &question,
                                           const QString &waiting)
{
    const QPointer<ConsoleFloatWidget> self(this);
    const auto answer =
        FramelessMessageBox::question(this, tr("Remind"), question, QMessageBox::Yes | QMessageBox::No);
    if (answer != QMessageBox::Yes || !self)
        return;
    showWaiting(waiting); // until the console goes down
    Q_EMIT signalRestartControlEvent(static_cast<quint8>(type));
}

void ConsoleFloatWidget::showWaiting(const QString &text)
{
    if (!m_pWaitingDialog) {
        // Over the whole console half when the panel stands in one.
        QWidget *parent = parentWidget();
        if (parent && parent->parentWidget())
            parent = parent->parentWidget()->parentWidget();
        m_pWaitingDialog = new WaitingDialog(parent, Qt::WindowFlags());
    }
    m_pWaitingDialog->showWaitingDialog(text, WaitingDialog::Normal);
}

void ConsoleFloatWidget::hideWaiting()
{
    if (m_pWaitingDialog)
        m_pWaitingDialog->hideWaitingDialog();
}

} // namespace Korvo::Internal
