// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolemodel.h"
#include "devicelink.h"

class QTimer;

namespace K7Host {

/// A link to a small video processor that exists only in memory. It answers a key at once, with a record for
/// each key, label and lever that changed, and a transition with the lever's records at 25 frames a second.
/// GUI thread only. A receiver of its records may press keys.
class SimulatedProcessor : public DeviceLink
{
    Q_OBJECT

public:
    explicit SimulatedProcessor(QObject *parent = nullptr);
    ~SimulatedProcessor() override;

    void keyPressed(quint32 code) override;
    void keyReleased(quint32 code) override;
    void refresh() override;

private Q_SLOTS:
    void advanceFrame();

private:
    void answer();
    void sendChanges();

    ConsoleModel m_model;
    ConsoleState m_shown;       // what the console was told
    quint32 m_answers = 0;      // counts calls of sendChanges()
    QTimer *const m_frameTimer; // a child
};

} // namespace K7Host
