// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "keynames.h"
#include "traffic.h"
#include "traffictext.h"

#include <QAbstractTableModel>
#include <QMetaType>

class QTimer;

namespace K7Host {

/// What crosses the boundary of the console, a row a line, the oldest first.
///
/// Lines are noted in any thread and enter the model together, some 30 times a second at most. GUI thread
/// only but noted(); no timer runs while nothing is noted.
class TrafficModel : public QAbstractTableModel, public TrafficListener
{
    Q_OBJECT

public:
    enum Column {
        TimeColumn,
        DirectionColumn,
        NameColumn,
        HalfColumn,
        FieldsColumn,
        ResultColumn,
        ColumnCount
    };
    enum Role {
        LineRole = Qt::UserRole, ///< the ScenarioLine
        KindRole,                ///< a TrafficKind
        SearchRole               ///< all that a filter looks at, as one text
    };

    /// The last \a lineCount lines are kept, at least; what is older goes in larger numbers at a time.
    static constexpr int DefaultLineCount = 20000;
    explicit TrafficModel(const KeyNames &names, int lineCount = DefaultLineCount, QObject *parent = nullptr);
    ~TrafficModel() override;

    void noted(const ScenarioLine &line) override;

    bool isPaused() const { return m_isPaused; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

public Q_SLOTS:
    /// While paused, the rows stand still. What is noted waits, and enters when the pause is over.
    void setPaused(bool isPaused);
    /// Forgets every line that has been noted so far.
    void clear();

Q_SIGNALS:
    /// So many lines wait for the end of the pause.
    void waitingChanged(int lineCount);

private Q_SLOTS:
    void startTimer();
    void takeNoted();

private:
    struct Row
    {
        ScenarioLine line;
        TrafficText text;
    };

    void enter(std::deque<ScenarioLine> *lines);
    void removeOldest(int count);
    QString displayText(const Row &row, int column) const;

    const KeyNames m_names;
    const int m_lineCount;
    QTimer *const m_timer; // a child
    std::deque<Row> m_rows;
    bool m_isPaused = false;

    QMutex m_mutex;
    std::deque<ScenarioLine> m_waiting; // under the mutex
    bool m_isTimerWanted = false;       // under the mutex: takeNoted() is going to be called
};

} // namespace K7Host

Q_DECLARE_METATYPE(K7Host::ScenarioLine)
