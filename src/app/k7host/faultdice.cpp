// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "faultdice.h"

#include <limits>

namespace K7Host {

namespace {

constexpr quint32 BroadcastKey = 255;
// How many ids and indexes the console knows.
constexpr quint32 KnownKeys = 138;
constexpr quint32 KnownLabels = 101;
constexpr quint32 KnownPorts = 2;
constexpr quint32 KnownInputs = 2;
constexpr quint32 LeverPositions = 1201;
constexpr quint32 Flags = 2;

} // namespace

FaultDice::FaultDice(LinkFaults faults, quint32 seed)
    : m_faults(faults)
    , m_generator(seed)
{
}

std::vector<int> FaultDice::delays()
{
    if (m_faults.testFlag(LinkFault::Lost) && below(4) == 0)
        return {};
    std::size_t copies = 1;
    if (m_faults.testFlag(LinkFault::Duplicate) && below(4) == 0)
        copies += 1 + below(MaxCopies - 1);
    std::vector<int> delays(copies);
    if (m_faults.testFlag(LinkFault::Late)) {
        for (int &delay : delays)
            delay = static_cast<int>(below(LateMs + 1));
    }
    return delays;
}

quint32 FaultDice::below(quint32 limit)
{
    // The distributions of the standard library differ from one library to the next.
    return static_cast<quint32>(m_generator()) % limit;
}

void FaultDice::garble(Korvo::ECButtonColor *color)
{
    spoil(&color->ButtonKey, KnownKeys);
    spoil(&color->ECKey, KnownKeys);
    spoil(&color->ButtonState, Flags);
    spoilChannel(&color->R);
    spoilChannel(&color->G);
    spoilChannel(&color->B);
    spoil(&color->brightness, BroadcastKey);
}

void FaultDice::garble(Korvo::ECOLEDText *text)
{
    spoil(&text->OledKey, KnownLabels);
    spoil(&text->ECKey, KnownKeys);
    spoilText(text);
}

void FaultDice::garble(Korvo::ECTBarValue *value)
{
    spoil(&value->Value, LeverPositions);
    spoil(&value->IsBottomToTop, Flags);
}

void FaultDice::garble(Korvo::ECDeviceIPData *ip)
{
    spoil(&ip->Index, KnownPorts);
    spoil(&ip->Status, Flags);
    spoil(&ip->IP, BroadcastKey);
    spoil(&ip->Mask, BroadcastKey);
    spoil(&ip->Gateway, BroadcastKey);
}

void FaultDice::garble(Korvo::DVIInSignal *signal)
{
    spoil(&signal->Index, KnownInputs);
    spoil(&signal->Signal, Flags);
}

void FaultDice::garble(Korvo::PeripheralControlVisibleState *state)
{
    spoil(&state->visible, Flags);
}

/// Half of the new values are among the first \a knownCount.
template <typename Number>
void FaultDice::spoil(Number *field, quint32 knownCount)
{
    const quint32 chance = below(16);
    if (chance == 0)
        *field = static_cast<Number>(BroadcastKey);
    else if (chance == 1)
        *field = std::numeric_limits<Number>::max();
    else if (chance < 4)
        *field = static_cast<Number>(m_generator());
    else if (chance < 8)
        *field = static_cast<Number>(below(knownCount));
}

/// Mostly to one of the values that the console's colours are made of: others look idle.
void FaultDice::spoilChannel(quint8 *channel)
{
    const quint32 chance = below(8);
    if (chance < 2)
        *channel = 0;
    else if (chance < 4)
        *channel = 255;
    else if (chance == 4)
        *channel = static_cast<quint8>(below(256));
}

/// To bytes that are no UTF-8, without a zero byte among them.
void FaultDice::spoilText(Korvo::ECOLEDText *text)
{
    if (below(2) == 0)
        return;
    for (char &byte : text->OledText)
        byte = static_cast<char>(1 + below(255));
    text->OledText[0] = static_cast<char>(0x80 + below(64)); // goes on with what has not begun
}

} // namespace K7Host
