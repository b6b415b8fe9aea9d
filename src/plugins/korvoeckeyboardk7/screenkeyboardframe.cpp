// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "screenkeyboardframe.h"

#include "keysection.h"
#include "ui_screenkeyboardframe.h"

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class ScreenKeyboardFramePrivate : public KeySection<ScreenKeyboardFrame, Ui::ScreenKeyboardFrame>
{
    Q_OBJECT

public:
    using KeySection::KeySection;

    void createWidgets();
    void nameKeys();
    void createConnects();
    PageKeys pageKeys() const { return {ui->pageUpToolButton, ui->pageDownToolButton}; }

    LabelList m_pECTexts;
    LabelIndex m_labelIndex; // of the list before

private Q_SLOTS:
    void slotPageUpToolButtonPressed() { press(ui->pageUpToolButton); }
    void slotPageUpToolButtonReleased() { release(ui->pageUpToolButton); }
    void slotPageDownToolButtonPressed() { press(ui->pageDownToolButton); }
    void slotPageDownToolButtonReleased() { release(ui->pageDownToolButton); }
    void slotFreezePGMToolButtonPressed() { press(ui->freezePGMToolButton); }
    void slotFreezePGMToolButtonReleased() { release(ui->freezePGMToolButton); }
    void slotMatchPGMToolButtonPressed() { press(ui->matchPGMToolButton); }
    void slotMatchPGMToolButtonReleased() { release(ui->matchPGMToolButton); }
    void slotFTBToolButtonPressed() { press(ui->ftbToolButton); }
    void slotFTBToolButtonReleased() { release(ui->ftbToolButton); }
    // The first screen has id 0, so its code is that of a key without an id; hosts count on it.
    void slotScreenButtonGroupPressed(QAbstractButton *button) { press(button); }
    void slotScreenButtonGroupReleased(QAbstractButton *button) { release(button); }
};

void ScreenKeyboardFramePrivate::createWidgets()
{
    createForm();
    markAll(ui->screenButtonGroup, "isScreenToolButton");
    mark(ui->pageUpToolButton, "isScreenPageUpToolButton");
    mark(ui->pageDownToolButton, "isScreenPageDownToolButton");
    mark(ui->freezePGMToolButton, "isFreezePGMToolButton");
    mark(ui->matchPGMToolButton, "isMatchPGMToolButton");
    mark(ui->ftbToolButton, "isFtbToolButton");
    mark(ui->reserved_1_ToolButton, "isScreenRreservedToolButton"); // spelled as style sheets spell it

    appendKeys(&m_pECButtons, ui->screenButtonGroup);
    m_pECButtons << ui->pageUpToolButton << ui->pageDownToolButton << ui->freezePGMToolButton
                 << ui->matchPGMToolButton << ui->ftbToolButton << ui->reserved_1_ToolButton;
    appendLabels(&m_pECTexts, ui->frameSelectMode);
    m_keyIndex.setWidgets(m_pECButtons);
    m_labelIndex.setWidgets(m_pECTexts);
    nameKeys();
    leaveOutOfTabOrder(ui->screenExtendToolButton, QStringLiteral("SCREEN EXTENSION"));
}

// This form gives no key the console's name, as the others do; the commands have their texts.
void ScreenKeyboardFramePrivate::nameKeys()
{
    const QList<QAbstractButton *> screens = ui->screenButtonGroup->buttons();
    for (QAbstractButton *key : screens)
        key->setAccessibleName(QStringLiteral("SCREEN %1").arg(keyId(key) + 1, 2, 10, QLatin1Char('0')));
    ui->pageUpToolButton->setAccessibleName(QStringLiteral("SCREEN UP"));
    ui->pageDownToolButton->setAccessibleName(QStringLiteral("SCREEN DW"));
    ui->reserved_1_ToolButton->setAccessibleName(QStringLiteral("SCREEN RESERVE01"));
}

void ScreenKeyboardFramePrivate::createConnects()
{
    using Self = ScreenKeyboardFramePrivate;
    connectGroup(ui->screenButtonGroup, this, &Self::slotScreenButtonGroupPressed,
                 &Self::slotScreenButtonGroupReleased);
    connectKey(ui->pageUpToolButton, this, &Self::slotPageUpToolButtonPressed,
               &Self::slotPageUpToolButtonReleased);
    connectKey(ui->pageDownToolButton, this, &Self::slotPageDownToolButtonPressed,
               &Self::slotPageDownToolButtonReleased);
    connectKey(ui->freezePGMToolButton, this, &Self::slotFreezePGMToolButtonPressed,
               &Self::slotFreezePGMToolButtonReleased);
    connectKey(ui->matchPGMToolButton, this, &Self::slotMatchPGMToolButtonPressed,
               &Self::slotMatchPGMToolButtonReleased);
    connectKey(ui->ftbToolButton, this, &Self::slotFTBToolButtonPressed, &Self::slotFTBToolButtonReleased);
    // The reserved key takes colours, and is silent.
}

} // namespace Internal

ScreenKeyboardFrame::ScreenKeyboardFrame(QWidget *parent)
    : QFrame(parent)
    , d(new Internal::ScreenKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

ScreenKeyboardFrame::~ScreenKeyboardFrame()
{
    Internal::letGoOfKeys(this);
    delete d;
    d = nullptr;
}

void ScreenKeyboardFrame::applyNoramlStyleSheet()
{
    Internal::paintIdle(d->ui->screenButtonGroup);
    for (QAbstractButton *key : {d->ui->freezePGMToolButton, d->ui->ftbToolButton, d->ui->matchPGMToolButton,
                                 d->ui->reserved_1_ToolButton})
        Internal::paintIdle(key);
    Internal::paintIdle(d->pageKeys());
}

bool ScreenKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    return Internal::paintAllKeys(d->m_pECButtons, color) ||
           Internal::paintMatchingKey(&d->m_keyIndex, color, d->pageKeys());
}

bool ScreenKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    return Internal::writeMatchingLabel(&d->m_labelIndex, text);
}

} // namespace Korvo::ECKeyboard::K7

#include "screenkeyboardframe.moc"
