// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tarvik {

/// The desktop's notification service.
class UserNotifications {
public:
    virtual ~UserNotifications() = default;

    /// Asks for permission to post alerts. The answer comes later, when there is somebody to ask: `granted`, or an
    /// error text, which is empty without one.
    virtual void requestAuthorization(std::function<void(bool granted, const QString& error)> done) = 0;

    /// Shows one notification at once, never in place of an earlier one. Plain text; `identifier` is unique.
    /// The error text comes later, empty on success.
    virtual void post(const QString& identifier,
        const QString& title,
        const QString& body,
        std::function<void(const QString& error)> done)
        = 0;
};

} // namespace Tarvik
