// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Authorization.h"
#include "CallerWatch.h"
#include "ClosedLidSuspend.h"
#include "LogindLock.h"
#include "Override.h"
#include "SystemdHandle.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Tarvik {

/// The helper on the bus: reads calls, has polkit decide about them, keeps the lock for as long as anybody asks for it,
/// and replies. Whoever switches sleep on again sees to a closed lid; for those who no longer can, the helper does.
class HelperObject final {
public:
    /// A request lapses without a sign of life from its caller for so long.
    HelperObject(sd_bus* bus, sd_event* event, Override::Clock::duration patience);

    /// Called at every call, and whenever a request has ended.
    std::function<void()> onActivity;

    /// Nobody asks for the override, nor waits for the answer.
    bool isIdle() const { return !m_override.isOn() && m_pending.empty() && !m_closedLid.isUnderWay(); }
    /// The process is going to end: what is asked from now on would be lost with it.
    void refuseRequests() { m_refusesRequests = true; }

private:
    /// What one caller asks and has no answer to yet.
    struct PendingRequest {
        /// None while logind is asked.
        std::unique_ptr<Authorization> authorization;
        std::vector<MessageHandle> calls;
    };

    static const std::array<sd_bus_vtable, 6> operations;
    static int onSetKeepAwake(sd_bus_message* call, void* service, sd_bus_error* error);
    static int onGetState(sd_bus_message* call, void* service, sd_bus_error*);
    static int onHeartbeat(sd_bus_message* call, void* service, sd_bus_error*);
    static int onVersion(sd_bus_message* call, void* service, sd_bus_error*);
    static int onLapse(sd_event_source* timer, std::uint64_t, void* service);

    int ask(sd_bus_message* call, sd_bus_error* error);
    void decide(const std::string& caller, bool isAllowed);
    void settle(const std::string& lockError);
    void takeBack(const std::string& caller);
    /// As above, for a caller that no longer can.
    void forget(const std::string& caller);
    void answer(const std::string& caller, const std::string& error);
    void watchForLapse();

    sd_bus* m_bus;
    Override m_override;
    LogindLock m_lock;
    ClosedLidSuspend m_closedLid;
    std::map<std::string, PendingRequest> m_pending;
    std::map<std::string, std::unique_ptr<CallerWatch>> m_watches;
    bool m_refusesRequests = false;
    /// The last of the callers cannot, or may not be able to.
    bool m_seesToLid = false;
    EventSourceHandle m_lapseTimer;
    SlotHandle m_object;
};

} // namespace Tarvik
