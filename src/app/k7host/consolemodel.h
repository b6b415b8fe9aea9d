// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "composition.h"
#include "functionmodel.h"
#include "inputmodel.h"
#include "layermodel.h"
#include "numberpad.h"
#include "presetmodel.h"
#include "screenmodel.h"
#include "transitionmodel.h"

namespace K7Host {

/// A video processor as its operator sees it: every section of the console, and what program and preview
/// show.
class ConsoleModel
{
public:
    /// The first two sources are on program and on preview, each on the first layer.
    ConsoleModel();

    /// \a key is a key id; one that no section knows changes nothing.
    void press(quint32 key);

    /// True as long as the lever moves: advanceFrame() is then to be called every TransitionModel::FrameMs.
    bool isMoving() const;
    /// Changes nothing unless the lever moves.
    void advanceFrame();

    KeyColors keyColors() const;
    LabelTexts labelTexts() const;
    ConsoleState state() const { return {keyColors(), labelTexts(), m_transition.lever()}; }

private:
    bool isLeverFree() const;
    bool isProgramOpen() const; // to a preset
    void take();
    void cut();
    void exchange();
    void setProgram(const Composition &composition);
    void match();
    void recall(const std::optional<PresetModel::Recall> &recall);

    ScreenModel m_screens;
    LayerModel m_layers;
    InputModel m_inputs;
    PresetModel m_presets;
    NumberPad m_numbers;
    FunctionModel m_functions;
    TransitionModel m_transition;
    Composition m_program;
    Composition m_preview;
};

} // namespace K7Host
