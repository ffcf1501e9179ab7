// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "app/TarvikApp.h"

#include "bus/BusInterface.h"
#include "bus/BusInterfaces.h"
#include "engine/LaunchAtLogin.h"
#include "engine/Notifications.h"

#include <QCoreApplication>

namespace Tarvik {

TarvikApp::TarvikApp(
    const QDBusConnection& systemBus, const QDBusConnection& sessionBus, const std::function<void()>& relaunch)
    : m_platform(systemBus, sessionBus)
    , m_settings(*m_platform.settingsStore)
    , m_hookFiles(m_platform.home, m_platform.bundle.toolPath())
    , m_power(*m_platform.powerSources, *m_platform.lidSensor, m_platform.clock)
    , m_process(m_settings,
          *m_platform.processTable,
          *m_platform.runningApplications,
          m_platform.clock,
          [this] { return m_hookFiles.installedIds(); })
    , m_thermal(*m_platform.thermalState)
    , m_journal(*m_platform.settingsStore, m_platform.clock)
    , m_hooks(*m_platform.hookChannel, m_platform.clock)
    , m_lastHookEvents(m_hooks, *m_platform.settingsStore)
    , m_hotKeys(*m_platform.hotKeys)
    , m_ui(*m_platform.uiLauncher, sessionBus)
    , m_lidClosed(m_settings,
          *m_platform.settingsStore,
          {*m_platform.helperService,
              *m_platform.sleepControl,
              *m_platform.displayPower,
              *m_platform.lidSensor,
              m_platform.clock},
          m_platform.bundle.version,
          {.showOnboarding = [this] { m_ui.showOnboarding({}); },
              .showRestartAlert = [this] { m_ui.showRestartAlert({}); },
              .showLoginItems = [this] { m_ui.showHelperApproval({}); },
              .relaunch = relaunch})
    , m_coordinator({m_settings, m_power, m_process, m_thermal, m_journal, m_hooks, m_lidClosed},
          {*m_platform.powerAssertions,
              *m_platform.loginItem,
              *m_platform.userNotifications,
              m_hotKeys,
              *m_platform.screenLock,
              m_platform.clock},
          m_hookFiles)
    , m_updater(*m_platform.updateDriver, *m_platform.settingsStore, m_platform.clock)
    , m_idleness({m_coordinator, m_hooks, m_updater, m_ui})
    , m_upgrade(*m_platform.programFile,
          m_platform.clock,
          {.isIdle = [this] { return m_idleness.isIdle(); }, .restart = relaunch})
    , m_status({m_coordinator,
                   m_power,
                   m_thermal,
                   m_hooks,
                   *m_platform.powerAssertions,
                   *m_platform.hotKeys,
                   *m_platform.trayItem,
                   m_upgrade,
                   m_platform.clock},
          m_platform.bundle.shortVersion)
    , m_why({m_coordinator,
          m_power,
          *m_platform.powerAssertions,
          m_journal,
          m_hookFiles,
          m_lastHookEvents,
          *m_platform.sleepLocks,
          *m_platform.idleSleep,
          *m_platform.sleepHistory,
          m_platform.clock})
    , m_tray(m_coordinator, m_settings, *m_platform.trayItem, m_platform.clock)
    , m_busObject(sessionBus)
{
    connectTray();
    offerOnBus(sessionBus);
    QObject::connect(&m_idleness, &Idleness::changed, &m_idleness, [this] { m_upgrade.reconsider(); });
    m_sessionEnd = m_platform.sessionLifetime->ended.subscribe([] { QCoreApplication::quit(); });
}

void TarvikApp::connectTray()
{
    m_tray.onOpenPanel = [this](int x, int y, const QString& token) { m_ui.showPanel(x, y, token); };
    m_ui.onPanelChange = [this](bool isOpen) { m_tray.setIsPanelOpen(isOpen); };
    m_ui.onMissing = [this] {
        Notifications(*m_platform.userNotifications)
            .post(QCoreApplication::translate("TarvikApp", "The windows of Tarvik are not installed"),
                QCoreApplication::translate("TarvikApp", "They are in the package “tarvik”."));
    };
    m_tray.onOpenSettings = [this] { m_ui.showSettings({}); };
    m_tray.onLock = [this] { m_coordinator.lockScreen(); };
    m_tray.onQuit = [] { QCoreApplication::quit(); };
}

void TarvikApp::offerOnBus(const QDBusConnection& sessionBus)
{
    const auto quit = [] { QCoreApplication::quit(); };
    const auto setLaunchAtLogin = [this](bool on) { changeLaunchAtLogin(*m_platform.loginItem, m_settings, on); };
    const auto setClamshellEnabled = [this](bool on) { m_lidClosed.setClamshellEnabled(on); };
    const auto activate = [this](const QString& token) { m_ui.showPanelAtTray(token); };

    m_busObject.add(BusInterfaces::application(activate, sessionBus));
    m_busObject.add(BusInterfaces::status(m_status, m_coordinator, quit, sessionBus));
    m_busObject.add(BusInterfaces::settings(m_settings,
        {.setLaunchAtLogin = setLaunchAtLogin, .setClamshellEnabled = setClamshellEnabled},
        *m_platform.runningApplications,
        sessionBus));
    m_busObject.add(BusInterfaces::journal(m_journal, sessionBus));
    m_busObject.add(BusInterfaces::lidClosed(m_lidClosed, m_coordinator, m_power, sessionBus));
    m_busObject.add(BusInterfaces::updater(m_updater, sessionBus));
    m_busObject.add(BusInterfaces::hooks(m_hookFiles, m_lastHookEvents, sessionBus));
    m_busObject.add(BusInterfaces::why(m_why, sessionBus));
}

} // namespace Tarvik
