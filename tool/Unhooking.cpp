// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "Unhooking.h"

#include "hookconfig/HookConfigFile.h"
#include "hookconfig/HookEntries.h"

#include <utility>
#include <variant>

namespace Tarvik {

Unhooking unhook(const std::string& home, const HookSpec& spec)
{
    const auto done = [&spec](std::string_view what) {
        return Unhooking{.isFailure = false, .text = "~/" + std::string(spec.configPath) + ": " + std::string(what)};
    };
    const auto failed = [&spec](std::string_view why) {
        return Unhooking{.isFailure = true,
            .text = "tarvik: ~/" + std::string(spec.configPath) + ": not changed: " + std::string(why)};
    };

    const HookConfigFile file(home + '/' + std::string(spec.configPath));
    auto [contents, error] = file.read();
    if (!error.empty())
        return failed(error);
    if (std::holds_alternative<HookConfigFile::Missing>(contents))
        return done("no such file, or an empty one");
    auto* const document = std::get_if<JsonValue::Object>(&contents);
    if (document == nullptr)
        return failed("it is not valid JSON; take what runs \"tarvik hook\" out of it by hand");
    if (!HookEntries::hasAny(spec, *document))
        return done("has nothing of Tarvik's");
    HookEntries::remove(spec, *document);
    if (const auto problem = file.write(std::move(*document)))
        return failed(*problem);
    return done("Tarvik's entries are taken out");
}

} // namespace Tarvik
