// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/locks/DesktopSleepLocks.h"

#include "platform/linux/locks/LockList.h"

#include <utility>

namespace Tarvik {

DesktopSleepLocks::DesktopSleepLocks(QDBusConnection systemBus,
    QDBusConnection sessionBus,
    ProgramLabels::Applications applications,
    LockReading::Desktop desktop,
    Clock& clock)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
    , m_labels(std::move(applications))
    , m_desktop(std::move(desktop))
    , m_clock(clock)
{
}

void DesktopSleepLocks::list(std::function<void(const SleepLockList&)> done)
{
    m_receivers.push_back(std::move(done));
    if (m_reading)
        return;
    const auto finish = [this](const LockAnswers& answers) {
        m_reading.reset();
        const SleepLockList list = LockList::of(answers, m_labels);
        for (const auto& receiver : std::exchange(m_receivers, {}))
            receiver(list);
    };
    m_reading = std::make_unique<LockReading>(m_systemBus, m_sessionBus, m_desktop, m_clock, finish);
}

} // namespace Tarvik
