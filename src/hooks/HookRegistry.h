// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/HookSession.h"

#include <QHash>
#include <QList>
#include <QString>

#include <optional>

namespace Tarvik {

/// The table of leases. Leases that have lapsed stay in the table, and out of every answer about live ones, until they
/// are dropped, released or taken anew.
class HookRegistry {
public:
    /// A lease may last for ever, so without a bound a runaway sender could fill the memory; this one is far beyond
    /// what real work needs, and near enough for looking at every lease each time.
    static constexpr qsizetype maximumCount = 1000;

    /// The leases by their keys.
    const QHash<QString, HookSession>& sessions() const { return m_sessions; }

    /// The live leases, the oldest first; by key where they are of the same age.
    QList<HookSession> live(TimePoint now) const;
    qsizetype liveCount(TimePoint now) const;

    /// When the next lease lapses or has lapsed; nothing in an empty table.
    std::optional<TimePoint> earliestExpiry() const;

    /// Whether a lease under `key` stays within maximumCount.
    bool hasRoomFor(const QString& key) const;

    /// Takes or renews a lease at the time `session.acquiredAt`. Returns whether the key had no live one.
    bool acquire(HookSession session);

    /// Removes the lease under `key`. Returns whether it was live.
    bool release(const QString& key, TimePoint now);

    /// Removes every lease. Returns whether any was live.
    bool releaseAll(TimePoint now);

    /// Removes the leases that are not live. Returns whether there were any.
    bool dropLapsed(TimePoint now);

private:
    QHash<QString, HookSession> m_sessions;
};

} // namespace Tarvik
