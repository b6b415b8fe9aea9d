// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "logokeyboardframe.h"

#include "floatwidgetwidthbutton.h"
#include "markers.h"
#include "ui_logokeyboardframe.h"

#include <korvo/keyboard/records.h>
#include <korvo/utils/icon.h>

#include <QButtonGroup>
#include <QEvent>

#include <utility>

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

using Korvo::Internal::FloatWidgetWidthButton;

namespace {

constexpr int PortIconSize = 16;

/// How a port's button shows its link. The numbers of markers and icons are crossed with the buttons' texts,
/// on purpose: style sheets and themes know them so.
struct PortLook
{
    const char *offlineMarker;
    QString onlineIcon;
    QString offlineIcon;
};

PortLook eth1Look()
{
    return {"eth2StatusButton", QStringLiteral("eth2_online"), QStringLiteral("eth2_offline")};
}

PortLook eth2Look()
{
    return {"eth1StatusButton", QStringLiteral("eth1_online"), QStringLiteral("eth1_offline")};
}

void showPort(QToolButton *button, const PortLook &look, bool isOnline)
{
    if (!button->icon().isNull() && button->property(look.offlineMarker) == QVariant(!isOnline))
        return;
    button->setIcon(Utils::Icon::fromTheme(isOnline ? look.onlineIcon : look.offlineIcon));
    setMarker(button, look.offlineMarker, !isOnline);
}

} // namespace

class LogoKeyboardFramePrivate : public QObject
{
    Q_OBJECT

public:
    explicit LogoKeyboardFramePrivate(LogoKeyboardFrame *frame)
        : m_pLogoKeyboardFrame(frame)
    {
    }
    ~LogoKeyboardFramePrivate() override;

    void createWidgets();
    void initWidget();
    void createConnects();
    void createModeGroup();
    void nameControls();
    void updateDVISignalStatus(const DVIInSignal &signal);

    LogoKeyboardFrame *m_pLogoKeyboardFrame; // owns this
    Ui::LogoKeyboardFrame *ui = nullptr;
    FloatWidgetWidthButton *m_pFloatWidget = nullptr;
    QButtonGroup *m_pModeButtonGroup = nullptr;

private Q_SLOTS:
    void slotGrooseneckLightStatusChanged(bool on) { setMarker(ui->frame_6, "grooseneck", on); }
    void slotFrontLightStatusChanged(bool on) { setMarker(ui->frame_8, "front", on); }
    void slotSiderLightStatusChanged(bool on) { setMarker(ui->frame_7, "side", on); }
    void slotLogoLightStatusChanged(bool on) { setMarker(ui->label_logo, "q6logo", on); }
    void slotSettingNet(const QAbstractButton *button);
    void slotIpChanged(int index, const QString &text);
    void slotNetStatusChanged(const QString &name, int status);
    void slotTimeChanged(const QString &text) { ui->label_time->setText(text); }

private:
    void initPortButton(QToolButton *button, const QString &text, const PortLook &look);
};

LogoKeyboardFramePrivate::~LogoKeyboardFramePrivate()
{
    delete m_pModeButtonGroup;
    delete ui;
}

void LogoKeyboardFramePrivate::createWidgets()
{
    ui = new Ui::LogoKeyboardFrame;
    ui->setupUi(m_pLogoKeyboardFrame);
    for (QWidget *frame :
         std::initializer_list<QWidget *>{m_pLogoKeyboardFrame, ui->frame_4, ui->frame_5, ui->frame_8})
        mark(frame, "contentFrame");
}

void LogoKeyboardFramePrivate::initWidget()
{
    mark(ui->backgroundFrame, "q6backgroundLabel");
    mark(ui->frame_4, "background");
    mark(ui->label_logo, "q6logo");
    setMarker(ui->frame_6, "grooseneck", false);
    setMarker(ui->frame_7, "side", false);
    setMarker(ui->frame_8, "front", false);
    initPortButton(ui->toolButton_net, QStringLiteral("ETH1"), eth1Look());
    initPortButton(ui->toolButton_net2, QStringLiteral("ETH2"), eth2Look());
    mark(ui->label_in1, "in1Status");
    mark(ui->label_in2, "in2Status");

    m_pFloatWidget = new FloatWidgetWidthButton(m_pLogoKeyboardFrame);
    m_pFloatWidget->move(m_pLogoKeyboardFrame->geometry().right() - m_pFloatWidget->width(),
                         m_pFloatWidget->y() - 30);

    for (QWidget *button : {ui->toolButton, ui->toolButton_2, ui->toolButton_3})
        mark(button, "settingButton");
    ui->toolButton_3->hide();
}

void LogoKeyboardFramePrivate::initPortButton(QToolButton *button, const QString &text, const PortLook &look)
{
    button->setAttribute(Qt::WA_TransparentForMouseEvents); // it shows, and does nothing
    button->setText(text);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIconSize({PortIconSize, PortIconSize});
    showPort(button, look, false);
}

