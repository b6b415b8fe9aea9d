// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#include "hostcall.h"

#include <korvo/keyboard/ikorvoeckeyboard.h>

#include <QStringList>

#include <array>

using Korvo::IKorvoECKeyboard;

namespace K7Host {

namespace {

const std::array<QLatin1String, std::variant_size_v<HostCall>> OperationNames = {
    QLatin1String("updateECButtonColor"),   QLatin1String("updateECOledText"),
    QLatin1String("updateTBarValue"),       QLatin1String("updateECDeviceIP"),
    QLatin1String("updateDVISignalStatus"), QLatin1String("updatePeripheralVisibleState"),
    QLatin1String("updateKeyboard"),        QLatin1String("applyNoramlStyleSheet"),
};

class Performer
{
public:
    explicit Performer(IKorvoECKeyboard *half)
        : m_half(half)
    {
    }

    std::optional<bool> operator()(const std::shared_ptr<Korvo::ECButtonColor> &color) const
    {
        return m_half->updateECButtonColor(color);
    }
    std::optional<bool> operator()(const std::shared_ptr<Korvo::ECOLEDText> &text) const
    {
        return m_half->updateECOledText(text);
    }
    std::optional<bool> operator()(const std::shared_ptr<Korvo::ECTBarValue> &value) const
    {
        return m_half->updateTBarValue(value);
    }
    std::optional<bool> operator()(const std::shared_ptr<Korvo::ECDeviceIPData> &ip) const
    {
        m_half->updateECDeviceIP(ip);
        return {};
    }
    std::optional<bool> operator()(const std::shared_ptr<Korvo::DVIInSignal> &signal) const
    {
        m_half->updateDVISignalStatus(signal);
        return {};
    }
    std::optional<bool> operator()(const std::shared_ptr<Korvo::PeripheralControlVisibleState> &state) const
    {
        m_half->updatePeripheralVisibleState(state);
        return {};
    }
    std::optional<bool> operator()(KeyboardUpdate) const { return m_half->updateKeyboard(); }
    std::optional<bool> operator()(IdleLook) const
    {
        m_half->applyNoramlStyleSheet();
        return {};
    }

private:
    IKorvoECKeyboard *const m_half;
};

template <std::size_t Index = 0>
HostCall emptyCall(std::size_t index)
{
    if constexpr (Index < std::variant_size_v<HostCall>) {
        if (index != Index)
            return emptyCall<Index + 1>(index);
        using Kind = std::variant_alternative_t<Index, HostCall>;
        if constexpr (std::is_empty_v<Kind>)
            return Kind();
        else
            return std::make_shared<typename Kind::element_type>();
    }
    Q_UNREACHABLE();
}

} // namespace

QString operationName(const HostCall &call)
{
    return OperationNames.at(call.index());
}

std::optional<HostCall> callOf(const QString &operation)
{
    for (std::size_t i = 0; i < OperationNames.size(); ++i) {
        if (operation == OperationNames.at(i))
            return emptyCall(i);
    }
    return {};
}

QStringList operationNames()
{
    QStringList names;
    for (const QLatin1String name : OperationNames)
        names << name;
    return names;
}

std::optional<bool> perform(const HostCall &call, IKorvoECKeyboard *half)
{
    return std::visit(Performer(half), call);
}

} // namespace K7Host
