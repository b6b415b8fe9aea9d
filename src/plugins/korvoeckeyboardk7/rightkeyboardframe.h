// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/ikorvoeckeyboard.h>

namespace Korvo::ECKeyboard::K7 {

namespace Internal {
class RightKeyboardFramePrivate;
}

/// The right half of the console: numbers, functions, T-bar, transition and the status strip.
///
/// Records may be handed in from any thread; those of other threads than the GUI's wait for it, in order. An
/// address is stored at once.
/// The results do not tell whether a section took a record: they are fixed.
class RightKeyboardFrame : public IKorvoECKeyboard
{
    Q_OBJECT

public:
    explicit RightKeyboardFrame(QWidget *parent);
    ~RightKeyboardFrame() override;

    QString displayName() const override;
    Ovo::Utils::Id keyboardId() const override;
    void applyNoramlStyleSheet() override;
    bool updateECButtonColor(std::shared_ptr<ECButtonColor> color) override;
    bool updateECOledText(std::shared_ptr<ECOLEDText> text) override;
    bool updateTBarValue(std::shared_ptr<ECTBarValue> value) override;
    void updateECDeviceIP(std::shared_ptr<ECDeviceIPData> ip) override;
    bool updateKeyboard() override;
    void updateDVISignalStatus(std::shared_ptr<DVIInSignal> signal) override;
    void updatePeripheralVisibleState(std::shared_ptr<PeripheralControlVisibleState> state) override;

private:
    Internal::RightKeyboardFramePrivate *d;
};

} // namespace Korvo::ECKeyboard::K7
