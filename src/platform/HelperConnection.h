// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tarvik {

/// The operations of the background helper, asynchronous. Of each call exactly one of its two receivers is called,
/// later, unless the connection is destroyed before. The receivers may destroy the connection.
class HelperConnection {
public:
    using ErrorHandler = std::function<void(const QString& error)>;

    virtual ~HelperConnection() = default;

    /// Has the helper keep the machine awake with its lid closed, or no longer. `reply` gets whether it does so, and
    /// else a message for the user, which may be empty.
    virtual void setKeepAwake(
        bool enabled, std::function<void(bool ok, const QString& error)> reply, ErrorHandler failed)
        = 0;

    /// Tells the helper that whoever switched the override on through this connection is still there.
    virtual void heartbeat() = 0;

    /// The helper's version; any text is an answer.
    virtual void version(std::function<void(const QString& version)> reply, ErrorHandler failed) = 0;

    /// The connection is of no further use.
    std::function<void()> onInvalidated;

    /// The helper that held the override has left, and with it the override.
    std::function<void()> onInterrupted;
};

} // namespace Tarvik
