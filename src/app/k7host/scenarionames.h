// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <array>
#include <optional>

namespace K7Host {

// As lines of scenarios spell the values of enumerations, in their order.

inline const std::array<QLatin1String, 7> ActionNames = {
    QLatin1String("press"), QLatin1String("move"), QLatin1String("release"), QLatin1String("click"),
    QLatin1String("wheel"), QLatin1String("type"), QLatin1String("set"),
};

inline const std::array<QLatin1String, 2> HalfNames = {QLatin1String("left"), QLatin1String("right")};
inline const std::array<QLatin1String, 2> DirectionNames = {QLatin1String("in"), QLatin1String("out")};

template <typename Names>
std::optional<std::size_t> indexIn(const Names &names, const QString &name)
{
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (name == names.at(i))
            return i;
    }
    return {};
}

} // namespace K7Host
