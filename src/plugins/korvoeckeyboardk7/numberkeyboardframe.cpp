// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "numberkeyboardframe.h"

#include "keysection.h"
#include "ui_numberkeyboardframe.h"

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class NumberKeyboardFramePrivate : public KeySection<NumberKeyboardFrame, Ui::NumberKeyboardFrame>
{
    Q_OBJECT

public:
    using KeySection::KeySection;

    void createWidgets();
    void createConnects();

private Q_SLOTS:
    void slotNumberButtonGroupPressed(QAbstractButton *button) { press(button); }
    void slotNumberButtonGroupReleased(QAbstractButton *button) { release(button); }
};

void NumberKeyboardFramePrivate::createWidgets()
{
    createForm();
    markAll(ui->numberButtonGroup, "isNumberToolButton");
    appendKeys(&m_pECButtons, ui->numberButtonGroup);
    m_keyIndex.setWidgets(m_pECButtons);
}

void NumberKeyboardFramePrivate::createConnects()
{
    using Self = NumberKeyboardFramePrivate;
    connectGroup(ui->numberButtonGroup, this, &Self::slotNumberButtonGroupPressed,
                 &Self::slotNumberButtonGroupReleased);
}

} // namespace Internal

NumberKeyboardFrame::NumberKeyboardFrame(QWidget *parent)
    : QFrame(parent)
    , d(new Internal::NumberKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

NumberKeyboardFrame::~NumberKeyboardFrame()
{
    Internal::letGoOfKeys(this);
    delete d;
    d = nullptr;
}

void NumberKeyboardFrame::applyNoramlStyleSheet()
{
    Internal::paintIdle(d->ui->numberButtonGroup);
}

bool NumberKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    // No broadcast: the keypad keeps its look when all other keys change theirs.
    return Internal::paintMatchingKey(&d->m_keyIndex, color);
}

bool NumberKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    // There is no label to write, yet every text counts as taken.
    return text != nullptr;
}

} // namespace Korvo::ECKeyboard::K7

#include "numberkeyboardframe.moc"
