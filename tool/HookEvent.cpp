// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "HookEvent.h"

#include "core/HookSpec.h"
#include "core/HookTraits.h"
#include "platform/HookWire.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Tarvik {

namespace {

/// Keeps the wanted members of the outermost object; stops the reader as soon as there is nothing more to learn.
class PayloadHandler final : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, PayloadHandler> {
public:
    explicit PayloadHandler(HookPayload& payload)
        : m_payload(payload)
    {
    }

    bool Default() { return endValue(); }
    bool StartObject() { return enter(); }
    bool EndObject(rapidjson::SizeType) { return leave(); }
    bool StartArray() { return enter(); }
    bool EndArray(rapidjson::SizeType) { return leave(); }

    bool Key(const char* text, rapidjson::SizeType size, bool)
    {
        if (m_depth == 1)
            beginMember({text, size});
        return true;
    }

    bool String(const char* text, rapidjson::SizeType size, bool)
    {
        if (m_target && m_depth == 1 && m_target->empty())
            m_target->assign(text, size);
        return endValue();
    }

private:
    void beginMember(std::string_view name)
    {
        const std::array<std::pair<std::string_view, std::string HookPayload::*>, 6> texts{{
            {"hook_event_name", &HookPayload::event},
            {"session_id", &HookPayload::session},
            {"sessionId", &HookPayload::session},
            {"transcript_path", &HookPayload::transcriptPath},
            {"transcriptPath", &HookPayload::transcriptPath},
            {"cwd", &HookPayload::workingDirectory},
        }};
        const std::array<std::pair<std::string_view, bool HookPayload::*>, 8> marks{{
            {"toolName", &HookPayload::hasToolName},
            {"toolResult", &HookPayload::hasToolResult},
            {"error", &HookPayload::hasError},
            {"stopReason", &HookPayload::hasStopReason},
            {"agentName", &HookPayload::hasAgentName},
            {"response", &HookPayload::hasResponse},
            {"prompt", &HookPayload::hasPrompt},
            {"reason", &HookPayload::hasReason},
        }};
        for (const auto& [key, member] : texts) {
            if (name == key)
                m_target = &(m_payload.*member);
        }
        for (const auto& [key, member] : marks) {
            if (name == key)
                m_payload.*member = true;
        }
    }

    bool enter()
    {
        ++m_depth;
        return true;
    }

    bool leave()
    {
        --m_depth;
        return endValue();
    }

    bool endValue()
    {
        if (m_depth > 1)
            return true;
        m_target = nullptr;
        m_payload.isComplete = m_depth == 0 || (!m_payload.event.empty() && !m_payload.session.empty());
        return !m_payload.isComplete;
    }

    HookPayload& m_payload;
    std::string* m_target = nullptr;
    int m_depth = 0;
};

} // namespace

HookPayload readHookPayload(std::string_view json)
{
    HookPayload payload;
    PayloadHandler handler(payload);
    rapidjson::MemoryStream stream(json.data(), json.size());
    rapidjson::Reader reader;
    // Iterative: nesting must not use up the call stack.
    reader.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseStopWhenDoneFlag>(stream, handler);
    return payload;
}

static std::string inferEventName(const HookPayload& payload)
{
    if (payload.hasToolName)
        return payload.hasToolResult || payload.hasError ? "" : "preToolUse";
    if (payload.hasError)
        return "errorOccurred";
    if (payload.hasStopReason)
        return payload.hasAgentName || payload.hasResponse ? "" : "agentStop";
    if (payload.hasPrompt)
        return "userPromptSubmitted";
    return payload.hasReason ? "sessionEnd" : "";
}

std::string hookEventName(std::string_view tool, const HookPayload& payload)
{
    return payload.event.empty() && HookTraits::of(tool).leavesEventsUnnamed ? inferEventName(payload) : payload.event;
}

std::string hookSessionKey(std::string_view tool, const HookPayload& payload, const Environment& environment)
{
    std::string session = payload.session;
    const char* const variable = HookTraits::of(tool).sessionVariable;
    if (session.empty() && variable != nullptr)
        session = environment(variable);
    if (session.empty())
        session = payload.transcriptPath.empty() ? payload.workingDirectory : payload.transcriptPath;
    return session.empty() ? session : std::string(tool) + ':' + session;
}

/// The action that an event of an agent asks for; empty for none.
static std::string_view actionFor(const HookSpec& spec, std::string_view event)
{
    // Ends of a turn that not every agent announces, and that nobody hooks unasked.
    static constexpr std::array<std::string_view, 4> otherEnds{
        "Interrupt", "SessionEnd", "sessionEnd", "errorOccurred"};
    const auto contains
        = [event](const auto& events) { return std::find(events.begin(), events.end(), event) != events.end(); };
    if (contains(spec.startEvents))
        return HookWire::acquireAction;
    if (contains(spec.endEvents) || contains(otherEnds))
        return HookWire::releaseAction;
    return {};
}

std::optional<Announcement> hookAnnouncement(
    std::string_view tool, const HookPayload& payload, const Environment& environment)
{
    const HookSpec* const spec = HookSpec::find(tool);
    if (!spec)
        return {};
    Announcement announcement;
    announcement.action = actionFor(*spec, hookEventName(tool, payload));
    announcement.session = hookSessionKey(tool, payload, environment);
    announcement.tool = tool;
    if (announcement.action.empty() || announcement.session.empty())
        return {};
    return announcement;
}

} // namespace Tarvik
