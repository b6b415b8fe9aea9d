// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "ui_consolefloatwidget.h"

#include <QButtonGroup>

namespace Korvo::Internal {

namespace {

/// A caption and the section that it stands in, as one name.
QString nameIn(const QLabel *section, const QString &caption)
{
    return QStringLiteral("%1: %2").arg(section->text(), caption);
}

} // namespace

// What a control is called is what stands beside it, in the language of that.
void ConsoleFloatWidget::nameControls()
{
    ui->label_groosen->setBuddy(ui->switch_groosen);
    ui->label_front->setBuddy(ui->switch_front);
    ui->label_logo->setBuddy(ui->switch_logo);
    ui->label_screenNumber->setBuddy(ui->screenNumberCombox);
    ui->label_currentPanel->setBuddy(ui->currentPanelCheckBox);

    ui->widget_groosen->setAccessibleName(nameIn(ui->label_groosen, ui->label_groosenBrightness->text()));
    ui->widget_front->setAccessibleName(nameIn(ui->label_front, ui->label_frontBrightness->text()));
    ui->widget_lcd->setAccessibleName(ui->label_lcd->text());
    ui->screenScrollArea->setAccessibleName(ui->label_peripheral->text());
    ui->spinBox_width->setAccessibleName(nameIn(ui->label_resolution, ui->label_width->text()));
    ui->spinBox_height->setAccessibleName(nameIn(ui->label_resolution, ui->label_height->text()));
    ui->lineEdit_IP->setAccessibleName(ui->label_ip->text());
    ui->lineEdit_mask->setAccessibleName(ui->label_mask->text());
    ui->lineEdit_gateWay->setAccessibleName(ui->label_gateWay->text());
    ui->toolButton->setAccessibleName(ui->label_date->text());
    ui->timeWidget->setAccessibleName(ui->label_timeOfDay->text());

    ui->peripheralApply->setAccessibleName(nameIn(ui->label_peripheral, ui->peripheralApply->text()));
    ui->pushButton_apply->setAccessibleName(nameIn(ui->label_network, ui->pushButton_apply->text()));
    ui->pushButton_time->setAccessibleName(nameIn(ui->label_timeSetting, ui->pushButton_time->text()));

    const int screens = m_pScreenButtonGroup->buttons().size();
    for (int id = 0; id < screens; ++id)
        nameScreenButton(id);
}

void ConsoleFloatWidget::nameScreenButton(int id)
{
    m_pScreenButtonGroup->button(id)->setAccessibleName(tr("Screen %1").arg(id + 1));
}

} // namespace Korvo::Internal
