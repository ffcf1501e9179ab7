// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace Tarvik {

using Verb = CommandLine::Verb;

const char* const helpText =
    R"(Usage: tarvik COMMAND [OPTION]...

Tells Tarvik, which keeps this computer awake while work is going on, that work
is going on, and asks it what it is doing.

Commands:
  hold [--reason TEXT] [--] COMMAND [ARGUMENT]...
                      keep awake while COMMAND runs; ends with its status
  acquire --session KEY [--tool NAME] [--ttl SECONDS] [--reason TEXT]
                      keep awake until KEY is released, or for SECONDS
                      (900 when not given); again with the same KEY renews
  release --session KEY
                      give KEY back
  release-all         give everything back
  status [--json] [--follow]
                      say what Tarvik is doing; exit status 0: awake,
                      1: not awake, 2: Tarvik is not running; with --follow
                      go on with one line at each change
  why [--json]        say why this computer is awake, what would put it to
                      sleep, and why it slept; exit status 0: something keeps
                      it awake, 1: nothing does, 2: Tarvik is not running
  hook --tool ID      for the hooks of coding agents: reads the event from the
                      standard input; prints nothing and always succeeds
  unhook              take what Tarvik has added to the configuration of coding
                      agents out again, before Tarvik is removed
  help, --help        print this text
  --version           print the version

See tarvik(1) for more.
)";

namespace {

bool isDecimalNumber(std::string_view text)
{
    const auto isDigits = [](std::string_view part) {
        return !part.empty() && part.find_first_not_of("0123456789") == std::string_view::npos;
    };
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos)
        return isDigits(text);
    return isDigits(text.substr(0, point)) && isDigits(text.substr(point + 1));
}

/// Takes options off the front of the arguments.
class OptionReader final {
public:
    OptionReader(std::string_view verb, const std::vector<std::string>& arguments)
        : m_verb(verb)
        , m_rest(arguments.begin() + 1, arguments.end())
    {
    }

    /// Reads what the verb allows; what is left is in `rest()`. "--" ends the options.
    std::optional<UsageError> read(CommandLine& line,
        const std::vector<std::pair<std::string_view, std::string CommandLine::*>>& valued,
        const std::vector<std::pair<std::string_view, bool CommandLine::*>>& flags)
    {
        std::size_t index = 0;
        for (; index < m_rest.size() && m_rest[index].starts_with('-') && m_rest[index] != "-"; ++index) {
            const std::string argument = m_rest[index];
            if (argument == "--") {
                ++index;
                break;
            }
            if (argument == "--help" || argument == "-h") {
                line.verb = Verb::help;
                m_rest.clear();
                return {};
            }
            const auto flag
                = std::find_if(flags.begin(), flags.end(), [&](const auto& one) { return one.first == argument; });
            if (flag != flags.end()) {
                line.*(flag->second) = true;
                continue;
            }
            const std::size_t equals = argument.find('=');
            const std::string_view name = std::string_view(argument).substr(0, equals);
            const auto option
                = std::find_if(valued.begin(), valued.end(), [&](const auto& one) { return one.first == name; });
            if (option == valued.end())
                return UsageError{std::string(m_verb) + ": unknown option \"" + argument + '"'};
            if (equals == std::string::npos && ++index == m_rest.size())
                return UsageError{std::string(m_verb) + ": " + argument + " needs a value"};
            const std::string value = equals == std::string::npos ? m_rest[index] : argument.substr(equals + 1);
            if (option->second == &CommandLine::ttl && !isDecimalNumber(value))
                return UsageError{std::string(m_verb) + ": --ttl must be a number of seconds, not \"" + value + '"'};
            line.*(option->second) = value;
        }
        m_rest.erase(m_rest.begin(), m_rest.begin() + static_cast<std::ptrdiff_t>(index));
        return {};
    }

    const std::vector<std::string>& rest() const { return m_rest; }

private:
    std::string_view m_verb;
    std::vector<std::string> m_rest;
};

} // namespace

static std::optional<UsageError> check(
    const CommandLine& line, std::string_view verb, const std::vector<std::string>& rest)
{
    const std::string prefix = std::string(verb) + ": ";
    if (line.verb == Verb::help)
        return {};
    if (line.verb == Verb::hold)
        return rest.empty() ? std::optional(UsageError{prefix + "no command to run"}) : std::nullopt;
    if (!rest.empty())
        return UsageError{prefix + "unexpected argument \"" + rest.front() + '"'};
    if ((line.verb == Verb::acquire || line.verb == Verb::release) && line.session.empty())
        return UsageError{prefix + "--session is missing"};
    return {};
}

std::variant<CommandLine, UsageError> parseCommandLine(const std::vector<std::string>& arguments)
{
    static constexpr std::array<std::pair<std::string_view, Verb>, 12> verbs{{
        {"help", Verb::help},
        {"--help", Verb::help},
        {"-h", Verb::help},
        {"version", Verb::version},
        {"--version", Verb::version},
        {"acquire", Verb::acquire},
        {"release", Verb::release},
        {"release-all", Verb::releaseAll},
        {"hold", Verb::hold},
        {"status", Verb::status},
        {"unhook", Verb::unhook},
        {"why", Verb::why},
    }};
    if (arguments.empty())
        return UsageError{"no command given"};
    const std::string& name = arguments.front();
    const auto verb = std::find_if(verbs.begin(), verbs.end(), [&](const auto& one) { return one.first == name; });
    if (verb == verbs.end())
        return UsageError{"unknown command \"" + name + '"'};

    CommandLine line;
    line.verb = verb->second;
    if (line.verb == Verb::help)
        return line;
    std::vector<std::pair<std::string_view, std::string CommandLine::*>> valued;
    if (line.verb == Verb::acquire || line.verb == Verb::release)
        valued.emplace_back("--session", &CommandLine::session);
    if (line.verb == Verb::acquire) {
        valued.emplace_back("--tool", &CommandLine::tool);
        valued.emplace_back("--ttl", &CommandLine::ttl);
    }
    if (line.verb == Verb::acquire || line.verb == Verb::hold)
        valued.emplace_back("--reason", &CommandLine::reason);

    std::vector<std::pair<std::string_view, bool CommandLine::*>> flags;
    if (line.verb == Verb::status)
        flags = {{"--json", &CommandLine::asJson}, {"--follow", &CommandLine::follows}};
    if (line.verb == Verb::why)
        flags = {{"--json", &CommandLine::asJson}};

    OptionReader reader(name, arguments);
    if (auto error = reader.read(line, valued, flags))
        return *std::move(error);
    if (auto error = check(line, name, reader.rest()))
        return *std::move(error);
    line.command = reader.rest();
    return line;
}

std::string parseHookArguments(const std::vector<std::string>& arguments)
{
    static constexpr std::string_view joined = "--tool=";
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        if (arguments[index].starts_with(joined))
            return arguments[index].substr(joined.size());
        if (arguments[index] == "--tool" && index + 1 < arguments.size())
            return arguments[index + 1];
    }
    return {};
}

} // namespace Tarvik
