// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text that comes from elsewhere, in UTF-8, on its way to a terminal or into a line of a log.
namespace Tarvik::PlainText {

struct Character {
    /// In bytes; 0 where the text does not begin with a valid character.
    std::size_t size = 0;
    char32_t code = 0;
};

/// The first character of a text that is not empty.
Character firstCharacter(std::string_view text);

/// Whether the character steers what shows it instead of being shown: it ends a line, begins an escape sequence (C0,
/// C1) or turns the direction of what stands around it.
bool isControl(char32_t code);

/// The text with a question mark in the place of each such character and of each byte that is no part of a valid one.
std::string printable(std::string_view text);

/// The same of a text that may have several lines: each that follows the first is indented, and so cannot pass for the
/// beginning of another text.
std::string printableLines(std::string_view text);

} // namespace Tarvik::PlainText
