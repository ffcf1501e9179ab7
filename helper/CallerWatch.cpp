// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "CallerWatch.h"

#include <utility>

namespace Tarvik {

CallerWatch::CallerWatch(sd_bus* bus, const std::string& caller, Known known, Gone gone)
    : m_known(std::move(known))
    , m_gone(std::move(gone))
{
    const std::string match = "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
                              "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='"
        + caller + "'";
    // A bus that refuses the match closes the connection, and with it the helper ends: no request goes unwatched.
    check(
        sd_bus_add_match_async(bus, Into(m_match), match.c_str(), onOwnerChanged, nullptr, this), "watching a caller");
    // Asked after the match, so that no moment remains in which a departure would be missed.
    check(sd_bus_call_method_async(bus,
              Into(m_question),
              "org.freedesktop.DBus",
              "/org/freedesktop/DBus",
              "org.freedesktop.DBus",
              "GetConnectionUnixUser",
              onUser,
              this,
              "s",
              caller.c_str()),
        "asking for a caller's user");
}

int CallerWatch::onOwnerChanged(sd_bus_message* signal, void* watch, sd_bus_error*)
{
    const char* name = nullptr;
    const char* oldOwner = nullptr;
    const char* newOwner = nullptr;
    if (sd_bus_message_read(signal, "sss", &name, &oldOwner, &newOwner) >= 0 && *newOwner == '\0')
        static_cast<CallerWatch*>(watch)->leave();
    return 0;
}

int CallerWatch::onUser(sd_bus_message* reply, void* watch, sd_bus_error*)
{
    auto* self = static_cast<CallerWatch*>(watch);
    uid_t user = 0;
    if (sd_bus_message_is_method_error(reply, nullptr) == 0 && sd_bus_message_read(reply, "u", &user) >= 0)
        self->m_known(user);
    else
        self->leave();
    return 0;
}

void CallerWatch::leave()
{
    // The callback may destroy this object, and so itself.
    if (const Gone gone = std::exchange(m_gone, nullptr))
        gone();
}

} // namespace Tarvik
