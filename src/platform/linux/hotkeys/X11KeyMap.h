// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

namespace Tarvik {

/// The keyboard mapping of an X server, as GetKeyboardMapping and GetModifierMapping of the core protocol tell it.
struct X11KeyMap {
    using KeyCode = std::uint8_t;
    using KeySym = std::uint32_t;

    KeyCode firstKeyCode = 8;
    /// The keysyms of each key code, from the first one on, `symbolsPerKey` each.
    std::vector<KeySym> symbols{};
    std::size_t symbolsPerKey = 0;
    /// The key codes of each of the eight modifiers, `keysPerModifier` each; 0 is none.
    std::vector<KeyCode> modifierKeys{};
    std::size_t keysPerModifier = 0;

    /// The keys that give `letter` in the first layout, else those that give it in any other, else the one that stands
    /// in its place on a keyboard with Latin letters.
    std::vector<KeyCode> keysOf(char letter) const;

    /// Every combination of Caps Lock, Num Lock and Scroll Lock, on whatever modifiers they are; the first one is 0.
    std::vector<std::uint16_t> lockCombinations() const;

private:
    std::vector<KeyCode> keysWith(KeySym symbol, std::size_t columns) const;
    std::uint16_t modifierOf(KeySym symbol) const;
};

} // namespace Tarvik
