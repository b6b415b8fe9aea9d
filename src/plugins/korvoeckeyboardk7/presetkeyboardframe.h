// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>

#include <memory>

namespace Korvo {
struct ECButtonColor;
struct ECOLEDText;
} // namespace Korvo

namespace Korvo::ECKeyboard::K7 {

namespace Internal {
class PresetKeyboardFramePrivate;
}

/// The preset keys, with their OLED labels and page keys, the keys that edit presets, and CUT and TAKE.
class PresetKeyboardFrame : public QFrame
{
    Q_OBJECT

public:
    explicit PresetKeyboardFrame(QWidget *parent);
    ~PresetKeyboardFrame() override;

    void applyNoramlStyleSheet();
    bool updateECButtonColor(std::shared_ptr<ECButtonColor> color);
    bool updateECOledText(std::shared_ptr<ECOLEDText> text);

Q_SIGNALS:
    void ecButtonPressed(const quint32 &key);
    void ecButtonRelease(const quint32 &key);

private:
    Internal::PresetKeyboardFramePrivate *d;
};

} // namespace Korvo::ECKeyboard::K7
