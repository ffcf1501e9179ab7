// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SleepLocks.h"
#include "platform/linux/inhibitors/LogindInhibitors.h"

#include <cstdint>

namespace Tarvik {

/// What decides whether a lock of logind stands in anybody's way.
struct LockFacts {
    /// 0 where systemd does not answer.
    int systemdVersion = 0;
    std::uint32_t ownUser = 0;
    /// logind itself is set to sleep, or to shut down, when nobody is active.
    bool logindSleepsOnIdle = false;
    /// PowerDevil is there, which takes over what logind lists.
    bool kde = false;
    /// swayidle or hypridle, which stand still while logind lists an "idle" lock.
    bool idleDaemonHeedsLogind = false;
    /// A daemon of the desktop acts on the lid, by a call of logind.
    bool hasLidDaemon = false;

    bool operator==(const LockFacts&) const = default;
};

namespace LockRules {

/// What a lock of logind really stands in the way of. GNOME, MATE, Cinnamon, XFCE and LXQt do not look at "idle" locks,
/// and before systemd 257 a "sleep" lock does not bind its own user.
SleepLockEffects effects(const LogindInhibitor& inhibitor, const LockFacts& facts);

/// Flags of inhibitors of the session manager (org.gnome.SessionManager).
constexpr std::uint32_t suspendFlag = 4;
constexpr std::uint32_t idleFlag = 8;

/// What such an inhibitor stands in the way of, by itself.
SleepLockEffects effectsOfFlags(std::uint32_t flags);

} // namespace LockRules

} // namespace Tarvik
