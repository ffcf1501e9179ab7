// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tarvik {

/// The lock of the user's session.
class ScreenLock {
public:
    virtual ~ScreenLock() = default;

    /// Locks the screen now. The answer comes later: an error text, empty when the screen is locked. A request that
    /// comes while another one is under way gets that one's answer.
    virtual void lock(std::function<void(const QString& error)> done) = 0;
};

} // namespace Tarvik
