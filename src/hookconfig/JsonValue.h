// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace Tarvik {

/// A node of a JSON document, RFC 8259. Numbers keep the text in which they were written, so that none changes its
/// value on the way through. Text is UTF-8.
struct JsonValue {
    struct Number {
        std::string text;
        bool operator==(const Number&) const = default;
    };
    using Array = std::vector<JsonValue>;
    using Object = std::map<std::string, JsonValue, std::less<>>;

    /// std::monostate is null.
    std::variant<std::monostate, bool, Number, std::string, Array, Object> content;

    /// The content as one type, or null when it is of another.
    const std::string* string() const { return std::get_if<std::string>(&content); }
    const Array* array() const { return std::get_if<Array>(&content); }
    Array* array() { return std::get_if<Array>(&content); }
    const Object* object() const { return std::get_if<Object>(&content); }
    Object* object() { return std::get_if<Object>(&content); }

    bool operator==(const JsonValue&) const = default;
};

} // namespace Tarvik
