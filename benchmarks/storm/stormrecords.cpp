// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "stormrecords.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cstring>

using K7Host::HostCall;

namespace {

constexpr quint32 KeyCount = 138;   // ids from 0
constexpr quint32 LabelCount = 101; // ids from 0, some of which no label has
constexpr quint32 EveryKey = 255;
constexpr quint32 FullLever = 1200;
constexpr quint32 LeverStep = 8;
constexpr quint32 OtherLeverValue = 7; // no multiple of the step

struct Rgb
{
    quint8 red;
    quint8 green;
    quint8 blue;
};
// All keys tell these apart from each other and from the other one, page keys too.
constexpr std::array<Rgb, 4> Colors = {{{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 0}}};
constexpr Rgb OtherColor = {255, 72, 0};
constexpr std::array<const char *, 5> Words = {"CAM ", "VT ", "KEY ", "GFX ", "AUX "};

HostCall colorRecord(quint32 key, const Rgb &color)
{
    auto record = std::make_shared<Korvo::ECButtonColor>();
    record->ButtonKey = key;
    record->R = color.red;
    record->G = color.green;
    record->B = color.blue;
    return record;
}

HostCall textRecord(quint32 label, const QByteArray &text)
{
    auto record = std::make_shared<Korvo::ECOLEDText>();
    record->OledKey = label;
    std::memcpy(record->OledText, text.constData(),
                std::min(static_cast<std::size_t>(text.size()), sizeof(record->OledText)));
    return record;
}

HostCall leverRecord(quint32 value)
{
    auto record = std::make_shared<Korvo::ECTBarValue>();
    record->Value = value;
    record->IsBottomToTop = 1;
    return record;
}

} // namespace

std::vector<HostCall> StormRecords::refresh()
{
    std::vector<HostCall> calls;
    for (quint32 key = 0; key < KeyCount; ++key)
        calls.push_back(color(key));
    for (quint32 label = 0; label < LabelCount; ++label)
        calls.push_back(text(label));
    calls.push_back(lever());
    return calls;
}

HostCall StormRecords::next()
{
    const quint32 kind = below(1000);
    if (kind < 449)
        return color(below(KeyCount));
    if (kind < 649)
        return text(below(LabelCount));
    if (kind < 749)
        return lever();
    if (kind < 750)
        return color(EveryKey);
    return m_previous;
}

std::vector<HostCall> StormRecords::lastOnes() const
{
    std::vector<Last> inOrder;
    inOrder.reserve(m_last.size());
    for (const auto &[target, last] : m_last)
        inOrder.push_back(last);
    std::sort(inOrder.begin(), inOrder.end(),
              [](const Last &left, const Last &right) { return left.number < right.number; });
    std::vector<HostCall> calls;
    calls.reserve(inOrder.size());
    for (const Last &last : inOrder)
        calls.push_back(last.call);
    return calls;
}

std::vector<HostCall> StormRecords::otherOnes()
{
    std::vector<HostCall> calls;
    for (quint32 key = 0; key < KeyCount; ++key)
        calls.push_back(colorRecord(key, OtherColor));
    for (quint32 label = 0; label < LabelCount; ++label)
        calls.push_back(textRecord(label, "?"));
    calls.push_back(leverRecord(OtherLeverValue));
    return calls;
}

HostCall StormRecords::color(quint32 key)
{
    return note(key, colorRecord(key, Colors.at(below(Colors.size()))));
}

HostCall StormRecords::text(quint32 label)
{
    return note(label, textRecord(label, Words.at(below(Words.size())) + QByteArray::number(below(100))));
}

HostCall StormRecords::lever()
{
    m_leverValue = (m_leverValue + LeverStep) % (FullLever + LeverStep);
    return note(0, leverRecord(m_leverValue));
}

HostCall StormRecords::note(quint32 id, const HostCall &call)
{
    m_last[{call.index(), id}] = {m_count, call};
    ++m_count;
    m_previous = call;
    return call;
}
