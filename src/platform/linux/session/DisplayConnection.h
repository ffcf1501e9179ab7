// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace Tarvik {

/// A connection to a display server on which nothing is asked for: it shows when the server ends.
class DisplayConnection {
public:
    virtual ~DisplayConnection() = default;

    /// The server has closed the connection; called once. Must not destroy the connection.
    std::function<void()> onLost;
};

} // namespace Tarvik
