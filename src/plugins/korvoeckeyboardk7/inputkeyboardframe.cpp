// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "inputkeyboardframe.h"

#include "keysection.h"
#include "ui_inputkeyboardframe.h"

namespace Korvo::ECKeyboard::K7 {

namespace Internal {

class InputKeyboardFramePrivate : public QObject
{
    Q_OBJECT

public:
    explicit InputKeyboardFramePrivate(InputKeyboardFrame *keyboard)
        : m_pKeyboard(keyboard)
    {
    }
    ~InputKeyboardFramePrivate() override { delete ui; }

    void createWidgets();
    void createConnects();
    PageKeys pageKeys() const { return {ui->pageUpToolButton, ui->pageDownToolButton}; }

    InputKeyboardFrame *m_pKeyboard; // owns this
    Ui::InputKeyboardFrame *ui = nullptr;
    KeyList m_pECButtons;
    LabelList m_pECTexts;

private Q_SLOTS:
    void slotPageUpToolButtonPressed() { sendPress(m_pKeyboard, ui->pageUpToolButton); }
    void slotPageUpToolButtonReleased() { sendRelease(m_pKeyboard, ui->pageUpToolButton); }
    void slotPageDownToolButtonPressed() { sendPress(m_pKeyboard, ui->pageDownToolButton); }
    void slotPageDownToolButtonReleased() { sendRelease(m_pKeyboard, ui->pageDownToolButton); }
    void slotInputButtonGroupPressed(QAbstractButton *button) { sendPress(m_pKeyboard, button); }
    void slotInputButtonGroupReleased(QAbstractButton *button) { sendRelease(m_pKeyboard, button); }
};

void InputKeyboardFramePrivate::createWidgets()
{
    ui = new Ui::InputKeyboardFrame;
    ui->setupUi(m_pKeyboard);

    mark(m_pKeyboard, "contentFrame");
    mark(ui->frame, "contentFrame");
    markAll(ui->inputButtonGroup, "isInputToolButton");
    mark(ui->pageUpToolButton, "isInputPageUpToolButton");
    mark(ui->pageDownToolButton, "isInputPageDownToolButton");

    appendKeys(&m_pECButtons, ui->inputButtonGroup);
    m_pECButtons << ui->pageUpToolButton << ui->pageDownToolButton;
    appendLabels(&m_pECTexts, ui->frame_20);
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
    Internal::paintIdle(d->ui->inputButtonGroup);
    Internal::paintIdle(d->pageKeys());
    Internal::markAll(d->ui->inputButtonGroup, "isInputToolButton");
    Internal::mark(d->ui->pageUpToolButton, "isInputPageUpToolButton");
    Internal::mark(d->ui->pageDownToolButton, "isInputPageDownToolButton");
}

bool InputKeyboardFrame::updateECButtonColor(std::shared_ptr<ECButtonColor> color)
{
    return Internal::paintAllKeys(d->m_pECButtons, color) ||
           Internal::paintMatchingKey(d->m_pECButtons, color, d->pageKeys());
}

bool InputKeyboardFrame::updateECOledText(std::shared_ptr<ECOLEDText> text)
{
    return Internal::writeMatchingLabel(d->m_pECTexts, text);
}

} // namespace Korvo::ECKeyboard::K7

#include "inputkeyboardframe.moc"
