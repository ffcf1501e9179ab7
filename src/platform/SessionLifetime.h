// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

namespace Tarvik {

/// The login session that the program was started in.
class SessionLifetime {
public:
    virtual ~SessionLifetime() = default;

    /// The user has logged out; told at most once.
    Signal<void()> ended;
};

} // namespace Tarvik
