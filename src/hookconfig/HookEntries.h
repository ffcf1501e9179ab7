// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/HookSpec.h"
#include "hookconfig/JsonValue.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The edits of an agent's hook configuration, on the document's top-level object. Whatever is not recognised as ours
/// stays as it is, in its order.
namespace Tarvik::HookEntries {

/// What the agent's shell shall run. Nothing when the tool's path (absolute) holds a character that keeps a meaning
/// within double quotes, sh(1): an escaped one would no longer be recognised as ours, and a bare one would run
/// something else at every turn of the agent.
std::optional<std::string> command(std::string_view toolPath, const HookSpec& spec);

/// Whether the entry is ours: by its marker, or because it runs one of the tool's sub-commands, wherever the tool lies.
bool isOurs(const JsonValue& entry);

/// Puts our entry under every start and end event, in place of any that is there.
void add(const HookSpec& spec, const std::string& command, JsonValue::Object& document);

/// Takes our entries away from every start and end event, and what they leave empty.
void remove(const HookSpec& spec, JsonValue::Object& document);

/// Whether there is an entry of ours under any start or end event.
bool hasAny(const HookSpec& spec, const JsonValue::Object& document);

/// Whether every start event has an entry of ours under "hooks".
bool isInstalled(const HookSpec& spec, const JsonValue::Object& document);

/// Every command under the first start event, other programs' included.
std::vector<std::string> firstEventCommands(const HookSpec& spec, const JsonValue::Object& document);

/// Whether our entry is there under the first start event, but not everywhere else or not alone with this tool path.
bool isOutdated(const HookSpec& spec, const JsonValue::Object& document, std::string_view toolPath);

} // namespace Tarvik::HookEntries
