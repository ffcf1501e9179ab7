// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace Tarvik {

/// What the user asks for.
struct CommandLine {
    enum class Verb { help, version, acquire, release, releaseAll, hold, status, why, unhook };

    Verb verb = Verb::help;
    std::string session;
    std::string tool;
    /// Seconds, checked to be a decimal number.
    std::string ttl;
    std::string reason;
    bool asJson = false;
    /// The program that is to be run, and its arguments.
    std::vector<std::string> command;
    /// Goes on to tell at each change.
    bool follows = false;

    bool operator==(const CommandLine&) const = default;
};

/// Why the arguments mean nothing, in one line.
struct UsageError {
    std::string message;

    bool operator==(const UsageError&) const = default;
};

/// Reads the arguments that follow the program's name.
std::variant<CommandLine, UsageError> parseCommandLine(const std::vector<std::string>& arguments);

/// The agent that the arguments after "hook" name; empty when they do not.
std::string parseHookArguments(const std::vector<std::string>& arguments);

/// The text of `--help`.
extern const char* const helpText;

} // namespace Tarvik
