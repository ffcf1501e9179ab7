// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "why/WhyCollector.h"

#include "core/HookSpec.h"
#include "engine/AwakeCoordinator.h"
#include "hooks/HookFiles.h"
#include "hooks/LastHookEvents.h"
#include "journal/Journal.h"
#include "monitors/PowerMonitor.h"

#include <QPointer>

#include <utility>

namespace Tarvik {

namespace {

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

WhyCollector::WhyCollector(const Sources& sources)
    : m_sources(sources)
    , m_runningSince(sources.clock.now())
{
}

void WhyCollector::collect(Receiver done)
{
    m_waiting.push_back(std::move(done));
    if (m_waiting.size() > 1)
        return;
    // Each answers later.
    const QPointer<WhyCollector> self(this);
    m_sources.locks.list([self](const SleepLockList& list) {
        if (self) {
            self->m_locks = list;
            self->finish();
        }
    });
    m_sources.idleSleep.read([self](const QList<IdleSleepRule>& rules) {
        if (self) {
            self->m_idleRules = rules;
            self->finish();
        }
    });
    m_sources.sleepHistory.read([self](const std::optional<QList<PastSleep>>& sleeps) {
        if (self) {
            self->m_sleeps = sleeps;
            self->finish();
        }
    });
}

void WhyCollector::finish()
{
    if (!m_locks || !m_idleRules || !m_sleeps)
        return;
    const WhyReport finished = report();
    m_locks.reset();
    m_idleRules.reset();
    m_sleeps.reset();
    // Whoever is told may ask again.
    for (const Receiver& receiver : std::exchange(m_waiting, {}))
        receiver(finished);
}

WhyReport WhyCollector::report() const
{
    const AwakeCoordinator& coordinator = m_sources.coordinator;
    return {.now = m_sources.clock.now(),
        .runningSince = m_runningSince,
        .isAwake = coordinator.isAwake(),
        .statusReason = coordinator.statusReason(),
        .active = coordinator.activeList(),
        .sessionEnd = coordinator.isTimedSessionActive() ? coordinator.timedSessionEnd() : std::nullopt,
        .runsWithLidClosed = coordinator.clamshellActive() && m_sources.power.lidClosed(),
        .holds = m_sources.assertions.holds(),
        .locks = *m_locks,
        .idleRules = *m_idleRules,
        .hooks = installedHooks(),
        .journal = m_sources.journal.entries(),
        .sleeps = *m_sleeps};
}

QList<WhyHook> WhyCollector::installedHooks() const
{
    const QSet<QString> installed = m_sources.hookFiles.installedIds();
    const QMap<QString, TimePoint>& times = m_sources.hookEvents.times();
    QList<WhyHook> hooks;
    for (const HookSpec& spec : HookSpec::all) {
        const QString id = textOf(spec.id);
        if (installed.contains(id)) {
            hooks.append({.id = id,
                .label = textOf(spec.label),
                .lastEvent = times.contains(id) ? std::optional(times[id]) : std::nullopt});
        }
    }
    return hooks;
}

} // namespace Tarvik
