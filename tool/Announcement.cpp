// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "Announcement.h"

#include "DBusReader.h"
#include "DBusWriter.h"
#include "SessionBus.h"

#include "base/PlainText.h"
#include "dbus/contracts/TarvikWire.h"
#include "platform/HookWire.h"

#include <algorithm>

namespace Tarvik {

static constexpr std::size_t maximumTextSize = 4096;
// All five fields together have to pass the receiver.
static_assert(5 * maximumTextSize < HookWire::maximumBytes);

std::string cleanText(std::string_view text)
{
    std::string clean = PlainText::printable(text);
    if (clean.size() <= maximumTextSize)
        return clean;
    // Not in the middle of a character.
    std::size_t size = maximumTextSize;
    while ((static_cast<unsigned char>(clean[size]) & 0xc0) == 0x80)
        --size;
    clean.resize(size);
    return clean;
}

DBusMessage hookSignal(const Announcement& announcement)
{
    DBusWriter body;
    const auto write = [&](std::string_view key, const std::string& value) {
        if (value.empty())
            return;
        body.align(8);
        body.string(key);
        body.string(cleanText(value));
    };
    const auto entries = body.beginArray(8);
    write(HookWire::actionKey, announcement.action);
    write(HookWire::sessionKey, announcement.session);
    write(HookWire::toolKey, announcement.tool);
    write(HookWire::ttlKey, announcement.ttl);
    write(HookWire::reasonKey, announcement.reason);
    body.endArray(entries);

    DBusMessage message;
    message.type = DBusMessageType::signal;
    message.flags = DBusMessage::noReplyExpected;
    message.path = HookWire::objectPath;
    message.interface = HookWire::interfaceName;
    message.member = HookWire::signalName;
    message.signature = HookWire::signature;
    message.body = body.bytes();
    return message;
}

static std::chrono::milliseconds share(Deadline deadline, std::size_t count)
{
    return std::max(deadline.remaining() / static_cast<int>(count), std::chrono::milliseconds(1));
}

bool announce(const Announcement& announcement, const std::vector<BusAddress>& buses, uid_t user, Deadline deadline)
{
    // A connection that did not answer in its time stays open until the end: it may yet be read.
    std::vector<SessionBus> connections;
    for (std::size_t index = 0; index < buses.size(); ++index) {
        SessionBus bus(buses[index], user, deadline.atMost(share(deadline, buses.size() - index)));
        if (bus.isConnected())
            connections.push_back(std::move(bus));
    }

    const std::vector<DBusMessage> messages{
        hookSignal(announcement),
        busCall("NameHasOwner", TarvikWire::busName),
    };
    bool isTaken = false;
    for (std::size_t index = 0; index < connections.size(); ++index) {
        const Deadline own = deadline.atMost(share(deadline, connections.size() - index));
        const auto reply = connections[index].exchange(messages, own);
        if (!reply || reply->type != DBusMessageType::methodReturn)
            continue;
        isTaken = true;
        DBusReader reader(reply->body);
        if (reply->signature == "b" && reader.boolean())
            break;
    }
    return isTaken;
}

} // namespace Tarvik
