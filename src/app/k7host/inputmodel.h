// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMap>
#include <QRgb>
#include <QString>

namespace K7Host {

/// The Input section of a video processor: two pages of sixteen sources, one of them on program, one on
/// preview.
class InputModel
{
public:
    static constexpr quint32 FirstKey = 36; ///< INPUT_01; the others follow
    static constexpr int KeysPerPage = 16;
    static constexpr quint32 PageUpKey = 52;
    static constexpr quint32 PageDownKey = 53;
    static constexpr quint32 PageLabel = 51;
    static constexpr int PageCount = 2;

    static constexpr QRgb Program = 0xffff0000;
    static constexpr QRgb Preview = 0xff00ff00;
    static constexpr QRgb Available = 0xff0000ff; ///< of a page key that leads somewhere
    static constexpr QRgb Idle = 0xff000000;

    /// An input goes on preview; the one that is there already goes on program, in exchange. Page keys turn
    /// the page. The input on program, the page key at the end, and keys of other sections change nothing.
    void press(quint32 key);

    /// The colour of every key of the section, by key id.
    QMap<quint32, QRgb> keyColors() const;
    /// The text of every label of the section, by label id; at most 31 bytes of UTF-8 each.
    QMap<quint32, QString> labelTexts() const;

private:
    void select(int source);
    void turnTo(int page);
    QRgb sourceColor(int source) const;

    int m_page = 0;
    int m_program = 0; // sources count over all pages
    int m_preview = 1;
};

} // namespace K7Host
