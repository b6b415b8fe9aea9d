// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "scenarionames.h"

#include <QJsonObject>
#include <QPoint>

namespace K7Host {

/// Takes the fields of a JSON object one by one, each as what it is to be. The first fault counts; what is
/// read after it is of no use.
class ObjectReader
{
public:
    explicit ObjectReader(const QJsonObject &object);

    bool has(const QString &name) const { return m_object.contains(name); }
    /// In one line for a person; empty without a fault.
    QString error() const { return m_error; }

    /// These are faults where the field is missing or something else. A text is not empty.
    QJsonValue take(const QString &name);
    QString takeText(const QString &name);
    bool takeTruth(const QString &name);
    /// A whole number, both limits included.
    qint64 takeNumber(const QString &name, qint64 lowest, qint64 highest);
    QPoint takePoint(const QString &name);
    /// The index of the text among \a names.
    template <typename Names>
    std::size_t takeChoice(const QString &name, const Names &names);
    /// Empty when the field is missing.
    QString takeOptionalText(const QString &name) { return has(name) ? takeText(name) : QString(); }

    /// The same for \a value, which was found in the field \a name.
    qint64 toNumber(const QJsonValue &value, const QString &name, qint64 lowest, qint64 highest);

    void fail(const QString &reason);
    /// Whatever has not been taken is unknown, and a fault.
    void finish();

private:
    QJsonObject m_object;
    QString m_error;
};

template <typename Names>
std::size_t ObjectReader::takeChoice(const QString &name, const Names &names)
{
    const QString text = takeText(name);
    const auto index = indexIn(names, text);
    if (!index)
        fail(QStringLiteral("\"%1\" is no value of \"%2\"").arg(text, name));
    return index.value_or(0);
}

} // namespace K7Host
