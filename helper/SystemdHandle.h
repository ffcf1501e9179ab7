// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Releaser.h"

#include <systemd/sd-bus.h>
#include <systemd/sd-event.h>

#include <system_error>

namespace Tarvik {

using EventHandle = Owned<sd_event, sd_event_unref>;
/// The source is disabled, too.
using EventSourceHandle = Owned<sd_event_source, sd_event_source_disable_unref>;
/// Closed without waiting for a bus that takes nothing.
using BusHandle = Owned<sd_bus, sd_bus_close_unref>;
using MessageHandle = Owned<sd_bus_message, sd_bus_message_unref>;
/// A match, an object, or a call: without its slot it answers nobody any more.
using SlotHandle = Owned<sd_bus_slot, sd_bus_slot_unref>;

/// Gives a function of libsystemd that answers through a pointer the handle to put the answer into.
template <typename Handle>
class Into final {
public:
    explicit Into(Handle& handle)
        : m_handle(handle)
    {
    }
    Into(const Into&) = delete;
    Into& operator=(const Into&) = delete;
    ~Into() { m_handle.reset(m_object); }

    operator typename Handle::pointer *() { return &m_object; }

private:
    Handle& m_handle;
    typename Handle::pointer m_object = nullptr;
};

/// Throws when a function of libsystemd answers a negative error number.
inline void check(int result, const char* what)
{
    if (result < 0)
        throw std::system_error(-result, std::generic_category(), what);
}

} // namespace Tarvik
