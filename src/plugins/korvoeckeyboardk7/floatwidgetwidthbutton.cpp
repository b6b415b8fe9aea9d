// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "floatwidgetwidthbutton.h"

#include "consolefloatwidget.h"
#include "markers.h"

#include <korvo/keyboard/records.h>

#include <QEvent>
#include <QToolButton>

#include <utility>

namespace Korvo::Internal {

using ECKeyboard::K7::Internal::mark;
using ECKeyboard::K7::Internal::setMarker;

namespace {

constexpr QSize Size(580, 1075);
constexpr QSize ButtonSize(46, 121);
constexpr int ButtonY = 477;
constexpr int OpenGap = 47;   // from the button's left edge to the panel
constexpr int ClosedGap = 71; // and, with the panel closed, to the right edge

} // namespace

FloatWidgetWidthButton::FloatWidgetWidthButton(QWidget *parent)
    : QWidget(parent)
{
    createWidgets();
    createConnects();
}

void FloatWidgetWidthButton::createWidgets()
{
    setFixedSize(Size);
    m_pFloatbutton = new QToolButton(this);
    m_pFloatbutton->setObjectName(QStringLiteral("floatButton"));
    m_pFloatbutton->setFixedSize(ButtonSize);
    mark(m_pFloatbutton, "floatButton_hide");
    m_pFloatWidget = new ConsoleFloatWidget(this);
    if (m_pFloatWidget->isHidden()) // else it shows with its parent, and would be polished now in vain
        m_pFloatWidget->show();
    m_pFloatWidget->move(width() - m_pFloatWidget->width() - 1, 0);
    m_pFloatWidget->lower();
    m_pFloatbutton->move(width() - m_pFloatWidget->width() - OpenGap, ButtonY);
    m_pFloatbutton->raise();
    nameButton();
}

void FloatWidgetWidthButton::createConnects()
{
    using Panel = ConsoleFloatWidget;
    using Self = FloatWidgetWidthButton;
    qRegisterMetaType<QVector<quint16>>("QVector<quint16>");

    connect(m_pFloatbutton, &QToolButton::clicked, this, &Self::slot_setFloatWidgetVisible);

    const auto relay = [this](auto panelSignal, auto ownSignal) {
        connect(m_pFloatWidget, panelSignal, this, ownSignal);
    };
    relay(&Panel::signalGrooseneckLightStatusChanged, &Self::signalGrooseneckLightStatusChanged);
    relay(&Panel::signalFrontLightStatusChanged, &Self::signalFrontLightStatusChanged);
    relay(&Panel::signalSideLightStatusChanged, &Self::signalSideLightStatusChanged);
    relay(&Panel::signalLogoLightStatusChanged, &Self::signalLogoLightStatusChanged);
    relay(&Panel::signalSetPeripheralDataChange, &Self::signalSetPeripheralDataChange);
    relay(&Panel::signalTimeChanged, &Self::signalTimeChanged);
    relay(&Panel::signalTimeTypeChanged, &Self::signalTimeTypeChanged);
    relay(&Panel::signalUpdateSystemTime, &Self::signalUpdateSystemTime);
    relay(&Panel::signalUpdateIPText, &Self::signal_ipChanged);
    relay(&Panel::signalUpdateSystemIP, &Self::signalUpdateSystemIP);
    relay(&Panel::signalIPStatusChanged, &Self::signal_netStatusChanged);
    relay(&Panel::signalReqECDeviceIP, &Self::signalReqECDeviceIP);
    relay(&Panel::signalRestartControlEvent, &Self::signalRestartControlEvent);
    relay(&Panel::signalIPModeChanged, &Self::signalIPModeChanged);
}

void FloatWidgetWidthButton::initParm()
{
    m_pFloatWidget->initParm();
}

void FloatWidgetWidthButton::retranslateUi()
{
    m_pFloatWidget->retranslateUi();
    nameButton();
}

void FloatWidgetWidthButton::enterWindow()
{
    if (m_pFloatWidget)
        m_pFloatWidget->enterWindow();
}

void FloatWidgetWidthButton::setNetInfo(int port)
{
    setPanelVisible(true);
    m_pFloatWidget->setNetInfoFocus(port);
}

void FloatWidgetWidthButton::updateECDeviceIP(std::shared_ptr<ECDeviceIPData> ip)
{
    m_pFloatWidget->updateECDeviceIP(std::move(ip));
}

void FloatWidgetWidthButton::updatePeripheralVisibleState(
    const std::shared_ptr<PeripheralControlVisibleState> &state)
{
    if (state)
        m_pFloatWidget->initPeripheralModule(state->visible != 0);
}

void FloatWidgetWidthButton::slot_setFloatWidgetVisible()
{
    setPanelVisible(m_pFloatWidget->isHidden());
}

void FloatWidgetWidthButton::setPanelVisible(bool visible)
{
    const int x = visible ? width() - m_pFloatWidget->width() - OpenGap : width() - ClosedGap;
    m_pFloatbutton->move(x, ButtonY);
    m_pFloatWidget->setVisible(visible);
    setMarker(m_pFloatbutton, "floatButton_hide", visible);
    nameButton();
}

void FloatWidgetWidthButton::nameButton()
{
    m_pFloatbutton->setAccessibleName(m_pFloatWidget->isHidden() ? tr("Show settings") : tr("Hide settings"));
}

void FloatWidgetWidthButton::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslateUi();
}

} // namespace Korvo::Internal
