// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusSignal.h"
#include "platform/HookChannel.h"

namespace Tarvik {

/// Hook announcements as broadcast signals on the session bus, HookWire.h. Anybody on the bus may announce: the
/// command-line tool has no name there that could be asked for.
class SessionBusHookChannel final : public HookChannel {
public:
    /// More entries than this are no announcement.
    static constexpr int maximumEntries = 64;

    /// Logs when the bus cannot be listened to; the channel then stays silent.
    explicit SessionBusHookChannel(const QDBusConnection& bus);

private:
    DBusSignal m_events;
};

} // namespace Tarvik
