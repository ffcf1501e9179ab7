// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "why/WhyReport.h"

#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace Tarvik {

class AwakeCoordinator;
class Clock;
class HookFiles;
class Journal;
class LastHookEvents;
class PowerMonitor;

/// Makes reports for whoever asks. Does nothing as long as nobody does.
class WhyCollector : public QObject {
    Q_OBJECT

public:
    using Receiver = std::function<void(const WhyReport& report)>;

    /// What is asked; all of it must outlive the object.
    struct Sources {
        const AwakeCoordinator& coordinator;
        const PowerMonitor& power;
        const PowerAssertions& assertions;
        const Journal& journal;
        HookFiles& hookFiles;
        const LastHookEvents& hookEvents;
        SleepLocks& locks;
        IdleSleep& idleSleep;
        SleepHistory& sleepHistory;
        const Clock& clock;
    };

    explicit WhyCollector(const Sources& sources);

    /// `done` gets the report later, within three seconds; all who ask meanwhile get the same. Destroying the collector
    /// drops it.
    void collect(Receiver done);

private:
    void finish();
    WhyReport report() const;
    QList<WhyHook> installedHooks() const;

    Sources m_sources;
    TimePoint m_runningSince;
    std::vector<Receiver> m_waiting;
    std::optional<SleepLockList> m_locks;
    std::optional<QList<IdleSleepRule>> m_idleRules;
    std::optional<std::optional<QList<PastSleep>>> m_sleeps;
};

} // namespace Tarvik
