// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <consolestate.h>

#include <QStringList>
#include <QVector>

#include <algorithm>

namespace K7Host {

/// The id of the label that the console calls OLED_CS\a number.
inline quint32 labelId(int number)
{
    return static_cast<quint32>(number) - 1;
}

/// Keys that are none of \a section: all the others of a console, and some that no console has.
inline QVector<quint32> keysOutside(const KeyColors &section)
{
    QVector<quint32> keys{256, 65535, 0xff0000, 0xff0026, 0x7fffffff, 0x80000000, 0xffffffff};
    for (quint32 key = 0; key < 256; ++key) {
        if (!section.contains(key))
            keys << key;
    }
    return keys;
}

/// The texts that a record cannot carry whole.
inline QStringList tooLong(const LabelTexts &texts)
{
    QStringList found;
    for (const QString &text : texts) {
        if (text.toUtf8().size() > 31)
            found << text;
    }
    return found;
}

inline int emptyCount(const LabelTexts &texts)
{
    return static_cast<int>(std::count(texts.cbegin(), texts.cend(), QString()));
}

} // namespace K7Host
