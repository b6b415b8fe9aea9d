// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "savedscenario.h"

#include <algorithm>

namespace K7Host {

namespace {

constexpr int ShortestPauseMs = 10; // shorter ones are nobody's intention

bool isCall(const ScenarioLine &line)
{
    return std::holds_alternative<CallLine>(line.content);
}

bool isDeed(const ScenarioLine &line)
{
    return std::holds_alternative<InputLine>(line.content) ||
           std::holds_alternative<AnswerLine>(line.content);
}

QByteArray asTrace(const QVector<ScenarioLine> &lines)
{
    QByteArray text;
    for (const ScenarioLine &line : lines)
        text += toJson(line) + '\n';
    return text;
}

QByteArray asDeeds(const QVector<ScenarioLine> &lines)
{
    QByteArray text;
    std::optional<double> last;
    for (const ScenarioLine &line : lines) {
        if (!isDeed(line))
            continue;
        const int pause = last && line.ms ? static_cast<int>(*line.ms - *last) : 0;
        if (pause >= ShortestPauseMs)
            text += toJson({{}, {}, WaitLine{pause}}) + '\n';
        text += toJson({{}, {}, line.content}) + '\n';
        last = line.ms;
    }
    return text;
}

} // namespace

QByteArray savedScenario(const QVector<ScenarioLine> &lines)
{
    return std::any_of(lines.cbegin(), lines.cend(), isCall) ? asTrace(lines) : asDeeds(lines);
}

} // namespace K7Host
