// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "hardwarepanel.h"

#include "networkaddress.h"
#include "ui_hardwarepanel.h"

#include <QStyle>
#include <QTimer>

namespace K7Host {

namespace {

constexpr int ClockMs = 1000;
constexpr int MaxSizeTexts = 5; // that there is room for; all are in the tool tip

/// Style sheets select on it.
const char StateProperty[] = "hardwareState";

void setMarked(QLabel *label, const QString &text, const char *state)
{
    label->setText(text);
    const QVariant marker = QString::fromLatin1(state);
    if (label->property(StateProperty) == marker)
        return;
    label->setProperty(StateProperty, marker);
    label->style()->unpolish(label);
    label->style()->polish(label);
}

QString sizeText(const QSize &size)
{
    return QStringLiteral("%1\u00d7%2").arg(size.width()).arg(size.height());
}

/// One line for all screens of a size that follow one another.
QStringList sizeTexts(const QVector<QSize> &sizes)
{
    QStringList texts;
    for (int first = 0; first < sizes.size();) {
        int end = first + 1;
        while (end < sizes.size() && sizes.at(end) == sizes.at(first))
            ++end;
        const QString numbers =
            end - first == 1 ? QString::number(first + 1) : QStringLiteral("%1-%2").arg(first + 1).arg(end);
        texts << QStringLiteral("%1: %2").arg(numbers, sizeText(sizes.at(first)));
        first = end;
    }
    return texts;
}

} // namespace

HardwarePanel::HardwarePanel(QWidget *parent)
    : QFrame(parent)
    , m_ui(std::make_unique<Ui::HardwarePanel>())
    , m_clockTimer(new QTimer(this))
{
    m_ui->setupUi(this);
    m_clockTimer->setInterval(ClockMs);
    connect(m_clockTimer, &QTimer::timeout, this, &HardwarePanel::showClock);
    // By hand only: what a state sets is no wish of anybody.
    connect(m_ui->dvi0Box, &QCheckBox::clicked, this, [this](bool isOn) { emit dviSignalSwitched(0, isOn); });
    connect(m_ui->dvi1Box, &QCheckBox::clicked, this, [this](bool isOn) { emit dviSignalSwitched(1, isOn); });
    showState({});
}

HardwarePanel::~HardwarePanel() = default;

void HardwarePanel::showState(const HardwareState &state)
{
    m_state = state;
    showPorts();
    showLamps();
    showScreens();
    showDviSignals();
    showPower();
    showClock();
}

void HardwarePanel::showEvent(QShowEvent *event)
{
    showClock();
    m_clockTimer->start();
    QFrame::showEvent(event);
}

void HardwarePanel::hideEvent(QHideEvent *event)
{
    m_clockTimer->stop();
    QFrame::hideEvent(event);
}

void HardwarePanel::showClock()
{
    const QDateTime clock = m_state.clock(QDateTime::currentDateTime());
    const bool isTwelveHours = m_state.timeType == TimeType::Hours12;
    m_ui->timeLabel->setText(
        clock.time().toString(isTwelveHours ? QStringLiteral("h:mm:ss AP") : QStringLiteral("HH:mm:ss")));
    m_ui->dateLabel->setText(clock.date().toString(Qt::ISODate));
    m_ui->timeTypeLabel->setText(isTwelveHours ? QStringLiteral("12-hour display")
                                               : QStringLiteral("24-hour display"));
}

void HardwarePanel::showPorts()
{
    const auto show = [](const NetworkPort &port, QLabel *link, QLabel *ip, QLabel *more) {
        setMarked(link, port.isUp ? QStringLiteral("up") : QStringLiteral("down"),
                  port.isUp ? "good" : "off");
        ip->setText(addressText(port.addresses.ip));
        more->setText(QStringLiteral("mask %1   gateway %2")
                          .arg(addressText(port.addresses.mask), addressText(port.addresses.gateway)));
    };
    show(m_state.ports.at(1), m_ui->eth1LinkLabel, m_ui->eth1IpLabel, m_ui->eth1MoreLabel);
    show(m_state.ports.at(0), m_ui->eth2LinkLabel, m_ui->eth2IpLabel, m_ui->eth2MoreLabel);
}

void HardwarePanel::showLamps()
{
    const auto show = [this](Lamp lamp, QProgressBar *bar, QLabel *level) {
        const LampLevel &state = m_state.lamps.at(static_cast<std::size_t>(lamp));
        bar->setValue(state.isOn ? state.brightness : 0);
        level->setText(state.isOn ? QString::number(state.brightness) : QStringLiteral("off"));
    };
    show(Lamp::Gooseneck, m_ui->gooseneckBar, m_ui->gooseneckLevelLabel);
    show(Lamp::Front, m_ui->frontBar, m_ui->frontLevelLabel);
    show(Lamp::Lcd, m_ui->lcdBar, m_ui->lcdLevelLabel);
    show(Lamp::Logo, m_ui->logoBar, m_ui->logoLevelLabel);
}

void HardwarePanel::showScreens()
{
    const PeripheralScreens &screens = m_state.screens;
    m_ui->screenCountLabel->setText(QString::number(screens.sizes.size()));
    m_ui->operationScreenLabel->setText(
        screens.operationScreen < 0 ? QStringLiteral("none") : QString::number(screens.operationScreen + 1));
    QStringList sizes = sizeTexts(screens.sizes);
    m_ui->screenSizesLabel->setToolTip(sizes.join(QLatin1Char('\n')));
    if (sizes.size() > MaxSizeTexts)
        sizes = sizes.mid(0, MaxSizeTexts - 1) << QStringLiteral("\u2026");
    m_ui->screenSizesLabel->setText(sizes.join(QLatin1Char('\n')));
}

void HardwarePanel::showDviSignals()
{
    const auto show = [this](std::size_t input, QCheckBox *box) {
        const bool hasSignal = m_state.dviSignals.at(input);
        box->setChecked(hasSignal);
        box->setText(QStringLiteral("%1: %2").arg(input).arg(hasSignal ? QStringLiteral("signal")
                                                                       : QStringLiteral("no signal")));
        box->setAccessibleName(QStringLiteral("DVI %1").arg(box->text()));
    };
    show(0, m_ui->dvi0Box);
    show(1, m_ui->dvi1Box);
}

void HardwarePanel::showPower()
{
    switch (m_state.power) {
    case Power::On:
        return setMarked(m_ui->powerLabel, QStringLiteral("on"), "good");
    case Power::Restarting:
        return setMarked(m_ui->powerLabel, QStringLiteral("restarting"), "busy");
    case Power::Off:
        return setMarked(m_ui->powerLabel, QStringLiteral("off"), "off");
    }
}

} // namespace K7Host
