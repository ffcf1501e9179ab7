// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "hooks/HookSession.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <set>
#include <tuple>

namespace Tarvik {

/// The table of leases. One change costs the logarithm of their number. Leases that have lapsed stay in the table, and
/// out of every answer about live ones, until they are dropped, released or taken anew.
class HookRegistry {
public:
    /// What the leases may occupy, estimated in bytes. A lease may last for ever, so without a bound a runaway sender
    /// could fill the memory; this one is a thousand times what real work needs.
    static constexpr qsizetype maximumSize = 256LL * 1024 * 1024;

    /// The leases by their keys.
    const QHash<QString, HookSession>& sessions() const { return m_sessions; }

    /// The live leases, the oldest first; by key where they are of the same age.
    QList<HookSession> live(TimePoint now) const;
    qsizetype liveCount(TimePoint now) const;

    /// The agents of the live leases without repeats, in the order of the live list. Costs as much as there are agents,
    /// not leases: it is asked for after every change.
    QStringList liveTools(TimePoint now) const;

    /// When the next lease lapses or has lapsed; nothing in an empty table.
    std::optional<TimePoint> earliestExpiry() const;

    /// Whether the lease fits below maximumSize.
    bool hasRoomFor(const HookSession& session) const;

    /// Takes or renews a lease at the time `session.acquiredAt`. Returns whether the key had no live one.
    bool acquire(HookSession session);

    /// Removes the lease under `key`. Returns whether it was live.
    bool release(const QString& key, TimePoint now);

    /// Removes every lease. Returns whether any was live.
    bool releaseAll(TimePoint now);

    /// Removes the leases that are not live. Returns whether there were any.
    bool dropLapsed(TimePoint now);

private:
    struct Place {
        TimePoint at;
        QString key;
    };

    struct Earlier {
        using is_transparent = void;
        bool operator()(const Place& a, const Place& b) const { return std::tie(a.at, a.key) < std::tie(b.at, b.key); }
        bool operator()(TimePoint a, const Place& b) const { return a < b.at; }
        bool operator()(const Place& a, TimePoint b) const { return a.at < b; }
    };

    using Places = std::set<Place, Earlier>;

    /// How many leases had lapsed at the last time that was asked about: time mostly moves on, and a flood of leases
    /// that are dead at once must not be counted again with every event.
    struct Lapsed {
        TimePoint at = TimePoint::min();
        qsizetype count = 0;
    };

    std::optional<Place> oldestLive(const Places& places, TimePoint now) const;
    void insert(const HookSession& session);
    void erase(const QString& key);

    QHash<QString, HookSession> m_sessions;
    Places m_byAge;
    QHash<QString, Places> m_byToolAndAge;
    Places m_byExpiry;
    mutable Lapsed m_lapsed;
    qsizetype m_size = 0;
};

} // namespace Tarvik
