// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "LogindLock.h"

#include "Log.h"
#include "Patience.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

namespace Tarvik {

static constexpr auto service = "org.freedesktop.login1";

LogindLock::LogindLock(sd_bus* bus, Settled settled)
    : m_bus(bus)
    , m_settled(std::move(settled))
{
    check(sd_bus_add_match_async(bus,
              Into(m_ownerMatch),
              "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
              "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='org.freedesktop.login1'",
              onOwnerChanged,
              nullptr,
              this),
        "watching logind");
}

void LogindLock::take()
{
    if (!isHeld() && !m_request)
        request();
}

void LogindLock::drop()
{
    m_request.reset();
    m_lock.reset();
}

void LogindLock::request()
{
    MessageHandle call;
    check(sd_bus_message_new_method_call(
              m_bus, Into(call), service, "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "Inhibit"),
        "calling logind");
    check(sd_bus_message_append(
              call.get(), "ssss", "handle-lid-switch:sleep", "Tarvik", "Work goes on with the lid closed", "block"),
        "calling logind");
    const auto patience = static_cast<std::uint64_t>(std::chrono::microseconds(servicePatience).count());
    check(sd_bus_call_async(m_bus, Into(m_request), call.get(), onLock, this, patience), "calling logind");
}

int LogindLock::onLock(sd_bus_message* reply, void* lock, sd_bus_error*)
{
    static_cast<LogindLock*>(lock)->accept(reply);
    return 0;
}

void LogindLock::accept(sd_bus_message* reply)
{
    m_request.reset();
    const bool isRenewal = isHeld();
    std::string error;
    int descriptor = -1;
    if (const sd_bus_error* failure = sd_bus_message_get_error(reply))
        error = failure->message;
    else if (sd_bus_message_read(reply, "h", &descriptor) < 0)
        error = "unexpected answer";
    // The message keeps its own descriptor.
    else if (FileDescriptor own(fcntl(descriptor, F_DUPFD_CLOEXEC, 3)); own.isValid())
        m_lock = std::move(own);
    else
        error = std::strerror(errno);

    if (!isRenewal)
        m_settled(error);
    else if (!error.empty())
        logError("The lock could not be taken again from the new logind: " + error);
}

int LogindLock::onOwnerChanged(sd_bus_message* signal, void* lock, sd_bus_error*)
{
    auto* self = static_cast<LogindLock*>(lock);
    const char* name = nullptr;
    const char* oldOwner = nullptr;
    const char* newOwner = nullptr;
    // A logind that starts again knows the locks of the one before. That is not relied on: the new lock takes the old
    // one's place without a gap.
    if (sd_bus_message_read(signal, "sss", &name, &oldOwner, &newOwner) >= 0 && *newOwner != '\0' && self->isHeld()) {
        logInfo("logind has started again: taking the lock again.");
        self->request();
    }
    return 0;
}

} // namespace Tarvik
