// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traffictext.h"

#include <QSortFilterProxyModel>
#include <QStringList>

namespace K7Host {

/// The rows of a TrafficModel that are of some kinds and hold some words. All of them at first.
class TrafficFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    static constexpr TrafficKinds::Int EveryKind =
        RecordTraffic | SignalTraffic | InputTraffic | MessageTraffic;

    explicit TrafficFilter(QObject *parent = nullptr);

    TrafficKinds kinds() const { return m_kinds; }

public Q_SLOTS:
    /// \a text is words with blanks between them. A row's name and fields must hold each one, in any order
    /// and whatever the case.
    void setText(const QString &text);
    void setKindShown(K7Host::TrafficKind kind, bool isShown);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    TrafficKinds m_kinds = TrafficKinds(EveryKind);
    QStringList m_words;
};

} // namespace K7Host
