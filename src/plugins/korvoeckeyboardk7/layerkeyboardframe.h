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
class LayerKeyboardFramePrivate;
}

/// The layer keys, with their OLED labels and page keys, and the keys that edit layers.
class LayerKeyboardFrame : public QFrame
{
    Q_OBJECT

public:
    explicit LayerKeyboardFrame(QWidget *parent);
    ~LayerKeyboardFrame() override;

    void applyNoramlStyleSheet();
    bool updateECButtonColor(std::shared_ptr<ECButtonColor> color);
    bool updateECOledText(std::shared_ptr<ECOLEDText> text);

Q_SIGNALS:
    void ecButtonPressed(const quint32 &key);
    void ecButtonRelease(const quint32 &key);

private:
    Internal::LayerKeyboardFramePrivate *d;
};

} // namespace Korvo::ECKeyboard::K7
