// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "app/TarvikApp.h"

#include "status1adaptor.h"

#include "bus/ApplicationAdaptor.h"
#include "bus/CoordinatorAdaptor.h"
#include "bus/HooksAdaptor.h"
#include "bus/SettingsAdaptor.h"
#include "engine/LaunchAtLogin.h"
#include "hooks/HookConfig.h"
#include "hotkey/LockScreen.h"
#include "platform/StatusWire.h"

#include <QCoreApplication>

namespace Tarvik {

TarvikApp::TarvikApp(const QDBusConnection& systemBus, const QDBusConnection& sessionBus)
    : m_platform(systemBus, sessionBus)
    , m_settings(*m_platform.settingsStore)
    , m_power(*m_platform.powerSources, *m_platform.lidSensor, m_platform.clock)
    , m_process(m_settings,
          *m_platform.processTable,
          *m_platform.runningApplications,
          m_platform.clock,
          [this] { return HookConfig::installedIds(m_platform.home); })
    , m_thermal(*m_platform.thermalState)
    , m_journal(*m_platform.settingsStore, m_platform.clock)
    , m_hooks(*m_platform.hookChannel, m_platform.clock)
    , m_hotKeys(*m_platform.hotKeys)
    , m_coordinator({m_settings, m_power, m_process, m_thermal, m_journal, m_hooks},
          {*m_platform.powerAssertions,
              *m_platform.loginItem,
              *m_platform.userNotifications,
              m_hotKeys,
              *m_platform.screenLock,
              m_platform.clock},
          {.home = m_platform.home, .tool = m_platform.bundle.toolPath()})
    , m_status({m_coordinator,
                   m_power,
                   m_thermal,
                   m_hooks,
                   *m_platform.powerAssertions,
                   *m_platform.hotKeys,
                   *m_platform.trayItem,
                   m_platform.clock},
          m_platform.bundle.shortVersion,
          sessionBus)
    , m_tray(m_coordinator, m_settings, *m_platform.trayItem, m_platform.clock)
    , m_ui(*m_platform.uiLauncher, sessionBus)
{
    connectTray();
    offerOnBus(sessionBus);
}

void TarvikApp::connectTray()
{
    m_tray.onOpenPanel = [this](int x, int y, const QString& token) { m_ui.showPanel(x, y, token); };
    m_tray.onOpenSettings = [this] { m_ui.showSettings({}); };
    m_tray.onLock = [this] { lockTheScreen(); };
    m_tray.onQuit = [] { QCoreApplication::quit(); };
}

void TarvikApp::offerOnBus(QDBusConnection sessionBus)
{
    new Status1Adaptor(&m_status);
    auto* application = new ApplicationAdaptor(m_status);
    application->onActivate = [this](const QVariantMap& platformData) {
        // Nobody clicked anywhere, so the panel finds its own place.
        m_ui.showPanel(0, 0, platformData.value(QStringLiteral("activation-token")).toString());
    };
    auto* coordinator = new CoordinatorAdaptor(m_status, m_coordinator, sessionBus);
    coordinator->onLockScreen = [this] { lockTheScreen(); };
    coordinator->onQuit = [] { QCoreApplication::quit(); };
    new HooksAdaptor(m_status, {.home = m_platform.home, .tool = m_platform.bundle.toolPath()}, sessionBus);
    auto* settings = new SettingsAdaptor(m_status, m_settings, sessionBus);
    settings->onSetLaunchAtLogin = [this](bool on) { changeLaunchAtLogin(*m_platform.loginItem, m_settings, on); };
    sessionBus.registerObject(QString::fromLatin1(StatusWire::objectPath), &m_status, QDBusConnection::ExportAdaptors);
}

void TarvikApp::lockTheScreen()
{
    lockScreen(*m_platform.screenLock);
}

} // namespace Tarvik
