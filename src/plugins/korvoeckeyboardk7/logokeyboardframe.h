// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>
#include <QVector>

#include <memory>

namespace Korvo {
struct DVIInSignal;
struct ECDeviceIPData;
struct PeripheralControlVisibleState;
} // namespace Korvo

namespace Korvo::ECKeyboard::K7 {

namespace Internal {
class LogoKeyboardFramePrivate;
}

/// The status strip: logo, lamps, network ports, DVI inputs and clock of the console, with the settings panel
/// beside them. What the panel asks of the console passes through here.
///
/// GUI thread only, except updateECDeviceIP(), which may be called from any thread.
class LogoKeyboardFrame : public QFrame
{
    Q_OBJECT

public:
    explicit LogoKeyboardFrame(QWidget *parent);
    ~LogoKeyboardFrame() override;

    void updateECDeviceIP(std::shared_ptr<ECDeviceIPData> ip);
    void updateDVISignalStatus(const std::shared_ptr<DVIInSignal> &signal);
    void updatePeripheralVisibleState(const std::shared_ptr<PeripheralControlVisibleState> &state);
    void enterWindow();
    void retranslateUi();

Q_SIGNALS:
    void signalGrooseneckLightStatusChanged(bool on, quint8 brightness);
    void signalFrontLightStatusChanged(bool on, quint8 brightness);
    void signalSideLightStatusChanged(bool on, quint8 brightness);
    void signalLogoLightStatusChanged(bool on, quint8 brightness);
    void signalSetPeripheralDataChange(int count, int operationScreen, QVector<quint16> resolutions);
    void signalReqECDeviceIP(quint8 port);
    void signalRestartControlEvent(quint8 type);
    void signalIPModeChanged(quint8 port, quint8 mode);
    void signalTimeTypeChanged(int type);
    void signalUpdateSystemTime(QString date, QString time);
    void signalUpdateSystemIP(QString interface, QString ip, QString mask, QString gateway);

protected:
    void changeEvent(QEvent *event) override;

private:
    Internal::LogoKeyboardFramePrivate *d;
};

} // namespace Korvo::ECKeyboard::K7
