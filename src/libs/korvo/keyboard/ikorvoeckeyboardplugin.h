// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/export.h>
#include <korvo/keyboard/ikorvoeckeyboard.h>
#include <ovo/extensionsystem/iplugin.h>

#include <QList>
#include <QString>
#include <QVector>
#include <QWeakPointer>

namespace Korvo {

/// A plug-in that supplies console halves. Its signals are those of its halves.
///
/// Hosts call the virtual operations through the table, so their order is part of the interface: new
/// ones go to the end.
class KORVO_KEYBOARD_EXPORT IKorvoECKeyboardPlugin : public Ovo::ExtensionSystem::IPlugin
{
    Q_OBJECT

public:
    IKorvoECKeyboardPlugin();
    ~IKorvoECKeyboardPlugin() override;

    virtual QString displayName() const = 0;

    /// The halves, left first. The plug-in owns them: whoever gives one a parent takes it back
    /// (setParent(nullptr)) before that parent goes.
    virtual QList<QWeakPointer<IKorvoECKeyboard>> keyboards() const = 0;

    /// Resolves the key pictures; to be called once, after the theme is known and before the first record.
    virtual void initStyleSheet() = 0;
    virtual quint32 modeId() const = 0;
    virtual bool updateKeyboard() = 0;

Q_SIGNALS:
    // Those of the halves; they are described there.
    void ecButtonPressed(const quint32 &key);
    void ecButtonRelease(const quint32 &key);
    void signalKorvoPluginModeChanged();
    void signalGrooseneckLightStatusChanged(bool on, quint8 brightness);
    void signalFrontLightStatusChanged(bool on, quint8 brightness);
    void signalSideLightStatusChanged(bool on, quint8 brightness);
    void signalLogoLightStatusChanged(bool on, quint8 brightness);
    void signalSetPeripheralDataChange(int count, int operationScreen, QVector<quint16> sizes);
    void signalUpdateSystemTime(QString date, QString time);
    void signalUpdateSystemIP(QString interfaceName, QString ip, QString mask, QString gateway);
    void ecTBarValueChanged(const quint16 &value, bool isBottomToTop);
    void signalReqECDeviceIP(quint8 index);
    void signalRestartControlEvent(quint8 type);
    void signalTimeTypeChanged(int type);
    void signalIPModeChanged(quint8 port, quint8 mode);
};

} // namespace Korvo
