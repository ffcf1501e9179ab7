// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "StatusReport.h"

#include "DBusReader.h"
#include "DBusWriter.h"
#include "SessionBus.h"

#include "dbus/contracts/TarvikWire.h"

namespace Tarvik {

std::optional<StatusReport> readStatus(const DBusMessage& reply)
{
    if (reply.type != DBusMessageType::methodReturn || reply.signature != "sb")
        return {};
    DBusReader reader(reply.body);
    StatusReport report;
    report.text = reader.string();
    report.isAwake = reader.boolean();
    return reader.hasFailed() ? std::nullopt : std::optional(report);
}

std::optional<StatusReport> askForStatus(
    StatusQuestion question, bool asJson, const std::vector<BusAddress>& buses, uid_t user, Deadline deadline)
{
    const bool isWhy = question == StatusQuestion::why;
    DBusWriter body;
    body.uint32(asJson ? 1 : 0);
    DBusMessage call;
    call.flags = DBusMessage::noAutoStart;
    call.destination = TarvikWire::busName;
    call.path = TarvikWire::objectPath;
    call.interface = isWhy ? TarvikWire::whyInterface : TarvikWire::statusInterface;
    call.member = isWhy ? TarvikWire::explainMethod : TarvikWire::describeMethod;
    call.signature = "b";
    call.body = body.bytes();
    for (const BusAddress& address : buses) {
        if (const auto reply = SessionBus(address, user, deadline).exchange({call}, deadline)) {
            if (auto report = readStatus(*reply))
                return report;
        }
    }
    return {};
}

} // namespace Tarvik
