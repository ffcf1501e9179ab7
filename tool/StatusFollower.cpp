// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "StatusFollower.h"

#include "DBusReader.h"
#include "SessionBus.h"

#include "dbus/contracts/TarvikWire.h"

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

/// Waits until something may have changed, or the bus has gone; for this long at most where there is a limit.
static bool awaitChange(SessionBus& bus, std::optional<std::chrono::milliseconds> limit)
{
    bool isHeard = false;
    do {
        isHeard = bus.nextMessage(Deadline(limit.value_or(1h))).has_value();
    } while (!isHeard && !limit && bus.isConnected());
    const Deadline end(pause);
    while (isHeard && !end.hasPassed() && bus.nextMessage(end)) { }
    return isHeard;
}

void followStatus(bool asJson,
    const std::vector<BusAddress>& buses,
    uid_t user,
    const std::function<void(const std::optional<StatusReport>&)>& tell)
{
    auto connection = subscribe(buses, user);
    int attempts = 0;
    while (connection && connection->bus.isConnected()) {
        const auto report
            = askForStatus(StatusQuestion::status, asJson, {connection->address}, user, Deadline(patience));
        tell(report);
        const bool mayBeStarting = !report && attempts < startAttempts;
        const bool isHeard = awaitChange(connection->bus, mayBeStarting ? std::optional(startPause) : std::nullopt);
        attempts = isHeard ? 0 : attempts + 1;
    }
}

} // namespace Tarvik
