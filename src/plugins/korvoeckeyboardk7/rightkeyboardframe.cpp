// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "rightkeyboardframe.h"

#include "consolehalf.h"
#include "keysection.h"
#include "ui_rightkeyboardframe.h"

#include <korvo/keyboard/constants.h>

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class RightKeyboardFramePrivate : public QObject
{
    Q_OBJECT

public:
    explicit RightKeyboardFramePrivate(RightKeyboardFrame *keyboard)
        : m_pKeyboard(keyboard)
    {
    }
    ~RightKeyboardFramePrivate() override { delete ui; }

    void createWidgets();

    RightKeyboardFrame *m_pKeyboard; // owns this
    Ui::RightKeyboardFrame *ui = nullptr;
};

void RightKeyboardFramePrivate::createWidgets()
{
    ui = new Ui::RightKeyboardFrame;
    ui->setupUi(m_pKeyboard);
    m_pKeyboard->setProperty("contentFrame", true);
    ui->frame_6->setProperty("contentFrame", true);
    ui->transitionFrame->setProperty("contentFrame", true);
    ui->tBarFrame->setProperty("contentFrame", true);
}

} // namespace Internal

RightKeyboardFrame::RightKeyboardFrame(QWidget *parent)
    : IKorvoECKeyboard(parent)
    , d(new Internal::RightKeyboardFramePrivate(this))
{
    d->createWidgets();
}

RightKeyboardFrame::~RightKeyboardFrame()
{
    Internal::letGoOfKeys(this);
    delete d;
    d = nullptr;
}

QString RightKeyboardFrame::displayName() const
{
    return Constants::EC_KEYBOARD_RIGHT_NAME;
}

Ovo::Utils::Id RightKeyboardFrame::keyboardId() const
{
    return Ovo::Utils::Id::fromString(QStringLiteral("K7_Right_Keyboard"));
}

void RightKeyboardFrame::applyNoramlStyleSheet() {}

bool RightKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor>)
{
    return true;
}

bool RightKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText>)
{
    return true;
}

bool RightKeyboardFrame::updateTBarValue(std::shared_ptr<ECTBarValue>)
{
    return true;
}

void RightKeyboardFrame::updateECDeviceIP(std::shared_ptr<ECDeviceIPData>) {}

bool RightKeyboardFrame::updateKeyboard()
{
    Internal::onGuiThread(this, [this] { Q_EMIT signalKorvoPluginModeChanged(); });
    return false; // on purpose, where the left half says true
}

void RightKeyboardFrame::updateDVISignalStatus(std::shared_ptr<DVIInSignal>) {}

void RightKeyboardFrame::updatePeripheralVisibleState(std::shared_ptr<PeripheralControlVisibleState>) {}

} // namespace Korvo::ECKeyboard::K7

#include "rightkeyboardframe.moc"
