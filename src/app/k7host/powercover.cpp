// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "powercover.h"

#include "ui_powercover.h"

#include <QPaintEvent>
#include <QPainter>

namespace K7Host {

PowerCover::PowerCover(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::PowerCover>())
{
    m_ui->setupUi(this);
    setPower(Power::Off);
    connect(m_ui->powerOnButton, &QPushButton::clicked, this, &PowerCover::switchOnRequested);
}

PowerCover::~PowerCover() = default;

void PowerCover::setPower(Power power)
{
    const bool isOff = power == Power::Off;
    m_ui->reasonLabel->setText(isOff ? QStringLiteral("The console is off")
                                     : QStringLiteral("Restarting \u2026"));
    setAccessibleName(m_ui->reasonLabel->text());
    m_ui->powerOnButton->setVisible(isOff);
    setFocusProxy(isOff ? m_ui->powerOnButton : nullptr);
}

void PowerCover::paintEvent(QPaintEvent *event)
{
    QPainter(this).fillRect(event->rect(), palette().color(QPalette::Shadow));
}

} // namespace K7Host
