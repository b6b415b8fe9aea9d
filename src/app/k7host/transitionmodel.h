// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include "consolestate.h"

namespace K7Host {

/// The Transition section of a video processor with its lever, and the colours of TAKE and CUT. Time comes in
/// frames; whoever counts them decides when the lever may move.
class TransitionModel
{
public:
    static constexpr quint32 CutKey = 104;
    static constexpr quint32 TakeKey = 105;
    static constexpr quint32 MixKey = 132;
    static constexpr quint32 WipeKey = 133;
    static constexpr quint32 Reserved1Key = 134;
    static constexpr quint32 LongerKey = 135;
    static constexpr quint32 ShorterKey = 136;
    static constexpr quint32 Reserved3Key = 137; // the console has no second one
    static constexpr quint32 WipeLabel = 91;
    static constexpr quint32 MixLabel = 92;
    static constexpr quint32 PercentLabel = 93; ///< above the second reserved key
    static constexpr quint32 FramesLabel = 94;
    static constexpr quint32 TimeLabel = 95;

    static constexpr int FrameMs = 40;
    static constexpr int StepFrames = 5;
    static constexpr int MaxFrames = 250;

    /// MIX and WIPE choose; TIME+ and TIME- change the length by StepFrames, within 0 and MaxFrames. A
    /// transition that runs keeps its length.
    void press(quint32 key);

    /// The length of the next transition in frames.
    int length() const { return m_length; }
    bool isRunning() const { return m_runLength > 0; }

    /// Begins a transition, from the end where the lever stands. None runs, and the length is not 0.
    void start();
    /// Moves the lever by a frame of the running transition; one runs. True when it has come to its end.
    bool advanceFrame();
    /// Takes the lever of a running transition to its end.
    void complete();

    Lever lever() const { return m_lever; }
    KeyColors keyColors() const;
    LabelTexts labelTexts() const;

private:
    bool m_isWipe = false;
    int m_length = 25;   // frames, as are the next two
    int m_runLength = 0; // 0 when none runs
    int m_frame = 0;
    Lever m_lever; // at one of its ends when none runs
};

} // namespace K7Host
