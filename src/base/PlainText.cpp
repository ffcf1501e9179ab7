// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "base/PlainText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Tarvik::PlainText {

Character firstCharacter(std::string_view text)
{
    const auto at = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned char first = at(0);
    if (first < 0x80)
        return {.size = 1, .code = first};
    const std::size_t size = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || text.size() < size)
        return {};
    char32_t code = first & (0x7fU >> size);
    for (std::size_t index = 1; index < size; ++index) {
        if ((at(index) & 0xc0) != 0x80)
            return {};
        code = code << 6 | (at(index) & 0x3fU);
    }
    const bool isOverlong = (size == 3 && code < 0x800) || (size == 4 && code < 0x10000);
    const bool isSurrogate = code >= 0xd800 && code <= 0xdfff;
    return isOverlong || isSurrogate || code > 0x10ffff ? Character() : Character{.size = size, .code = code};
}

bool isControl(char32_t code)
{
    static constexpr std::array<std::pair<char32_t, char32_t>, 6> ranges{{
        {0x00, 0x1f},
        {0x7f, 0x9f},
        // Marks, embeddings, overrides and isolates of the bidirectional algorithm, and separators of lines.
        {0x061c, 0x061c},
        {0x200e, 0x200f},
        {0x2028, 0x202e},
        {0x2066, 0x2069},
    }};
    return std::ranges::any_of(
        ranges, [code](const auto& range) { return range.first <= code && code <= range.second; });
}

std::string printable(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Character character = firstCharacter(text);
        const std::size_t size = std::max<std::size_t>(character.size, 1);
        if (character.size == 0 || isControl(character.code))
            result.push_back('?');
        else
            result.append(text.substr(0, size));
        text.remove_prefix(size);
    }
    return result;
}

std::string printableLines(std::string_view text)
{
    std::string result;
    for (auto end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
        result += printable(text.substr(0, end)) + "\n    ";
        text.remove_prefix(end + 1);
    }
    return result + printable(text);
}

} // namespace Tarvik::PlainText
