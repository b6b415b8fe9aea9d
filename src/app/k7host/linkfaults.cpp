// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "linkfaults.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace K7Host {

namespace {

struct FaultName
{
    const char *name;
    LinkFault fault;
};

constexpr std::array<FaultName, 5> FaultNames{{{"late", LinkFault::Late},
                                               {"lost", LinkFault::Lost},
                                               {"duplicate", LinkFault::Duplicate},
                                               {"garbled", LinkFault::Garbled},
                                               {"storm", LinkFault::Storm}}};

QString allFaultNames()
{
    QStringList names;
    for (const FaultName &entry : FaultNames)
        names << QString::fromLatin1(entry.name);
    return names.join(QStringLiteral(", "));
}

} // namespace

std::optional<LinkFaults> linkFaultsFromText(const QString &text, QString *error)
{
    LinkFaults faults;
    const QStringList names = text.split(QLatin1Char(','));
    for (const QString &name : names) {
        const auto *const entry =
            std::find_if(FaultNames.cbegin(), FaultNames.cend(),
                         [&name](const FaultName &known) { return name == QLatin1String(known.name); });
        if (entry == FaultNames.cend()) {
            *error = QStringLiteral("'%1' is no fault: %2").arg(name, allFaultNames());
            return {};
        }
        faults |= entry->fault;
    }
    return faults;
}

} // namespace K7Host
