// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "stormlink.h"

#include <algorithm>
#include <chrono>
#include <thread>

using K7Host::HostCall;

StormLink::StormLink(const Plan &plan)
    : m_plan(plan)
    , m_records(plan.seed)
    , m_thread(this)
{
}

StormLink::~StormLink()
{
    consoleClosed();
}

void StormLink::refresh()
{
    const std::vector<HostCall> calls = m_records.refresh();
    for (const HostCall &call : calls)
        report(call);
}

void StormLink::consoleClosed()
{
    m_isClosed = true;
    m_goneOn.release();
    m_thread.wait();
}

void StormLink::send()
{
    if (m_plan.rate > 0)
        sendAtTheirTimes();
    else
        sendInSteps();
    emit finished();
}

void StormLink::sendAtTheirTimes()
{
    using namespace std::chrono;
    const auto begin = steady_clock::now();
    for (; m_sentCount < m_plan.count && !m_isClosed; ++m_sentCount) {
        const duration<double> offset(static_cast<double>(m_sentCount) / m_plan.rate);
        const auto due = begin + duration_cast<nanoseconds>(offset);
        std::this_thread::sleep_until(due);
        report(m_records.next());
        const qint64 delay = duration_cast<nanoseconds>(steady_clock::now() - due).count();
        m_worstDelay = std::max(m_worstDelay, delay);
    }
}

void StormLink::sendInSteps()
{
    while (m_sentCount < m_plan.count && !m_isClosed) {
        for (int i = 0; i < m_plan.step && m_sentCount < m_plan.count; ++i, ++m_sentCount)
            report(m_records.next());
        emit stepSent();
        m_goneOn.acquire();
    }
}

void StormLink::report(const HostCall &call)
{
    if (const auto *color = std::get_if<std::shared_ptr<Korvo::ECButtonColor>>(&call))
        emit buttonColorReported(*color);
    else if (const auto *text = std::get_if<std::shared_ptr<Korvo::ECOLEDText>>(&call))
        emit oledTextReported(*text);
    else if (const auto *value = std::get_if<std::shared_ptr<Korvo::ECTBarValue>>(&call))
        emit tBarValueReported(*value);
}
