// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hookconfig/JsonValue.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Reading and writing JSON, RFC 8259, without losing anything of value: for files that belong to other programs.
namespace Tarvik::JsonDocument {

/// Deeper documents are refused; no configuration comes near it.
inline constexpr int maximumDepth = 512;

/// The document in `bytes`. Nothing when they are not strictly JSON in UTF-8 (no comments, no trailing commas, no byte
/// order mark), and also where writing the document again could alter it: an object with the same key twice, half of a
/// surrogate pair, nesting beyond maximumDepth.
std::optional<JsonValue> parse(std::string_view bytes);

/// The document as text: keys sorted by code point, two blanks of indentation, a newline at the end. Nothing when that
/// takes more than `maximumBytes`.
std::optional<std::string> print(const JsonValue& value, std::size_t maximumBytes);

} // namespace Tarvik::JsonDocument
