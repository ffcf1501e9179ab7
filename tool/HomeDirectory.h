// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "InvokingUser.h"

#include <optional>
#include <string>

namespace Tarvik {

/// The user's home directory: what the environment says, or, through sudo, which may say its own there, what the list
/// of users in passwd(5)'s form says. Nothing when that does not know the user.
std::optional<std::string> homeDirectory(
    const Environment& environment, const InvokingUser& user, const char* userList = "/etc/passwd");

} // namespace Tarvik
