// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>
#include <QWidget>

#include <memory>

QT_BEGIN_NAMESPACE
class QToolButton;
QT_END_NAMESPACE

namespace Korvo {
struct ECDeviceIPData;
struct PeripheralControlVisibleState;
} // namespace Korvo

namespace Korvo::Internal {

class ConsoleFloatWidget;

/// The settings panel with the button that shows and hides it; the panel's signals leave here.
///
/// GUI thread only, except updateECDeviceIP().
class FloatWidgetWidthButton : public QWidget
{
    Q_OBJECT

public:
    explicit FloatWidgetWidthButton(QWidget *parent);

    /// Puts the stored settings into the panel.
    void initParm();
    void retranslateUi();
    void enterWindow();
    /// Opens the panel at the network settings of \a port; a negative port keeps the selected one.
    void setNetInfo(int port);
    /// From any thread.
    void updateECDeviceIP(std::shared_ptr<ECDeviceIPData> ip);
    /// Null changes nothing.
    void updatePeripheralVisibleState(const std::shared_ptr<PeripheralControlVisibleState> &state);

public Q_SLOTS:
    void slot_setFloatWidgetVisible();

Q_SIGNALS:
    void signalGrooseneckLightStatusChanged(bool on, quint8 brightness);
    void signalFrontLightStatusChanged(bool on, quint8 brightness);
    void signalSideLightStatusChanged(bool on, quint8 brightness);
    void signalLogoLightStatusChanged(bool on, quint8 brightness);
    void signalSetPeripheralDataChange(int count, int operationScreen, QVector<quint16> resolutions);
    void signalTimeChanged(QString text);
    void signalTimeTypeChanged(int type);
    void signalUpdateSystemTime(QString date, QString time);
    void signal_ipChanged(int port, QString ip);
    void signalUpdateSystemIP(QString interface, QString ip, QString mask, QString gateway);
    void signal_netStatusChanged(QString interface, int status);
    void signalReqECDeviceIP(quint8 port);
    void signalRestartControlEvent(quint8 type);
    void signalIPModeChanged(quint8 port, quint8 mode);

protected:
    void changeEvent(QEvent *event) override;

private:
    void createWidgets();
    void createConnects();
    void setPanelVisible(bool visible);
    void nameButton();

    ConsoleFloatWidget *m_pFloatWidget = nullptr;
    QToolButton *m_pFloatbutton = nullptr;
};

} // namespace Korvo::Internal
