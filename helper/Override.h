// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// Who asks for the sleep override, and when each of them was last heard of. It is on while anybody asks.
class Override final {
public:
    /// Does not go on while the computer sleeps: nobody can give a sign of life then.
    using Clock = std::chrono::steady_clock;

    /// A request lapses when its caller has given no sign of life for so long.
    explicit Override(Clock::duration patience)
        : m_patience(patience)
    {
    }

    bool isOn() const { return !m_lastHeard.empty(); }

    /// Asking again renews the request.
    void ask(const std::string& caller, Clock::time_point now);
    /// Renews the caller's request, if there is one.
    void hear(const std::string& caller, Clock::time_point now);
    /// Whether there was a request of this caller.
    bool takeBack(const std::string& caller);

    /// Whose requests have lapsed.
    std::vector<std::string> lapsed(Clock::time_point now) const;
    /// When the next request lapses unless its caller is heard of.
    std::optional<Clock::time_point> nextLapse() const;

private:
    Clock::duration m_patience;
    std::map<std::string, Clock::time_point> m_lastHeard;
};

} // namespace Tarvik
