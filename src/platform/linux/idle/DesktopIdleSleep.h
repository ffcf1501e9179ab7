// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/IdleSleep.h"
#include "platform/linux/idle/IdleReading.h"

#include <QDBusConnection>

#include <memory>
#include <vector>

namespace Tarvik {

/// What logind, the desktop's power daemon and idle daemons are set to.
class DesktopIdleSleep final : public IdleSleep {
public:
    /// Either bus may be without connection. `clock` must outlive the object.
    DesktopIdleSleep(QDBusConnection systemBus, QDBusConnection sessionBus, IdleReading::Desktop desktop, Clock& clock);
    DesktopIdleSleep(const DesktopIdleSleep&) = delete;
    DesktopIdleSleep& operator=(const DesktopIdleSleep&) = delete;

    void read(std::function<void(const QList<IdleSleepRule>&)> done) override;

private:
    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    IdleReading::Desktop m_desktop;
    Clock& m_clock;
    /// Those that wait for the reading that is under way.
    std::vector<std::function<void(const QList<IdleSleepRule>&)>> m_receivers;
    std::unique_ptr<IdleReading> m_reading;
};

} // namespace Tarvik
