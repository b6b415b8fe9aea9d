// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "pagedkeys.h"

namespace K7Host {

PagedKeys::PagedKeys(const KeyRow &row, int itemCount)
    : m_row(row)
    , m_itemCount(itemCount)
{
}

std::optional<int> PagedKeys::press(quint32 key)
{
    if (key == m_row.pageUpKey)
        turnTo(m_page - 1);
    else if (key == m_row.pageDownKey)
        turnTo(m_page + 1);
    else if (key >= m_row.firstKey)
        return itemAt(key - m_row.firstKey);
    return std::nullopt;
}

KeyColors PagedKeys::colors(const std::function<QRgb(int)> &colorOf) const
{
    KeyColors colors;
    for (int column = 0; column < keyCount(); ++column) {
        const auto item = itemAt(static_cast<quint32>(column));
        colors.insert(m_row.firstKey + static_cast<quint32>(column), item ? colorOf(*item) : KeyColor::Idle);
    }
    colors.insert(m_row.pageUpKey, m_page > 0 ? KeyColor::Blue : KeyColor::Idle);
    colors.insert(m_row.pageDownKey, m_page < pageCount() - 1 ? KeyColor::Blue : KeyColor::Idle);
    return colors;
}

LabelTexts PagedKeys::texts(const std::function<QString(int)> &textOf) const
{
    LabelTexts texts;
    for (int column = 0; column < keyCount(); ++column) {
        const auto item = itemAt(static_cast<quint32>(column));
        texts.insert(m_row.labels.at(column), item ? textOf(*item) : QString());
    }
    texts.insert(m_row.pageLabel, QStringLiteral("Page %1/%2").arg(m_page + 1).arg(pageCount()));
    return texts;
}

void PagedKeys::turnTo(int page)
{
    if (page >= 0 && page < pageCount())
        m_page = page;
}

int PagedKeys::pageCount() const
{
    return (m_itemCount + keyCount() - 1) / keyCount();
}

std::optional<int> PagedKeys::itemAt(quint32 column) const
{
    if (column >= static_cast<quint32>(keyCount()))
        return std::nullopt;
    const int item = m_page * keyCount() + static_cast<int>(column);
    return item < m_itemCount ? std::make_optional(item) : std::nullopt;
}

} // namespace K7Host
