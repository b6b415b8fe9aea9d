// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "transitionkeyboardframe.h"

#include "keysection.h"
#include "ui_transitionkeyboardframe.h"

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class TransitionKeyboardFramePrivate : public KeySection<TransitionKeyboardFrame, Ui::TransitionKeyboardFrame>
{
    Q_OBJECT

public:
    using KeySection::KeySection;

    void createWidgets();
    void createConnects();

    LabelList m_pECTexts;
    LabelIndex m_labelIndex; // of the list before

private Q_SLOTS:
    void slotTransitionKeyboardFramePressed(QAbstractButton *button) { press(button); }
    void slotTransitionKeyboardFrameReleased(QAbstractButton *button) { release(button); }
};

void TransitionKeyboardFramePrivate::createWidgets()
{
    createForm();
    mark(ui->frametrans, "contentFrame");
    markAll(ui->transitionButtonGroup, "isNumberToolButton"); // shared with the keypad
    appendKeys(&m_pECButtons, ui->transitionButtonGroup);
    // The form numbers the labels of a row from right to left, and calls the second reserved key the third
    // one: so does the console.
    appendLabels(&m_pECTexts, ui->frametrans);
    m_keyIndex.setWidgets(m_pECButtons);
    m_labelIndex.setWidgets(m_pECTexts);
}

void TransitionKeyboardFramePrivate::createConnects()
{
    using Self = TransitionKeyboardFramePrivate;
    connectGroup(ui->transitionButtonGroup, this, &Self::slotTransitionKeyboardFramePressed,
                 &Self::slotTransitionKeyboardFrameReleased);
}

} // namespace Internal

TransitionKeyboardFrame::TransitionKeyboardFrame(QWidget *parent)
    : QFrame(parent)
    , d(new Internal::TransitionKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

TransitionKeyboardFrame::~TransitionKeyboardFrame()
{
    Internal::letGoOfKeys(this);
    delete d;
    d = nullptr;
}

void TransitionKeyboardFrame::applyNoramlStyleSheet()
{
    Internal::paintIdle(d->ui->transitionButtonGroup);
}

bool TransitionKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    return Internal::paintAllKeys(d->m_pECButtons, color) ||
           Internal::paintMatchingKey(&d->m_keyIndex, color);
}

bool TransitionKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    return Internal::writeMatchingLabel(&d->m_labelIndex, text);
}

} // namespace Korvo::ECKeyboard::K7

#include "transitionkeyboardframe.moc"
