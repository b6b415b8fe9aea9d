// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "scenarioline.h"

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QList>
#include <QWeakPointer>

#include <optional>

namespace K7Host {

/// The widgets of the console halves, popups and menus included, under the addresses that lines of a scenario
/// use: the id of a key or the name that its form gives it, or the name of a widget, after an ancestor's and
/// a slash where it is not the only one. A widget without a name goes by its class, without namespaces.
///
/// Message boxes do not belong to the halves: they are answered. Halves may go at any time. GUI thread only.
class ConsoleWidgets
{
public:
    using Halves = QList<QWeakPointer<Korvo::IKorvoECKeyboard>>;

    /// Whom a line names; without a widget there is a fault, in one line for a person.
    struct Found
    {
        QWidget *widget = nullptr;
        QString fault;
    };

    /// What a line says of a widget.
    struct Address
    {
        std::optional<quint32> keyId;
        QString widget;           ///< when it is no key
        QWidget *owner = nullptr; ///< the only one with that address; null when there is none
    };

    explicit ConsoleWidgets(const Halves &halves);

    bool contain(const QObject *object) const;

    /// Neither widget nor fault when \a line names nobody.
    Found find(const InputLine &line) const;

    /// The shortest address of \a widget, or of the innermost widget around it that has one.
    Address addressOf(QWidget *widget) const;

    /// Whoever would get what is typed. Null once the halves are gone.
    QWidget *focusWidget() const;

    /// The popup that takes all input; null when none is open. In a reduced window none does.
    QWidget *openPopup() const;

    /// The half around \a widget, or its popup; null when it is outside of both.
    QWidget *rootOf(QWidget *widget) const;

private:
    bool isHalf(const QObject *object) const;
    QList<QWidget *> all() const;
    Found findKey(const QVariant &value, const char *property, const QString &called) const;
    Found findWidget(const QString &address) const;
    QList<QWidget *> matching(const QString &address) const;
    QString addressAmong(const QList<QWidget *> &widgets, const QWidget *widget) const;

    const Halves m_halves;
};

/// Whether \a widget is a key of the console: labels have ids too, but others.
bool isConsoleKey(const QWidget *widget);

/// As faults call whom \a line names: key 58, "lineEdit_IP", or the console when it names nobody.
QString whom(const InputLine &line);

/// The class of \a object without namespaces.
QString shortClassName(const QObject *object);

} // namespace K7Host
