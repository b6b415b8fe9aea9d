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
#include <vector>

namespace K7Host {

/// Measures how long an operator waits for the console: from the touch of a key until its code is emitted,
/// and from a record until what it changes is on the screen; and what the records cost the console meanwhile.
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
/// it waits for. Records for the status strip and the settings panel are not measured.
///
/// *Record to return* is the time that a half keeps the GUI thread for such a record: one row for those that
/// change nothing in it, one for the others.
///
/// *Record in the queue* is the time from the call of another thread until the GUI thread has taken the
/// record. Of these records one at a time is measured, in a storm not all; record to pixel is measured of the
/// same ones.
///
/// While it measures it filters the events of the application, at a few nanoseconds each; a record and a
/// press cost so little more that it is lost among what they do (benchmarks/bench_latencymeter). GUI thread
/// only, but calling() and called().
class LatencyMeter : public QObject, public SessionObserver
{
    Q_OBJECT

public:
    /// Nanoseconds since any point in time; never runs backwards. Asked in any thread.
    using Clock = std::function<qint64()>;

    /// \a halves are complete, and may go at any time. It measures from now on.
    explicit LatencyMeter(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves,
                          const Clock &clock = Clock(), QObject *parent = nullptr);
    ~LatencyMeter() override;

    /// Stops measuring, or goes on. Whoever stops it also sees to it that it is not told of calls.
    void setMeasuring(bool isOn);

    const LatencyFigures &touchToCode() const;
    const LatencyFigures &recordToPixel() const;
    const LatencyFigures &idleRecordToReturn() const;
    const LatencyFigures &changingRecordToReturn() const;
    const LatencyFigures &recordInQueue() const;

    /// All calls of halves, of whatever kind and from whatever thread; a record for both halves is two.
    qint64 recordCount() const;
    /// The most records of other threads that waited at once for the GUI thread, of all times that it looked.
    qint64 mostWaiting() const;
    // Per second of measuring.
    double wakeUpRate() const; ///< of the event loop
    double paintRate() const;  ///< of windows, any number of widgets at once

    /// The figures under their names, in the order of tables.
    struct Row
    {
        QString name; ///< in lower case
        const LatencyFigures *figures;
    };
    std::vector<Row> rows() const;
    /// "12 in all, at most 3 waiting" and "60.1 wake-ups, 30.0 paints a second".
    QString recordsText() const;
    QString ratesText() const;

    /// All of it for a terminal, a table with a line for a row, and two lines.
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
    void followedComes(const HostCall &call, const Korvo::IKorvoECKeyboard *keyboard, qint64 begin);
    void followedWasTaken();
    void addTo(LatencyFigures *figures, qint64 begin, qint64 end);
    void endSoon();
    void endUpdate();

    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace K7Host
