// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "layerkeyboardframe.h"

#include "keysection.h"
#include "ui_layerkeyboardframe.h"

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class LayerKeyboardFramePrivate : public KeySection<LayerKeyboardFrame, Ui::LayerKeyboardFrame>
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
    void slotLayerButtonGroupPressed(QAbstractButton *button) { press(button); }
    void slotLayerButtonGroupReleased(QAbstractButton *button) { release(button); }
    void slotClearLayerToolButtonPressed() { press(ui->clearLayerToolButton); }
    void slotClearLayerToolButtonReleased() { release(ui->clearLayerToolButton); }
    void slotClearAllLayerToolButtonPressed() { press(ui->clearAllLayerToolButton); }
    void slotClearAllLayerToolButtonReleased() { release(ui->clearAllLayerToolButton); }
    void slotTopZValueToolButtonPressed() { press(ui->setTopZValueToolButton); }
    void slotTopZValueToolButtonReleased() { release(ui->setTopZValueToolButton); }
    void slotBottomZValueToolButtonPressed() { press(ui->setBottomZValueToolButton); }
    void slotBottomZValueToolButtonReleased() { release(ui->setBottomZValueToolButton); }
    void slotReserved1ToolButtonPressed() { press(ui->reserved_1_ToolButton); }
    void slotReserved1ToolButtonReleased() { release(ui->reserved_1_ToolButton); }
    void slotReserved2ToolButtonPressed() { press(ui->reserved_2_ToolButton); }
    void slotReserved2ToolButtonReleased() { release(ui->reserved_2_ToolButton); }
    void slotPageUpToolButtonPressed() { press(ui->pageUpToolButton); }
    void slotPageUpToolButtonReleased() { release(ui->pageUpToolButton); }
    void slotPageDownToolButtonPressed() { press(ui->pageDownToolButton); }
    void slotPageDownToolButtonReleased() { release(ui->pageDownToolButton); }
};

void LayerKeyboardFramePrivate::createWidgets()
{
    createForm();
    // The screens' marker; "isLayerToolButton" joins it with the idle look. Rules for either name hold.
    markAll(ui->layerButtonGroup, "isScreenToolButton");
    mark(ui->pageUpToolButton, "isLayerPageUpToolButton");
    mark(ui->pageDownToolButton, "isLayerPageDownToolButton");

    appendKeys(&m_pECButtons, ui->layerButtonGroup);
    m_pECButtons << ui->clearLayerToolButton << ui->clearAllLayerToolButton << ui->setTopZValueToolButton
                 << ui->setBottomZValueToolButton << ui->reserved_1_ToolButton << ui->reserved_2_ToolButton
                 << ui->pageUpToolButton << ui->pageDownToolButton;
    appendLabels(&m_pECTexts, ui->frame_18);
    appendLabels(&m_pECTexts, ui->frame);
    m_keyIndex.setWidgets(m_pECButtons);
    m_labelIndex.setWidgets(m_pECTexts);
    leaveOutOfTabOrder(ui->layerExtendToolButton, QStringLiteral("LAYER EXTENSION"));
}

void LayerKeyboardFramePrivate::createConnects()
{
    using Self = LayerKeyboardFramePrivate;
    connectGroup(ui->layerButtonGroup, this, &Self::slotLayerButtonGroupPressed,
                 &Self::slotLayerButtonGroupReleased);
    connectKey(ui->clearLayerToolButton, this, &Self::slotClearLayerToolButtonPressed,
               &Self::slotClearLayerToolButtonReleased);
    connectKey(ui->clearAllLayerToolButton, this, &Self::slotClearAllLayerToolButtonPressed,
               &Self::slotClearAllLayerToolButtonReleased);
    connectKey(ui->setTopZValueToolButton, this, &Self::slotTopZValueToolButtonPressed,
               &Self::slotTopZValueToolButtonReleased);
    connectKey(ui->setBottomZValueToolButton, this, &Self::slotBottomZValueToolButtonPressed,
               &Self::slotBottomZValueToolButtonReleased);
    connectKey(ui->reserved_1_ToolButton, this, &Self::slotReserved1ToolButtonPressed,
               &Self::slotReserved1ToolButtonReleased);
    connectKey(ui->reserved_2_ToolButton, this, &Self::slotReserved2ToolButtonPressed,
               &Self::slotReserved2ToolButtonReleased);
    connectKey(ui->pageUpToolButton, this, &Self::slotPageUpToolButtonPressed,
               &Self::slotPageUpToolButtonReleased);
    connectKey(ui->pageDownToolButton, this, &Self::slotPageDownToolButtonPressed,
               &Self::slotPageDownToolButtonReleased);
}

} // namespace Internal

LayerKeyboardFrame::LayerKeyboardFrame(QWidget *parent)
    : QFrame(parent)
    , d(new Internal::LayerKeyboardFramePrivate(this))
{
    d->createWidgets();
    d->createConnects();
}

LayerKeyboardFrame::~LayerKeyboardFrame()
{
    Internal::letGoOfKeys(this);
    delete d;
    d = nullptr;
}

void LayerKeyboardFrame::applyNoramlStyleSheet()
{
    Internal::markAll(d->ui->layerButtonGroup, "isLayerToolButton");
    Internal::paintIdle(d->ui->layerButtonGroup);
    const struct
    {
        QAbstractButton *key;
        const char *marker;
    } editKeys[] = {
        {d->ui->clearLayerToolButton, "isLayerClearToolButton"},
        {d->ui->clearAllLayerToolButton, "isClearAllLayerToolButton"},
        {d->ui->setTopZValueToolButton, "isTopZToolButton"},
        {d->ui->setBottomZValueToolButton, "isBottomZToolButton"},
        {d->ui->reserved_1_ToolButton, "isLayerReserved1ToolButton"},
        {d->ui->reserved_2_ToolButton, "isLayerReserved2ToolButton"},
    };
    for (const auto &edit : editKeys) {
        Internal::paintIdle(edit.key);
        Internal::mark(edit.key, edit.marker);
    }
    Internal::paintIdle(d->pageKeys());
    Internal::mark(d->ui->pageUpToolButton, "isLayerPageUpToolButton");
    Internal::mark(d->ui->pageDownToolButton, "isLayerPageDownToolButton");
}

bool LayerKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    return Internal::paintAllKeys(d->m_pECButtons, color) ||
           Internal::paintMatchingKey(&d->m_keyIndex, color, d->pageKeys());
}

bool LayerKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    return Internal::writeMatchingLabel(&d->m_labelIndex, text);
}

} // namespace Korvo::ECKeyboard::K7

#include "layerkeyboardframe.moc"
