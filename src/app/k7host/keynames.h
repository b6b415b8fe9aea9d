// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QHash>
#include <QList>
#include <QString>
#include <QVector>
#include <QWeakPointer>

namespace K7Host {

/// A key or a label of a console half: their ids count apart.
struct ConsoleItem
{
    enum Kind { Key, Label };

    Kind kind = Key;
    quint32 id = 0;
    QString name; ///< what the form calls it, or else what is written on it; never empty
    const QWidget *widget = nullptr;
};

/// Every key and label of \a half that has an id. GUI thread.
QVector<ConsoleItem> consoleItems(const Korvo::IKorvoECKeyboard &half);

/// What the ids in records and signals stand for.
class KeyNames
{
public:
    /// The id of records that mean every key.
    static constexpr quint32 EveryKey = 255;

    KeyNames() = default;
    /// Reads the names of all keys and labels of \a halves. GUI thread.
    explicit KeyNames(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves);

    /// Such as "58 PRESET_05"; the id alone when no key has it.
    QString key(quint32 id) const;
    /// The same for a key code: the id plus KeyCodeOffset. A number below is given back as it is.
    QString keyOfCode(quint32 code) const;
    /// The same for a label.
    QString label(quint32 id) const;

private:
    QHash<quint32, QString> m_keys;
    QHash<quint32, QString> m_labels;
};

} // namespace K7Host
