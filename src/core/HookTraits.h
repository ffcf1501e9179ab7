// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace Tarvik {

/// What it takes until an agent runs a hook that is new in its file.
enum class HookStart {
    /// The next prompt; sessions that are running notice the new hook.
    prompt,
    /// A session that begins later: the agent reads its hooks when it starts.
    restart,
    /// That, and the user's approval, which the agent asks for.
    approval,
    /// That, in a folder that the user trusts.
    trustedFolder,
};

/// What else sets one hookable agent apart from the others, beside its HookSpec.
struct HookTraits {
    std::string_view id;
    HookStart start = HookStart::restart;
    /// The agent takes its events from the document's top level and ignores, with a warning, what stands under "hooks".
    /// Our entries then go to both places.
    bool readsTopLevel = false;
    /// The agent does not name the event to its hooks: it has to be told from what else is sent.
    bool leavesEventsUnnamed = false;
    /// The environment variable by which the agent names the conversation to its hooks, if there is one.
    const char* sessionVariable = nullptr;

    /// Those of the agent with this id.
    static constexpr HookTraits of(std::string_view id);
};

namespace HookAgents {

inline constexpr std::array<HookTraits, 6> unusual{{
    {.id = "claude", .start = HookStart::prompt, .sessionVariable = "CLAUDE_CODE_SESSION_ID"},
    {.id = "codex", .start = HookStart::approval},
    {.id = "gemini", .start = HookStart::trustedFolder, .sessionVariable = "GEMINI_SESSION_ID"},
    {.id = "qwen", .sessionVariable = "QWEN_CODE_SESSION_ID"},
    {.id = "droid", .readsTopLevel = true, .sessionVariable = "session_id"},
    {.id = "copilot", .leavesEventsUnnamed = true},
}};

} // namespace HookAgents

constexpr HookTraits HookTraits::of(std::string_view id)
{
    const auto* traits = std::ranges::find(HookAgents::unusual, id, &HookTraits::id);
    return traits == HookAgents::unusual.end() ? HookTraits{.id = id} : *traits;
}

} // namespace Tarvik
