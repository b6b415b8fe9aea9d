// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "devicelink.h"
#include "sessionobserver.h"

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QList>
#include <QObject>
#include <QWeakPointer>

#include <atomic>
#include <memory>
#include <vector>

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

    /// \a observer is told of all that is exchanged from now on, and outlives this object.
    void addObserver(SessionObserver *observer);
    /// \a observer is told of nothing more but, in other threads, of calls that are under way.
    void removeObserver(SessionObserver *observer);

    /// Makes the plug-in and its halves ready, and asks for nothing yet. The theme is loaded before.
    void prepare();
    /// Makes them ready, gives the halves their idle look, asks the link for every record, and hands on what
    /// it reports from now on.
    void start();

    /// The plug-in's halves, left first; none before prepare().
    QList<QWeakPointer<Korvo::IKorvoECKeyboard>> halves() const;

    /// Hands \a call to a half, or to both, as if the link had; after prepare(). In any thread.
    void call(const HostCall &call, std::optional<Half> half = {}) const;

private:
    void connectEvents();
    void connectRecords();
    template <typename... EventArguments, typename... SlotArguments>
    void passOn(void (Korvo::IKorvoECKeyboardPlugin::*emitted)(EventArguments...),
                void (DeviceLink::*slot)(SlotArguments...));
    void passOnLamp(void (Korvo::IKorvoECKeyboardPlugin::*emitted)(bool, quint8), Lamp lamp);
    template <typename Record>
    void deliver(void (DeviceLink::*reported)(std::shared_ptr<Record>));
    using Observers = std::vector<SessionObserver *>;
    void setObservers(Observers observers);
    template <typename Signal, typename... Arguments>
    void tellObservers(Signal emitted, const Arguments &...arguments) const;
    void callHalf(const HostCall &call, Half half) const;

    Korvo::IKorvoECKeyboardPlugin *const m_plugin;
    DeviceLink *const m_link;
    QList<QWeakPointer<Korvo::IKorvoECKeyboard>> m_halves; // constant after prepare()

    // A call tells those whom it found when it began, in any thread and without waiting for anybody; so a
    // list is replaced as a whole, and stays for those who still read it.
    std::vector<std::unique_ptr<const Observers>> m_lists;
    std::atomic<const Observers *> m_observers{nullptr};
};

} // namespace K7Host
