// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ovo/utils/export.h>

#include <QHash>
#include <QString>

namespace Ovo::Utils {

/// An identifier interned from text: as cheap to copy, compare and hash as a number.
///
/// Ids made from the same text are equal for the life of the process. All functions may be called from
/// any thread.
class OVO_UTILS_EXPORT Id
{
public:
    /// An invalid id; its text is empty.
    constexpr Id() = default;

    /// The id of \a name; the invalid id for an empty text.
    static Id fromString(const QString &name);

    /// The text that the id was made from; empty when invalid.
    QString toString() const;

    constexpr bool isValid() const { return m_number != 0; }

    friend constexpr bool operator==(Id a, Id b) { return a.m_number == b.m_number; }
    friend constexpr bool operator!=(Id a, Id b) { return a.m_number != b.m_number; }
    /// An order for sorted containers: that of interning, not of the texts.
    friend constexpr bool operator<(Id a, Id b) { return a.m_number < b.m_number; }
    friend uint qHash(Id id, uint seed = 0) { return ::qHash(id.m_number, seed); }

private:
    constexpr explicit Id(int number)
        : m_number(number)
    {
    }

    int m_number = 0; // 0 is the invalid id, n the n-th text that was interned
};

} // namespace Ovo::Utils

Q_DECLARE_TYPEINFO(Ovo::Utils::Id, Q_PRIMITIVE_TYPE);
