// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"

#include <QDeadlineTimer>
#include <QObject>

#include <functional>

namespace Tarvik {

/// Makes the application one a session: owns its name on the session bus, or hands over to the instance that does.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    enum class Role {
        /// This is the one instance, or there is no bus on which another could be found.
        first,
        /// Another instance is running and has been told of this start, unless that was at login.
        second,
    };

    enum class Start {
        /// Somebody wants to see the application.
        byUser,
        /// A session begins. Several may start the application then; those that find it running leave it alone.
        atLogin,
    };

    explicit SingleInstance(QDBusConnection sessionBus);

    /// Finds out the role; `decided` is called once, from the event loop. A bus that is silent
    /// for 20 seconds counts as none.
    void decide(Start start, std::function<void(Role)> decided);

private:
    void handOver(QDeadlineTimer deadline, const std::function<void(Role)>& decided);

    QDBusConnection m_bus;
    DBusCall m_call;
};

} // namespace Tarvik
