// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/ProcessMonitor.h"

#include "core/AgentCatalogue.h"
#include "core/AppSettings.h"
#include "monitors/ProcessParsers.h"
#include "platform/ProcessTable.h"

#include <utility>

namespace Tarvik {

ProcessMonitor::ProcessMonitor(
    AppSettings& settings, ProcessTable& table, RunningApplications& applications, Clock& clock, HookedIds hookedIds)
    : m_settings(&settings)
    , m_table(table)
    , m_applications(applications)
    , m_hookedIds(std::move(hookedIds))
    , m_matcher(AgentCatalogue::agents() + AgentCatalogue::editors())
{
    m_applicationChanges = m_applications.changed.subscribe([this] { scan(); });
    m_timer = clock.every(pollInterval, [this] { scan(); });
    scan();
    // What the desktop reports is known without it. Whenever it comes, it is published like any other.
    if (m_isScanning && !m_table.wait(startPatience))
        publishFrom({});
}

void ProcessMonitor::scan()
{
    if (!m_settings)
        return;
    if (m_isScanning) {
        m_scanAgain = true;
        return;
    }
    m_isScanning = true;
    const QPointer<ProcessMonitor> guard(this);
    m_table.read([guard](const QByteArray& processes) {
        if (guard)
            guard->finishScan(processes);
    });
}

void ProcessMonitor::finishScan(const QByteArray& processes)
{
    m_isScanning = false;
    publishFrom(processes);
    if (std::exchange(m_scanAgain, false))
        scan();
}

void ProcessMonitor::publishFrom(const QByteArray& processes)
{
    if (!m_settings)
        return;
    const QList<RunningApplication> applications = m_applications.list();
    QSet<QString> applicationIds;
    for (const RunningApplication& application : applications) {
        if (!application.id.isEmpty())
            applicationIds.insert(application.id);
    }
    QStringList appLabels;
    for (const AllowlistedApp& app : m_settings->allowlist()) {
        if (applicationIds.contains(app.bundleID))
            appLabels.append(app.name);
    }

    const QSet<QString> running = m_matcher.runningIds(applications, ProcessParsers::listProcesses(processes));
    const QSet<QString> hooked = m_hookedIds();
    QStringList agentLabels;
    for (const AgentPreset& preset : m_settings->watchedPresets()) {
        if (running.contains(preset.id) && !hooked.contains(preset.id))
            agentLabels.append(preset.label);
    }
    publish(agentLabels, appLabels);
}

void ProcessMonitor::publish(const QStringList& agentLabels, const QStringList& appLabels)
{
    if (agentLabels == m_activeAgentLabels && appLabels == m_activeAppLabels)
        return;
    m_activeAgentLabels = agentLabels;
    m_activeAppLabels = appLabels;
    Q_EMIT activeAgentLabelsChanged();
    Q_EMIT activeAppLabelsChanged();
    if (onChange)
        onChange();
}

} // namespace Tarvik
