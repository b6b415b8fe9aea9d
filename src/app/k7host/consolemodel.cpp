// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "consolemodel.h"

namespace K7Host {

ConsoleModel::ConsoleModel()
{
    m_program.put(0, m_layers.selected());
    m_preview.put(1, m_layers.selected());
}

void ConsoleModel::press(quint32 key)
{
    if (m_functions.isPanelLocked() && key != FunctionModel::LockPanelKey)
        return;
    // No key is in two sections, so the order does not matter.
    m_functions.press(key);
    m_screens.press(key);
    if (key == ScreenModel::MatchProgramKey)
        match();
    m_transition.press(key);
    m_layers.press(key, &m_preview);
    if (const auto source = m_inputs.press(key))
        m_preview.put(*source, m_layers.selected());
    recall(m_presets.press(key, m_preview, isProgramOpen()));
    if (const auto number = m_numbers.press(key))
        recall(m_presets.enter(*number, m_preview, isProgramOpen()));
    if (key == TransitionModel::TakeKey)
        take();
    if (key == TransitionModel::CutKey)
        cut();
}

bool ConsoleModel::isMoving() const
{
    return m_transition.isRunning() && isLeverFree();
}

void ConsoleModel::advanceFrame()
{
    if (isMoving() && m_transition.advanceFrame())
        exchange();
}

KeyColors ConsoleModel::keyColors() const
{
    KeyColors colors = m_screens.keyColors();
    addAll(&colors, m_layers.keyColors());
    addAll(&colors, m_inputs.keyColors(m_program, m_preview));
    addAll(&colors, m_presets.keyColors(m_program, m_preview));
    addAll(&colors, m_numbers.keyColors());
    addAll(&colors, m_functions.keyColors());
    addAll(&colors, m_transition.keyColors());
    return colors;
}

LabelTexts ConsoleModel::labelTexts() const
{
    LabelTexts texts = m_screens.labelTexts();
    addAll(&texts, m_layers.labelTexts(m_preview));
    addAll(&texts, m_inputs.labelTexts());
    addAll(&texts, m_presets.labelTexts());
    addAll(&texts, m_numbers.labelTexts());
    addAll(&texts, m_transition.labelTexts());
    return texts;
}

bool ConsoleModel::isLeverFree() const
{
    return !m_functions.isTBarLocked() && !m_screens.isProgramFrozen();
}

bool ConsoleModel::isProgramOpen() const
{
    return !m_transition.isRunning() && !m_screens.isProgramFrozen();
}

void ConsoleModel::take()
{
    if (m_transition.isRunning() || !isLeverFree())
        return;
    if (m_transition.length() > 0)
        m_transition.start();
    else
        exchange();
}

void ConsoleModel::cut()
{
    const bool isHeldMidway = m_transition.isRunning() && m_functions.isTBarLocked();
    if (isHeldMidway || m_screens.isProgramFrozen())
        return;
    m_transition.complete();
    exchange();
}

void ConsoleModel::exchange()
{
    const Composition taken = m_preview;
    m_preview = m_program;
    setProgram(taken);
}

void ConsoleModel::setProgram(const Composition &composition)
{
    m_program = composition;
    match();
}

void ConsoleModel::match()
{
    if (m_screens.isProgramMatched())
        m_preview = m_program;
}

void ConsoleModel::recall(const std::optional<PresetModel::Recall> &recall)
{
    if (!recall)
        return;
    if (recall->toProgram)
        setProgram(recall->composition);
    else
        m_preview = recall->composition;
}

} // namespace K7Host
