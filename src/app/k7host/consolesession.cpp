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

ConsoleSession::~ConsoleSession() = default;

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
    connect(m_plugin, &IKorvoECKeyboardPlugin::ecButtonPressed, this,
            [this](quint32 code) { m_link->keyPressed(code); });
    connect(m_plugin, &IKorvoECKeyboardPlugin::ecButtonRelease, this,
            [this](quint32 code) { m_link->keyReleased(code); });
    connect(m_plugin, &IKorvoECKeyboardPlugin::signalKorvoPluginModeChanged, this,
            [this] { m_link->refresh(); });
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
