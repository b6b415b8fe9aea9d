// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "linkfaults.h"

#include <korvo/keyboard/records.h>

#include <memory>
#include <random>
#include <vector>

namespace K7Host {

/// Chance, on a bad link. It has one generator: the same questions in the same order find the same answers
/// when the seed is the same.
class FaultDice
{
public:
    static constexpr int LateMs = 500;
    static constexpr int MaxCopies = 4;

    FaultDice(LinkFaults faults, quint32 seed);

    LinkFaults faults() const { return m_faults; }

    /// How late each copy of the next record comes, in ms, 0 to LateMs. No copy: the record is lost.
    std::vector<int> delays();

    /// What a copy of \a record comes as: the record itself, a garbled copy, or null.
    template <typename Record>
    std::shared_ptr<Record> arriving(const std::shared_ptr<Record> &record);

    /// A record that nobody sent.
    template <typename Record>
    std::shared_ptr<Record> invented();

    /// From 0 to \a limit, which is not 0, without it.
    quint32 below(quint32 limit);

private:
    // Each field is replaced or left. What is put in its place is out of range, or belongs elsewhere.
    void garble(Korvo::ECButtonColor *color);
    void garble(Korvo::ECOLEDText *text);
    void garble(Korvo::ECTBarValue *value);
    void garble(Korvo::ECDeviceIPData *ip);
    void garble(Korvo::DVIInSignal *signal);
    void garble(Korvo::PeripheralControlVisibleState *state);

    template <typename Number>
    void spoil(Number *field, quint32 knownCount);
    void spoilChannel(quint8 *channel);
    void spoilText(Korvo::ECOLEDText *text);

    LinkFaults m_faults;
    std::mt19937 m_generator;
};

template <typename Record>
std::shared_ptr<Record> FaultDice::arriving(const std::shared_ptr<Record> &record)
{
    if (!record || !m_faults.testFlag(LinkFault::Garbled))
        return record;
    const quint32 chance = below(16);
    if (chance == 0)
        return nullptr;
    if (chance >= 8)
        return record;
    auto garbled = std::make_shared<Record>(*record);
    garble(garbled.get());
    return garbled;
}

template <typename Record>
std::shared_ptr<Record> FaultDice::invented()
{
    auto record = std::make_shared<Record>();
    garble(record.get());
    return record;
}

} // namespace K7Host
