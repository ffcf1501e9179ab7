// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "app/TarvikApp.h"

#include "status1adaptor.h"

#include "bus/ApplicationAdaptor.h"
#include "core/Logging.h"
#include "hooks/HookConfig.h"
#include "platform/StatusWire.h"

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
    , m_coordinator({m_settings, m_power, m_process, m_thermal, m_journal, m_hooks},
          {*m_platform.powerAssertions, *m_platform.loginItem, *m_platform.userNotifications, m_platform.clock},
          {.home = m_platform.home, .tool = m_platform.bundle.toolPath()})
    , m_status({m_coordinator, m_power, m_thermal, m_hooks, *m_platform.powerAssertions, m_platform.clock},
          m_platform.bundle.shortVersion,
          sessionBus)
{
    new Status1Adaptor(&m_status);
    auto* application = new ApplicationAdaptor(m_status);
    application->onActivate = [](const QVariantMap&) { qCInfo(logSystem, "Tarvik was started again and is running"); };
    QDBusConnection(sessionBus)
        .registerObject(QString::fromLatin1(StatusWire::objectPath), &m_status, QDBusConnection::ExportAdaptors);
}

} // namespace Tarvik
