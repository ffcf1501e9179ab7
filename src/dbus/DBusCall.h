// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Releaser.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <chrono>
#include <functional>
#include <optional>

namespace Tarvik {

/// Also from within the very function that receives the answer.
void dropAnswer(QDBusPendingCallWatcher* call);

/// A method call that is under way; destroying it drops the answer, not the call.
using DBusCall = Owned<QDBusPendingCallWatcher, dropAnswer>;

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
