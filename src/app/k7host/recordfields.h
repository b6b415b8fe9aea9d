// SPDX-FileCopyrightText: 2026 The K7 keyboard authors
// SPDX-License-Identifier: MIT

#pragma once

#include <korvo/keyboard/records.h>

#include <type_traits>

namespace K7Host {

/// A field that is written as a dotted address. \a Number is quint32 or const quint32.
template <typename Number>
struct AddressField
{
    Number &value;
};

/// A field of UTF-8, which ends at the first zero byte or with the field.
template <typename Char>
struct TextField
{
    Char (&bytes)[sizeof(Korvo::ECOLEDText::OledText)];
};

/// Calls \a visit(name, field) for each field of \a record, in order. A field is a reference to an unsigned
/// integer, an AddressField or a TextField.
template <typename Record, typename Visitor>
void visitFields(Record &record, const Visitor &visit)
{
    using Plain = std::remove_const_t<Record>;
    if constexpr (std::is_same_v<Plain, Korvo::ECButtonColor>) {
        visit("ButtonKey", record.ButtonKey);
        visit("ECKey", record.ECKey);
        visit("ButtonState", record.ButtonState);
        visit("R", record.R);
        visit("G", record.G);
        visit("B", record.B);
        visit("brightness", record.brightness);
    } else if constexpr (std::is_same_v<Plain, Korvo::ECOLEDText>) {
        visit("OledKey", record.OledKey);
        visit("ECKey", record.ECKey);
        visit("OledText",
              TextField<std::remove_reference_t<decltype((record.OledText[0]))>>{record.OledText});
    } else if constexpr (std::is_same_v<Plain, Korvo::ECTBarValue>) {
        visit("Value", record.Value);
        visit("IsBottomToTop", record.IsBottomToTop);
    } else if constexpr (std::is_same_v<Plain, Korvo::ECDeviceIPData>) {
        using Address = AddressField<std::remove_reference_t<decltype((record.IP))>>;
        visit("Index", record.Index);
        visit("Status", record.Status);
        visit("IP", Address{record.IP});
        visit("Mask", Address{record.Mask});
        visit("Gateway", Address{record.Gateway});
    } else if constexpr (std::is_same_v<Plain, Korvo::DVIInSignal>) {
        visit("Index", record.Index);
        visit("Signal", record.Signal);
    } else {
        static_assert(std::is_same_v<Plain, Korvo::PeripheralControlVisibleState>);
        visit("visible", record.visible);
    }
}

} // namespace K7Host
