// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/AgentCatalogue.h"

using namespace Qt::StringLiterals;

namespace Tarvik::AgentCatalogue {

namespace {

AgentPreset agent(
    const QString& id, const QString& label, const QStringList& processNames, const QString& pathHint = {})
{
    AgentPreset preset{.id = id, .label = label, .processNames = processNames, .appName = {}, .pathHint = {}};
    if (!pathHint.isNull())
        preset.pathHint = pathHint;
    return preset;
}

AgentPreset editor(const QString& id, const QString& name)
{
    return {.id = id, .label = name, .processNames = {}, .appName = name, .pathHint = {}};
}

} // namespace

const QList<AgentPreset>& agents()
{
    // Agents whose executable has a short or common name carry a hint: a package or directory name of their command
    // line.
    static const QList<AgentPreset> table{
        agent(u"claude"_s, u"Claude Code"_s, {u"claude"_s}),
        agent(u"codex"_s, u"Codex"_s, {u"codex"_s}),
        agent(u"gemini"_s, u"Gemini CLI"_s, {u"gemini"_s}),
        agent(u"copilot"_s, u"Copilot CLI"_s, {u"copilot"_s}),
        agent(u"cursor-agent"_s, u"Cursor Agent (CLI)"_s, {u"cursor-agent"_s}),
        agent(u"amazonq"_s, u"Amazon Q"_s, {u"qchat"_s}),
        agent(u"devin"_s, u"Devin CLI"_s, {u"devin"_s}),
        agent(u"kimi"_s, u"Kimi Code"_s, {u"kimi"_s}),
        agent(u"antigravity-cli"_s, u"Antigravity CLI"_s, {u"agy"_s}, u"antigravity"_s),
        agent(u"aider"_s, u"Aider"_s, {u"aider"_s}),
        agent(u"opencode"_s, u"OpenCode"_s, {u"opencode"_s}),
        agent(u"cline"_s, u"Cline"_s, {u"cline"_s}),
        agent(u"roo"_s, u"Roo Code"_s, {u"roo"_s}),
        agent(u"goose"_s, u"Goose"_s, {u"goose"_s}),
        agent(u"crush"_s, u"Crush"_s, {u"crush"_s}),
        agent(u"amp"_s, u"Amp"_s, {u"amp"_s}),
        agent(u"qwen"_s, u"Qwen Code"_s, {u"qwen"_s}),
        agent(u"auggie"_s, u"Augment (Auggie)"_s, {u"auggie"_s}),
        agent(u"continue"_s, u"Continue"_s, {u"cn"_s}, u"continuedev"_s),
        agent(u"kilo"_s, u"Kilo Code"_s, {u"kilo"_s}, u"kilocode"_s),
        agent(u"pi"_s, u"Pi"_s, {u"pi"_s}, u"pi-coding-agent"_s),
        agent(u"openhands"_s, u"OpenHands"_s, {u"openhands"_s}),
        agent(u"plandex"_s, u"Plandex"_s, {u"plandex"_s, u"pdx"_s}),
        agent(u"codebuff"_s, u"Codebuff"_s, {u"codebuff"_s}),
        agent(u"aichat"_s, u"aichat"_s, {u"aichat"_s}),
        agent(u"droid"_s, u"Factory Droid"_s, {u"droid"_s}),
        agent(u"interpreter"_s, u"Open Interpreter"_s, {u"interpreter"_s}),
        agent(u"hermes"_s, u"Hermes"_s, {u"hermes"_s}),
        agent(u"openclaw"_s, u"OpenClaw"_s, {u"openclaw"_s}),
    };
    return table;
}

const QList<AgentPreset>& editors()
{
    static const QList<AgentPreset> table{
        editor(u"cursor"_s, u"Cursor"_s),
        editor(u"windsurf"_s, u"Windsurf"_s),
        editor(u"zed"_s, u"Zed"_s),
        editor(u"warp"_s, u"Warp"_s),
        editor(u"trae"_s, u"Trae"_s),
        editor(u"kiro"_s, u"Kiro"_s),
        editor(u"antigravity"_s, u"Antigravity"_s),
        editor(u"pearai"_s, u"PearAI"_s),
    };
    return table;
}

} // namespace Tarvik::AgentCatalogue
