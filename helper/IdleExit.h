// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HelperObject.h"
#include "SystemdHandle.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace Tarvik {

/// Ends the process when nobody has needed the service for some time.
///
/// The name is given back first: whoever calls it from then on has the bus start another instance, and whoever called
/// before is answered before the bus confirms. Only a request for the override that crosses with the name's return is
/// refused, because it could not outlive this process.
class IdleExit final {
public:
    /// There is one for a service, which outlives it.
    IdleExit(sd_bus* bus, sd_event* event, HelperObject& service, std::string label, std::chrono::seconds period);

private:
    static int onTimeout(sd_event_source*, std::uint64_t, void* idleExit);
    static int onReleased(sd_bus_message* reply, void* idleExit, sd_bus_error*);
    void startPeriod();

    sd_bus* m_bus;
    sd_event* m_event;
    HelperObject& m_service;
    std::string m_label;
    std::chrono::microseconds m_period;
    EventSourceHandle m_timer;
    SlotHandle m_release;
};

} // namespace Tarvik
