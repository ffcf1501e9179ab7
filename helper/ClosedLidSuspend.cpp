// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ClosedLidSuspend.h"

#include "Log.h"
#include "Patience.h"

#include <chrono>
#include <ctime>
#include <string>
#include <string_view>
#include <utility>

namespace Tarvik {

using namespace std::chrono_literals;

static constexpr auto service = "org.freedesktop.login1";
static constexpr auto path = "/org/freedesktop/login1";
static constexpr auto interface = "org.freedesktop.login1.Manager";

/// Between two looks, and before the first.
static constexpr std::chrono::microseconds pause = 700ms;
static constexpr std::chrono::microseconds accuracy = 100ms;
/// A lock that stands in the way may be on its way out.
static constexpr int looks = 5;

/// Whether one of the words between the colons is this one.
static bool contains(std::string_view list, std::string_view word)
{
    const std::string padded = ":" + std::string(list) + ":";
    return padded.find(":" + std::string(word) + ":") != std::string::npos;
}

ClosedLidSuspend::ClosedLidSuspend(sd_bus* bus, sd_event* event, std::function<void()> done)
    : m_bus(bus)
    , m_done(std::move(done))
{
    check(sd_event_add_time(
              event, Into(m_timer), CLOCK_MONOTONIC, 0, static_cast<std::uint64_t>(accuracy.count()), onTime, this),
        "making a timer");
    check(sd_event_source_set_enabled(m_timer.get(), SD_EVENT_OFF), "making a timer");
}

void ClosedLidSuspend::start()
{
    m_looksLeft = looks;
    wait();
}

void ClosedLidSuspend::stop()
{
    m_looksLeft = 0;
    m_question.reset();
    sd_event_source_set_enabled(m_timer.get(), SD_EVENT_OFF);
}

void ClosedLidSuspend::wait()
{
    sd_event_source_set_time_relative(m_timer.get(), static_cast<std::uint64_t>(pause.count()));
    sd_event_source_set_enabled(m_timer.get(), SD_EVENT_ONESHOT);
}

int ClosedLidSuspend::onTime(sd_event_source*, std::uint64_t, void* self)
{
    static_cast<ClosedLidSuspend*>(self)->look();
    return 0;
}

void ClosedLidSuspend::look()
{
    MessageHandle call;
    check(sd_bus_message_new_method_call(m_bus, Into(call), service, path, "org.freedesktop.DBus.Properties", "GetAll"),
        "asking logind");
    check(sd_bus_message_append(call.get(), "s", interface), "asking logind");
    const auto patience = static_cast<std::uint64_t>(std::chrono::microseconds(servicePatience).count());
    check(sd_bus_call_async(m_bus, Into(m_question), call.get(), onProperties, this, patience), "asking logind");
}

int ClosedLidSuspend::onProperties(sd_bus_message* reply, void* self, sd_bus_error*)
{
    const bool isError = sd_bus_message_is_method_error(reply, nullptr) > 0;
    static_cast<ClosedLidSuspend*>(self)->act(isError ? Facts{} : readFacts(reply));
    return 0;
}

ClosedLidSuspend::Facts ClosedLidSuspend::readFacts(sd_bus_message* properties)
{
    Facts facts;
    if (sd_bus_message_enter_container(properties, SD_BUS_TYPE_ARRAY, "{sv}") < 0)
        return {};
    while (sd_bus_message_enter_container(properties, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
        const char* read = nullptr;
        if (sd_bus_message_read(properties, "s", &read) < 0)
            return {};
        const std::string_view name = read;
        int result = 0;
        if (name == "LidClosed" || name == "Docked") {
            int value = 0;
            result = sd_bus_message_read(properties, "v", "b", &value);
            (name == "Docked" ? facts.isDocked : facts.isLidClosed) = value != 0;
        } else if (name == "BlockInhibited") {
            const char* blocked = "";
            result = sd_bus_message_read(properties, "v", "s", &blocked);
            facts.isLidTaken = contains(blocked, "handle-lid-switch");
            facts.isSleepBlocked = contains(blocked, "sleep");
        } else {
            result = sd_bus_message_skip(properties, "v");
        }
        if (result < 0 || sd_bus_message_exit_container(properties) < 0)
            return {};
    }
    return facts;
}

void ClosedLidSuspend::act(const Facts& facts)
{
    m_question.reset();
    --m_looksLeft;
    const bool isDue = facts.isLidClosed && facts.isLidTaken && !facts.isDocked;
    if (isDue && facts.isSleepBlocked && m_looksLeft > 0) {
        wait();
        return;
    }
    if (isDue && !facts.isSleepBlocked)
        suspend();
    m_looksLeft = 0;
    m_done();
}

void ClosedLidSuspend::suspend()
{
    logInfo("The lid is closed: asking logind for sleep.");
    constexpr int asksForPassword = 0;
    check(sd_bus_call_method_async(
              m_bus, Into(m_suspending), service, path, interface, "Suspend", onSuspend, this, "b", asksForPassword),
        "asking logind");
}

int ClosedLidSuspend::onSuspend(sd_bus_message* reply, void* self, sd_bus_error*)
{
    static_cast<ClosedLidSuspend*>(self)->m_suspending.reset();
    if (const sd_bus_error* error = sd_bus_message_get_error(reply))
        logError(std::string("logind does not put the computer to sleep: ") + error->message);
    return 0;
}

} // namespace Tarvik
