// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace Tarvik {

/// A moment on the monotonic clock by which something has to be over.
class Deadline final {
public:
    explicit Deadline(std::chrono::milliseconds fromNow)
        : m_end(std::chrono::steady_clock::now() + fromNow)
    {
    }

    /// What is left, in whole milliseconds; 0 when it has passed.
    std::chrono::milliseconds remaining() const
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now());
        return left.count() > 0 ? left : std::chrono::milliseconds::zero();
    }

    bool hasPassed() const { return remaining().count() == 0; }

    /// The earlier of this moment and one that lies the given time ahead.
    Deadline atMost(std::chrono::milliseconds fromNow) const
    {
        Deadline earlier(fromNow);
        if (m_end < earlier.m_end)
            earlier.m_end = m_end;
        return earlier;
    }

private:
    std::chrono::steady_clock::time_point m_end;
};

} // namespace Tarvik
