// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// What the helper can be told on its command line.
struct Options {
    enum class Job { serve, help, version };

    Job job = Job::serve;
    /// Two and a half times the interval of the application's heartbeats: one may get lost.
    std::chrono::seconds lapse{75};
    std::chrono::seconds idle{30};

    bool operator==(const Options&) const = default;
};

/// Reads the arguments that follow the program's name; nothing when they mean nothing.
std::optional<Options> parseOptions(const std::vector<std::string>& arguments);

/// The text of `--help`.
extern const char* const helpText;

} // namespace Tarvik
