// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "devicelink.h"

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QList>
#include <QObject>
#include <QWeakPointer>

namespace Korvo {
class IKorvoECKeyboardPlugin;
}

namespace K7Host {

/// Joins a keyboard plug-in and its halves to a device link: events of the plug-in go to the link, records of
/// the link to every half, each of which takes what is its own.
///
/// Owns none of them: plug-in and link outlive it, halves may go at any time. GUI thread only, except that
/// records are handed on in the thread that the link emits them from.
class ConsoleSession : public QObject
{
    Q_OBJECT

public:
    /// \a plugin and \a link are not null. Events are passed on from now on.
    ConsoleSession(Korvo::IKorvoECKeyboardPlugin *plugin, DeviceLink *link, QObject *parent = nullptr);
    /// Tells the link that the console is going.
    ~ConsoleSession() override;

    /// Makes the plug-in ready, gives the halves their idle look, and asks the link for every record.
    /// The theme is loaded before.
    void start();

    /// The plug-in's halves, left first; none before start().
    QList<QWeakPointer<Korvo::IKorvoECKeyboard>> halves() const;

private:
    void connectEvents();
    void connectRecords();
    template <typename... EventArguments, typename... SlotArguments>
    void passOn(void (Korvo::IKorvoECKeyboardPlugin::*emitted)(EventArguments...),
                void (DeviceLink::*slot)(SlotArguments...));
    void passOnLamp(void (Korvo::IKorvoECKeyboardPlugin::*emitted)(bool, quint8), Lamp lamp);
    template <typename Record, typename Result>
    void deliver(void (DeviceLink::*reported)(std::shared_ptr<Record>),
                 Result (Korvo::IKorvoECKeyboard::*update)(std::shared_ptr<Record>));

    Korvo::IKorvoECKeyboardPlugin *const m_plugin;
    DeviceLink *const m_link;
    QList<QWeakPointer<Korvo::IKorvoECKeyboard>> m_halves; // constant after start()
};

} // namespace K7Host
