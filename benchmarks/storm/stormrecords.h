// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <hostcall.h>

#include <map>
#include <random>
#include <utility>
#include <vector>

/// The records of a busy show, any number of them, and the same ones for the same seed: of a thousand 449
/// colours of one key, 200 texts, 100 positions of the lever, 250 that change nothing, one broadcast.
class StormRecords
{
public:
    explicit StormRecords(quint32 seed)
        : m_random(seed)
    {
    }

    /// One for every key and label, and the lever, as after a refresh.
    std::vector<K7Host::HostCall> refresh();
    K7Host::HostCall next();

    /// The last one of each key, of each label, of the lever and the last broadcast, in the order in which
    /// they came: handed to a console they give what all of them give.
    std::vector<K7Host::HostCall> lastOnes() const;
    /// Others than the storm ever has, for all that it has any for.
    static std::vector<K7Host::HostCall> otherOnes();

private:
    quint32 below(quint32 end) { return static_cast<quint32>(m_random() % end); }
    K7Host::HostCall color(quint32 key);
    K7Host::HostCall text(quint32 label);
    K7Host::HostCall lever();
    K7Host::HostCall note(quint32 id, const K7Host::HostCall &call);

    using Target = std::pair<std::size_t, quint32>; // kind of the record, and id
    struct Last
    {
        qint64 number;
        K7Host::HostCall call;
    };

    std::mt19937 m_random; // the same everywhere, as the library's distributions are not
    std::map<Target, Last> m_last;
    K7Host::HostCall m_previous;
    qint64 m_count = 0;
    quint32 m_leverValue = 0;
};
