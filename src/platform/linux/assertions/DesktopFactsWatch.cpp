// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/assertions/DesktopFactsWatch.h"

#include "dbus/BusNames.h"
#include "platform/linux/inhibitors/SystemdVersion.h"

namespace Tarvik {

DesktopFactsWatch::DesktopFactsWatch(
    QDBusConnection systemBus, QDBusConnection sessionBus, const QString& currentDesktop, bool x11Screen)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
    , m_systemNames(m_systemBus, {BusNames::logind})
    , m_sessionNames(m_sessionBus,
          {BusNames::sessionManager,
              BusNames::kdePowerManager,
              BusNames::xfcePowerManager,
              BusNames::cinnamonPowerManager,
              BusNames::lxqtSession,
              BusNames::powerManagement,
              BusNames::screenSaver})
{
    m_facts.x11Screen = x11Screen;
    m_facts.idleDaemonSuspends = DesktopHoldRules::namesIdleDaemonDesktop(currentDesktop);
    m_systemNames.onKnown = [this] {
        if (m_systemNames.isOwned(BusNames::logind))
            readSystemdVersion();
        update({});
    };
    m_systemNames.onOwnerChange = [this](const QString& name) {
        // An upgrade replaces it while it runs.
        if (m_systemNames.isOwned(name))
            readSystemdVersion();
        update(name);
    };
    m_sessionNames.onKnown = [this] {
        followXfce();
        update({});
    };
    m_sessionNames.onOwnerChange = [this](const QString& name) {
        if (name == BusNames::xfcePowerManager)
            followXfce();
        update(name);
    };
}

QString DesktopFactsWatch::owner(const QString& service) const
{
    return m_systemNames.isOwned(service) ? m_systemNames.owner(service) : m_sessionNames.owner(service);
}

void DesktopFactsWatch::update(const QString& service)
{
    m_facts.logind = m_systemNames.isOwned(BusNames::logind);
    m_facts.sessionManager = m_sessionNames.isOwned(BusNames::sessionManager);
    m_facts.kdePowerManager = m_sessionNames.isOwned(BusNames::kdePowerManager);
    m_facts.xfcePowerManager = m_sessionNames.isOwned(BusNames::xfcePowerManager);
    m_facts.cinnamonPowerManager = m_sessionNames.isOwned(BusNames::cinnamonPowerManager);
    m_facts.lxqtSession = m_sessionNames.isOwned(BusNames::lxqtSession);
    m_facts.powerManagement = m_sessionNames.isOwned(BusNames::powerManagement);
    m_facts.screenSaver = m_sessionNames.isOwned(BusNames::screenSaver);
    m_facts.xfceSuspendsWhenIdle = m_xfce && m_xfce->isSet();
    if (isKnown() && onChange)
        onChange(service);
}

void DesktopFactsWatch::followXfce()
{
    m_xfce.reset();
    if (!m_sessionNames.isOwned(BusNames::xfcePowerManager))
        return;
    m_xfce = std::make_unique<XfceIdleSuspend>(m_sessionBus);
    m_xfce->onChange = [this] { update({}); };
}

void DesktopFactsWatch::readSystemdVersion()
{
    m_versionCall = SystemdVersion::ask(m_systemBus, [this](int version) {
        m_versionCall.reset();
        m_facts.systemdVersion = version;
        update({});
    });
}

} // namespace Tarvik
