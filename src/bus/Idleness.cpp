// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "bus/Idleness.h"

#include "bus/UiProcess.h"
#include "engine/AwakeCoordinator.h"
#include "hooks/HookMonitor.h"
#include "updates/Updater.h"

namespace Tarvik {

Idleness::Idleness(const Sources& sources)
    : m_sources(sources)
    , m_windows(sources.ui.activityChanged.subscribe([this] { Q_EMIT changed(); }))
{
    connect(&sources.coordinator, &AwakeCoordinator::evaluated, this, &Idleness::changed);
    connect(&sources.coordinator, &AwakeCoordinator::clamshellActiveChanged, this, &Idleness::changed);
    connect(&sources.hooks, &HookMonitor::sessionsChanged, this, &Idleness::changed);
    connect(&sources.updater, &Updater::canCheckForUpdatesChanged, this, &Idleness::changed);
}

bool Idleness::isIdle() const
{
    const AwakeCoordinator& coordinator = m_sources.coordinator;
    // Leases and sessions live in memory, also while Tarvik is paused or off.
    return !coordinator.isAwake() && !coordinator.clamshellActive() && !coordinator.isTimedSessionActive()
        && m_sources.hooks.sessions().isEmpty() && !m_sources.updater.isChecking() && !m_sources.ui.isActive();
}

} // namespace Tarvik
