// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolefloatwidget.h"

#include "ui_consolefloatwidget.h"

#include <QSignalBlocker>

namespace Korvo::Internal {

namespace {

constexpr int MinimumBrightness = 1;
constexpr int MaximumBrightness = 15;
constexpr int DefaultBrightness = 10;

} // namespace

void ConsoleFloatWidget::initLamps()
{
    for (Widgets::SliderEditFrame *editor : {ui->widget_groosen, ui->widget_front, ui->widget_lcd}) {
        editor->setHorizontalSpacing(0, 8);
        editor->setRange(MinimumBrightness, MaximumBrightness);
        editor->setPageStep(1);
        editor->setSingleStep(1);
    }
}

void ConsoleFloatWidget::connectBrightness()
{
    using Editor = Widgets::SliderEditFrame;
    connect(ui->widget_groosen, &Editor::valueChanged, this, &ConsoleFloatWidget::slotGrooseneckValueChanged);
    connect(ui->widget_front, &Editor::valueChanged, this, &ConsoleFloatWidget::slotFrontValueChanged);
}

int ConsoleFloatWidget::storedBrightness(const QString &key) const
{
    bool isNumber = false;
    const int value = stored(key, DefaultBrightness).toInt(&isNumber);
    return isNumber ? qBound(MinimumBrightness, value, MaximumBrightness) : DefaultBrightness;
}

void ConsoleFloatWidget::loadBrightness()
{
    using Editor = Widgets::SliderEditFrame;
    disconnect(ui->widget_groosen, &Editor::valueChanged, this,
               &ConsoleFloatWidget::slotGrooseneckValueChanged);
    disconnect(ui->widget_front, &Editor::valueChanged, this, &ConsoleFloatWidget::slotFrontValueChanged);
    ui->widget_groosen->setValue(storedBrightness(QStringLiteral("grooseneckValue")));
    ui->widget_front->setValue(storedBrightness(QStringLiteral("frontValue")));
    connectBrightness();
    ui->widget_groosen->setEnabled(ui->switch_groosen->isToggled());
    ui->widget_front->setEnabled(ui->switch_front->isToggled());

    // The LCD is the one brightness that is told at the start: once, changed or not.
    {
        const QSignalBlocker blocker(ui->widget_lcd);
        ui->widget_lcd->setValue(storedBrightness(QStringLiteral("screenValue")));
    }
    slotSiderValueChanged(ui->widget_lcd->value());
}

// A lamp switched on is told twice, by its brightness and by its switch; one switched off is told as 10.

void ConsoleFloatWidget::slotGrooseneckLightStatusChanged(bool checked)
{
    int value = DefaultBrightness;
    if (checked) {
        value = storedBrightness(QStringLiteral("grooseneckValue"));
        slotGrooseneckValueChanged(value);
    }
    ui->widget_groosen->setEnabled(checked);
    store(QStringLiteral("grooseneckStatus"), checked);
    Q_EMIT signalGrooseneckLightStatusChanged(checked, static_cast<quint8>(value));
}

void ConsoleFloatWidget::slotFrontLightStatusChanged(bool checked)
{
    int value = DefaultBrightness;
    if (checked) {
        value = storedBrightness(QStringLiteral("frontValue"));
        slotFrontValueChanged(value);
    }
    ui->widget_front->setEnabled(checked);
    store(QStringLiteral("frontStatus"), checked);
    Q_EMIT signalFrontLightStatusChanged(checked, static_cast<quint8>(value));
}

void ConsoleFloatWidget::slotLogoLightStatusChanged(bool checked)
{
    store(QStringLiteral("logoStatus"), checked);
    Q_EMIT signalLogoLightStatusChanged(checked, MaximumBrightness);
}

// Of the two lamps only the gooseneck takes no brightness while it is off.
void ConsoleFloatWidget::slotGrooseneckValueChanged(int value)
{
    if (!ui->switch_groosen->isToggled())
        return;
    store(QStringLiteral("grooseneckValue"), value);
    Q_EMIT signalGrooseneckLightStatusChanged(true, static_cast<quint8>(value));
}

void ConsoleFloatWidget::slotFrontValueChanged(int value)
{
    store(QStringLiteral("frontValue"), value);
    Q_EMIT signalFrontLightStatusChanged(true, static_cast<quint8>(value));
}

void ConsoleFloatWidget::slotSiderValueChanged(int value)
{
    store(QStringLiteral("screenValue"), value);
    Q_EMIT signalSideLightStatusChanged(true, static_cast<quint8>(value));
}

int ConsoleFloatWidget::getValueByTick(int value) const
{
    Q_UNUSED(value)
    return m_lastGroosenceTick;
}

} // namespace Korvo::Internal
