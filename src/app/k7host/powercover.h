// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "hardwarestate.h"

#include <QWidget>

#include <memory>

namespace Ui {
class PowerCover;
}

namespace K7Host {

/// Lies over the console's halves while it is dark, and keeps input from them. Says why it is dark; one that
/// was shut down can be switched on here.
class PowerCover : public QWidget
{
    Q_OBJECT

public:
    explicit PowerCover(QWidget *parent = nullptr);
    ~PowerCover() override;

    /// \a power is not On.
    void setPower(Power power);

Q_SIGNALS:
    void switchOnRequested();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(PowerCover)

    const std::unique_ptr<Ui::PowerCover> m_ui;
};

} // namespace K7Host
