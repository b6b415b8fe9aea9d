// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/export.h>
#include <korvo/keyboard/records.h>
#include <ovo/utils/id.h>

#include <QFrame>
#include <QVector>

#include <memory>

namespace Korvo {

/// One console half: a widget that paints the host's records and sends key codes and settings.
///
/// Hosts call the virtual operations through the table, so their order is part of the interface: new
/// ones go to the end. A null record changes nothing.
class KORVO_KEYBOARD_EXPORT IKorvoECKeyboard : public QFrame
{
    Q_OBJECT

public:
    explicit IKorvoECKeyboard(QWidget *parent = nullptr);
    ~IKorvoECKeyboard() override;

    virtual QString displayName() const = 0;
    virtual Ovo::Utils::Id keyboardId() const = 0;

    /// Gives every key its idle look. The spelling is part of the interface.
    virtual void applyNoramlStyleSheet() = 0;
    virtual bool updateECButtonColor(std::shared_ptr<ECButtonColor> color) = 0;
    virtual bool updateECOledText(std::shared_ptr<ECOLEDText> text) = 0;
    virtual bool updateTBarValue(std::shared_ptr<ECTBarValue> value) = 0;
    virtual void updateECDeviceIP(std::shared_ptr<ECDeviceIPData> ip) = 0;
    /// Announces signalKorvoPluginModeChanged().
    virtual bool updateKeyboard() = 0;
    virtual void updateDVISignalStatus(std::shared_ptr<DVIInSignal> signal) = 0;
    virtual void updatePeripheralVisibleState(std::shared_ptr<PeripheralControlVisibleState> state) = 0;

Q_SIGNALS:
    /// A key went down, came up. \a key is the key code: key id plus 0xff0000.
    void ecButtonPressed(const quint32 &key);
    void ecButtonRelease(const quint32 &key);
    /// updateKeyboard() was called: the keyboard mode changed, and the host may want to send its records
    /// anew.
    void signalKorvoPluginModeChanged();
    /// Lamps: on or off, brightness 1 to 15.
    void signalGrooseneckLightStatusChanged(bool on, quint8 brightness);
    void signalFrontLightStatusChanged(bool on, quint8 brightness);
    void signalSideLightStatusChanged(bool on, quint8 brightness);
    void signalLogoLightStatusChanged(bool on, quint8 brightness);
    /// Peripheral screens: their number, the id of the operation screen (-1 is none), and width and height
    /// of each in turn.
    void signalSetPeripheralDataChange(int count, int operationScreen, QVector<quint16> sizes);
    /// New date and time of the console, as texts.
    void signalUpdateSystemTime(QString date, QString time);
    /// New address of a port: interface name, IP, mask, gateway.
    void signalUpdateSystemIP(QString interfaceName, QString ip, QString mask, QString gateway);
    /// The lever moved, other than by a record: twelfths of a percent, 0 to 1200.
    void ecTBarValueChanged(const quint16 &value, bool isBottomToTop);
    /// Asks the host for an ECDeviceIPData record of port \a index.
    void signalReqECDeviceIP(quint8 index);
    /// \a type is an eECRestartType.
    void signalRestartControlEvent(quint8 type);
    /// 0 is 24 hours, 1 is 12 hours.
    void signalTimeTypeChanged(int type);
    /// Port 0 is "eth2", port 1 is "eth0".
    void signalIPModeChanged(quint8 port, quint8 mode);
};

} // namespace Korvo
