// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SystemdHandle.h"

#include <cstdint>
#include <functional>

namespace Tarvik {

/// Has logind put the computer to sleep whose lid was closed while the lock was held. logind itself looks at the lid
/// again when a lock has gone, but most desktops take the lid from it and act only when it is being closed.
class ClosedLidSuspend final {
public:
    /// `done` is called when what was started has come to an end by itself.
    ClosedLidSuspend(sd_bus* bus, sd_event* event, std::function<void()> done);

    /// Looks at the lid once logind has had the time to act itself. Nothing happens when it is open or logind's own
    /// affair, when another display is connected, or while anybody objects to sleep.
    void start();
    void stop();
    bool isUnderWay() const { return m_looksLeft > 0; }

private:
    struct Facts {
        bool isLidClosed = false;
        bool isDocked = false;
        bool isLidTaken = false;
        bool isSleepBlocked = false;
    };

    static int onTime(sd_event_source*, std::uint64_t, void* self);
    static int onProperties(sd_bus_message* reply, void* self, sd_bus_error*);
    static int onSuspend(sd_bus_message* reply, void* self, sd_bus_error*);
    static Facts readFacts(sd_bus_message* properties);
    void wait();
    void look();
    void act(const Facts& facts);
    void suspend();

    sd_bus* m_bus;
    std::function<void()> m_done;
    EventSourceHandle m_timer;
    SlotHandle m_question;
    SlotHandle m_suspending;
    int m_looksLeft = 0;
};

} // namespace Tarvik
