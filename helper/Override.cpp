// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "Override.h"

#include <algorithm>

namespace Tarvik {

void Override::ask(const std::string& caller, Clock::time_point now)
{
    m_lastHeard.insert_or_assign(caller, now);
}

void Override::hear(const std::string& caller, Clock::time_point now)
{
    if (const auto request = m_lastHeard.find(caller); request != m_lastHeard.end())
        request->second = now;
}

bool Override::takeBack(const std::string& caller)
{
    return m_lastHeard.erase(caller) > 0;
}

std::vector<std::string> Override::lapsed(Clock::time_point now) const
{
    std::vector<std::string> lapsed;
    for (const auto& [caller, lastHeard] : m_lastHeard) {
        if (now - lastHeard >= m_patience)
            lapsed.push_back(caller);
    }
    return lapsed;
}

std::optional<Override::Clock::time_point> Override::nextLapse() const
{
    std::optional<Clock::time_point> next;
    for (const auto& [caller, lastHeard] : m_lastHeard) {
        const auto due = lastHeard + m_patience;
        next = next ? std::min(*next, due) : due;
    }
    return next;
}

} // namespace Tarvik
