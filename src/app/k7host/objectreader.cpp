// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "objectreader.h"

#include <QJsonArray>

#include <cmath>
#include <limits>

namespace K7Host {

namespace {

constexpr int FarthestPixel = 100000;

} // namespace

ObjectReader::ObjectReader(const QJsonObject &object)
    : m_object(object)
{
}

QJsonValue ObjectReader::take(const QString &name)
{
    if (!has(name))
        fail(QStringLiteral("\"%1\" is missing").arg(name));
    return m_object.take(name);
}

QString ObjectReader::takeText(const QString &name)
{
    const QJsonValue value = take(name);
    if (!value.isString() || value.toString().isEmpty())
        fail(QStringLiteral("\"%1\" is to be a text").arg(name));
    return value.toString();
}

bool ObjectReader::takeTruth(const QString &name)
{
    const QJsonValue value = take(name);
    if (!value.isBool())
        fail(QStringLiteral("\"%1\" is to be true or false").arg(name));
    return value.toBool();
}

qint64 ObjectReader::takeNumber(const QString &name, qint64 lowest, qint64 highest)
{
    return toNumber(take(name), name, lowest, highest);
}

QPoint ObjectReader::takePoint(const QString &name)
{
    const QJsonArray numbers = take(name).toArray();
    if (numbers.size() != 2)
        fail(QStringLiteral("\"%1\" is to be two numbers").arg(name));
    const auto coordinate = [&](int i) {
        return static_cast<int>(toNumber(numbers.at(i), name, -FarthestPixel, FarthestPixel));
    };
    const int x = coordinate(0);
    return {x, coordinate(1)};
}

qint64 ObjectReader::toNumber(const QJsonValue &value, const QString &name, qint64 lowest, qint64 highest)
{
    const double number = value.toDouble(std::numeric_limits<double>::quiet_NaN());
    const bool fits = number >= double(lowest) && number <= double(highest);
    if (fits && std::floor(number) == number)
        return static_cast<qint64>(number);
    fail(QStringLiteral("\"%1\" is to be a whole number from %2 to %3").arg(name).arg(lowest).arg(highest));
    return lowest;
}

void ObjectReader::fail(const QString &reason)
{
    if (m_error.isEmpty())
        m_error = reason;
}

void ObjectReader::finish()
{
    if (!m_object.isEmpty())
        fail(QStringLiteral("unknown field \"%1\"").arg(m_object.constBegin().key()));
}

} // namespace K7Host
