// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "IdleExit.h"

#include "Log.h"

#include <cstdlib>
#include <ctime>
#include <utility>

namespace Tarvik {

using namespace std::chrono_literals;

static constexpr std::chrono::microseconds accuracy = 1s;

IdleExit::IdleExit(sd_bus* bus, sd_event* event, HelperObject& service, std::string label, std::chrono::seconds period)
    : m_bus(bus)
    , m_event(event)
    , m_service(service)
    , m_label(std::move(label))
    , m_period(period)
{
    check(sd_event_add_time_relative(event,
              Into(m_timer),
              CLOCK_MONOTONIC,
              static_cast<std::uint64_t>(m_period.count()),
              static_cast<std::uint64_t>(accuracy.count()),
              onTimeout,
              this),
        "making a timer");
    // What has arrived by then comes first.
    check(sd_event_source_set_priority(m_timer.get(), SD_EVENT_PRIORITY_IDLE), "making a timer");
    service.onActivity = [this] { startPeriod(); };
}

void IdleExit::startPeriod()
{
    if (m_release)
        return;
    sd_event_source_set_time_relative(m_timer.get(), static_cast<std::uint64_t>(m_period.count()));
    sd_event_source_set_enabled(m_timer.get(), SD_EVENT_ONESHOT);
}

int IdleExit::onTimeout(sd_event_source*, std::uint64_t, void* idleExit)
{
    auto* self = static_cast<IdleExit*>(idleExit);
    // The end of what goes on starts another period.
    if (!self->m_service.isIdle())
        return 0;
    logInfo("Nobody needs the helper: ending.");
    self->m_service.refuseRequests();
    // Without a bus to give it back to, there is nobody to call either.
    if (sd_bus_release_name_async(self->m_bus, Into(self->m_release), self->m_label.c_str(), onReleased, self) < 0)
        return sd_event_exit(self->m_event, EXIT_FAILURE);
    return 0;
}

int IdleExit::onReleased(sd_bus_message*, void* idleExit, sd_bus_error*)
{
    return sd_event_exit(static_cast<IdleExit*>(idleExit)->m_event, EXIT_SUCCESS);
}

} // namespace Tarvik
