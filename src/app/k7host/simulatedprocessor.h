// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "devicelink.h"
#include "inputmodel.h"

namespace K7Host {

/// A link to a small video processor that exists only in memory. It answers a key at once, with a record for
/// each key and label that changed. GUI thread only.
class SimulatedProcessor : public DeviceLink
{
    Q_OBJECT

public:
    explicit SimulatedProcessor(QObject *parent = nullptr);
    ~SimulatedProcessor() override;

    void keyPressed(quint32 code) override;
    void keyReleased(quint32 code) override;
    void refresh() override;

private:
    void sendColors(const QMap<quint32, QRgb> &known);
    void sendTexts(const QMap<quint32, QString> &known);

    InputModel m_input;
};

} // namespace K7Host
