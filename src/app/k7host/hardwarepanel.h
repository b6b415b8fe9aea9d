// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "hardwarestate.h"

#include <QFrame>

#include <memory>

QT_BEGIN_NAMESPACE
class QLabel;
class QTimer;
QT_END_NAMESPACE

namespace Ui {
class HardwarePanel;
}

namespace K7Host {

/// Shows what the console's hardware is set to. The sources of the DVI inputs can be connected and taken
/// away.
class HardwarePanel : public QFrame
{
    Q_OBJECT

public:
    explicit HardwarePanel(QWidget *parent = nullptr);
    ~HardwarePanel() override;

public Q_SLOTS:
    void showState(const K7Host::HardwareState &state);

Q_SIGNALS:
    /// Somebody connected a source to DVI input \a input, or took it away.
    void dviSignalSwitched(int input, bool hasSignal);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private Q_SLOTS:
    void showClock();

private:
    Q_DISABLE_COPY(HardwarePanel)

    void showPorts();
    void showLamps();
    void showScreens();
    void showDviSignals();
    void showPower();

    const std::unique_ptr<Ui::HardwarePanel> m_ui;
    HardwareState m_state;
    QTimer *const m_clockTimer; // a child; runs while the panel is visible
};

} // namespace K7Host
