// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolestate.h"

#include <QVector>

#include <functional>
#include <optional>

namespace K7Host {

/// Keys and labels of the console that show a list page by page.
struct KeyRow
{
    quint32 firstKey; ///< the others follow, one for each label
    quint32 pageUpKey;
    quint32 pageDownKey;
    QVector<quint32> labels; ///< above each key, in the order of the keys
    quint32 pageLabel;
};

/// The page of a list that a row of keys shows, without wrapping around. A key behind the end of the list is
/// idle, and its label empty.
class PagedKeys
{
public:
    /// \a itemCount is at least 1.
    PagedKeys(const KeyRow &row, int itemCount);

    /// Turns the page if \a key is a page key. Gives the item that the key stands for, 0 to itemCount - 1, or
    /// nothing.
    std::optional<int> press(quint32 key);

    /// The page keys are blue where they lead somewhere.
    KeyColors colors(const std::function<QRgb(int item)> &colorOf) const;
    LabelTexts texts(const std::function<QString(int item)> &textOf) const;

private:
    void turnTo(int page);
    int pageCount() const;
    int keyCount() const { return m_row.labels.size(); }
    std::optional<int> itemAt(quint32 column) const;

    KeyRow m_row;
    int m_itemCount;
    int m_page = 0;
};

} // namespace K7Host
