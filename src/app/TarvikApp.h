// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "app/LinuxPlatform.h"
#include "base/Signal.h"
#include "bus/BusObject.h"
#include "bus/Idleness.h"
#include "bus/StatusObject.h"
#include "bus/UiProcess.h"
#include "core/AppSettings.h"
#include "engine/AwakeCoordinator.h"
#include "engine/TrayPresenter.h"
#include "hooks/HookFiles.h"
#include "hooks/HookMonitor.h"
#include "hooks/LastHookEvents.h"
#include "hotkey/HotKeyCenter.h"
#include "journal/Journal.h"
#include "lidclosed/LidClosedMode.h"
#include "monitors/PowerMonitor.h"
#include "monitors/ProcessMonitor.h"
#include "monitors/ThermalMonitor.h"
#include "updates/Updater.h"
#include "updates/Upgrade.h"
#include "why/WhyCollector.h"

#include <functional>

namespace Tarvik {

/// The object graph of the application, built in the order of its members and taken down in the reverse one. Whatever
/// it holds of the system is given back when it is destroyed.
class TarvikApp {
public:
    /// `relaunch` ends the program and starts it anew.
    TarvikApp(
        const QDBusConnection& systemBus, const QDBusConnection& sessionBus, const std::function<void()>& relaunch);

private:
    void connectTray();
    void offerOnBus(const QDBusConnection& sessionBus);

    LinuxPlatform m_platform;
    AppSettings m_settings;
    HookFiles m_hookFiles;
    PowerMonitor m_power;
    ProcessMonitor m_process;
    ThermalMonitor m_thermal;
    Journal m_journal;
    HookMonitor m_hooks;
    LastHookEvents m_lastHookEvents;
    HotKeyCenter m_hotKeys;
    UiProcess m_ui;
    LidClosedMode m_lidClosed;
    AwakeCoordinator m_coordinator;
    Updater m_updater;
    Idleness m_idleness;
    Upgrade m_upgrade;
    StatusObject m_status;
    WhyCollector m_why;
    TrayPresenter m_tray;
    BusObject m_busObject;
    Subscription m_sessionEnd;
};

} // namespace Tarvik
