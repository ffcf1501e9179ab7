// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace Tarvik {

/// The login session that the program was started in.
class SessionLifetime {
public:
    virtual ~SessionLifetime() = default;

    /// The user has logged out; called at most once.
    std::function<void()> onEnd;
};

} // namespace Tarvik
