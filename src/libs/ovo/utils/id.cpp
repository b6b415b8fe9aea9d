// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "id.h"

#include <QHash>
#include <QMutex>
#include <QMutexLocker>
#include <QVector>

namespace Ovo::Utils {

namespace {

struct InternedTexts
{
    QMutex mutex; // protects both members below
    QHash<QString, int> numbers;
    QVector<QString> texts; // text of number n at n - 1
};

InternedTexts &internedTexts()
{
    static InternedTexts interned;
    return interned;
}

} // namespace

Id Id::fromString(const QString &name)
{
    if (name.isEmpty())
        return Id();

    InternedTexts &interned = internedTexts();
    const QMutexLocker locker(&interned.mutex);
    int &number = interned.numbers[name];
    if (number == 0) {
        interned.texts.append(name);
        number = interned.texts.size();
    }
    return Id(number);
}

QString Id::toString() const
{
    if (!isValid())
        return QString();

    InternedTexts &interned = internedTexts();
    const QMutexLocker locker(&interned.mutex);
    return interned.texts.at(m_number - 1);
}

} // namespace Ovo::Utils
