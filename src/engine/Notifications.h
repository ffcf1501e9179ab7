// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tarvik {

class UserNotifications;

/// Asks for permission and posts; what goes wrong is logged and changes nothing.
class Notifications {
public:
    /// `service` must outlive this.
    explicit Notifications(UserNotifications& service)
        : m_service(service)
    {
    }

    void requestAuthorization();

    /// Each call shows a notification of its own.
    void post(const QString& title, const QString& body);

private:
    UserNotifications& m_service;
};

} // namespace Tarvik
