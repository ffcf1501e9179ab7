// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace Tarvik {

/// A letter with modifiers, as Linux desktops speak of it.
struct KeyCombination {
    /// 'a' to 'z'.
    char letter = 'a';
    bool super = false;
    bool alt = false;
    bool shift = false;
    bool control = false;

    /// Nothing for a key that is not a letter, without a modifier other than shift, or with an unknown one.
    static std::optional<KeyCombination> fromCarbon(std::uint32_t keyCode, std::uint32_t modifiers);

    /// As a QKeyCombination is coded.
    int qtKey() const;

    /// As the XDG shortcuts specification writes it: "LOGO+ALT+a".
    QString xdgTrigger() const;

    /// As GTK writes accelerators: "<Super><Alt>a".
    QString gtkAccelerator() const;

    bool operator==(const KeyCombination&) const = default;
};

} // namespace Tarvik
