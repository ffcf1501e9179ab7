// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/HookSpec.h"

#include <string>

namespace Tarvik {

/// What became of one agent's configuration file.
struct Unhooking {
    /// The file is as it was, and entries of ours may be left in it.
    bool isFailure = false;
    /// The file and what was done to it, in one line.
    std::string text;
};

/// Takes our entries out of the agent's configuration file below this home directory, and nothing else; a file without
/// any is not written.
Unhooking unhook(const std::string& home, const HookSpec& spec);

} // namespace Tarvik
