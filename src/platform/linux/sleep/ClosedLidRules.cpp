// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/ClosedLidRules.h"

#include "platform/linux/inhibitors/SystemdVersion.h"

#include <algorithm>

namespace Tarvik::ClosedLidRules {

using namespace Qt::StringLiterals;

namespace {

/// Another program of the user has taken the lid from logind.
bool isLidTaken(const ClosedLidFacts& facts)
{
    return std::ranges::any_of(facts.inhibitors, [&facts](const LogindInhibitor& inhibitor) {
        return inhibitor.blocks && inhibitor.what.contains("handle-lid-switch"_L1) && inhibitor.user == facts.ownUser
            && inhibitor.process != facts.ownProcess;
    });
}

bool isSleepBlocked(const ClosedLidFacts& facts)
{
    return std::ranges::any_of(facts.inhibitors,
        [](const LogindInhibitor& inhibitor) { return inhibitor.blocks && inhibitor.what.contains("sleep"_L1); });
}

} // namespace

bool ownLockSuffices(const ClosedLidFacts& facts)
{
    const bool asksForSuspend = !facts.isGnome && (facts.hasLidDaemon || isLidTaken(facts));
    return !asksForSuspend || facts.systemdVersion >= SystemdVersion::locksBindTheirOwner;
}

Step afterLock(const ClosedLidFacts& facts)
{
    if (!facts.isLidClosed || facts.isDocked || facts.isGnome || !isLidTaken(facts))
        return Step::nothing;
    if (!facts.daemonSuspends.value_or(true))
        return Step::nothing;
    return isSleepBlocked(facts) ? Step::wait : Step::suspend;
}

} // namespace Tarvik::ClosedLidRules
