// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Announcement.h"
#include "Environment.h"

#include <optional>
#include <string>
#include <string_view>

namespace Tarvik {

/// What an agent told its hook, as far as it matters here: members of the JSON object that it writes to the hook's
/// standard input. Texts are empty where the agent gave none.
struct HookPayload {
    std::string event;
    std::string session;
    std::string transcriptPath;
    std::string workingDirectory;
    /// Members whose presence tells the events apart where the agent does not name them.
    bool hasToolName = false;
    bool hasToolResult = false;
    bool hasError = false;
    bool hasStopReason = false;
    bool hasAgentName = false;
    bool hasResponse = false;
    bool hasPrompt = false;
    bool hasReason = false;
    /// Nothing that follows in the text can change the above.
    bool isComplete = false;
};

/// Reads the payload from JSON text, which may be cut off anywhere or be no JSON at all: then it holds what stood
/// before.
HookPayload readHookPayload(std::string_view json);

/// The name of the event, inferred from the members for the one agent that does not send it; empty when unknown.
std::string hookEventName(std::string_view tool, const HookPayload& payload);

/// The key of the lease: the agent's id and what stays the same for one of its conversations; empty when nothing does.
std::string hookSessionKey(std::string_view tool, const HookPayload& payload, const Environment& environment);

/// What is to be announced when this agent has run the hook with this payload; nothing for an agent that is not known,
/// an event that neither starts nor ends a turn, or a conversation that cannot be told from others.
std::optional<Announcement> hookAnnouncement(
    std::string_view tool, const HookPayload& payload, const Environment& environment);

} // namespace Tarvik
