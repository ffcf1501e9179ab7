// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// A call may be dropped by the very function that receives its answer.
struct DBusCallDeleter {
    void operator()(QDBusPendingCallWatcher* call) const;
};

/// A method call that is under way; destroying it drops the answer, not the call.
using DBusCall = std::unique_ptr<QDBusPendingCallWatcher, DBusCallDeleter>;

struct CallOptions {
    /// The bus may start a service that it knows how to start.
    bool startsService = false;
    /// How long to wait for the answer; by default as long as libdbus does, 25 s.
    std::optional<std::chrono::milliseconds> patience = {};
};

/// Sends `message`. `done` gets the answer later, a reply or an error, and may drop the call.
[[nodiscard]] DBusCall callAsync(const QDBusConnection& bus,
    QDBusMessage message,
    std::function<void(const QDBusMessage& answer)> done,
    const CallOptions& options = {});

} // namespace Tarvik
