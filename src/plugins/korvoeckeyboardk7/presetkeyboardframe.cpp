// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "presetkeyboardframe.h"

#include "keysection.h"
#include "ui_presetkeyboardframe.h"

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class PresetKeyboardFramePrivate : public KeySection<PresetKeyboardFrame, Ui::PresetKeyboardFrame>
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
    // Named after the screens, though these are the presets.
    void slotScreenButtonGroupPressed(QAbstractButton *button) { press(button); }
    void slotScreenButtonGroupReleased(QAbstractButton *button) { release(button); }
    void slotPageUpToolButtonPressed() { press(ui->pageUpToolButton); }
    void slotPageUpToolButtonReleased() { release(ui->pageUpToolButton); }
    void slotPageDownToolButtonPressed() { press(ui->pageDownToolButton); }
    void slotPageDownToolButtonReleased() { release(ui->pageDownToolButton); }
    void slotClearPresetToolButtonPressed() { press(ui->clearPresetToolButton); }
    void slotClearPresetToolButtonReleased() { release(ui->clearPresetToolButton); }
    void slotClearAllPresetToolButtonPressed() { press(ui->clearAllPresetToolButton); }
    void slotClearAllPresetToolButtonReleased() { release(ui->clearAllPresetToolButton); }
    void slotSavePresetToolButtonPressed() { press(ui->savePresetToolButton); }
    void slotSavePresetToolButtonReleased() { release(ui->savePresetToolButton); }
    void slotTakeToolButtonPressed() { press(ui->takeToolButton); }
    void slotTakeToolButtonReleased() { release(ui->takeToolButton); }
    void slotCutToolButtonPressed() { press(ui->cutToolButton); }
    void slotCutToolButtonReleased() { release(ui->cutToolButton); }
    void slotLoadToPGMPressed() { press(ui->load_To_PGM); }
    void slotLoadToPGMReleased() { release(ui->load_To_PGM); }
};

void PresetKeyboardFramePrivate::createWidgets()
{
    createForm();
    markAll(ui->presetButtonGroup, "isScreenToolButton");
    mark(ui->pageUpToolButton, "isScreenPageUpToolButton");
    mark(ui->pageDownToolButton, "isScreenPageDownToolButton");
    mark(ui->clearPresetToolButton, "isClearPresetToolButton");
    mark(ui->clearAllPresetToolButton, "isClearAllPresetToolButton");
    mark(ui->load_To_PGM, "isClearPresetToolButton");
    // The markers of the load key and of SAVE are those of other keys too, and CUT and TAKE have none.
    for (const char *marker :
         {"clearAllPresetToolButton", "isSavePresetToolButton", "TakeToolButton", "CutToolButton"})
        mark(ui->savePresetToolButton, marker);

    // SAVE stands in the list twice, and is painted twice by a broadcast. The reserved keys are not in it.
    appendKeys(&m_pECButtons, ui->presetButtonGroup);
    m_pECButtons << ui->pageUpToolButton << ui->pageDownToolButton << ui->clearPresetToolButton
                 << ui->clearAllPresetToolButton << ui->savePresetToolButton << ui->savePresetToolButton
                 << ui->load_To_PGM << ui->takeToolButton << ui->cutToolButton;
    // Two labels have no number. They read as 0, which a label of the grid has and takes first.
    appendLabels(&m_pECTexts, ui->frame_22);
    appendLabels(&m_pECTexts, ui->frame_2);
    m_keyIndex.setWidgets(m_pECButtons);
    m_labelIndex.setWidgets(m_pECTexts);
    leaveOutOfTabOrder(ui->presetExtendToolButton1, QStringLiteral("PRESET EXTENSION 1"));
    leaveOutOfTabOrder(ui->presetExtendToolButton2, QStringLiteral("PRESET EXTENSION 2"));
}

void PresetKeyboardFramePrivate::createConnects()
{
    using Self = PresetKeyboardFramePrivate;
    connectGroup(ui->presetButtonGroup, this, &Self::slotScreenButtonGroupPressed,
                 &Self::slotScreenButtonGroupReleased);
    connectKey(ui->pageUpToolButton, this, &Self::slotPageUpToolButtonPressed,
               &Self::slotPageUpToolButtonReleased);
    connectKey(ui->pageDownToolButton, this, &Self::slotPageDownToolButtonPressed,
               &Self::slotPageDownToolButtonReleased);
    connectKey(ui->clearPresetToolButton, this, &Self::slotClearPresetToolButtonPressed,
               &Self::slotClearPresetToolButtonReleased);
    connectKey(ui->clearAllPresetToolButton, this, &Self::slotClearAllPresetToolButtonPressed,
               &Self::slotClearAllPresetToolButtonReleased);
    connectKey(ui->savePresetToolButton, this, &Self::slotSavePresetToolButtonPressed,
               &Self::slotSavePresetToolButtonReleased);
    connectKey(ui->takeToolButton, this, &Self::slotTakeToolButtonPressed, &Self::slotTakeToolButtonReleased);
    connectKey(ui->cutToolButton, this, &Self::slotCutToolButtonPressed, &Self::slotCutToolButtonReleased);
    connectKey(ui->load_To_PGM, this, &Self::slotLoadToPGMPressed, &Self::slotLoadToPGMReleased);
    // The two reserved keys are silent.
}

} // namespace Internal

PresetKeyboardFrame::PresetKeyboardFrame(QWidget *parent)
    : QFrame(parent)
    , d(new Internal::PresetKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

PresetKeyboardFrame::~PresetKeyboardFrame()
{
    Internal::letGoOfKeys(this);
    delete d;
    d = nullptr;
}

void PresetKeyboardFrame::applyNoramlStyleSheet()
{
    Internal::markAll(d->ui->presetButtonGroup, "isPresetToolButton");
    Internal::paintIdle(d->ui->presetButtonGroup);
    // One marker for all of them, and it is the page-up key's of the inputs.
    for (QAbstractButton *key :
         {d->ui->clearPresetToolButton, d->ui->clearAllPresetToolButton, d->ui->savePresetToolButton,
          d->ui->reserved_1_ToolButton, d->ui->reserved_2_ToolButton, d->ui->load_To_PGM,
          d->ui->cutToolButton, d->ui->takeToolButton}) {
        Internal::paintIdle(key);
        Internal::mark(key, "isInputPageUpToolButton");
    }
    Internal::paintIdle(d->pageKeys());
    Internal::mark(d->ui->pageUpToolButton, "isInputPageUpToolButton");
    Internal::mark(d->ui->pageDownToolButton, "isInputPageUpToolButton");
}

bool PresetKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    return Internal::paintAllKeys(d->m_pECButtons, color) ||
           Internal::paintMatchingKey(&d->m_keyIndex, color, d->pageKeys());
}

bool PresetKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    return Internal::writeMatchingLabel(&d->m_labelIndex, text);
}

} // namespace Korvo::ECKeyboard::K7

#include "presetkeyboardframe.moc"
