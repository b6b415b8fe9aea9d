// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QSharedPointer>

namespace Korvo::ECKeyboard {
class K7Plugin;
}

/// The console as it comes about with nothing but Qt's widgets: the same keys and labels at the same places,
/// with the same frames around them, names, markers, texts and pictures. Ids are kept as text and searched
/// one after the other, section by section; a style sheet is set whether it is shown already or not; a press
/// passes the signals of a section, of a half and of the plug-in. There are no layouts.
class PlainPlugin : public Korvo::IKorvoECKeyboardPlugin
{
    Q_OBJECT

public:
    /// Copies the halves of \a original, which are shown, as they are now. It must outlive this.
    explicit PlainPlugin(const Korvo::ECKeyboard::K7Plugin *original);
    ~PlainPlugin() override;

    bool initialize(const QStringList &, QString *) override { return true; }
    void extensionsInitialized() override {}
    QString displayName() const override { return QStringLiteral("plain toolkit"); }
    QList<QWeakPointer<Korvo::IKorvoECKeyboard>> keyboards() const override;
    void initStyleSheet() override {}
    quint32 modeId() const override { return 0; }
    bool updateKeyboard() override { return false; }

private:
    QList<QSharedPointer<Korvo::IKorvoECKeyboard>> m_halves;
};
