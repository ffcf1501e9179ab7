// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "StatusFollower.h"

#include "DBusReader.h"
#include "SessionBus.h"

#include "dbus/contracts/TarvikWire.h"

#include <poll.h>

#include <array>
#include <string>
#include <utility>

namespace Tarvik {

using namespace std::chrono_literals;

// As long as for one report.
static constexpr auto patience = 2s;
// So many changes become one line that no flood of them keeps anybody busy.
static constexpr auto pause = 100ms;
// A Tarvik that starts has its name a moment before it answers.
static constexpr auto startPause = 250ms;
static constexpr int startAttempts = 8;

namespace {

/// A connection that hears of changes, and where it leads.
struct Connection {
    SessionBus bus;
    BusAddress address;
};

} // namespace

static bool saysYes(const DBusMessage& reply)
{
    if (reply.type != DBusMessageType::methodReturn || reply.signature != "b")
        return false;
    DBusReader reader(reply.body);
    return reader.boolean() && !reader.hasFailed();
}

/// On the first bus on which a Tarvik runs, else on the first that answers.
static std::optional<Connection> subscribe(const std::vector<BusAddress>& buses, uid_t user)
{
    const std::string name = TarvikWire::busName;
    const std::vector<DBusMessage> messages{
        busCall("AddMatch",
            "type='signal',sender='" + name + "',path='" + TarvikWire::objectPath
                + "',interface='org.freedesktop.DBus.Properties',arg0='" + TarvikWire::statusInterface + '\''),
        busCall(
            "AddMatch", "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',arg0='" + name + '\''),
        busCall("NameHasOwner", name),
    };
    const Deadline deadline(patience);
    std::optional<Connection> first;
    for (const BusAddress& address : buses) {
        SessionBus bus(address, user, deadline);
        const auto reply = bus.exchange(messages, deadline);
        if (reply && saysYes(*reply))
            return Connection{std::move(bus), address};
        if (reply && !first)
            first = Connection{std::move(bus), address};
    }
    return first;
}

/// Waits until the bus has something to say or this time, in milliseconds, is over; -1 is without end. False when
/// nobody is left to read the output.
static bool awaitNews(const SessionBus& bus, int output, int timeout)
{
    std::array<pollfd, 2> entries{{{bus.descriptor(), POLLIN, 0}, {output, 0, 0}}};
    poll(entries.data(), entries.size(), timeout);
    return entries[1].revents == 0;
}

void followStatus(bool asJson, const std::vector<BusAddress>& buses, uid_t user, int output, const TellStatus& tell)
{
    auto connection = subscribe(buses, user);
    int attempts = 0;
    while (connection && connection->bus.isConnected()) {
        const auto report
            = askForStatus(StatusQuestion::status, asJson, {connection->address}, user, Deadline(patience));
        tell(report);
        const bool mayBeStarting = !report && attempts < startAttempts;
        if (!awaitNews(connection->bus, output, mayBeStarting ? static_cast<int>(startPause.count()) : -1))
            return;
        const Deadline end(pause);
        bool isHeard = false;
        while (connection->bus.nextMessage(isHeard ? end : Deadline(0ms)) && !end.hasPassed())
            isHeard = true;
        attempts = isHeard ? 0 : attempts + 1;
    }
}

} // namespace Tarvik
