// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "trafficfilter.h"

#include "trafficmodel.h"

#include <algorithm>

namespace K7Host {

TrafficFilter::TrafficFilter(QObject *parent)
    : QSortFilterProxyModel(parent)
{
}

void TrafficFilter::setText(const QString &text)
{
    const QString wanted = text.simplified();
    const QStringList words = wanted.isEmpty() ? QStringList() : wanted.split(QLatin1Char(' '));
    if (words == m_words)
        return;
    m_words = words;
    invalidateFilter();
}

void TrafficFilter::setKindShown(TrafficKind kind, bool isShown)
{
    m_kinds.setFlag(kind, isShown);
    invalidateFilter();
}

bool TrafficFilter::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    const QModelIndex index = sourceModel()->index(sourceRow, 0, sourceParent);
    if (!m_kinds.testFlag(static_cast<TrafficKind>(index.data(TrafficModel::KindRole).toInt())))
        return false;
    if (m_words.isEmpty())
        return true;
    const QString text = index.data(TrafficModel::SearchRole).toString();
    return std::all_of(m_words.cbegin(), m_words.cend(),
                       [&text](const QString &word) { return text.contains(word, Qt::CaseInsensitive); });
}

} // namespace K7Host
