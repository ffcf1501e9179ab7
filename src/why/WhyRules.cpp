// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "why/WhyRules.h"

#include <algorithm>
#include <iterator>

namespace Tarvik::WhyRules {

namespace {

bool keepsAwake(const SleepLock& lock)
{
    return lock.effects.testAnyFlags(SleepLockEffect::idleSleep | SleepLockEffect::sleep);
}

bool isSooner(const IdleSleepRule& a, const IdleSleepRule& b)
{
    return a.after && (!b.after || *a.after < *b.after);
}

} // namespace

bool isSetToStayAwake(const WhyReport& report)
{
    return !report.idleRules.isEmpty() && std::ranges::all_of(report.idleRules, [](const IdleSleepRule& rule) {
        return rule.action == IdleSleepAction::nothing;
    });
}

bool isEffective(const WhyReport& report, const PowerAssertionHold& hold)
{
    const auto isOursThere = [&](const SleepLock& lock) { return lock.isOurs && lock.service == hold.service; };
    const auto isInVain = [&](const SleepLock& lock) { return isOursThere(lock) && !lock.effects; };
    const QList<SleepLock>& locks = report.locks.locks;
    return hold.effective
        && (isSetToStayAwake(report) || std::ranges::none_of(locks, isInVain)
            || std::ranges::any_of(locks, [&](const SleepLock& lock) { return isOursThere(lock) && lock.effects; }));
}

bool isKeptAwakeByTarvik(const WhyReport& report)
{
    return std::ranges::any_of(report.holds, [&](const PowerAssertionHold& hold) {
        return hold.type == PowerAssertionType::preventUserIdleSystemSleep && isEffective(report, hold);
    });
}

QList<SleepLock> othersLocks(const WhyReport& report)
{
    QList<SleepLock> locks;
    std::ranges::copy_if(
        report.locks.locks, std::back_inserter(locks), [](const SleepLock& lock) { return !lock.isOurs; });
    return locks;
}

QList<SleepLock> othersKeepingAwake(const WhyReport& report)
{
    QList<SleepLock> locks = othersLocks(report);
    locks.removeIf([](const SleepLock& lock) { return !keepsAwake(lock); });
    return locks;
}

bool isKeptAwake(const WhyReport& report)
{
    return isKeptAwakeByTarvik(report) || !othersKeepingAwake(report).isEmpty();
}

std::optional<IdleSleepRule> firstSleep(const WhyReport& report)
{
    QList<IdleSleepRule> rules = report.idleRules;
    rules.removeIf([](const IdleSleepRule& rule) { return !rule.action || *rule.action == IdleSleepAction::nothing; });
    if (rules.isEmpty())
        return {};
    return *std::ranges::min_element(rules, isSooner);
}

std::optional<JournalEntry> lastEntryBefore(const WhyReport& report, const PastSleep& sleep)
{
    const auto last
        = std::ranges::find_if(report.journal, [&](const JournalEntry& entry) { return entry.at <= sleep.from; });
    return last != report.journal.end() ? std::optional(*last) : std::nullopt;
}

} // namespace Tarvik::WhyRules
