// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "choicekeys.h"
#include "logging.h"
#include "markers.h"
#include "ui_consolefloatwidget.h"

#include <ovo/widgets/framelessmessagebox.h>

#include <QButtonGroup>
#include <QSignalBlocker>

namespace Korvo::Internal {

using ECKeyboard::lcPlugin;
using ECKeyboard::K7::Internal::setMarker;

namespace {

const char ScreenFrame[] = "screenFrame"; // the property that holds a screen's resolution
constexpr QSize ScreenButtonSize(1920, 1080);
constexpr int MaximumScreens = 16;

const char OperationScreenMarker[] = "isScreenButtonCheckStatus";

QSize resolutionOf(const QAbstractButton *button)
{
    return button->property(ScreenFrame).toSize();
}

} // namespace

void ConsoleFloatWidget::initPeripheralData()
{
    ui->screenNumberCombox->clear();
    for (int number = 1; number <= MaximumScreens; ++number)
        ui->screenNumberCombox->addItem(QString::number(number));
    connect(ui->screenNumberCombox, QOverload<const QString &>::of(&QComboBox::currentIndexChanged), this,
            &ConsoleFloatWidget::initScreenButtonGroup);
    initScreenButtonGroup();
}

void ConsoleFloatWidget::initScreenButtonGroup()
{
    if (!m_pScreenButtonGroup) {
        m_pScreenButtonGroup = new QButtonGroup;
        connect(m_pScreenButtonGroup, QOverload<int, bool>::of(&QButtonGroup::buttonToggled), this,
                &ConsoleFloatWidget::slotScreenButtonToggled);
    }
    markOperationScreen(false);
    m_currentScreeButtonIndex = -1;
    ui->currentPanelCheckBox->setChecked(false);

    const int count = ui->screenNumberCombox->currentText().toInt();
    while (m_pScreenButtonGroup->buttons().size() > count)
        removeLastScreenButton();
    while (m_pScreenButtonGroup->buttons().size() < count)
        addScreenButton();

    if (count > 0 && !m_pScreenButtonGroup->checkedButton())
        m_pScreenButtonGroup->button(0)->setChecked(true);
}

// The button stays a child of its frame, and is not used again.
void ConsoleFloatWidget::removeLastScreenButton()
{
    QAbstractButton *button = m_pScreenButtonGroup->button(m_pScreenButtonGroup->buttons().size() - 1);
    m_pScreenButtonGroup->removeButton(button); // first: an exclusive group keeps its checked button
    button->setChecked(false);
    button->hide();
}

void ConsoleFloatWidget::addScreenButton()
{
    auto *layout = qobject_cast<QHBoxLayout *>(ui->screenButtonFrame->layout());
    if (!layout) {
        layout = new QHBoxLayout(ui->screenButtonFrame);
        layout->setSpacing(0);
        layout->setContentsMargins(0, 0, 0, 0); // in line with the rows above and below
        layout->addStretch();
    }

    const int id = m_pScreenButtonGroup->buttons().size();
    auto *button = new QPushButton(QString::number(id + 1), ui->screenButtonFrame);
    button->setCheckable(true);
    button->setProperty(OperationScreenMarker, false);
    button->setAutoDefault(false);
    button->setProperty(ScreenFrame, ScreenButtonSize);
    button->setFixedSize(64, 36);
    m_pScreenButtonGroup->addButton(button, id);
    nameScreenButton(button);
    new ChoiceKeys(button);
    layout->insertWidget(layout->count() - 1, button);
    QWidget *before = ui->screenNumberCombox; // which takes the focus: Qt passes over others
    if (id > 0)
        before = m_pScreenButtonGroup->button(id - 1);
    setTabOrder(before, button);
}

void ConsoleFloatWidget::markOperationScreen(bool isOperationScreen)
{
    if (QWidget *button = m_pScreenButtonGroup->button(m_currentScreeButtonIndex))
        setMarker(button, OperationScreenMarker, isOperationScreen);
}

void ConsoleFloatWidget::slotScreenButtonToggled(int id, bool checked)
{
    const QAbstractButton *button = m_pScreenButtonGroup->button(id);
    if (!button || !checked)
        return;
    ui->screenScrollArea->ensureWidgetVisible(m_pScreenButtonGroup->button(id));
    // Read before either editor is set: each writes the resolution back.
    const QSize resolution = resolutionOf(button);
    ui->spinBox_width->setValue(resolution.width());
    ui->spinBox_height->setValue(resolution.height());

    const QSignalBlocker blocker(this);
    ui->currentPanelCheckBox->setChecked(id == m_currentScreeButtonIndex);
}

void ConsoleFloatWidget::slotScreenFrameChanged(int value)
{
    Q_UNUSED(value)
    if (QAbstractButton *button = m_pScreenButtonGroup->checkedButton())
        button->setProperty(ScreenFrame, QSize(ui->spinBox_width->value(), ui->spinBox_height->value()));
}

void ConsoleFloatWidget::slotPanelCheckStateChanged(int state)
{
    if (!m_pScreenButtonGroup || m_pScreenButtonGroup->buttons().isEmpty())
        return;
    const int shown = m_pScreenButtonGroup->checkedId();
    if (state == Qt::Checked) {
        markOperationScreen(false);
        m_currentScreeButtonIndex = shown;
        markOperationScreen(true);
    } else if (state == Qt::Unchecked && m_currentScreeButtonIndex == shown) {
        markOperationScreen(false);
        m_currentScreeButtonIndex = -1;
    }
}

void ConsoleFloatWidget::slotSetPeripheralData()
{
    if (m_currentScreeButtonIndex >= 0) {
        updateConsoleData();
        return;
    }
    // The panel names another model here, on purpose.
    const QString model = QStringLiteral("Q6").toLower();
    Ovo::Widgets::FramelessMessageBox::warning(
        this, tr("Remind"), tr("Please select %1 operation screen.").arg(model), QMessageBox::Ok);
}

bool ConsoleFloatWidget::updateConsoleData()
{
    const int count = ui->screenNumberCombox->currentText().toInt();
    QVector<quint16> resolutions;
    for (int id = 0; id < count; ++id) {
        const QAbstractButton *button = m_pScreenButtonGroup->button(id);
        if (!button) {
            qCCritical(lcPlugin) << " m_pScreenButtonGroup button not found... button Index is : " << id;
            return false;
        }
        const QSize resolution = resolutionOf(button);
        resolutions << static_cast<quint16>(resolution.width()) << static_cast<quint16>(resolution.height());
    }
    Q_EMIT signalSetPeripheralDataChange(count, m_currentScreeButtonIndex, resolutions);
    return true;
}

void ConsoleFloatWidget::initPeripheralModule(bool visible)
{
    for (QWidget *widget : std::initializer_list<QWidget *>{
             ui->label_peripheral, ui->label_screenNumber, ui->label_resolution, ui->label_currentPanel,
             ui->label_width, ui->label_height, ui->screenNumberCombox, ui->screenScrollArea,
             ui->spinBox_width, ui->spinBox_height, ui->currentPanelCheckBox, ui->peripheralApply})
        if (widget->isHidden() == visible)
            widget->setVisible(visible);
    ui->peripheralApply->setAutoDefault(false);
}

} // namespace Korvo::Internal
