// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolesession.h"

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QMetaMethod>

#include <algorithm>

using Korvo::IKorvoECKeyboard;
using Korvo::IKorvoECKeyboardPlugin;

namespace K7Host {

namespace {

template <typename Number>
QJsonValue toJsonValue(const Number &number)
{
    return static_cast<double>(number);
}

QJsonValue toJsonValue(bool truth)
{
    return truth;
}

QJsonValue toJsonValue(const QString &text)
{
    return text;
}

QJsonValue toJsonValue(const QVector<quint16> &numbers)
{
    QJsonArray list;
    for (const quint16 number : numbers)
        list.append(number);
    return list;
}

} // namespace

ConsoleSession::ConsoleSession(IKorvoECKeyboardPlugin *plugin, DeviceLink *link, QObject *parent)
    : QObject(parent)
    , m_plugin(plugin)
    , m_link(link)
{
    setObservers({});
    connectEvents();
}

ConsoleSession::~ConsoleSession()
{
    m_link->consoleClosed();
}

void ConsoleSession::addObserver(SessionObserver *observer)
{
    Observers observers = *m_observers;
    observers.push_back(observer);
    setObservers(std::move(observers));
}

void ConsoleSession::removeObserver(SessionObserver *observer)
{
    Observers observers = *m_observers;
    observers.erase(std::remove(observers.begin(), observers.end(), observer), observers.end());
    setObservers(std::move(observers));
}

void ConsoleSession::prepare()
{
    m_plugin->initStyleSheet();
    m_halves = m_plugin->keyboards();
}

void ConsoleSession::start()
{
    prepare();
    call(IdleLook());
    connectRecords(); // the list of halves is complete, and constant from now on
    m_link->refresh();
}

QList<QWeakPointer<IKorvoECKeyboard>> ConsoleSession::halves() const
{
    return m_halves;
}

void ConsoleSession::call(const HostCall &call, std::optional<Half> half) const
{
    for (const Half each : {Half::Left, Half::Right}) {
        if (half.value_or(each) == each)
            callHalf(call, each);
    }
}

void ConsoleSession::connectEvents()
{
    passOn(&IKorvoECKeyboardPlugin::ecButtonPressed, &DeviceLink::keyPressed);
    passOn(&IKorvoECKeyboardPlugin::ecButtonRelease, &DeviceLink::keyReleased);
    passOn(&IKorvoECKeyboardPlugin::signalKorvoPluginModeChanged, &DeviceLink::refresh);
    passOn(&IKorvoECKeyboardPlugin::ecTBarValueChanged, &DeviceLink::leverMoved);
    passOnLamp(&IKorvoECKeyboardPlugin::signalGrooseneckLightStatusChanged, Lamp::Gooseneck);
    passOnLamp(&IKorvoECKeyboardPlugin::signalFrontLightStatusChanged, Lamp::Front);
    passOnLamp(&IKorvoECKeyboardPlugin::signalSideLightStatusChanged, Lamp::Lcd);
    passOnLamp(&IKorvoECKeyboardPlugin::signalLogoLightStatusChanged, Lamp::Logo);
    passOn(&IKorvoECKeyboardPlugin::signalSetPeripheralDataChange, &DeviceLink::peripheralScreensChanged);
    passOn(&IKorvoECKeyboardPlugin::signalReqECDeviceIP, &DeviceLink::addressesRequested);
    passOn(&IKorvoECKeyboardPlugin::signalUpdateSystemIP, &DeviceLink::addressesEntered);
    passOn(&IKorvoECKeyboardPlugin::signalIPModeChanged, &DeviceLink::addressChangeRequested);
    passOn(&IKorvoECKeyboardPlugin::signalUpdateSystemTime, &DeviceLink::clockSet);
    passOn(&IKorvoECKeyboardPlugin::signalTimeTypeChanged, &DeviceLink::timeTypeChanged);
    passOn(&IKorvoECKeyboardPlugin::signalRestartControlEvent, &DeviceLink::restartRequested);
}

void ConsoleSession::connectRecords()
{
    deliver(&DeviceLink::buttonColorReported);
    deliver(&DeviceLink::oledTextReported);
    deliver(&DeviceLink::tBarValueReported);
    deliver(&DeviceLink::deviceIPReported);
    deliver(&DeviceLink::dviSignalReported);
    deliver(&DeviceLink::peripheralVisibilityReported);
}

template <typename... EventArguments, typename... SlotArguments>
void ConsoleSession::passOn(void (IKorvoECKeyboardPlugin::*emitted)(EventArguments...),
                            void (DeviceLink::*slot)(SlotArguments...))
{
    connect(m_plugin, emitted, this, [this, emitted, slot](EventArguments... arguments) {
        tellObservers(emitted, arguments...);
        (m_link->*slot)(arguments...);
    });
}

void ConsoleSession::passOnLamp(void (IKorvoECKeyboardPlugin::*emitted)(bool, quint8), Lamp lamp)
{
    connect(m_plugin, emitted, this, [this, emitted, lamp](bool isOn, quint8 brightness) {
        tellObservers(emitted, isOn, brightness);
        m_link->lampChanged(lamp, isOn, brightness);
    });
}

template <typename Record>
void ConsoleSession::deliver(void (DeviceLink::*reported)(std::shared_ptr<Record>))
{
    // Direct: the halves themselves take records to the GUI thread where they must.
    connect(
        m_link, reported, this, [this](const std::shared_ptr<Record> &record) { call(record); },
        Qt::DirectConnection);
}

void ConsoleSession::setObservers(Observers observers)
{
    m_lists.push_back(std::make_unique<const Observers>(std::move(observers)));
    m_observers = m_lists.back().get();
}

template <typename Signal, typename... Arguments>
void ConsoleSession::tellObservers(Signal emitted, const Arguments &...arguments) const
{
    const Observers &observers = *m_observers;
    if (observers.empty())
        return;
    const SignalLine signal{QString::fromLatin1(QMetaMethod::fromSignal(emitted).name()),
                            {toJsonValue(arguments)...}};
    for (SessionObserver *observer : observers)
        observer->emitted(signal);
}

void ConsoleSession::callHalf(const HostCall &call, Half half) const
{
    const auto keyboard = m_halves.value(static_cast<int>(half)).toStrongRef();
    if (!keyboard)
        return;
    const Observers &observers = *m_observers;
    for (SessionObserver *observer : observers)
        observer->calling(call, half, keyboard.data());
    const std::optional<bool> result = perform(call, keyboard.data());
    for (SessionObserver *observer : observers)
        observer->called(call, half, keyboard.data(), result);
}

} // namespace K7Host
