// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "why/WhyReport.h"

/// What a report comes to.
namespace Tarvik::WhyRules {

/// Everybody who might put the computer to sleep is known, and set not to.
bool isSetToStayAwake(const WhyReport& report);

/// Whether the hold stands in the way of anything: its service has confirmed it and does not count it among the locks
/// that nobody goes by who puts the computer to sleep. Where nobody does, none has to.
bool isEffective(const WhyReport& report, const PowerAssertionHold& hold);

/// Tarvik keeps the computer from sleeping for lack of activity.
bool isKeptAwakeByTarvik(const WhyReport& report);

/// The locks of other programs.
QList<SleepLock> othersLocks(const WhyReport& report);

/// Those of them that keep the computer from sleeping for lack of activity.
QList<SleepLock> othersKeepingAwake(const WhyReport& report);

/// Anything that is known keeps the computer from sleeping for lack of activity.
bool isKeptAwake(const WhyReport& report);

/// The rule that puts the computer to sleep first, one of which it is not known when after all others; nothing when
/// none is known to.
std::optional<IdleSleepRule> firstSleep(const WhyReport& report);

/// What the journal said last when the computer went to sleep.
std::optional<JournalEntry> lastEntryBefore(const WhyReport& report, const PastSleep& sleep);

} // namespace Tarvik::WhyRules
