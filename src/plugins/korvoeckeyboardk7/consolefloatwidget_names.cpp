// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "ui_consolefloatwidget.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QButtonGroup>
#include <QLineEdit>

namespace Korvo::Internal {

namespace {

/// A caption and the section that it stands in, as one name.
QString nameIn(const QLabel *section, const QString &caption)
{
    return QStringLiteral("%1: %2").arg(section->text(), caption);
}

// The parts are what takes the focus. The widget's own operations, so that any build of the kit will do.

void nameEditor(QWidget *editor, const QString &name)
{
    editor->setAccessibleName(name);
    const auto sliders = editor->findChildren<QAbstractSlider *>();
    for (QWidget *slider : sliders)
        slider->setAccessibleName(name);
    const auto fields = editor->findChildren<QAbstractSpinBox *>();
    for (QWidget *field : fields)
        field->setAccessibleName(name);
}

void nameOctets(QWidget *address, const QString &name)
{
    address->setAccessibleName(name);
    const auto octets = address->findChildren<QLineEdit *>();
    for (int i = 0; i < octets.size(); ++i)
        octets.at(i)->setAccessibleName(QStringLiteral("%1 %2").arg(name, QString::number(i + 1)));
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

    nameEditor(ui->widget_groosen, nameIn(ui->label_groosen, ui->label_groosenBrightness->text()));
    nameEditor(ui->widget_front, nameIn(ui->label_front, ui->label_frontBrightness->text()));
    nameEditor(ui->widget_lcd, ui->label_lcd->text());
    ui->screenScrollArea->setAccessibleName(ui->label_peripheral->text());
    nameEditor(ui->spinBox_width, nameIn(ui->label_resolution, ui->label_width->text()));
    nameEditor(ui->spinBox_height, nameIn(ui->label_resolution, ui->label_height->text()));
    nameOctets(ui->lineEdit_IP, ui->label_ip->text());
    nameOctets(ui->lineEdit_mask, ui->label_mask->text());
    nameOctets(ui->lineEdit_gateWay, ui->label_gateWay->text());
    ui->toolButton->setAccessibleName(ui->label_date->text());
    ui->timeWidget->setAccessibleName(ui->label_timeOfDay->text());

    ui->peripheralApply->setAccessibleName(nameIn(ui->label_peripheral, ui->peripheralApply->text()));
    ui->pushButton_apply->setAccessibleName(nameIn(ui->label_network, ui->pushButton_apply->text()));
    ui->pushButton_time->setAccessibleName(nameIn(ui->label_timeSetting, ui->pushButton_time->text()));

    const auto screens = m_pScreenButtonGroup->buttons();
    for (QAbstractButton *screen : screens)
        nameScreenButton(screen);
}

void ConsoleFloatWidget::nameScreenButton(QAbstractButton *button)
{
    button->setAccessibleName(tr("Screen %1").arg(m_pScreenButtonGroup->id(button) + 1));
}

} // namespace Korvo::Internal
