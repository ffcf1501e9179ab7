// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "InvokingUser.h"

#include <string>

namespace Tarvik {

/// Runs once per event of a coding agent's turn, with the agent waiting. Never prints, always ends with status 0 (an
/// agent takes anything else for a veto of the user's prompt or tool call), and ends within a quarter of a second.
class HookCommand final {
public:
    HookCommand(std::string tool, Environment environment);

    /// From here on nothing ends this process but success, SIGTERM and the time limit. Call it before anything else.
    static void guardProcess();

    /// The exit status.
    int run();

private:
    std::string m_tool;
    Environment m_environment;
};

} // namespace Tarvik
