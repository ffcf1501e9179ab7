// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/KeyCombination.h"

#include "platform/HotKeys.h"

#include <string_view>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// Letters in the order of Carbon's virtual key codes; a dot is a key that is no letter.
constexpr std::string_view lettersByCode = "asdfhgzxcv.bqweryt.............ou.ip.lj.k....nm";

constexpr std::uint32_t firmModifiers = KeyModifiers::command | KeyModifiers::option | KeyModifiers::control;

} // namespace

std::optional<KeyCombination> KeyCombination::fromCarbon(std::uint32_t keyCode, std::uint32_t modifiers)
{
    if (keyCode >= lettersByCode.size() || lettersByCode[keyCode] == '.')
        return std::nullopt;
    if ((modifiers & firmModifiers) == 0 || (modifiers & ~(firmModifiers | KeyModifiers::shift)) != 0)
        return std::nullopt;
    return KeyCombination{
        .letter = lettersByCode[keyCode],
        .super = (modifiers & KeyModifiers::command) != 0,
        .alt = (modifiers & KeyModifiers::option) != 0,
        .shift = (modifiers & KeyModifiers::shift) != 0,
        .control = (modifiers & KeyModifiers::control) != 0,
    };
}

int KeyCombination::qtKey() const
{
    int key = Qt::Key_A + (letter - 'a');
    if (super)
        key |= static_cast<int>(Qt::META);
    if (alt)
        key |= static_cast<int>(Qt::ALT);
    if (shift)
        key |= static_cast<int>(Qt::SHIFT);
    if (control)
        key |= static_cast<int>(Qt::CTRL);
    return key;
}

QString KeyCombination::xdgTrigger() const
{
    QString trigger;
    if (super)
        trigger += "LOGO+"_L1;
    if (control)
        trigger += "CTRL+"_L1;
    if (alt)
        trigger += "ALT+"_L1;
    if (shift)
        trigger += "SHIFT+"_L1;
    return trigger + QLatin1Char(letter);
}

QString KeyCombination::gtkAccelerator() const
{
    QString accelerator;
    if (super)
        accelerator += "<Super>"_L1;
    if (control)
        accelerator += "<Control>"_L1;
    if (alt)
        accelerator += "<Alt>"_L1;
    if (shift)
        accelerator += "<Shift>"_L1;
    return accelerator + QLatin1Char(letter);
}

} // namespace Tarvik
