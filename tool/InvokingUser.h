// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"

#include <sys/types.h>

#include <optional>

namespace Tarvik {

/// Whose session bus is meant. A session bus refuses everybody but its user, the superuser too; a program that was
/// started through sudo therefore speaks as the user who called sudo.
struct InvokingUser {
    uid_t user = 0;
    gid_t group = 0;
    /// This process runs as the superuser for that user.
    bool isThroughSudo = false;

    bool operator==(const InvokingUser&) const = default;
};

/// From the environment that sudo sets up, and the effective ids of this process.
InvokingUser invokingUser(const Environment& environment, uid_t effectiveUser, gid_t effectiveGroup);

/// Gives the superuser's rights up for good, when they came through sudo. False when that failed.
bool becomeInvokingUser(const InvokingUser& user);

/// Speaks as the invoking user while it lives, and keeps the way back.
class ActingAsInvokingUser final {
public:
    explicit ActingAsInvokingUser(const InvokingUser& user);
    ActingAsInvokingUser(const ActingAsInvokingUser&) = delete;
    ActingAsInvokingUser& operator=(const ActingAsInvokingUser&) = delete;
    ~ActingAsInvokingUser();

private:
    uid_t m_previousUser;
    gid_t m_previousGroup;
    bool m_isOther;
};

} // namespace Tarvik
