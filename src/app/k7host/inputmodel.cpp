// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "inputmodel.h"

#include <array>
#include <utility>

namespace K7Host {

namespace {

constexpr int SourceCount = InputModel::PageCount * InputModel::KeysPerPage;

// The label above each key, from left to right.
constexpr std::array<quint32, InputModel::KeysPerPage> LabelIds{
    12, 15, 14, 13, 17, 16, 23, 22, 21, 20, 19, 18, 79, 78, 82, 80,
};

constexpr std::array<const char *, SourceCount> SourceNames{
    "CAM 1",
    "CAM 2",
    "CAM 3",
    "CAM 4",
    "CAM 5",
    "CAM 6",
    "CAM 7",
    "CAM 8",
    "Stage wide angle",
    "Crane",
    "VTR A",
    "VTR B",
    "Playout 1",
    "Playout 2",
    "Graphics",
    "Speaker laptop",

    "Jib left",
    "Jib right",
    "Handheld backstage",
    "Drone",
    "Audience left",
    "Audience right",
    "Rail cam",
    "Beauty shot, roof top",
    "Slow motion",
    "Clip 1",
    "Clip 2",
    "Lower third",
    "Score board",
    "Remote guest",
    "Test bars",
    "Black",
};

} // namespace

void InputModel::press(quint32 key)
{
    if (key == PageUpKey)
        turnTo(m_page - 1);
    else if (key == PageDownKey)
        turnTo(m_page + 1);
    else if (key >= FirstKey && key < FirstKey + KeysPerPage)
        select(m_page * KeysPerPage + static_cast<int>(key - FirstKey));
}

QMap<quint32, QRgb> InputModel::keyColors() const
{
    QMap<quint32, QRgb> colors;
    for (int i = 0; i < KeysPerPage; ++i)
        colors.insert(FirstKey + static_cast<quint32>(i), sourceColor(m_page * KeysPerPage + i));
    colors.insert(PageUpKey, m_page > 0 ? Available : Idle);
    colors.insert(PageDownKey, m_page < PageCount - 1 ? Available : Idle);
    return colors;
}

QMap<quint32, QString> InputModel::labelTexts() const
{
    QMap<quint32, QString> texts;
    for (std::size_t i = 0; i < LabelIds.size(); ++i) {
        const auto source = static_cast<std::size_t>(m_page * KeysPerPage) + i;
        texts.insert(LabelIds.at(i), QString::fromUtf8(SourceNames.at(source)));
    }
    texts.insert(PageLabel, QStringLiteral("Page %1/%2").arg(m_page + 1).arg(PageCount));
    return texts;
}

void InputModel::select(int source)
{
    if (source == m_program)
        return;
    if (source == m_preview)
        std::swap(m_program, m_preview);
    else
        m_preview = source;
}

void InputModel::turnTo(int page)
{
    if (page >= 0 && page < PageCount)
        m_page = page;
}

QRgb InputModel::sourceColor(int source) const
{
    if (source == m_program)
        return Program;
    return source == m_preview ? Preview : Idle;
}

} // namespace K7Host
