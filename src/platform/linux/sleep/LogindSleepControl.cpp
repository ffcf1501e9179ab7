// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/LogindSleepControl.h"

#include <utility>

namespace Tarvik {

LogindSleepControl::LogindSleepControl(
    QDBusConnection systemBus, QDBusConnection sessionBus, Clock& clock, QStringList programDirectories)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
    , m_clock(clock)
    , m_programDirectories(std::move(programDirectories))
    , m_closedLidSleep(m_systemBus, m_sessionBus, m_clock)
{
}

LogindSleepControl::~LogindSleepControl()
{
    m_closedLidSleep.finish();
}

void LogindSleepControl::takeOverride(OverrideReceiver done)
{
    m_takings.push_back(std::make_unique<OverrideTaking>(m_systemBus, m_sessionBus, m_clock, m_programDirectories));
    OverrideTaking* taking = m_takings.back().get();
    taking->start([this, taking, done = std::move(done)](auto sleepOverride, const QString& error) {
        // It calls us with objects of its own.
        const auto receiver = done;
        const QString reason = error;
        if (sleepOverride)
            m_closedLidSleep.stop();
        std::erase_if(m_takings, [taking](const auto& one) { return one.get() == taking; });
        receiver(std::move(sleepOverride), reason);
    });
}

void LogindSleepControl::sleepForClosedLid()
{
    m_closedLidSleep.start();
}

} // namespace Tarvik
