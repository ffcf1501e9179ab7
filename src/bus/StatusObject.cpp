// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/StatusObject.h"

#include "engine/AwakeCoordinator.h"
#include "engine/StatusText.h"
#include "hooks/HookMonitor.h"
#include "monitors/PowerMonitor.h"
#include "monitors/ThermalMonitor.h"
#include "platform/TrayItem.h"
#include "updates/Upgrade.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

StatusObject::StatusObject(const Sources& sources, QString version)
    : m_sources(sources)
    , m_version(std::move(version))
{
    registerStatusTypes();
    const auto& coordinator = sources.coordinator;
    connect(&coordinator, &AwakeCoordinator::evaluated, this, &StatusObject::changed);
    connect(&coordinator, &AwakeCoordinator::timedSessionEndChanged, this, &StatusObject::changed);
    connect(&sources.hooks, &HookMonitor::sessionsChanged, this, &StatusObject::leasesChanged);
    for (auto* news : {&sources.assertions.holdsChanged,
             &sources.hotKeys.stateChanged,
             &sources.tray.hostChanged,
             &sources.upgrade.pendingChanged})
        m_subscriptions.push_back(news->subscribe([this] { Q_EMIT changed(); }));
}

QString StatusObject::title() const
{
    return m_sources.coordinator.title();
}

QString StatusObject::reason() const
{
    return m_sources.coordinator.statusReason();
}

QString StatusObject::subtitle() const
{
    return m_sources.coordinator.statusSubtitle();
}

QString StatusObject::details() const
{
    return m_sources.coordinator.statusDetails();
}

bool StatusObject::isAwake() const
{
    return m_sources.coordinator.isAwake();
}

bool StatusObject::isPaused() const
{
    return m_sources.coordinator.isPaused();
}

QStringList StatusObject::active() const
{
    return m_sources.coordinator.activeList();
}

StatusLeaseList StatusObject::leases() const
{
    const TimePoint now = m_sources.clock.now();
    StatusLeaseList list;
    for (const HookSession& session : m_sources.hooks.sessions()) {
        list.append({.key = session.key,
            .tool = session.tool,
            .reason = session.reason.value_or(QString()),
            .acquiredAt = session.acquiredAt.time_since_epoch().count(),
            .remaining = std::max((session.expiresAt - now).count(), 0.0)});
    }
    return list;
}

bool StatusObject::isTimedSessionActive() const
{
    return m_sources.coordinator.isTimedSessionActive();
}

double StatusObject::sessionEnd() const
{
    const auto end = m_sources.coordinator.timedSessionEnd();
    return end ? end->time_since_epoch().count() : 0;
}

StatusAssertionList StatusObject::assertions() const
{
    StatusAssertionList list;
    for (const PowerAssertionHold& hold : m_sources.assertions.holds()) {
        list.append({.type = powerAssertionTypeName(hold.type),
            .service = hold.service,
            .what = hold.what,
            .isEffective = hold.effective});
    }
    return list;
}

bool StatusObject::onAC() const
{
    return m_sources.power.isOnAC();
}

bool StatusObject::hasBattery() const
{
    return m_sources.power.hasBattery();
}

int StatusObject::batteryPercent() const
{
    return m_sources.power.batteryPercent().value_or(-1);
}

bool StatusObject::lidClosed() const
{
    return m_sources.power.lidClosed();
}

uint StatusObject::thermalState() const
{
    return static_cast<uint>(m_sources.thermal.state());
}

QString StatusObject::thermalText() const
{
    return StatusText::thermalWord(static_cast<int>(m_sources.thermal.state()));
}

bool StatusObject::isHot() const
{
    return m_sources.thermal.isHot();
}

QString StatusObject::lockShortcut() const
{
    const HotKeyState state = m_sources.coordinator.lockHotKeyState();
    const QString status = hotKeyStatusText(state.status);
    return state.provider.isEmpty() ? status : status + u" ("_s + state.provider + u')';
}

bool StatusObject::isTrayShown() const
{
    return m_sources.tray.hasHost();
}

bool StatusObject::isUpgradePending() const
{
    return m_sources.upgrade.isPending();
}

} // namespace Tarvik
