// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QTest>
#include <QTouchDevice>
#include <QWidget>

/// Fingers on one window, as a touch screen reports them: all that are down, whenever one changes.
class Fingers
{
public:
    explicit Fingers(QWidget *window)
        : m_window(window)
        , m_sequence(QTest::touchEvent(window, device(), false))
    {
    }
    Q_DISABLE_COPY(Fingers)

    static QTouchDevice *device()
    {
        static QTouchDevice *const screen = QTest::createTouchDevice();
        return screen;
    }

    bool isDown(int finger) const { return m_down.contains(finger); }
    QPoint place(int finger) const { return m_down.value(finger); }

    void press(int finger, const QPoint &pos)
    {
        m_sequence.press(finger, pos, m_window);
        send(finger, pos);
    }
    void press(int finger, const QWidget *on) { press(finger, on->mapTo(m_window, on->rect().center())); }
    void move(int finger, const QPoint &pos)
    {
        m_sequence.move(finger, pos, m_window);
        send(finger, pos);
    }
    void lift(int finger)
    {
        const QPoint pos = m_down.value(finger);
        m_sequence.release(finger, pos, m_window);
        send(finger, pos);
        m_down.remove(finger);
    }
    void liftAll()
    {
        const QList<int> fingers = m_down.keys();
        for (int finger : fingers)
            lift(finger);
    }

private:
    void send(int changed, const QPoint &pos)
    {
        m_down.insert(changed, pos);
        const QList<int> fingers = m_down.keys();
        for (int finger : fingers) {
            if (finger != changed)
                m_sequence.stationary(finger);
        }
        m_sequence.commit();
    }

    QWidget *const m_window;
    QTest::QTouchEventSequence m_sequence;
    QMap<int, QPoint> m_down;
};
