// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/AppSettings.h"
#include "engine/AwakeCoordinator.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeDisplayPower.h"
#include "fakes/FakeHelperService.h"
#include "fakes/FakeHookChannel.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeLidSensor.h"
#include "fakes/FakeLoginItem.h"
#include "fakes/FakePowerAssertions.h"
#include "fakes/FakePowerSources.h"
#include "fakes/FakeProcessTable.h"
#include "fakes/FakeRunningApplications.h"
#include "fakes/FakeScreenLock.h"
#include "fakes/FakeSettingsStore.h"
#include "fakes/FakeSleepControl.h"
#include "fakes/FakeThermalState.h"
#include "fakes/FakeUserNotifications.h"
#include "hooks/HookFiles.h"
#include "hooks/HookMonitor.h"
#include "hooks/LastHookEvents.h"
#include "hotkey/HotKeyCenter.h"
#include "journal/Journal.h"
#include "lidclosed/LidClosedMode.h"
#include "monitors/PowerMonitor.h"
#include "monitors/ProcessMonitor.h"
#include "monitors/ThermalMonitor.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <optional>

namespace Tarvik {

/// The whole object graph on fakes and a manual clock. Set the fakes up, then start().
class CoordinatedMachine {
public:
    CoordinatedMachine() { setPower(true, {}); }

    void start()
    {
        settings.emplace(store);
        power.emplace(powerSources, lid, clock);
        process.emplace(*settings, processTable, applications, clock, [this] { return hookFiles.installedIds(); });
        thermal.emplace(thermalState);
        journal.emplace(store, clock);
        lastHookEvents.reset();
        hooks.emplace(channel, clock);
        lastHookEvents.emplace(*hooks, store);
        lidClosed.emplace(*settings,
            store,
            LidClosedMode::Services{helper, sleepControl, display, lid, clock},
            QStringLiteral("7"),
            LidClosedMode::Actions{.showOnboarding = show(QStringLiteral("onboarding")),
                .showRestartAlert = show(QStringLiteral("restart alert")),
                .showLoginItems = show(QStringLiteral("login items")),
                .relaunch = show(QStringLiteral("relaunch"))});
        coordinator.emplace(
            AwakeCoordinator::Parts{*settings, *power, *process, *thermal, *journal, *hooks, *lidClosed},
            AwakeCoordinator::Services{assertions, loginItem, notifications, hotKeyCenter, screenLock, clock},
            hookFiles);
    }

    /// `percent` absent: no battery.
    void setPower(bool isOnAC, std::optional<int> percent)
    {
        PowerSourcesSnapshot snapshot{
            .providingType = isOnAC ? QStringLiteral("AC Power") : QStringLiteral("Battery Power"), .sources = {}};
        if (percent) {
            snapshot.sources.push_back(
                {.type = QStringLiteral("InternalBattery"), .currentCapacity = *percent, .maxCapacity = 100});
        }
        powerSources.current = snapshot;
        powerSources.announce();
    }

    void setThermal(ThermalLevel level)
    {
        thermalState.current = level;
        thermalState.announce();
    }

    /// What /bin/ps would print; noticed at once.
    void run(const QByteArray& processes)
    {
        processTable.output = processes;
        process->scan();
    }

    void hook(const QMap<QString, QString>& payload) { channel.announce(payload); }

    /// Lets the loop turn once, as a settings change needs.
    static void settle() { QCoreApplication::processEvents(); }

    /// "kind: reason" of every journal entry, oldest first.
    QStringList journalLines() const
    {
        QStringList lines;
        for (const Journal::Entry& entry : journal->entries())
            lines.prepend(journalKindName(entry.kind) + QStringLiteral(": ") + entry.reason);
        return lines;
    }

    QTemporaryDir home;
    HookFiles hookFiles{home.path(), QStringLiteral("/opt/tarvik/Contents/SharedSupport/tarvik")};
    FakeClock clock;
    FakeSettingsStore store;
    FakePowerSources powerSources;
    FakeLidSensor lid;
    FakeProcessTable processTable;
    FakeRunningApplications applications;
    FakeThermalState thermalState;
    FakeHookChannel channel;
    FakePowerAssertions assertions;
    FakeLoginItem loginItem;
    FakeUserNotifications notifications;
    FakeHotKeys hotKeys;
    FakeScreenLock screenLock;
    FakeHelperService helper;
    FakeSleepControl sleepControl;
    FakeDisplayPower display;
    HotKeyCenter hotKeyCenter{hotKeys};

    std::optional<AppSettings> settings;
    std::optional<PowerMonitor> power;
    std::optional<ProcessMonitor> process;
    std::optional<ThermalMonitor> thermal;
    std::optional<Journal> journal;
    std::optional<HookMonitor> hooks;
    std::optional<LastHookEvents> lastHookEvents;
    std::optional<LidClosedMode> lidClosed;
    std::optional<AwakeCoordinator> coordinator;
    /// What lid-closed mode has had the application show or do.
    QStringList shown;

private:
    std::function<void()> show(const QString& what)
    {
        return [this, what] { shown.append(what); };
    }
};

} // namespace Tarvik
