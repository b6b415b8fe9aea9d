// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "hardwarestate.h"

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QImage>
#include <QList>
#include <QWeakPointer>
#include <QWidget>

#include <vector>

namespace K7Host {

class HardwarePanel;
class PowerCover;

/// Shows console halves side by side at their native size, tops aligned, and below the left one, where it has
/// room, what the console's hardware is set to. While the console has no power it is covered. It has its size
/// once it is polished, which it is when it is shown or is put into another widget that is asked for sizes.
///
/// The plug-in keeps owning the halves: the window gives back those that are still there when it goes.
class ConsoleWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ConsoleWindow(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves,
                           QWidget *parent = nullptr);
    ~ConsoleWindow() override;

    /// The halves alone at native size times \a factor, whatever the scale of the screen.
    QImage picture(qreal factor);

    /// A child; hidden when there is no room for it.
    HardwarePanel *hardwarePanel() const { return m_panel; }

public Q_SLOTS:
    void showHardware(const K7Host::HardwareState &state);

Q_SIGNALS:
    /// The window was painted completely for the first time since it was made.
    void shown();
    /// Somebody wants the console on that was shut down.
    void switchOnRequested();

protected:
    bool event(QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Half
    {
        QWeakPointer<Korvo::IKorvoECKeyboard> keyboard;
        QSize formSize; // as the plug-in made it, before the window gave it a place
    };

    void polishChildren();
    void placeHalves();
    void placePanel(const QRect &room);
    void cover(Power power);
    void uncover();

    std::vector<Half> m_halves;
    HardwarePanel *const m_panel;
    PowerCover *const m_cover;
    bool m_isShown = false;
};

} // namespace K7Host
