// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "hooks/HookRegistry.h"

#include <algorithm>
#include <map>

namespace Tarvik {

namespace {

/// The lease, its places in the indexes and what the allocator adds.
constexpr qsizetype fixedSize = 640;

qsizetype estimatedSize(const HookSession& session)
{
    const qsizetype characters
        = session.key.size() + session.tool.size() + (session.reason ? session.reason->size() : 0);
    return fixedSize + characters * static_cast<qsizetype>(sizeof(QChar));
}

} // namespace

QList<HookSession> HookRegistry::live(TimePoint now) const
{
    QList<HookSession> result;
    result.reserve(m_sessions.size());
    for (const Place& place : m_byAge) {
        const auto session = m_sessions.constFind(place.key);
        if (session->isLive(now))
            result.append(*session);
    }
    return result;
}

qsizetype HookRegistry::liveCount(TimePoint now) const
{
    if (now < m_lapsed.at)
        m_lapsed = {};
    auto place = m_byExpiry.upper_bound(m_lapsed.at);
    for (; place != m_byExpiry.end() && place->at <= now; ++place)
        ++m_lapsed.count;
    m_lapsed.at = now;
    return m_sessions.size() - m_lapsed.count;
}

QStringList HookRegistry::liveTools(TimePoint now) const
{
    std::map<Place, QString, Earlier> toolsByAge;
    for (auto tool = m_byToolAndAge.begin(); tool != m_byToolAndAge.end(); ++tool) {
        if (const auto place = oldestLive(tool.value(), now))
            toolsByAge.emplace(*place, tool.key());
    }
    QStringList tools;
    for (const auto& [place, tool] : toolsByAge)
        tools.append(tool);
    return tools;
}

std::optional<HookRegistry::Place> HookRegistry::oldestLive(const Places& places, TimePoint now) const
{
    const auto place
        = std::ranges::find_if(places, [&](const Place& each) { return m_sessions.constFind(each.key)->isLive(now); });
    return place == places.end() ? std::nullopt : std::optional(*place);
}

std::optional<TimePoint> HookRegistry::earliestExpiry() const
{
    if (m_byExpiry.empty())
        return {};
    return m_byExpiry.begin()->at;
}

bool HookRegistry::hasRoomFor(const HookSession& session) const
{
    const auto replaced = m_sessions.constFind(session.key);
    const qsizetype freed = replaced != m_sessions.constEnd() ? estimatedSize(*replaced) : 0;
    return m_size - freed + estimatedSize(session) <= maximumSize;
}

bool HookRegistry::acquire(HookSession session)
{
    const auto held = m_sessions.constFind(session.key);
    const bool wasLive = held != m_sessions.constEnd() && held->isLive(session.acquiredAt);
    if (wasLive)
        session.acquiredAt = held->acquiredAt;
    erase(session.key);
    insert(session);
    return !wasLive;
}

bool HookRegistry::release(const QString& key, TimePoint now)
{
    const auto held = m_sessions.constFind(key);
    const bool wasLive = held != m_sessions.constEnd() && held->isLive(now);
    erase(key);
    return wasLive;
}

bool HookRegistry::releaseAll(TimePoint now)
{
    const bool anyLive = liveCount(now) > 0;
    *this = HookRegistry();
    return anyLive;
}

bool HookRegistry::dropLapsed(TimePoint now)
{
    bool anyDropped = false;
    while (!m_byExpiry.empty() && m_byExpiry.begin()->at <= now) {
        erase(QString(m_byExpiry.begin()->key));
        anyDropped = true;
    }
    return anyDropped;
}

void HookRegistry::insert(const HookSession& session)
{
    m_size += estimatedSize(session);
    if (session.expiresAt <= m_lapsed.at)
        ++m_lapsed.count;
    m_byAge.insert({session.acquiredAt, session.key});
    m_byToolAndAge[session.tool].insert({session.acquiredAt, session.key});
    m_byExpiry.insert({session.expiresAt, session.key});
    m_sessions.insert(session.key, session);
}

void HookRegistry::erase(const QString& key)
{
    const auto held = m_sessions.constFind(key);
    if (held == m_sessions.constEnd())
        return;
    m_size -= estimatedSize(*held);
    if (held->expiresAt <= m_lapsed.at)
        --m_lapsed.count;
    m_byAge.erase({held->acquiredAt, key});
    const auto ofTool = m_byToolAndAge.find(held->tool);
    ofTool->erase({held->acquiredAt, key});
    if (ofTool->empty())
        m_byToolAndAge.erase(ofTool);
    m_byExpiry.erase({held->expiresAt, key});
    m_sessions.erase(held);
}

} // namespace Tarvik
