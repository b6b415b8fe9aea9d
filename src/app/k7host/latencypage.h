// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

#include <memory>

QT_BEGIN_NAMESPACE
class QTimer;
QT_END_NAMESPACE

namespace Ui {
class LatencyPage;
}

namespace K7Host {

class LatencyFigures;
class LatencyMeter;

/// A table of what a meter has measured, with a button to begin anew. It follows a few times a second while
/// it is visible and something comes in; otherwise nothing runs. GUI thread only.
class LatencyPage : public QWidget
{
    Q_OBJECT

public:
    /// \a meter outlives the page.
    explicit LatencyPage(LatencyMeter *meter, QWidget *parent = nullptr);
    ~LatencyPage() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(LatencyPage)

    void setUpTable();
    void followSoon();
    void showFigures();
    void showRow(int row, const LatencyFigures &figures);

    const std::unique_ptr<Ui::LatencyPage> m_ui;
    LatencyMeter *const m_meter;
    QTimer *const m_timer; // a child; runs from a new figure until it is shown
};

} // namespace K7Host
