// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "Options.h"

#include <charconv>
#include <system_error>

namespace Tarvik {

const char* const helpText =
    R"(Usage: tarvik-helper [OPTION]...

Keeps the computer awake with its lid closed for programs that ask for it on the
system bus, as its superuser. The bus starts it; it is called what the
environment variable TARVIK_MACH_LABEL says.

Options:
  --lapse-seconds N   take a program's request back when the program has given
                      no sign of life for N seconds (75)
  --idle-seconds N    end when nobody has needed the helper for N seconds (30)
  --help              print this text
  --version           print the version
)";

static bool readSeconds(const std::string& text, std::chrono::seconds& seconds)
{
    constexpr unsigned aDay = 24 * 60 * 60;
    unsigned number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || number < 1 || number > aDay)
        return false;
    seconds = std::chrono::seconds(number);
    return true;
}

std::optional<Options> parseOptions(const std::vector<std::string>& arguments)
{
    Options options;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        if (*argument == "--help") {
            options.job = Options::Job::help;
        } else if (*argument == "--version") {
            options.job = Options::Job::version;
        } else {
            auto* const seconds = *argument == "--lapse-seconds" ? &options.lapse
                : *argument == "--idle-seconds"                  ? &options.idle
                                                                 : nullptr;
            if (seconds == nullptr || ++argument == arguments.end() || !readSeconds(*argument, *seconds))
                return std::nullopt;
        }
    }
    return options;
}

} // namespace Tarvik
