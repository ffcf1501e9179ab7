// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hookconfig/JsonValue.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>

namespace Tarvik {

/// One agent's hook configuration file, which belongs to the agent and its user: read whole, and replaced whole or not
/// at all.
class HookConfigFile {
public:
    /// No file, an empty one, or one that cannot be read.
    struct Missing { };

    /// Not a JSON object, or one that could not be written back as it was.
    struct Invalid { };

    using Contents = std::variant<Missing, Invalid, JsonValue::Object>;

    struct Reading {
        Contents contents;
        /// Why what lies there could not be read, for people; the contents are Missing then. Empty where nothing does.
        std::string error;
    };

    /// Larger files are Invalid; no agent's settings come near it.
    static constexpr std::size_t maximumBytes = std::size_t(1024) * 1024;

    explicit HookConfigFile(std::string path);

    Reading read() const;

    /// Creates the directories that are missing and replaces the file, see replaceFile(). Returns what went wrong, for
    /// people, or nothing; on failure the file is as before.
    [[nodiscard]] std::optional<std::string> write(JsonValue::Object document) const;

private:
    std::string m_path;
};

} // namespace Tarvik
