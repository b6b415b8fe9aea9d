// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/ikorvoeckeyboardplugin.h>

#include <QSharedPointer>
#include <QStringList>

namespace K7Host {

class FakeKeyboardPlugin;

/// A console half of one colour that writes down the name of every operation called on it.
class FakeKeyboard : public Korvo::IKorvoECKeyboard
{
    Q_OBJECT

public:
    FakeKeyboard(const QColor &color, const QSize &formSize, const FakeKeyboardPlugin *plugin = nullptr);
    ~FakeKeyboard() override;

    QSize minimumSizeHint() const override { return hint; }

    QString displayName() const override;
    Ovo::Utils::Id keyboardId() const override;
    void applyNoramlStyleSheet() override;
    bool updateECButtonColor(std::shared_ptr<Korvo::ECButtonColor> color) override;
    bool updateECOledText(std::shared_ptr<Korvo::ECOLEDText> text) override;
    bool updateTBarValue(std::shared_ptr<Korvo::ECTBarValue> value) override;
    void updateECDeviceIP(std::shared_ptr<Korvo::ECDeviceIPData> ip) override;
    bool updateKeyboard() override;
    void updateDVISignalStatus(std::shared_ptr<Korvo::DVIInSignal> signal) override;
    void updatePeripheralVisibleState(std::shared_ptr<Korvo::PeripheralControlVisibleState> state) override;

    QSize hint;
    QStringList calls;
    std::shared_ptr<void> lastRecord;
    const QThread *lastThread = nullptr;
    int paintCount = 0;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void takeRecord(const char *operation, const std::shared_ptr<void> &record);

    const QColor m_color;
    const FakeKeyboardPlugin *const m_plugin;
};

/// A plug-in with two such halves, in the native size of the console's.
class FakeKeyboardPlugin : public Korvo::IKorvoECKeyboardPlugin
{
    Q_OBJECT

public:
    FakeKeyboardPlugin();
    ~FakeKeyboardPlugin() override;

    bool initialize(const QStringList &arguments, QString *errorString) override;
    void extensionsInitialized() override;
    ShutdownFlag aboutToShutdown() override;
    QString displayName() const override;
    QList<QWeakPointer<Korvo::IKorvoECKeyboard>> keyboards() const override;
    void initStyleSheet() override;
    quint32 modeId() const override;
    bool updateKeyboard() override;

    mutable QSharedPointer<FakeKeyboard> left; // null until keyboards() is called
    mutable QSharedPointer<FakeKeyboard> right;
    mutable QStringList journal; // what was called on the plug-in and its halves, in order
};

} // namespace K7Host
