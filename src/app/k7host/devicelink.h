// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "hardwarestate.h"

#include <korvo/keyboard/records.h>

#include <QObject>
#include <QVector>

#include <memory>

namespace K7Host {

/// Key codes are key ids plus this.
constexpr quint32 KeyCodeOffset = 0xff0000;

/// What stands behind a console: takes its events, and answers with records for both halves.
///
/// Events come on the GUI thread. Records may be emitted from any thread, but not between consoleClosed() and
/// the next refresh().
class DeviceLink : public QObject
{
    Q_OBJECT

public:
    explicit DeviceLink(QObject *parent = nullptr);
    ~DeviceLink() override;

public Q_SLOTS:
    /// \a code is the key id plus KeyCodeOffset.
    virtual void keyPressed(quint32 code) = 0;
    virtual void keyReleased(quint32 code) = 0;
    /// The console knows nothing: send every record again.
    virtual void refresh() = 0;
    /// The console is going: once this returns, no record is emitted in any thread.
    virtual void consoleClosed() = 0;

    /// The lever was moved, other than by a record: twelfths of a percent, 0 to 1200.
    virtual void leverMoved(quint16 value, bool isBottomToTop) = 0;

    /// \a brightness is 1 to 15.
    virtual void lampChanged(K7Host::Lamp lamp, bool isOn, quint8 brightness) = 0;
    /// \a operationScreen is -1 for none; \a sizes are \a count widths and heights in turns, in pixels.
    virtual void peripheralScreensChanged(int count, int operationScreen, const QVector<quint16> &sizes) = 0;

    /// A record of the addresses of \a port is wanted. Port 0 is "eth2", port 1 is "eth0".
    virtual void addressesRequested(quint8 port) = 0;
    /// Somebody entered new addresses, as dotted texts; they are to hold after addressChangeRequested().
    virtual void addressesEntered(const QString &interfaceName, const QString &ip, const QString &mask,
                                  const QString &gateway) = 0;
    /// \a mode says nothing: addresses that were entered count, whatever it is.
    virtual void addressChangeRequested(quint8 port, quint8 mode) = 0;

    /// The clock is to be put to \a date (2026-1-31) and \a time (13:5:9).
    virtual void clockSet(const QString &date, const QString &time) = 0;
    /// 0 is 24 hours, 1 is 12.
    virtual void timeTypeChanged(int type) = 0;

    /// \a type is a Korvo::eECRestartType.
    virtual void restartRequested(quint8 type) = 0;

Q_SIGNALS:
    void buttonColorReported(std::shared_ptr<Korvo::ECButtonColor> color);
    void oledTextReported(std::shared_ptr<Korvo::ECOLEDText> text);
    void tBarValueReported(std::shared_ptr<Korvo::ECTBarValue> value);
    void deviceIPReported(std::shared_ptr<Korvo::ECDeviceIPData> ip);
    void dviSignalReported(std::shared_ptr<Korvo::DVIInSignal> signal);
    void peripheralVisibilityReported(std::shared_ptr<Korvo::PeripheralControlVisibleState> state);
};

} // namespace K7Host
