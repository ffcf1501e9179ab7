// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/HookRegistry.h"
#include "hooks/HookSession.h"
#include "platform/Clock.h"
#include "platform/HookChannel.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// Keeps the leases that the agents' hooks take and give back, and lets them lapse when their end never arrives.
class HookMonitor final : public QObject {
    Q_OBJECT
    Q_PROPERTY(QList<Tarvik::HookSession> sessions READ sessions NOTIFY sessionsChanged)

public:
    /// `clock` must outlive the monitor.
    HookMonitor(HookChannel& channel, Clock& clock);

    /// The leases that were live after the last event, the oldest first. Renewed leases keep their age.
    QList<HookSession> sessions() const;

    const HookRegistry& registry() const { return m_registry; }

    /// Names, for the user, of the agents that hold a live lease now, without repeats and the oldest lease first. An
    /// agent that is not known is named as it named itself.
    QStringList activeAgents() const;

    /// Called after every change of the held leases.
    std::function<void()> onChange;

Q_SIGNALS:
    /// Every event, renewals included.
    void sessionsChanged();
    /// An event has come, whatever it came to. `tool` is the agent's HookSpec id, or what the sender gave instead.
    void heard(const QString& tool, Tarvik::TimePoint at);

private:
    struct ExpiryTimer {
        /// The lapse that is waited for, and when the timer fires.
        TimePoint expiry;
        TimePoint due;
        std::unique_ptr<Timer> timer;
    };

    void handle(const HookChannel::Payload& payload);
    void handleExpiry();
    void publish(TimePoint now, bool isChanged);
    void armExpiryTimer(TimePoint now);

    Clock& m_clock;
    HookRegistry m_registry;
    TimePoint m_publishedAt;
    /// Built when somebody asks: nobody does between two events of a flood.
    mutable std::optional<QList<HookSession>> m_sessions;
    std::optional<ExpiryTimer> m_expiryTimer;
    Subscription m_announcements;
};

} // namespace Tarvik
