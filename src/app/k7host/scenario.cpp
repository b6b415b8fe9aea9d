// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "scenario.h"

#include <QFile>

#include <algorithm>

namespace K7Host {

namespace {

constexpr int LongestLine = 1024 * 1024;

std::optional<Fault> unreadable(const QString &name, const QIODevice &device)
{
    return Fault{ExitBadArguments, QStringLiteral("cannot read %1: %2").arg(name, device.errorString())};
}

/// Without the mark that some editors put before the first line of UTF-8.
QByteArray withoutMark(const QByteArray &line, int number)
{
    const QByteArray mark("\xef\xbb\xbf");
    return number == 1 && line.startsWith(mark) ? line.mid(mark.size()) : line;
}

} // namespace

bool Scenario::isTrace() const
{
    return std::any_of(steps.cbegin(), steps.cend(),
                       [](const Step &step) { return step.line.direction.has_value(); });
}

Fault Scenario::fault(int number, const QString &reason) const
{
    return {ExitBadArguments, QStringLiteral("%1:%2: %3").arg(file, QString::number(number), reason)};
}

std::optional<Fault> readScenario(const QString &name, Scenario *scenario)
{
    if (name.isEmpty())
        return {};
    if (name == QLatin1String("-")) {
        QFile input;
        const QString called = QStringLiteral("standard input");
        return input.open(stdin, QIODevice::ReadOnly) ? readScenario(&input, called, scenario)
                                                      : unreadable(called, input);
    }
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return unreadable(name, file);
    return readScenario(&file, name, scenario);
}

std::optional<Fault> readScenario(QIODevice *device, const QString &name, Scenario *scenario)
{
    Scenario result;
    result.file = name;
    for (int number = 1;; ++number) {
        const QByteArray line = device->readLine(LongestLine + 1);
        if (line.isEmpty())
            break;
        if (line.size() >= LongestLine && !line.endsWith('\n'))
            return result.fault(number, QStringLiteral("the line is too long"));
        const QByteArray json = withoutMark(line, number).trimmed();
        if (json.isEmpty() || json.startsWith('#'))
            continue;
        QString error;
        const auto read = scenarioLineFromJson(json, &error);
        if (!read)
            return result.fault(number, error);
        result.steps.append({number, *read});
    }
    const auto *file = qobject_cast<const QFileDevice *>(device);
    if (file && file->error() != QFileDevice::NoError)
        return unreadable(name, *file);
    *scenario = result;
    return {};
}

} // namespace K7Host
