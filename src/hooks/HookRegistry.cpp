// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookRegistry.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace Tarvik {

QList<HookSession> HookRegistry::live(TimePoint now) const
{
    QList<HookSession> result;
    std::ranges::copy_if(
        m_sessions, std::back_inserter(result), [now](const HookSession& session) { return session.isLive(now); });
    std::ranges::sort(result, {}, [](const HookSession& session) { return std::tie(session.acquiredAt, session.key); });
    return result;
}

qsizetype HookRegistry::liveCount(TimePoint now) const
{
    return std::ranges::count_if(m_sessions, [now](const HookSession& session) { return session.isLive(now); });
}

std::optional<TimePoint> HookRegistry::earliestExpiry() const
{
    const auto earliest = std::ranges::min_element(m_sessions, {}, &HookSession::expiresAt);
    return earliest == m_sessions.end() ? std::nullopt : std::optional(earliest->expiresAt);
}

bool HookRegistry::hasRoomFor(const QString& key) const
{
    return m_sessions.size() < maximumCount || m_sessions.contains(key);
}

bool HookRegistry::acquire(HookSession session)
{
    const auto held = m_sessions.constFind(session.key);
    const bool wasLive = held != m_sessions.constEnd() && held->isLive(session.acquiredAt);
    if (wasLive)
        session.acquiredAt = held->acquiredAt;
    const QString key = session.key;
    m_sessions.insert(key, std::move(session));
    return !wasLive;
}

bool HookRegistry::release(const QString& key, TimePoint now)
{
    const auto held = m_sessions.constFind(key);
    const bool wasLive = held != m_sessions.constEnd() && held->isLive(now);
    m_sessions.remove(key);
    return wasLive;
}

bool HookRegistry::releaseAll(TimePoint now)
{
    const bool anyLive = liveCount(now) > 0;
    m_sessions.clear();
    return anyLive;
}

bool HookRegistry::dropLapsed(TimePoint now)
{
    return m_sessions.removeIf([now](const auto& each) { return !each.value().isLive(now); }) > 0;
}

} // namespace Tarvik
