// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "HelperObject.h"

#include "Log.h"

#include "platform/HelperWire.h"

#include <chrono>
#include <cstdint>
#include <ctime>
#include <utility>

namespace Tarvik {

using namespace std::chrono_literals;

/// So many calls of one caller wait for an answer; who sends more does not listen.
static constexpr std::size_t pendingLimit = 16;
static constexpr std::chrono::microseconds lapseAccuracy = 100ms;

static std::uint64_t microseconds(Override::Clock::duration duration)
{
    return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(duration).count());
}

static int reply(sd_bus_message* call, const std::string& error)
{
    return sd_bus_reply_method_return(call, "bs", error.empty(), error.c_str());
}

// Not the rights of the calling process count, but what polkit says of its user.
const std::array<sd_bus_vtable, 6> HelperObject::operations{{SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES(HelperWire::setKeepAwakeMethod,
        "b",
        SD_BUS_PARAM(enabled),
        "bs",
        SD_BUS_PARAM(ok) SD_BUS_PARAM(error),
        onSetKeepAwake,
        SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(
        HelperWire::getStateMethod, "", , "b", SD_BUS_PARAM(isOn), onGetState, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(
        HelperWire::heartbeatMethod, "", , "b", SD_BUS_PARAM(ok), onHeartbeat, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(
        HelperWire::versionMethod, "", , "s", SD_BUS_PARAM(version), onVersion, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END}};

HelperObject::HelperObject(sd_bus* bus, sd_event* event, Override::Clock::duration patience)
    : m_bus(bus)
    , m_override(patience)
    , m_lock(bus, [this](const std::string& error) { settle(error); })
    , m_closedLid(bus, event, [this] { onActivity(); })
{
    check(sd_event_add_time(event, Into(m_lapseTimer), CLOCK_MONOTONIC, 0, microseconds(lapseAccuracy), onLapse, this),
        "making a timer");
    check(sd_event_source_set_enabled(m_lapseTimer.get(), SD_EVENT_OFF), "making a timer");
    check(sd_bus_add_object_vtable(
              bus, Into(m_object), HelperWire::objectPath, HelperWire::interfaceName, operations.data(), this),
        "offering the helper");
}

int HelperObject::onSetKeepAwake(sd_bus_message* call, void* service, sd_bus_error* error)
{
    auto* self = static_cast<HelperObject*>(service);
    int isEnabled = 0;
    if (const int result = sd_bus_message_read(call, "b", &isEnabled); result < 0)
        return result;
    if (isEnabled != 0)
        return self->ask(call, error);
    const std::string caller = sd_bus_message_get_sender(call);
    self->answer(caller, "It was switched off again before it was on.");
    self->takeBack(caller);
    return reply(call, {});
}

int HelperObject::onGetState(sd_bus_message* call, void* service, sd_bus_error*)
{
    auto* self = static_cast<HelperObject*>(service);
    self->onActivity();
    return sd_bus_reply_method_return(call, "b", self->m_lock.isHeld());
}

int HelperObject::onHeartbeat(sd_bus_message* call, void* service, sd_bus_error*)
{
    auto* self = static_cast<HelperObject*>(service);
    self->m_override.hear(sd_bus_message_get_sender(call), Override::Clock::now());
    self->onActivity();
    return sd_bus_reply_method_return(call, "b", true);
}

int HelperObject::onVersion(sd_bus_message* call, void* service, sd_bus_error*)
{
    static_cast<HelperObject*>(service)->onActivity();
    return sd_bus_reply_method_return(call, "s", TARVIK_VERSION);
}

int HelperObject::ask(sd_bus_message* call, sd_bus_error* error)
{
    onActivity();
    if (m_refusesRequests)
        return reply(call, HelperWire::endingError);
    const std::string caller = sd_bus_message_get_sender(call);
    PendingRequest& request = m_pending[caller];
    if (request.calls.size() >= pendingLimit)
        return sd_bus_error_set(error, SD_BUS_ERROR_LIMITS_EXCEEDED, "Too many calls of this program are waiting.");
    const bool isFirst = request.calls.empty();
    request.calls.emplace_back(sd_bus_message_ref(call));
    if (isFirst)
        request.authorization = std::make_unique<Authorization>(
            m_bus, call, [this, caller](bool isAllowed) { decide(caller, isAllowed); });
    return 1;
}

void HelperObject::decide(const std::string& caller, bool isAllowed)
{
    PendingRequest& request = m_pending.at(caller);
    request.authorization.reset();
    if (!isAllowed) {
        logWarning(caller + " is not allowed to switch sleep off.");
        for (const MessageHandle& call : request.calls)
            sd_bus_reply_method_errorf(
                call.get(), SD_BUS_ERROR_ACCESS_DENIED, "This session is not allowed to switch sleep off.");
        m_pending.erase(caller);
        onActivity();
        return;
    }
    m_closedLid.stop();
    m_override.ask(caller, Override::Clock::now());
    watchForLapse();
    if (auto& watch = m_watches[caller]; !watch)
        watch = std::make_unique<CallerWatch>(
            m_bus,
            caller,
            [caller](uid_t user) { logInfo(caller + " of user " + std::to_string(user) + " asks for no sleep."); },
            [this, caller] {
                logInfo(caller + " has left the bus.");
                m_pending.erase(caller);
                forget(caller);
            });
    if (m_lock.isHeld())
        answer(caller, {});
    else
        m_lock.take();
}

void HelperObject::settle(const std::string& lockError)
{
    std::vector<std::string> waiting;
    for (const auto& [caller, request] : m_pending) {
        if (!request.authorization)
            waiting.push_back(caller);
    }
    if (lockError.empty())
        logInfo("Sleep and the lid switch are off.");
    else
        logError("logind does not switch sleep off: " + lockError);
    for (const std::string& caller : waiting) {
        answer(caller, lockError.empty() ? lockError : "Sleep could not be switched off: " + lockError);
        if (!lockError.empty())
            takeBack(caller);
    }
}

void HelperObject::takeBack(const std::string& caller)
{
    const bool hasAsked = m_override.takeBack(caller);
    m_watches.erase(caller);
    if (m_override.isOn()) {
        // Whoever goes before others finds the lock still held, and the last may be in the background.
        m_seesToLid = m_seesToLid || hasAsked;
    } else {
        const bool wasHeld = m_lock.isHeld();
        if (wasHeld)
            logInfo("Sleep and the lid switch are back.");
        m_lock.drop();
        if (std::exchange(m_seesToLid, false) && wasHeld)
            m_closedLid.start();
    }
    onActivity();
}

void HelperObject::forget(const std::string& caller)
{
    m_seesToLid = true;
    takeBack(caller);
}

void HelperObject::answer(const std::string& caller, const std::string& error)
{
    const auto request = m_pending.extract(caller);
    if (request.empty())
        return;
    for (const MessageHandle& call : request.mapped().calls)
        reply(call.get(), error);
}

void HelperObject::watchForLapse()
{
    const auto next = m_override.nextLapse();
    if (!next)
        return;
    sd_event_source_set_time(m_lapseTimer.get(), microseconds(next->time_since_epoch()));
    sd_event_source_set_enabled(m_lapseTimer.get(), SD_EVENT_ONESHOT);
}

int HelperObject::onLapse(sd_event_source*, std::uint64_t, void* service)
{
    auto* self = static_cast<HelperObject*>(service);
    for (const std::string& caller : self->m_override.lapsed(Override::Clock::now())) {
        logWarning(caller + " has given no sign of life for too long.");
        self->forget(caller);
    }
    self->watchForLapse();
    return 0;
}

} // namespace Tarvik
