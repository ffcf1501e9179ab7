// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "platform/Clock.h"
#include "platform/linux/session/SupervisedProgram.h"
#include "platform/linux/session/TransientUnit.h"

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// Hands the program over to the user's systemd as a transient service, which needs no file and gets the environment of
/// the session: started again within two seconds when it crashed or was killed, except when that happens again and
/// again; not when it ended by itself; ended with the graphical session where systemd knows of one.
class SystemdSupervision final {
public:
    /// At a busy login everything may stand still for seconds.
    static constexpr Seconds patience{20};
    static constexpr Seconds restartDelay{1};
    /// So many starts in so many seconds, the first one included.
    static constexpr unsigned startLimit = 4;
    static constexpr Seconds startLimitInterval{60};

    /// `applicationId` is also the bus name that the running program owns. `clock` must outlive the object.
    SystemdSupervision(QDBusConnection sessionBus, Clock& clock, QString applicationId, SupervisedProgram program);
    SystemdSupervision(const SystemdSupervision&) = delete;
    SystemdSupervision& operator=(const SystemdSupervision&) = delete;

    /// `decided` is called once, from the event loop, and may destroy the object: whether the program runs as a service
    /// from now on, so that this process has nothing left to do. Where it is one already, runs already, belongs to a
    /// terminal, or nobody can start it, this process goes on.
    void handOver(std::function<void(bool isHandedOver)> decided);

private:
    void startUnit();
    QList<UnitProperty> unitProperties() const;
    void decide(bool isHandedOver);

    QDBusConnection m_bus;
    Clock& m_clock;
    QString m_applicationId;
    SupervisedProgram m_program;
    std::function<void(bool isHandedOver)> m_decided;
    std::optional<BusNameWatch> m_names;
    DBusCall m_start;
    std::unique_ptr<Timer> m_deadline;
    QObject m_eventLoop;
};

} // namespace Tarvik
