// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ScreenLock.h"

#include <utility>
#include <vector>

namespace Tarvik {

/// A screen lock that counts its requests and answers when the test says so.
class FakeScreenLock final : public ScreenLock {
public:
    void lock(std::function<void(const QString& error)> done) override
    {
        ++requests;
        m_waiting.push_back(std::move(done));
    }

    void answer(const QString& error)
    {
        for (const auto& done : std::exchange(m_waiting, {}))
            done(error);
    }

    int requests = 0;

private:
    std::vector<std::function<void(const QString& error)>> m_waiting;
};

} // namespace Tarvik
