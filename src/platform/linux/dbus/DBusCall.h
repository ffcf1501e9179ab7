// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <functional>
#include <memory>

namespace Tarvik {

/// A call may be dropped by the very function that receives its answer.
struct DBusCallDeleter {
    void operator()(QDBusPendingCallWatcher* call) const;
};

/// A method call that is under way; destroying it drops the answer, not the call.
using DBusCall = std::unique_ptr<QDBusPendingCallWatcher, DBusCallDeleter>;

enum class ServiceStart {
    never,
    /// The bus may start a service that it knows how to start.
    ifNeeded,
};

/// Sends `message`. `done` gets the answer later, a reply or an error.
[[nodiscard]] DBusCall callAsync(const QDBusConnection& bus,
    QDBusMessage message,
    std::function<void(const QDBusMessage& answer)> done,
    ServiceStart start = ServiceStart::never);

} // namespace Tarvik
