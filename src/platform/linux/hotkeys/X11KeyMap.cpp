// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/X11KeyMap.h"

#include <xcb/xproto.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace Tarvik {

namespace {

constexpr X11KeyMap::KeySym numLock = 0xff7f;
constexpr X11KeyMap::KeySym scrollLock = 0xff14;

/// A group of the core protocol: unshifted and shifted.
constexpr std::size_t columnsPerLayout = 2;

struct KeyRow {
    std::string_view letters;
    X11KeyMap::KeyCode firstKeyCode;
};

/// What the evdev driver makes of the kernel's key numbers.
constexpr std::array rows{KeyRow{"qwertyuiop", 24}, KeyRow{"asdfghjkl", 38}, KeyRow{"zxcvbnm", 52}};

} // namespace

std::vector<X11KeyMap::KeyCode> X11KeyMap::keysOf(char letter) const
{
    const auto symbol = static_cast<KeySym>(static_cast<unsigned char>(letter));
    for (const std::size_t columns : {columnsPerLayout, symbolsPerKey}) {
        if (auto keys = keysWith(symbol, columns); !keys.empty())
            return keys;
    }
    for (const KeyRow& row : rows) {
        if (const auto place = row.letters.find(letter); place != std::string_view::npos)
            return {static_cast<KeyCode>(row.firstKeyCode + place)};
    }
    return {};
}

std::vector<std::uint16_t> X11KeyMap::lockCombinations() const
{
    std::vector<std::uint16_t> combinations{0};
    for (const std::uint16_t lock : {std::uint16_t{XCB_MOD_MASK_LOCK}, modifierOf(numLock), modifierOf(scrollLock)}) {
        if (std::ranges::find(combinations, lock) != combinations.end())
            continue;
        const std::size_t count = combinations.size();
        for (std::size_t i = 0; i < count; ++i)
            combinations.push_back(static_cast<std::uint16_t>(combinations[i] | lock));
    }
    return combinations;
}

std::vector<X11KeyMap::KeyCode> X11KeyMap::keysWith(KeySym symbol, std::size_t columns) const
{
    std::vector<KeyCode> keys;
    if (symbolsPerKey == 0)
        return keys;
    for (std::size_t key = 0; (key + 1) * symbolsPerKey <= symbols.size(); ++key) {
        const auto first = symbols.begin() + static_cast<std::ptrdiff_t>(key * symbolsPerKey);
        const auto last = first + static_cast<std::ptrdiff_t>(std::min(columns, symbolsPerKey));
        if (std::find(first, last, symbol) != last)
            keys.push_back(static_cast<KeyCode>(firstKeyCode + key));
    }
    return keys;
}

std::uint16_t X11KeyMap::modifierOf(KeySym symbol) const
{
    const std::vector<KeyCode> keys = keysWith(symbol, symbolsPerKey);
    for (std::size_t i = 0; i < modifierKeys.size(); ++i) {
        if (std::ranges::find(keys, modifierKeys[i]) != keys.end())
            return static_cast<std::uint16_t>(1U << (i / keysPerModifier));
    }
    return 0;
}

} // namespace Tarvik
