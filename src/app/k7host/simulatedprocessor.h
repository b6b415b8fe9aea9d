// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolehardware.h"
#include "consolemodel.h"
#include "devicelink.h"

#include <QThreadPool>

class QTimer;

namespace K7Host {

/// A link to a small video processor that exists only in memory. It answers a key at once, with a record for
/// each key, label and lever that changed, and a transition with the lever's records at 25 frames a second.
/// Address requests are answered after a while. While it restarts or is off, the console is dark and nothing
/// is answered.
///
/// GUI thread only, but the address records of port 0 come from another thread, in order. A receiver of its
/// records may press keys.
class SimulatedProcessor : public DeviceLink
{
    Q_OBJECT

public:
    static constexpr int AnswerMs = 40;     ///< to an address request
    static constexpr int LinkDownMs = 1000; ///< after a change of addresses
    static constexpr int RestartMs = 3000;

    explicit SimulatedProcessor(QObject *parent = nullptr);
    ~SimulatedProcessor() override;

    const HardwareState &hardware() const { return m_hardware.state(); }

    void keyPressed(quint32 code) override;
    void keyReleased(quint32 code) override;
    void refresh() override;
    void consoleClosed() override;
    void leverMoved(quint16 value, bool isBottomToTop) override;
    void lampChanged(K7Host::Lamp lamp, bool isOn, quint8 brightness) override;
    void peripheralScreensChanged(int count, int operationScreen, const QVector<quint16> &sizes) override;
    void addressesRequested(quint8 port) override;
    void addressesEntered(const QString &interfaceName, const QString &ip, const QString &mask,
                          const QString &gateway) override;
    void addressChangeRequested(quint8 port, quint8 mode) override;
    void clockSet(const QString &date, const QString &time) override;
    void timeTypeChanged(int type) override;
    void restartRequested(quint8 type) override;

public Q_SLOTS:
    /// Ends a shutdown; ignored at other times.
    void switchOn();
    /// Connects a source to DVI input \a input, or takes it away. Inputs that are not there are ignored.
    void setDviSignal(int input, bool hasSignal);

Q_SIGNALS:
    void hardwareChanged(const K7Host::HardwareState &state);

private Q_SLOTS:
    void advanceFrame();
    void finishRestart();

private:
    struct PortTimers
    {
        QTimer *answer = nullptr; // runs from a request to its answer
        QTimer *link = nullptr;   // runs while the link is down
    };

    QTimer *makeTimer(const QString &name, int intervalMs);
    void answer();
    void sendChanges();
    void sendAll();
    void sendSignals();
    void sendPort(std::size_t port);
    void raiseLink(std::size_t port);
    void goDark(Power power);
    void comeBack();

    ConsoleModel m_model;
    ConsoleHardware m_hardware;
    ConsoleState m_shown;  // what the console was told
    quint32 m_answers = 0; // counts calls of sendChanges()
    bool m_isConsoleThere = true;
    // Children. They run only while there is something to wait for.
    QTimer *const m_frameTimer;
    QTimer *const m_restartTimer;
    std::array<PortTimers, PortCount> m_portTimers;
    QThreadPool m_pool; // of one thread, so that its records keep their order
};

} // namespace K7Host
