// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "trafficmodel.h"

#include <QGuiApplication>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QTimer>

#include <algorithm>
#include <iterator>

namespace K7Host {

namespace {

constexpr int BatchMs = 33;
constexpr double MsPerSecond = 1000;

constexpr int SwatchSize = 14; // pixels

QString directionText(const ScenarioLine &line)
{
    if (!line.direction)
        return {};
    return *line.direction == Direction::In ? QStringLiteral("\u2192 console")
                                            : QStringLiteral("\u2190 console");
}

QIcon swatchOf(const QColor &color)
{
    QPixmap pixmap(SwatchSize, SwatchSize);
    pixmap.fill(QGuiApplication::palette().color(QPalette::Mid)); // a dark colour is seen on a dark row too
    QPainter(&pixmap).fillRect(pixmap.rect().adjusted(1, 1, -1, -1), color);
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Selected); // not tinted
    return icon;
}

/// As rich text, which is wrapped where it is too long for a line.
QString toolTipText(const ScenarioLine &line)
{
    return QStringLiteral("<p>%1</p>").arg(QString::fromUtf8(toJson(line)).toHtmlEscaped());
}

} // namespace

TrafficModel::TrafficModel(const KeyNames &names, int lineCount, QObject *parent)
    : QAbstractTableModel(parent)
    , m_names(names)
    , m_lineCount(lineCount)
    , m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    m_timer->setInterval(BatchMs);
    connect(m_timer, &QTimer::timeout, this, &TrafficModel::takeNoted);
}

TrafficModel::~TrafficModel() = default;

void TrafficModel::noted(const ScenarioLine &line)
{
    bool isFirst = false;
    {
        const QMutexLocker lock(&m_mutex);
        m_waiting.push_back(line);
        if (m_waiting.size() > static_cast<std::size_t>(m_lineCount))
            m_waiting.pop_front(); // no room for it in the model either
        isFirst = !m_isTimerWanted;
        m_isTimerWanted = true;
    }
    if (isFirst)
        QMetaObject::invokeMethod(this, "startTimer", Qt::QueuedConnection);
}

int TrafficModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TrafficModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant TrafficModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Row &row = m_rows.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case Qt::DisplayRole:
        return displayText(row, index.column());
    case Qt::DecorationRole:
        return index.column() == FieldsColumn && row.text.color.isValid() ? swatchOf(row.text.color)
                                                                          : QVariant();
    case Qt::ToolTipRole:
        return toolTipText(row.line);
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter | (index.column() == TimeColumn ? Qt::AlignRight : Qt::AlignLeft));
    case LineRole:
        return QVariant::fromValue(row.line);
    case KindRole:
        return row.text.kind;
    case SearchRole:
        return QString(row.text.name + QLatin1Char(' ') + row.text.fields);
    default:
        return {};
    }
}

QVariant TrafficModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignVCenter | (section == TimeColumn ? Qt::AlignRight : Qt::AlignLeft));
    if (role != Qt::DisplayRole)
        return {};
    switch (section) {
    case TimeColumn:
        return QStringLiteral("Seconds");
    case DirectionColumn:
        return QStringLiteral("Direction");
    case NameColumn:
        return QStringLiteral("Name");
    case HalfColumn:
        return QStringLiteral("Half");
    case FieldsColumn:
        return QStringLiteral("Fields");
    case ResultColumn:
        return QStringLiteral("Result");
    default:
        return {};
    }
}

void TrafficModel::setPaused(bool isPaused)
{
    m_isPaused = isPaused;
    takeNoted();
}

void TrafficModel::clear()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_waiting.clear();
    }
    beginResetModel();
    m_rows.clear();
    endResetModel();
    emit waitingChanged(0);
}

void TrafficModel::startTimer()
{
    m_timer->start();
}

void TrafficModel::takeNoted()
{
    std::deque<ScenarioLine> lines;
    int waitingCount = 0;
    {
        const QMutexLocker lock(&m_mutex);
        m_isTimerWanted = false;
        if (m_isPaused)
            waitingCount = static_cast<int>(m_waiting.size());
        else
            lines.swap(m_waiting);
    }
    enter(&lines);
    emit waitingChanged(waitingCount);
}

void TrafficModel::enter(std::deque<ScenarioLine> *lines)
{
    if (lines->empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(lines->size()) - 1);
    for (ScenarioLine &line : *lines) {
        const TrafficText text = describe(line, m_names);
        m_rows.push_back({std::move(line), text});
    }
    endInsertRows();
    // Each removal costs as much as there are rows: a few large ones cost less.
    const int chunk = std::max(1, m_lineCount / 10);
    if (rowCount() >= m_lineCount + chunk)
        removeOldest(rowCount() - m_lineCount);
}

void TrafficModel::removeOldest(int count)
{
    beginRemoveRows({}, 0, count - 1);
    m_rows.erase(m_rows.begin(), std::next(m_rows.begin(), count));
    endRemoveRows();
}

QString TrafficModel::displayText(const Row &row, int column) const
{
    switch (column) {
    case TimeColumn:
        return row.line.ms ? QString::number(*row.line.ms / MsPerSecond, 'f', 3) : QString();
    case DirectionColumn:
        return directionText(row.line);
    case NameColumn:
        return row.text.name;
    case HalfColumn:
        return row.text.half;
    case FieldsColumn:
        return row.text.fields;
    case ResultColumn:
        return row.text.result;
    default:
        return {};
    }
}

} // namespace K7Host
