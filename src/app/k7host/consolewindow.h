// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QImage>
#include <QList>
#include <QWeakPointer>
#include <QWidget>

#include <vector>

namespace K7Host {

/// Shows console halves side by side at their native size, tops aligned.
///
/// The plug-in keeps owning the halves: the window gives back those that are still there when it goes.
class ConsoleWindow : public QWidget
{
    Q_OBJECT

public:
    explicit ConsoleWindow(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves,
                           QWidget *parent = nullptr);
    ~ConsoleWindow() override;

    /// The console at native size times \a factor, whatever the scale of the screen.
    QImage picture(qreal factor);

Q_SIGNALS:
    /// The window was painted completely for the first time since it was made.
    void shown();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Half
    {
        QWeakPointer<Korvo::IKorvoECKeyboard> keyboard;
        QSize formSize; // as the plug-in made it, before the window gave it a place
    };

    void placeHalves();

    std::vector<Half> m_halves;
    bool m_isShown = false;
};

} // namespace K7Host
