// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "consoletexts.h"
#include "ui_consolefloatwidget.h"

#include <ovo/widgets/framelessmessagebox.h>

#include <QButtonGroup>
#include <QSettings>
#include <QTime>
#include <QtConcurrentRun>

#include <algorithm>

namespace Korvo::Internal {

using Ovo::Widgets::FramelessMessageBox;

namespace {

constexpr int TwentyFourHours = 0;
constexpr int TwelveHours = 1;

constexpr int TwentyFourHourWidth = 225;
constexpr int TwelveHourWidth = 275; // with the wheel of AM and PM

// The wheel's values, which no language changes.
const QLatin1String Am("AM");
const QLatin1String Pm("PM");

/// Noon becomes 0, on purpose.
int afternoonHour(int hour)
{
    return hour + 12 == 24 ? 0 : hour + 12;
}

} // namespace

void ConsoleFloatWidget::initTimeDisplay()
{
    const int type = stored(QStringLiteral("timeDiaplay"), TwentyFourHours).toInt();
    QAbstractButton *button = m_pTimeTypeGroup->button(type);
    if (button && !button->isChecked())
        button->setChecked(true); // which calls the slot
    else
        slotTimeDisplayChanged(type, true);
}

void ConsoleFloatWidget::initCurrentTime()
{
    const QTime now = QTime::currentTime();
    const bool hasType = m_pTimeTypeGroup->checkedId() != TwentyFourHours;
    ui->timeWidget->setMin(now.minute());
    ui->timeWidget->setSec(now.second());
    ui->timeWidget->setTypeVisible(hasType);

    const bool isPm = hasType && now.hour() > 11;
    ui->timeWidget->setAMPM(isPm ? Pm : Am);
    ui->timeWidget->setHour(isPm ? now.hour() - 12 : now.hour());
}

void ConsoleFloatWidget::handleTimeout()
{
    refreshTime();
}

void ConsoleFloatWidget::refreshTime()
{
    const bool is12Hours = m_pTimeTypeGroup->checkedId() == TwelveHours;
    QString text =
        ui->toolButton->text() + QString(10, QLatin1Char(' ')) + clockText(QTime::currentTime(), is12Hours);
    // The suffix is the wheel's, not the clock's, on purpose.
    if (is12Hours)
        text += QLatin1Char(' ') + ui->timeWidget->getTimeType();
    Q_EMIT signalTimeChanged(text);
}

void ConsoleFloatWidget::slotTimeDisplayChanged(int id, bool checked)
{
    if (auto *button = qobject_cast<QPushButton *>(m_pTimeTypeGroup->button(id)))
        button->setFlat(checked);
    if (!checked)
        return;

    int hour = ui->timeWidget->getHour();
    if (id == TwelveHours) {
        ui->timeWidget->setTypeVisible(true);
        ui->timeWidget->setAMPM(hour < 13 ? Am : Pm);
        if (hour >= 13)
            hour -= 12;
        ui->timeWidget->setFixedWidth(TwelveHourWidth);
        ui->timeWidget->setHourList(12);
    } else if (id == TwentyFourHours) {
        if (ui->timeWidget->getTimeType() == Pm)
            hour = afternoonHour(hour);
        ui->timeWidget->setTypeVisible(false);
        ui->timeWidget->setFixedWidth(TwentyFourHourWidth);
        ui->timeWidget->setHourList(24);
    }
    ui->timeWidget->setHour(hour);
    store(QStringLiteral("timeDiaplay"), id);
    Q_EMIT signalTimeTypeChanged(id);
}

void ConsoleFloatWidget::slotTimeChanged()
{
    int hour = ui->timeWidget->getHour();
    const bool is12Hours = m_pTimeTypeGroup->checkedId() == TwelveHours;
    if (is12Hours && ui->timeWidget->getTimeType() == Pm)
        hour = afternoonHour(hour);

    QString date = ui->toolButton->text();
    switchDateFormt(date);
    const QString time =
        QStringLiteral("%1:%2:%3").arg(hour).arg(ui->timeWidget->getMin()).arg(ui->timeWidget->getSec());
    startTimeSetting(date, time);
}

void ConsoleFloatWidget::startTimeSetting(const QString &date, const QString &time)
{
    showWaiting(tr("time updating , please wait."));
    if (!m_pWatcher)
        m_pWatcher = new QFutureWatcher<int>;
    using Watcher = QFutureWatcher<int>;
    disconnect(m_pWatcher, &Watcher::finished, this, &ConsoleFloatWidget::slotChangeTimeFinished);
    connect(m_pWatcher, &Watcher::finished, this, &ConsoleFloatWidget::slotChangeTimeFinished);

    m_timeFuture = QtConcurrent::run(this, &ConsoleFloatWidget::setSystemTime, date, time);
    m_timeRuns.erase(std::remove_if(m_timeRuns.begin(), m_timeRuns.end(),
                                    [](const QFuture<int> &run) { return run.isFinished(); }),
                     m_timeRuns.end());
    m_timeRuns << m_timeFuture;
    m_pWatcher->setFuture(m_timeFuture);
}

int ConsoleFloatWidget::setSystemTime(QString &date, QString &time)
{
    Q_EMIT signalUpdateSystemTime(date, time);
    Q_EMIT signalTimeTypeChanged(m_pSettings->value(QStringLiteral("timeDiaplay")).toInt());
    // As long as the console takes to follow, unless the panel goes first.
    m_isLeaving.tryAcquire(1, m_delays.timeSetting);
    return 0;
}

void ConsoleFloatWidget::slotChangeTimeFinished()
{
    m_timeFuture.waitForFinished();
    if (m_timeFuture.resultCount() == 0)
        return;
    const int result = m_timeFuture.result();
    hideWaiting();
    if (result != 0) {
        FramelessMessageBox::information(this, tr("Remind"), tr("Time setting failed."), QMessageBox::Ok);
        return;
    }
    refreshTime();
    // Before the box is answered, since the time may be set again or the panel go until then.
    if (m_pWatcher)
        m_pWatcher->deleteLater();
    m_pWatcher = nullptr;
    FramelessMessageBox::information(this, tr("Remind"), tr("The time setting was successful."),
                                     QMessageBox::Ok);
}

} // namespace Korvo::Internal
