// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QImage>
#include <QList>
#include <QObject>
#include <QRect>
#include <QTimer>
#include <QWeakPointer>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QScreen;
QT_END_NAMESPACE

namespace K7Host {

class ConsoleWindow;
class KioskWindow;
class ScaledView;

/// The console as the only thing on the screens: the left half fills the first, the right half the second.
/// Where there is only one they stand one above the other. Follows screens that come and go. There is no
/// frame, no menu and no cursor.
///
/// Each half is a console window of its own, so that what it opens stays on its screen.
class Kiosk : public QObject
{
    Q_OBJECT

public:
    /// \a halves as in ConsoleWindow. A \a scale of 0 makes each half as large as its screen has room for.
    Kiosk(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves, qreal scale);
    ~Kiosk() override;

    /// One a half, left first; they go with this object.
    QList<ConsoleWindow *> consoles() const;

    /// A window for actions, which is there and shown all the time.
    QWidget *mainWindow() const;

    /// Both halves as one picture, as ConsoleWindow::picture().
    QImage picture(qreal factor) const;

    /// Fills the screens that there are, from now on.
    void show();
    /// Fills the screens at \a places, the first two of them; leaves all as it is when there is none.
    void arrange(const QList<QRect> &places);

    /// Other windows of the host are worked with the mouse.
    void setCursorShown(bool isShown);

Q_SIGNALS:
    /// Both halves were painted completely for the first time.
    void shown();

private:
    void follow(QScreen *screen);
    void arrangeOnScreens();

    struct Half
    {
        std::unique_ptr<ConsoleWindow> console;
        std::unique_ptr<KioskWindow> window;
        ScaledView *view; // a child of either window
    };

    std::vector<Half> m_halves;
    QTimer m_settling; // while screens come and go
    int m_shownCount = 0;
    bool m_isCursorShown = true;
};

} // namespace K7Host
