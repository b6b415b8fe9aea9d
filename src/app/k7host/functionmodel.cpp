// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "functionmodel.h"

namespace K7Host {

FunctionModel::FunctionModel()
    : m_toggles({{SaveToDeviceKey, KeyColor::Blue},
                 {EditProgramKey, KeyColor::Orange},
                 {MultiviewerKey, KeyColor::Blue},
                 {DownstreamKeyerKey, KeyColor::Red},
                 {CopyKey, KeyColor::Purple, 1},
                 {MirrorKey, KeyColor::Purple, 1},
                 {SwapKey, KeyColor::Purple, 1},
                 {LockTBarKey, KeyColor::Red},
                 {LockPanelKey, KeyColor::Red}})
{
}

KeyColors FunctionModel::keyColors() const
{
    KeyColors colors = m_toggles.colors();
    for (quint32 key = FirstReservedKey; key <= LastReservedKey; ++key)
        colors.insert(key, KeyColor::Idle);
    return colors;
}

} // namespace K7Host
