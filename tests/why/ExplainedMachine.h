// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/SteeredMachine.h"
#include "fakes/FakeIdleSleep.h"
#include "fakes/FakeSleepHistory.h"
#include "fakes/FakeSleepLocks.h"
#include "support/TestSupport.h"
#include "why/WhyCollector.h"

#include <optional>

namespace Tarvik {

/// A machine in memory with everything that an explanation is made of. Its clock stands at 22:13 UTC.
class ExplainedMachine {
public:
    ExplainedMachine()
    {
        qputenv("TZ", "UTC");
        tzset();
    }

    void start()
    {
        machine.start();
        restart();
    }

    /// As far as explanations go.
    void restart()
    {
        collector.emplace(WhyCollector::Sources{*machine.coordinator,
            *machine.power,
            machine.assertions,
            *machine.journal,
            machine.hookFiles,
            *machine.lastHookEvents,
            locks,
            idleSleep,
            sleepHistory,
            machine.clock});
    }

    /// Goes through lines of tests/engine/traces/README.md, started already.
    void play(const QStringList& lines)
    {
        SteeredMachine steered(machine);
        for (const QString& line : lines) {
            if (!steered.play(line))
                qFatal("Nothing goes through this: %s", qUtf8Printable(line));
        }
    }

    /// Sleeps for so long.
    void sleep(Seconds duration)
    {
        const TimePoint from = machine.clock.now();
        machine.clock.standStill(duration);
        QList<PastSleep> sleeps = sleepHistory.current.value_or(QList<PastSleep>());
        sleeps.append({from, machine.clock.now()});
        sleepHistory.current = sleeps;
    }

    WhyReport report()
    {
        std::optional<WhyReport> told;
        collector->collect([&](const WhyReport& report) { told = report; });
        if (!QTest::qWaitFor([&] { return told.has_value(); }, patience))
            qFatal("No report has come.");
        return *told;
    }

    CoordinatedMachine machine;
    FakeSleepLocks locks;
    FakeIdleSleep idleSleep;
    FakeSleepHistory sleepHistory;
    std::optional<WhyCollector> collector;
};

} // namespace Tarvik
