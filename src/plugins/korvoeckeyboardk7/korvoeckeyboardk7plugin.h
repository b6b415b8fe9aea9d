// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ecbuttonimage.h"

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <memory>

namespace Korvo::ECKeyboard {

namespace Internal {
class K7PluginPrivate;
}

/// Root object of the plug-in: the K7 console's two halves, and the style sheets of their keys.
///
/// Owns the halves; they are made by the first keyboards() and live until the plug-in goes. GUI thread only.
class K7Plugin : public IKorvoECKeyboardPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "Zembla.KorvoPlugin" FILE "korvoeckeyboardk7.json")

public:
    K7Plugin();
    ~K7Plugin() override;

    /// The one live plug-in object; null before it is constructed and after it is destroyed.
    static K7Plugin *instance();

    bool initialize(const QStringList &arguments, QString *errorString) override;
    void extensionsInitialized() override;
    bool delayedInitialize() override;
    ShutdownFlag aboutToShutdown() override;
    using IKorvoECKeyboardPlugin::installTranslator;
    bool installTranslator(const QString &locale) override;

    QString displayName() const override;
    QList<QWeakPointer<IKorvoECKeyboard>> keyboards() const override;
    void initStyleSheet() override;
    quint32 modeId() const override;
    bool updateKeyboard() override;

    /// Style sheets of key faces, empty until initStyleSheet(): of a picture, and of the picture for a
    /// reported colour on an ordinary, a page-up and a page-down key. No record gives the white key.
    QString ecButtonBorderImageCSS(const eECButtonImage &image) const;
    QString ecButtonBorderImageCSS(std::shared_ptr<ECButtonColor> color) const;
    QString ecPageUpButtonBorderImageCSS(std::shared_ptr<ECButtonColor> color) const;
    QString ecPageDownButtonBorderImageCSS(std::shared_ptr<ECButtonColor> color) const;

private:
    Internal::K7PluginPrivate *d;
};

} // namespace Korvo::ECKeyboard
