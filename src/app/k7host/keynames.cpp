// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "keynames.h"

#include "devicelink.h"

#include <korvo/keyboard/constants.h>

#include <QAbstractButton>
#include <QLabel>
#include <QVariant>

namespace K7Host {

namespace {

QString lettering(const QAbstractButton *key)
{
    return key->text().simplified();
}

/// What is shown on a label changes all the time.
QString lettering(const QLabel * /*label*/)
{
    return {};
}

template <typename Widget>
QString nameOf(const Widget *widget)
{
    for (const char *property : {"key", "entry"}) {
        QString name = widget->property(property).toString();
        if (!name.isEmpty())
            return name;
    }
    const QString text = lettering(widget);
    return text.isEmpty() ? widget->objectName() : text;
}

template <typename Widget>
void addItems(const Korvo::IKorvoECKeyboard &half, ConsoleItem::Kind kind, QVector<ConsoleItem> *items)
{
    const auto widgets = half.findChildren<Widget *>();
    for (const Widget *widget : widgets) {
        bool isNumber = false;
        const quint32 id =
            widget->property(Korvo::Constants::PROPERTY_KORVOECKEY).toString().toUInt(&isNumber);
        if (isNumber)
            items->append({kind, id, nameOf(widget), widget});
    }
}

QString withName(quint32 id, const QString &name)
{
    const QString number = QString::number(id);
    return name.isEmpty() ? number : number + QLatin1Char(' ') + name;
}

} // namespace

QVector<ConsoleItem> consoleItems(const Korvo::IKorvoECKeyboard &half)
{
    QVector<ConsoleItem> items;
    addItems<QAbstractButton>(half, ConsoleItem::Key, &items);
    addItems<QLabel>(half, ConsoleItem::Label, &items);
    return items;
}

KeyNames::KeyNames(const QList<QWeakPointer<Korvo::IKorvoECKeyboard>> &halves)
    : m_keys{{EveryKey, QStringLiteral("every key")}}
{
    for (const auto &half : halves) {
        const auto keyboard = half.toStrongRef();
        const auto items = keyboard ? consoleItems(*keyboard) : QVector<ConsoleItem>();
        for (const ConsoleItem &item : items)
            (item.kind == ConsoleItem::Key ? m_keys : m_labels).insert(item.id, item.name);
    }
}

QString KeyNames::key(quint32 id) const
{
    return withName(id, m_keys.value(id));
}

QString KeyNames::keyOfCode(quint32 code) const
{
    return code < KeyCodeOffset ? QString::number(code) : key(code - KeyCodeOffset);
}

QString KeyNames::label(quint32 id) const
{
    return withName(id, m_labels.value(id));
}

} // namespace K7Host
