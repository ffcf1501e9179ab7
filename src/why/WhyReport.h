// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "journal/JournalEntry.h"
#include "platform/IdleSleep.h"
#include "platform/PowerAssertions.h"
#include "platform/SleepHistory.h"
#include "platform/SleepLocks.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace Tarvik {

/// An installed hook of an agent.
struct WhyHook {
    /// Of HookSpec.
    QString id;
    /// The agent's name.
    QString label;
    /// Nothing as long as the hook was not heard of.
    std::optional<TimePoint> lastEvent;

    bool operator==(const WhyHook&) const = default;
};

/// Everything that bears on whether this computer sleeps, at one moment.
struct WhyReport {
    /// The moment.
    TimePoint now = {};
    /// When this Tarvik was started; what the journal says of the time before may be another's last word.
    TimePoint runningSince = {};

    /// Tarvik wants the computer awake; whether it is, its holds and the locks tell.
    bool isAwake = false;
    /// The panel's headline: "Awake · 2 agents, 1 app", "Paused — on battery", ...
    QString statusReason = {};
    /// Labels of what is at work.
    QStringList active = {};
    /// The end of the timed session that runs.
    std::optional<TimePoint> sessionEnd = {};
    /// The lid is closed and Tarvik has switched the sleep off that this leads to.
    bool runsWithLidClosed = false;
    QList<PowerAssertionHold> holds = {};

    /// Tarvik's own are among them where their services tell.
    SleepLockList locks = {};
    QList<IdleSleepRule> idleRules = {};
    QList<WhyHook> hooks = {};
    /// Newest first.
    QList<JournalEntry> journal = {};
    /// Oldest first; nothing when they are not known.
    std::optional<QList<PastSleep>> sleeps = {};
};

} // namespace Tarvik
