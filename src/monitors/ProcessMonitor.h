// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "monitors/PresetMatcher.h"
#include "platform/Clock.h"
#include "platform/RunningApplications.h"

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>

#include <functional>
#include <memory>

namespace Tarvik {

class AppSettings;
class ProcessTable;

/// Finds out which of the watched agents and editors and of the user's chosen applications are running.
class ProcessMonitor : public QObject {
    Q_OBJECT

public:
    /// Ids of the agents that report their turns themselves; their processes say nothing more.
    using HookedIds = std::function<QSet<QString>()>;

    static constexpr Seconds pollInterval{5.0};

    /// The longest that construction waits for the process table: nothing starts later because a listing hangs.
    static constexpr Seconds startPatience{2.0};

    /// Scans once before it returns, waiting for the process table that one time. The settings are not kept alive;
    /// without them a scan does nothing. The others must outlive the monitor.
    ProcessMonitor(AppSettings& settings,
        ProcessTable& table,
        RunningApplications& applications,
        Clock& clock,
        HookedIds hookedIds);

    /// Labels of the watched catalogue rows that are running, in catalogue order.
    const QStringList& activeAgentLabels() const { return m_activeAgentLabels; }
    /// Names of the chosen applications that are running, in the user's order.
    const QStringList& activeAppLabels() const { return m_activeAppLabels; }
    /// Agents, then applications.
    QStringList activeLabels() const { return m_activeAgentLabels + m_activeAppLabels; }

    /// Starts one pass; it publishes from the event loop. Asked for during a pass, another one follows.
    void scan();

    /// Called after each pass that changed either list.
    std::function<void()> onChange;

Q_SIGNALS:
    void activeAgentLabelsChanged();
    void activeAppLabelsChanged();

private:
    void finishScan(const QByteArray& processes);
    void publishFrom(const QByteArray& processes);
    void publish(const QStringList& agentLabels, const QStringList& appLabels);

    QPointer<AppSettings> m_settings;
    ProcessTable& m_table;
    RunningApplications& m_applications;
    HookedIds m_hookedIds;
    PresetMatcher m_matcher;
    QStringList m_activeAgentLabels;
    QStringList m_activeAppLabels;
    bool m_isScanning = false;
    bool m_scanAgain = false;
    std::unique_ptr<Timer> m_timer;
    Subscription m_applicationChanges;
};

} // namespace Tarvik
