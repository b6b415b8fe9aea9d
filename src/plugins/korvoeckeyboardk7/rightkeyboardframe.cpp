// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "rightkeyboardframe.h"

#include "consolehalf.h"
#include "keysection.h"
#include "ui_rightkeyboardframe.h"

#include <korvo/keyboard/constants.h>

#include <QPointer>

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
    void createConnects();

    template <typename Operation>
    void handToKeySections(const Operation &operation)
    {
        handToSections(&m_calls, operation, ui->numberFrame, ui->functionFrame, ui->transitionFrame);
    }

    RightKeyboardFrame *m_pKeyboard; // owns this
    Ui::RightKeyboardFrame *ui = nullptr;
    GuiCalls m_calls;
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

void RightKeyboardFramePrivate::createConnects()
{
    relayKeys(ui->numberFrame, m_pKeyboard);
    relayKeys(ui->functionFrame, m_pKeyboard);
    relayKeys(ui->transitionFrame, m_pKeyboard);
    connect(ui->tBarFrame, &TBarKeyboadFrame::ecTBarValueChanged, m_pKeyboard,
            &RightKeyboardFrame::ecTBarValueChanged);

    using Strip = LogoKeyboardFrame;
    using Half = RightKeyboardFrame;
    const auto relay = [this](auto stripSignal, auto halfSignal) {
        connect(ui->logoFrame, stripSignal, m_pKeyboard, halfSignal);
    };
    relay(&Strip::signalGrooseneckLightStatusChanged, &Half::signalGrooseneckLightStatusChanged);
    relay(&Strip::signalFrontLightStatusChanged, &Half::signalFrontLightStatusChanged);
    relay(&Strip::signalSideLightStatusChanged, &Half::signalSideLightStatusChanged);
    relay(&Strip::signalLogoLightStatusChanged, &Half::signalLogoLightStatusChanged);
    relay(&Strip::signalSetPeripheralDataChange, &Half::signalSetPeripheralDataChange);
    relay(&Strip::signalUpdateSystemTime, &Half::signalUpdateSystemTime);
    relay(&Strip::signalUpdateSystemIP, &Half::signalUpdateSystemIP);
    relay(&Strip::signalReqECDeviceIP, &Half::signalReqECDeviceIP);
    relay(&Strip::signalRestartControlEvent, &Half::signalRestartControlEvent);
    relay(&Strip::signalIPModeChanged, &Half::signalIPModeChanged);
    relay(&Strip::signalTimeTypeChanged, &Half::signalTimeTypeChanged);
}

} // namespace Internal

RightKeyboardFrame::RightKeyboardFrame(QWidget *parent)
    : IKorvoECKeyboard(parent)
    , d(new Internal::RightKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

RightKeyboardFrame::~RightKeyboardFrame()
{
    d->m_calls.close();
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

void RightKeyboardFrame::applyNoramlStyleSheet()
{
    d->handToKeySections([](auto *section) { section->applyNoramlStyleSheet(); });
}

bool RightKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    d->handToKeySections([color](auto *section) { section->updateECButtonColor(color); });
    return true;
}

bool RightKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    // Not to the number section, which has no labels.
    Internal::handToSections(
        &d->m_calls, [text](auto *section) { section->updateECOledText(text); }, d->ui->functionFrame,
        d->ui->transitionFrame);
    return true;
}

bool RightKeyboardFrame::updateTBarValue(std::shared_ptr<ECTBarValue> value)
{
    Internal::handToSections(
        &d->m_calls, [value](auto *section) { section->updateTBarValue(value); }, d->ui->tBarFrame);
    return true;
}

void RightKeyboardFrame::updateECDeviceIP(std::shared_ptr<ECDeviceIPData> ip)
{
    d->ui->logoFrame->updateECDeviceIP(ip); // which takes it from any thread
}

bool RightKeyboardFrame::updateKeyboard()
{
    d->m_calls.run([this] {
        const QPointer<LogoKeyboardFrame> strip = d->ui->logoFrame;
        Q_EMIT signalKorvoPluginModeChanged();
        if (strip)
            strip->enterWindow();
    });
    return false; // on purpose, where the left half says true
}

void RightKeyboardFrame::updateDVISignalStatus(std::shared_ptr<DVIInSignal> signal)
{
    Internal::handToSections(
        &d->m_calls, [signal](auto *strip) { strip->updateDVISignalStatus(signal); }, d->ui->logoFrame);
}

void RightKeyboardFrame::updatePeripheralVisibleState(std::shared_ptr<PeripheralControlVisibleState> state)
{
    Internal::handToSections(
        &d->m_calls, [state](auto *strip) { strip->updatePeripheralVisibleState(state); }, d->ui->logoFrame);
}

} // namespace Korvo::ECKeyboard::K7

#include "rightkeyboardframe.moc"
