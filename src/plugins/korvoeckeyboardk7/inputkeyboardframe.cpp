// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "inputkeyboardframe.h"

#include "keysection.h"
#include "ui_inputkeyboardframe.h"

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class InputKeyboardFramePrivate : public KeySection<InputKeyboardFrame, Ui::InputKeyboardFrame>
{
    Q_OBJECT

public:
    using KeySection::KeySection;

    void createWidgets();
    void createConnects();
    PageKeys pageKeys() const { return {ui->pageUpToolButton, ui->pageDownToolButton}; }

    LabelList m_pECTexts;
    LabelIndex m_labelIndex; // of the list before

private Q_SLOTS:
    void slotPageUpToolButtonPressed() { press(ui->pageUpToolButton); }
    void slotPageUpToolButtonReleased() { release(ui->pageUpToolButton); }
    void slotPageDownToolButtonPressed() { press(ui->pageDownToolButton); }
    void slotPageDownToolButtonReleased() { release(ui->pageDownToolButton); }
    void slotInputButtonGroupPressed(QAbstractButton *button) { press(button); }
    void slotInputButtonGroupReleased(QAbstractButton *button) { release(button); }
};

void InputKeyboardFramePrivate::createWidgets()
{
    createForm();
    mark(ui->frame, "contentFrame");
    markAll(ui->inputButtonGroup, "isInputToolButton");
    mark(ui->pageUpToolButton, "isInputPageUpToolButton");
    mark(ui->pageDownToolButton, "isInputPageDownToolButton");

    appendKeys(&m_pECButtons, ui->inputButtonGroup);
    m_pECButtons << ui->pageUpToolButton << ui->pageDownToolButton;
    appendLabels(&m_pECTexts, ui->frame_20);
    m_keyIndex.setWidgets(m_pECButtons);
    m_labelIndex.setWidgets(m_pECTexts);
    leaveOutOfTabOrder(ui->inputExtendToolButton, QStringLiteral("INPUT EXTENSION"));
}

void InputKeyboardFramePrivate::createConnects()
{
    using Self = InputKeyboardFramePrivate;
    connectGroup(ui->inputButtonGroup, this, &Self::slotInputButtonGroupPressed,
                 &Self::slotInputButtonGroupReleased);
    connectKey(ui->pageUpToolButton, this, &Self::slotPageUpToolButtonPressed,
               &Self::slotPageUpToolButtonReleased);
    connectKey(ui->pageDownToolButton, this, &Self::slotPageDownToolButtonPressed,
               &Self::slotPageDownToolButtonReleased);
}

} // namespace Internal

InputKeyboardFrame::InputKeyboardFrame(QWidget *parent)
    : QFrame(parent)
    , d(new Internal::InputKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

InputKeyboardFrame::~InputKeyboardFrame()
{
    Internal::letGoOfKeys(this);
    delete d;
    d = nullptr;
}

void InputKeyboardFrame::applyNoramlStyleSheet()
{
    Internal::markAll(d->ui->inputButtonGroup, "isInputToolButton");
    Internal::paintIdle(d->ui->inputButtonGroup);
    Internal::paintIdle(d->pageKeys());
    Internal::mark(d->ui->pageUpToolButton, "isInputPageUpToolButton");
    Internal::mark(d->ui->pageDownToolButton, "isInputPageDownToolButton");
}

bool InputKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    return Internal::paintAllKeys(d->m_pECButtons, color) ||
           Internal::paintMatchingKey(&d->m_keyIndex, color, d->pageKeys());
}

bool InputKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    return Internal::writeMatchingLabel(&d->m_labelIndex, text);
}

} // namespace Korvo::ECKeyboard::K7

#include "inputkeyboardframe.moc"
