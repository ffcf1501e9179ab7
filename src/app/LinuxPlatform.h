// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "core/SettingsStore.h"
#include "platform/AppBundle.h"
#include "platform/DisplayPower.h"
#include "platform/HelperService.h"
#include "platform/HookChannel.h"
#include "platform/HotKeys.h"
#include "platform/IdleSleep.h"
#include "platform/LidSensor.h"
#include "platform/LoginItem.h"
#include "platform/PowerAssertions.h"
#include "platform/PowerSources.h"
#include "platform/ProcessTable.h"
#include "platform/ProgramFile.h"
#include "platform/RunningApplications.h"
#include "platform/ScreenLock.h"
#include "platform/SessionLifetime.h"
#include "platform/SleepControl.h"
#include "platform/SleepHistory.h"
#include "platform/SleepLocks.h"
#include "platform/ThermalState.h"
#include "platform/TrayItem.h"
#include "platform/UiLauncher.h"
#include "platform/UpdateDriver.h"
#include "platform/UserNotifications.h"
#include "platform/linux/TimerfdClock.h"
#include "platform/linux/applications/DesktopFiles.h"

#include <QDBusConnection>

#include <memory>

namespace Tarvik {

class X11Connection;

/// What this desktop offers: one back-end for each platform interface. The only place that names their classes.
struct LinuxPlatform {
    /// The argument with which the login item starts the program.
    static constexpr char atLoginOption[] = "--at-login";

    static std::unique_ptr<LoginItem> makeLoginItem();

    LinuxPlatform(const QDBusConnection& systemBus, const QDBusConnection& sessionBus);

    AppBundle bundle;
    /// The user's home directory.
    QString home;
    TimerfdClock clock;
    DesktopFiles desktopFiles;
    /// Null without an X server.
    std::shared_ptr<X11Connection> x11;
    std::unique_ptr<SettingsStore> settingsStore;
    std::unique_ptr<PowerSources> powerSources;
    std::unique_ptr<LidSensor> lidSensor;
    std::unique_ptr<ThermalState> thermalState;
    std::unique_ptr<ProcessTable> processTable;
    std::unique_ptr<RunningApplications> runningApplications;
    std::unique_ptr<HookChannel> hookChannel;
    std::unique_ptr<PowerAssertions> powerAssertions;
    std::unique_ptr<LoginItem> loginItem;
    std::unique_ptr<UserNotifications> userNotifications;
    std::unique_ptr<HotKeys> hotKeys;
    std::unique_ptr<ScreenLock> screenLock;
    std::unique_ptr<HelperService> helperService;
    std::unique_ptr<SleepControl> sleepControl;
    std::unique_ptr<DisplayPower> displayPower;
    std::unique_ptr<TrayItem> trayItem;
    std::unique_ptr<UiLauncher> uiLauncher;
    std::unique_ptr<UpdateDriver> updateDriver;
    std::unique_ptr<ProgramFile> programFile;
    std::unique_ptr<SessionLifetime> sessionLifetime;
    std::unique_ptr<SleepLocks> sleepLocks;
    std::unique_ptr<IdleSleep> idleSleep;
    std::unique_ptr<SleepHistory> sleepHistory;
};

} // namespace Tarvik
