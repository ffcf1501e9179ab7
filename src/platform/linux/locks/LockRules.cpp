// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/LockRules.h"

#include "platform/linux/inhibitors/SystemdVersion.h"

namespace Tarvik::LockRules {

using namespace Qt::StringLiterals;
using enum SleepLockEffect;

namespace {

/// Whether logind refuses sleep that is asked for by this user's programs.
bool bindsOwnUser(const LogindInhibitor& inhibitor, const LockFacts& facts)
{
    const bool isStrong = inhibitor.blocks && facts.systemdVersion >= SystemdVersion::locksBindTheirOwner;
    return isStrong || inhibitor.user != facts.ownUser;
}

SleepLockEffects ofSleepLock(const LogindInhibitor& inhibitor, const LockFacts& facts)
{
    SleepLockEffects effects;
    if (bindsOwnUser(inhibitor, facts)) {
        effects = sleep | idleSleep;
        // logind passes over it where it acts on the lid itself.
        effects.setFlag(lid, facts.hasLidDaemon);
    }
    if (facts.logindSleepsOnIdle || (facts.kde && inhibitor.blocks))
        effects |= idleSleep;
    return effects;
}

SleepLockEffects ofIdleLock(const LogindInhibitor& inhibitor, const LockFacts& facts)
{
    SleepLockEffects effects;
    effects.setFlag(idleSleep, facts.logindSleepsOnIdle);
    if (inhibitor.blocks && (facts.kde || facts.idleDaemonHeedsLogind))
        effects |= idleSleep | idleDisplay;
    return effects;
}

} // namespace

SleepLockEffects effects(const LogindInhibitor& inhibitor, const LockFacts& facts)
{
    SleepLockEffects effects;
    if (!inhibitor.blocks && !inhibitor.blocksWeakly)
        return effects;
    if (inhibitor.what.contains("sleep"_L1))
        effects |= ofSleepLock(inhibitor, facts);
    if (inhibitor.what.contains("idle"_L1))
        effects |= ofIdleLock(inhibitor, facts);
    // Daemons that act on the lid do not ask whether somebody else has taken it.
    if (inhibitor.what.contains("handle-lid-switch"_L1) && !facts.hasLidDaemon)
        effects |= lid;
    return effects;
}

SleepLockEffects effectsOfFlags(std::uint32_t flags)
{
    SleepLockEffects effects;
    if ((flags & suspendFlag) != 0)
        effects |= idleSleep;
    if ((flags & idleFlag) != 0)
        effects |= idleSleep | idleDisplay;
    return effects;
}

} // namespace Tarvik::LockRules
