// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/idle/DesktopIdleSleep.h"

#include <utility>

namespace Tarvik {

DesktopIdleSleep::DesktopIdleSleep(
    QDBusConnection systemBus, QDBusConnection sessionBus, IdleReading::Desktop desktop, Clock& clock)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
    , m_desktop(std::move(desktop))
    , m_clock(clock)
{
}

void DesktopIdleSleep::read(std::function<void(const QList<IdleSleepRule>&)> done)
{
    m_receivers.push_back(std::move(done));
    if (m_reading)
        return;
    const auto finish = [this](const QList<IdleSleepRule>& rules) {
        m_reading.reset();
        for (const auto& receiver : std::exchange(m_receivers, {}))
            receiver(rules);
    };
    m_reading = std::make_unique<IdleReading>(m_systemBus, m_sessionBus, m_desktop, m_clock, finish);
}

} // namespace Tarvik
