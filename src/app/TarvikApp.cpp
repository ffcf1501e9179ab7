// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "app/TarvikApp.h"

#include "status1adaptor.h"

#include "bus/ApplicationAdaptor.h"
#include "core/Logging.h"
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
{
    m_tray.onLock = [this] { lockScreen(*m_platform.screenLock); };
    m_tray.onQuit = [] { QCoreApplication::quit(); };

    new Status1Adaptor(&m_status);
    auto* application = new ApplicationAdaptor(m_status);
    application->onActivate = [](const QVariantMap&) { qCInfo(logSystem, "Tarvik was started again and is running"); };
    QDBusConnection(sessionBus)
        .registerObject(QString::fromLatin1(StatusWire::objectPath), &m_status, QDBusConnection::ExportAdaptors);
}

} // namespace Tarvik
