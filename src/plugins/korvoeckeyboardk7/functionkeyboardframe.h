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
class FunctionKeyboardFramePrivate;
}

/// The function keys. Their OLED labels never get a text.
class FunctionKeyboardFrame : public QFrame
{
    Q_OBJECT

public:
    explicit FunctionKeyboardFrame(QWidget *parent);
    ~FunctionKeyboardFrame() override;

    void applyNoramlStyleSheet();
    bool updateECButtonColor(std::shared_ptr<ECButtonColor> color);
    bool updateECOledText(std::shared_ptr<ECOLEDText> text);

Q_SIGNALS:
    void ecButtonPressed(const quint32 &key);
    void ecButtonRelease(const quint32 &key);

private:
    Internal::FunctionKeyboardFramePrivate *d;
};

} // namespace Korvo::ECKeyboard::K7
