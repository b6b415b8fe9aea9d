// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "latencyfigures.h"
#include "sessionobserver.h"

#include <QList>
#include <QObject>
#include <QWeakPointer>

#include <functional>
#include <memory>

namespace K7Host {

/// Measures how long an operator waits for the console: from the touch of a key until its code is emitted,
/// and from a record until what it changes is on the screen.
///
/// *Touch to code* begins when the event of a finger, of the mouse or of Space enters the application, and
/// ends when the plug-in emits the code of a key that the event reached. Keys that are touched in one event
/// begin together, and count each. A press that sends no code, and a code that no event caused, do not count.
///
/// *Record to pixel* begins when a half is about to get a colour, a text or a lever position, and ends when
/// the key, label or lever that this changed has been painted and its window has handed the picture to the
/// window system. What the event loop does first after painting is included: the figure is never too small. A
/// record counts once a half, a broadcast when the last of its keys is painted; one that changes nothing, or
/// nothing that can be seen, does not count. A change of what still waits to be painted belongs to the record
/// it waits for. Records from other threads are not measured, nor are those for the status strip and the
/// settings panel.
///
/// While it lives it filters the events of the application, at a few nanoseconds each; a record and a press
/// cost so little more that it is lost among what they do (benchmarks/bench_latencymeter). GUI thread only,
/// but calling() and called().
class LatencyMeter : public QObject, public SessionObserver
{
    Q_OBJECT

public:
    /// Nanoseconds since any point in time; never runs backwards.
    using Clock = std::function<qint64()>;

    /// \a halves are complete, and may go at any time.
    explicit LatencyMeter(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves,
                          const Clock &clock = Clock(), QObject *parent = nullptr);
    ~LatencyMeter() override;

    const LatencyFigures &touchToCode() const;
    const LatencyFigures &recordToPixel() const;

    /// The figures as a table for a terminal, three lines.
    QString summary() const;

    /// Forgets the figures, not what is under way.
    void reset();

    void calling(const HostCall &call, Half half, Korvo::IKorvoECKeyboard *keyboard) override;
    void called(const HostCall &call, Half half, Korvo::IKorvoECKeyboard *keyboard,
                std::optional<bool> result) override;
    void emitted(const SignalLine &signal) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// A figure is another one. Comes with every sample.
    void changed();

protected:
    void customEvent(QEvent *event) override;

private:
    void addTo(LatencyFigures *figures, qint64 begin, qint64 end);
    void endSoon();
    void endUpdate();

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace K7Host
