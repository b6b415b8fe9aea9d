// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QPointer>
#include <QWidget>

#include <optional>
#include <utility>
#include <vector>

namespace K7Host {

/// Records whose changes are not on the screen yet. Times are nanoseconds. GUI thread only.
class UnpaintedRecords
{
public:
    using WidgetList = std::vector<QPointer<QWidget>>;

    bool isEmpty() const { return m_records.isEmpty(); }

    /// The record that began at \a begin has changed \a widgets. Those that nobody can see do not count.
    void add(const WidgetList &widgets, qint64 begin);

    void painted(const QObject *widget);
    /// Whether anything was painted in the update that is not known to be over.
    bool isPainting() const { return m_isPainting; }
    /// The update in which widgets were painted was over at \a now.
    void handedOver(qint64 now);

    /// Forgets widgets that nobody paints any more, lest they end with whatever shows them again some day.
    void dropUnseen();

    /// Forgets the records that are complete; when those that were painted began and ended.
    std::vector<std::pair<qint64, qint64>> takeComplete();

private:
    struct Record
    {
        qint64 begin = 0;
        int waiting = 0; // widgets
        bool isBeingPainted = false;
        std::optional<qint64> end; // so far
    };
    struct Waiting
    {
        QPointer<QWidget> widget;
        int record;
    };

    bool isWaiting(const QObject *widget) const;

    QHash<int, Record> m_records;
    QHash<const QObject *, Waiting> m_waiting;
    int m_lastNumber = 0;
    bool m_isPainting = false;
};

} // namespace K7Host
