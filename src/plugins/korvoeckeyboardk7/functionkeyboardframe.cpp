// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "functionkeyboardframe.h"

#include "keysection.h"
#include "ui_functionkeyboardframe.h"

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class FunctionKeyboardFramePrivate : public KeySection<FunctionKeyboardFrame, Ui::FunctionKeyboardFrame>
{
    Q_OBJECT

public:
    using KeySection::KeySection;

    void createWidgets();
    void createConnects();

    LabelList m_pECTexts;
    LabelIndex m_labelIndex; // of the list before

private Q_SLOTS:
    void slotFunctionKeyboardFramePressed(QAbstractButton *button) { press(button); }
    void slotFunctionKeyboardFrameReleased(QAbstractButton *button) { release(button); }
};

void FunctionKeyboardFramePrivate::createWidgets()
{
    createForm();
    markAll(ui->functionButtonGroup, "isNumberToolButton"); // shared with the keypad
    appendKeys(&m_pECButtons, ui->functionButtonGroup);
    // Finds none, since labels are children of the frame and not of its layout: these never show a text.
    appendLabels(&m_pECTexts, ui->verticalLayout);
    m_keyIndex.setWidgets(m_pECButtons);
    m_labelIndex.setWidgets(m_pECTexts);
}

void FunctionKeyboardFramePrivate::createConnects()
{
    using Self = FunctionKeyboardFramePrivate;
    connectGroup(ui->functionButtonGroup, this, &Self::slotFunctionKeyboardFramePressed,
                 &Self::slotFunctionKeyboardFrameReleased);
}

} // namespace Internal

FunctionKeyboardFrame::FunctionKeyboardFrame(QWidget *parent)
    : QFrame(parent)
    , d(new Internal::FunctionKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

FunctionKeyboardFrame::~FunctionKeyboardFrame()
{
    Internal::letGoOfKeys(this);
    delete d;
    d = nullptr;
}

void FunctionKeyboardFrame::applyNoramlStyleSheet()
{
    Internal::paintIdle(d->ui->functionButtonGroup);
}

bool FunctionKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    return Internal::paintAllKeys(d->m_pECButtons, color) ||
           Internal::paintMatchingKey(&d->m_keyIndex, color);
}

bool FunctionKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    return Internal::writeMatchingLabel(&d->m_labelIndex, text);
}

} // namespace Korvo::ECKeyboard::K7

#include "functionkeyboardframe.moc"
