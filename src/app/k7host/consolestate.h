// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QRgb>
#include <QString>

#include <optional>

namespace K7Host {

/// Colours by key id.
using KeyColors = QMap<quint32, QRgb>;
/// Texts by label id; at most 31 bytes of UTF-8 each.
using LabelTexts = QMap<quint32, QString>;

/// Adds the entries of \a from to \a to.
template <typename Map>
void addAll(Map *to, const Map &from)
{
    for (auto it = from.cbegin(); it != from.cend(); ++it)
        to->insert(it.key(), *it);
}

/// The colours that the console can show; its page keys know neither Purple nor Orange.
namespace KeyColor {
constexpr QRgb Idle = 0xff000000;
constexpr QRgb Red = 0xffff0000;
constexpr QRgb Green = 0xff00ff00;
constexpr QRgb Blue = 0xff0000ff;
constexpr QRgb Yellow = 0xffffff00;
constexpr QRgb Purple = 0xffff00ff;
constexpr QRgb Orange = 0xffff4800;
} // namespace KeyColor

/// Where the T-bar stands.
struct Lever
{
    static constexpr int End = 1200;

    int position = 0; ///< twelfths of a percent of its way, 0 to End
    bool isBottomToTop = true;
};

inline bool operator==(const Lever &a, const Lever &b)
{
    return a.position == b.position && a.isBottomToTop == b.isBottomToTop;
}

inline bool operator!=(const Lever &a, const Lever &b)
{
    return !(a == b);
}

/// What a console shows, or is to show. One that knows nothing yet is empty.
struct ConsoleState
{
    KeyColors colors;
    LabelTexts texts;
    std::optional<Lever> lever;
};

} // namespace K7Host
