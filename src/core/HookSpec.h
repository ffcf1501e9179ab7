// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <span>
#include <string_view>

namespace Tarvik {

namespace HookConfig {

/// Layout of the hook entries in an agent's configuration file.
enum class Shape {
    /// "hooks" maps each event to an array of groups; each group holds its own "hooks" array of entries.
    nestedGroups,
    /// "hooks" maps each event to an array of entries; the file has a "version".
    flatList,
};

} // namespace HookConfig

/// A coding agent that can run a command at points of its own turn. Its strings live as long as the program.
struct HookSpec {
    /// Identifies the agent in the catalogue, on the tool's command line and in hook notifications.
    std::string_view id;
    /// Name shown to the user.
    std::string_view label;
    /// The agent's hook configuration, relative to the user's home directory.
    std::string_view configPath;
    HookConfig::Shape shape;
    /// Events, case-sensitive, at which a turn begins or goes on.
    std::span<const std::string_view> startEvents;
    /// Events, case-sensitive, at which a turn ends.
    std::span<const std::string_view> endEvents;
    /// Whether our entries carry the marker key "name".
    bool tagged;
    /// The maker's own documentation of the file.
    std::string_view docs;

    /// Every agent that can be hooked, in the order in which they are shown and visited.
    static const std::array<HookSpec, 6> all;

    /// The agent with this id, or null.
    static constexpr const HookSpec* find(std::string_view id);

    friend constexpr bool operator==(const HookSpec& a, const HookSpec& b)
    {
        return a.id == b.id && a.label == b.label && a.configPath == b.configPath && a.shape == b.shape
            && std::ranges::equal(a.startEvents, b.startEvents) && std::ranges::equal(a.endEvents, b.endEvents)
            && a.tagged == b.tagged && a.docs == b.docs;
    }
};

/// Names of the agents' hook events.
namespace HookEvents {

inline constexpr std::array<std::string_view, 2> promptAndTool{"UserPromptSubmit", "PreToolUse"};
inline constexpr std::array<std::string_view, 1> stop{"Stop"};
inline constexpr std::array<std::string_view, 2> stopOrFailure{"Stop", "StopFailure"};
inline constexpr std::array<std::string_view, 2> beforeAgentAndTool{"BeforeAgent", "BeforeTool"};
inline constexpr std::array<std::string_view, 1> afterAgent{"AfterAgent"};
inline constexpr std::array<std::string_view, 2> copilotPromptAndTool{"userPromptSubmitted", "preToolUse"};
inline constexpr std::array<std::string_view, 1> copilotStop{"agentStop"};

} // namespace HookEvents

inline constexpr std::array<HookSpec, 6> HookSpec::all{{
    {.id = "claude",
        .label = "Claude Code",
        .configPath = ".claude/settings.json",
        .shape = HookConfig::Shape::nestedGroups,
        .startEvents = HookEvents::promptAndTool,
        .endEvents = HookEvents::stopOrFailure,
        .tagged = true,
        .docs = "https://code.claude.com/docs/en/hooks"},
    // Codex files one approval per entry; ours has nothing in it that it does not need.
    {.id = "codex",
        .label = "Codex",
        .configPath = ".codex/hooks.json",
        .shape = HookConfig::Shape::nestedGroups,
        .startEvents = HookEvents::promptAndTool,
        .endEvents = HookEvents::stop,
        .tagged = false,
        .docs = "https://learn.chatgpt.com/docs/hooks"},
    {.id = "gemini",
        .label = "Gemini CLI",
        .configPath = ".gemini/settings.json",
        .shape = HookConfig::Shape::nestedGroups,
        .startEvents = HookEvents::beforeAgentAndTool,
        .endEvents = HookEvents::afterAgent,
        .tagged = true,
        .docs = "https://geminicli.com/docs/hooks/"},
    {.id = "qwen",
        .label = "Qwen Code",
        .configPath = ".qwen/settings.json",
        .shape = HookConfig::Shape::nestedGroups,
        .startEvents = HookEvents::promptAndTool,
        .endEvents = HookEvents::stop,
        .tagged = true,
        .docs = "https://qwenlm.github.io/qwen-code-docs/en/users/features/hooks/"},
    {.id = "droid",
        .label = "Factory Droid",
        .configPath = ".factory/hooks.json",
        .shape = HookConfig::Shape::nestedGroups,
        .startEvents = HookEvents::promptAndTool,
        .endEvents = HookEvents::stop,
        .tagged = true,
        .docs = "https://docs.factory.ai/harness/hooks"},
    {.id = "copilot",
        .label = "Copilot CLI",
        .configPath = ".copilot/hooks/tarvik.json",
        .shape = HookConfig::Shape::flatList,
        .startEvents = HookEvents::copilotPromptAndTool,
        .endEvents = HookEvents::copilotStop,
        .tagged = true,
        .docs = "https://docs.github.com/en/copilot/reference/hooks-reference"},
}};

constexpr const HookSpec* HookSpec::find(std::string_view id)
{
    const auto* spec = std::ranges::find(all, id, &HookSpec::id);
    return spec == all.end() ? nullptr : spec;
}

} // namespace Tarvik

template <>
struct std::hash<Tarvik::HookSpec> {
    std::size_t operator()(const Tarvik::HookSpec& spec) const noexcept
    {
        std::size_t result = 0;
        const auto add = [&result](std::size_t part) { result = result * 31 + part; };
        const std::hash<std::string_view> hashText;
        for (const auto text : {spec.id, spec.label, spec.configPath, spec.docs})
            add(hashText(text));
        for (const auto events : {spec.startEvents, spec.endEvents}) {
            add(events.size());
            for (const auto event : events)
                add(hashText(event));
        }
        add(static_cast<std::size_t>(spec.shape));
        add(spec.tagged ? 1 : 0);
        return result;
    }
};
