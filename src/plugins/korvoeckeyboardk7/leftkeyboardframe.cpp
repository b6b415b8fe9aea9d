// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "leftkeyboardframe.h"

#include "consolehalf.h"
#include "keysection.h"
#include "ui_leftkeyboardframe.h"

#include <korvo/keyboard/constants.h>

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class LeftKeyboardFramePrivate : public QObject
{
    Q_OBJECT

public:
    explicit LeftKeyboardFramePrivate(LeftKeyboardFrame *keyboard)
        : m_pKeyboard(keyboard)
    {
    }
    ~LeftKeyboardFramePrivate() override { delete ui; }

    void createWidgets();
    void createConnects();

    template <typename Operation>
    void handToSections(const Operation &operation)
    {
        Internal::handToSections(&m_calls, operation, ui->screenKeyboardFrame, ui->layerKeyboardframe,
                                 ui->inputKeyboardFrame, ui->presetKeyboardFrame);
    }

    LeftKeyboardFrame *m_pKeyboard; // owns this
    Ui::LeftKeyboardFrame *ui = nullptr;
    GuiCalls m_calls;
};

void LeftKeyboardFramePrivate::createWidgets()
{
    ui = new Ui::LeftKeyboardFrame;
    ui->setupUi(m_pKeyboard);
    m_pKeyboard->setProperty("contentFrame", true);
}

void LeftKeyboardFramePrivate::createConnects()
{
    relayKeys(ui->screenKeyboardFrame, m_pKeyboard);
    relayKeys(ui->layerKeyboardframe, m_pKeyboard);
    relayKeys(ui->inputKeyboardFrame, m_pKeyboard);
    relayKeys(ui->presetKeyboardFrame, m_pKeyboard);
}

} // namespace Internal

LeftKeyboardFrame::LeftKeyboardFrame(QWidget *parent)
    : IKorvoECKeyboard(parent)
    , d(new Internal::LeftKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

LeftKeyboardFrame::~LeftKeyboardFrame()
{
    d->m_calls.close();
    Internal::letGoOfKeys(this);
    delete d;
    d = nullptr;
}

QString LeftKeyboardFrame::displayName() const
{
    return Constants::EC_KEYBOARD_LEFT_NAME;
}

Ovo::Utils::Id LeftKeyboardFrame::keyboardId() const
{
    return Ovo::Utils::Id::fromString(QStringLiteral("K7_Left_Keyboard"));
}

void LeftKeyboardFrame::applyNoramlStyleSheet()
{
    d->handToSections([](auto *section) { section->applyNoramlStyleSheet(); });
}

bool LeftKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    d->handToSections([color](auto *section) { section->updateECButtonColor(color); });
    return true;
}

bool LeftKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    d->handToSections([text](auto *section) { section->updateECOledText(text); });
    return true;
}

bool LeftKeyboardFrame::updateTBarValue(std::shared_ptr<ECTBarValue>)
{
    return true;
}

void LeftKeyboardFrame::updateECDeviceIP(std::shared_ptr<ECDeviceIPData>) {}

bool LeftKeyboardFrame::updateKeyboard()
{
    d->m_calls.run([this] { Q_EMIT signalKorvoPluginModeChanged(); });
    return true;
}

void LeftKeyboardFrame::updateDVISignalStatus(std::shared_ptr<DVIInSignal>) {}

void LeftKeyboardFrame::updatePeripheralVisibleState(std::shared_ptr<PeripheralControlVisibleState>) {}

} // namespace Korvo::ECKeyboard::K7

#include "leftkeyboardframe.moc"
