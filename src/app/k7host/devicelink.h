// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/records.h>

#include <QObject>

#include <memory>

namespace K7Host {

/// Key codes are key ids plus this.
constexpr quint32 KeyCodeOffset = 0xff0000;

/// What stands behind a console: takes its events, and answers with records for both halves.
///
/// Events come on the GUI thread. Records may be emitted from any thread, but not any more once the
/// ConsoleSession that uses the link is being destroyed.
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

Q_SIGNALS:
    void buttonColorReported(std::shared_ptr<Korvo::ECButtonColor> color);
    void oledTextReported(std::shared_ptr<Korvo::ECOLEDText> text);
    void tBarValueReported(std::shared_ptr<Korvo::ECTBarValue> value);
    void deviceIPReported(std::shared_ptr<Korvo::ECDeviceIPData> ip);
    void dviSignalReported(std::shared_ptr<Korvo::DVIInSignal> signal);
    void peripheralVisibilityReported(std::shared_ptr<Korvo::PeripheralControlVisibleState> state);
};

} // namespace K7Host