void LogoKeyboardFramePrivate::createConnects()
{
    using Panel = FloatWidgetWidthButton;
    using Strip = LogoKeyboardFrame;
    using Self = LogoKeyboardFramePrivate;
    const auto listen = [this](auto panelSignal, auto slot) {
        connect(m_pFloatWidget, panelSignal, this, slot);
    };
    const auto relay = [this](auto panelSignal, auto stripSignal) {
        connect(m_pFloatWidget, panelSignal, m_pLogoKeyboardFrame, stripSignal);
    };

    listen(&Panel::signalGrooseneckLightStatusChanged, &Self::slotGrooseneckLightStatusChanged);
    relay(&Panel::signalGrooseneckLightStatusChanged, &Strip::signalGrooseneckLightStatusChanged);
    listen(&Panel::signalFrontLightStatusChanged, &Self::slotFrontLightStatusChanged);
    relay(&Panel::signalFrontLightStatusChanged, &Strip::signalFrontLightStatusChanged);
    listen(&Panel::signalSideLightStatusChanged, &Self::slotSiderLightStatusChanged);
    relay(&Panel::signalSideLightStatusChanged, &Strip::signalSideLightStatusChanged);
    listen(&Panel::signalLogoLightStatusChanged, &Self::slotLogoLightStatusChanged);
    relay(&Panel::signalLogoLightStatusChanged, &Strip::signalLogoLightStatusChanged);
    relay(&Panel::signalSetPeripheralDataChange, &Strip::signalSetPeripheralDataChange);
    relay(&Panel::signalReqECDeviceIP, &Strip::signalReqECDeviceIP);
    relay(&Panel::signalRestartControlEvent, &Strip::signalRestartControlEvent);
    relay(&Panel::signalIPModeChanged, &Strip::signalIPModeChanged);
    listen(&Panel::signalTimeChanged, &Self::slotTimeChanged);
    relay(&Panel::signalTimeTypeChanged, &Strip::signalTimeTypeChanged);
    relay(&Panel::signalUpdateSystemTime, &Strip::signalUpdateSystemTime);
    listen(&Panel::signal_ipChanged, &Self::slotIpChanged);
    relay(&Panel::signalUpdateSystemIP, &Strip::signalUpdateSystemIP);
    listen(&Panel::signal_netStatusChanged, &Self::slotNetStatusChanged);

    for (const QToolButton *button : {ui->toolButton, ui->toolButton_2, ui->toolButton_3})
        connect(button, &QToolButton::clicked, this, [this, button] { slotSettingNet(button); });
}

void LogoKeyboardFramePrivate::createModeGroup()
{
    m_pModeButtonGroup = new QButtonGroup;
    m_pModeButtonGroup->addButton(ui->toolButton, 0);
    m_pModeButtonGroup->addButton(ui->toolButton_2, 1);
}

// Their texts are all the same.
void LogoKeyboardFramePrivate::nameControls()
{
    for (QWidget *button : {ui->toolButton, ui->toolButton_3})
        button->setAccessibleName(LogoKeyboardFrame::tr("ETH2 settings"));
    ui->toolButton_2->setAccessibleName(LogoKeyboardFrame::tr("ETH1 settings"));
}

// The third button has its number under another name, "neyType", and so opens the first port: on purpose.
void LogoKeyboardFramePrivate::slotSettingNet(const QAbstractButton *button)
{
    m_pFloatWidget->setNetInfo(button->property("netType").toInt());
}

void LogoKeyboardFramePrivate::slotIpChanged(int index, const QString &text)
{
    if (index == 0)
        ui->label_2->setText(text);
    else if (index == 1)
        ui->label_5->setText(text);
}

void LogoKeyboardFramePrivate::slotNetStatusChanged(const QString &name, int status)
{
    if (name == QLatin1String("eth0"))
        showPort(ui->toolButton_net, eth1Look(), status != 0);
    else if (name == QLatin1String("eth2"))
        showPort(ui->toolButton_net2, eth2Look(), status != 0);
}

void LogoKeyboardFramePrivate::updateDVISignalStatus(const DVIInSignal &signal)
{
    if (signal.Index == 0)
        setMarker(ui->label_in1, "in1Status", signal.Signal == 0);
    else if (signal.Index == 1)
        setMarker(ui->label_in2, "in2Status", signal.Signal == 0);
}

} // namespace Internal

LogoKeyboardFrame::LogoKeyboardFrame(QWidget *parent)
    : QFrame(parent)
    , d(new Internal::LogoKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->initWidget();
    d->nameControls();
    d->createConnects();
    d->m_pFloatWidget->initParm();
    d->createModeGroup();
}

LogoKeyboardFrame::~LogoKeyboardFrame()
{
    // Before the indicators that it writes to; it may have work under way.
    delete d->m_pFloatWidget;
    delete d;
    d = nullptr;
}

void LogoKeyboardFrame::updateECDeviceIP(std::shared_ptr<ECDeviceIPData> ip)
{
    d->m_pFloatWidget->updateECDeviceIP(std::move(ip));
}

void LogoKeyboardFrame::updateDVISignalStatus(const std::shared_ptr<DVIInSignal> &signal)
{
    if (signal)
        d->updateDVISignalStatus(*signal);
}

void LogoKeyboardFrame::updatePeripheralVisibleState(
    const std::shared_ptr<PeripheralControlVisibleState> &state)
{
    d->m_pFloatWidget->updatePeripheralVisibleState(state);
}

void LogoKeyboardFrame::enterWindow()
{
    d->m_pFloatWidget->enterWindow();
}

void LogoKeyboardFrame::retranslateUi()
{
    d->ui->retranslateUi(this);
    d->nameControls();
}

void LogoKeyboardFrame::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslateUi();
}

} // namespace Korvo::ECKeyboard::K7

#include "logokeyboardframe.moc"
