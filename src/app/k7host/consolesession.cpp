// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolesession.h"

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

using Korvo::IKorvoECKeyboard;
using Korvo::IKorvoECKeyboardPlugin;

namespace K7Host {

ConsoleSession::ConsoleSession(IKorvoECKeyboardPlugin *plugin, DeviceLink *link, QObject *parent)
    : QObject(parent)
    , m_plugin(plugin)
    , m_link(link)
{
    connectEvents();
}

ConsoleSession::~ConsoleSession()
{
    m_link->consoleClosed();
}

void ConsoleSession::start()
{
    m_plugin->initStyleSheet();
    m_halves = m_plugin->keyboards();
    for (const auto &half : qAsConst(m_halves)) {
        if (const auto keyboard = half.toStrongRef())
            keyboard->applyNoramlStyleSheet();
    }
    connectRecords(); // the list of halves is complete, and constant from now on
    m_link->refresh();
}

QList<QWeakPointer<IKorvoECKeyboard>> ConsoleSession::halves() const
{
    return m_halves;
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
    deliver(&DeviceLink::buttonColorReported, &IKorvoECKeyboard::updateECButtonColor);
    deliver(&DeviceLink::oledTextReported, &IKorvoECKeyboard::updateECOledText);
    deliver(&DeviceLink::tBarValueReported, &IKorvoECKeyboard::updateTBarValue);
    deliver(&DeviceLink::deviceIPReported, &IKorvoECKeyboard::updateECDeviceIP);
    deliver(&DeviceLink::dviSignalReported, &IKorvoECKeyboard::updateDVISignalStatus);
    deliver(&DeviceLink::peripheralVisibilityReported, &IKorvoECKeyboard::updatePeripheralVisibleState);
}

template <typename... EventArguments, typename... SlotArguments>
void ConsoleSession::passOn(void (IKorvoECKeyboardPlugin::*emitted)(EventArguments...),
                            void (DeviceLink::*slot)(SlotArguments...))
{
    connect(m_plugin, emitted, this,
            [this, slot](EventArguments... arguments) { (m_link->*slot)(arguments...); });
}

void ConsoleSession::passOnLamp(void (IKorvoECKeyboardPlugin::*emitted)(bool, quint8), Lamp lamp)
{
    connect(m_plugin, emitted, this,
            [this, lamp](bool isOn, quint8 brightness) { m_link->lampChanged(lamp, isOn, brightness); });
}

template <typename Record, typename Result>
void ConsoleSession::deliver(void (DeviceLink::*reported)(std::shared_ptr<Record>),
                             Result (IKorvoECKeyboard::*update)(std::shared_ptr<Record>))
{
    // Direct: the halves themselves take records to the GUI thread where they must.
    connect(
        m_link, reported, this,
        [this, update](const std::shared_ptr<Record> &record) {
            for (const auto &half : qAsConst(m_halves)) {
                if (const auto keyboard = half.toStrongRef())
                    (keyboard.data()->*update)(record);
            }
        },
        Qt::DirectConnection);
}

} // namespace K7Host
