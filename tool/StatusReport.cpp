// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "StatusReport.h"

#include "DBusReader.h"
#include "DBusWriter.h"
#include "SessionBus.h"

#include "platform/StatusWire.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace Tarvik {

static std::vector<std::string> readTexts(DBusReader& reader)
{
    std::vector<std::string> texts;
    const std::size_t end = reader.beginArray(4);
    while (reader.isBefore(end))
        texts.emplace_back(reader.string());
    return texts;
}

static std::vector<StatusReport::Lease> readLeases(DBusReader& reader)
{
    std::vector<StatusReport::Lease> leases;
    const std::size_t end = reader.beginArray(8);
    while (reader.isBefore(end)) {
        reader.align(8);
        StatusReport::Lease& lease = leases.emplace_back();
        lease.key = reader.string();
        lease.tool = reader.string();
        lease.reason = reader.string();
        lease.acquiredAt = reader.real();
        lease.remainingSeconds = reader.real();
    }
    return leases;
}

static std::vector<StatusReport::Assertion> readAssertions(DBusReader& reader)
{
    std::vector<StatusReport::Assertion> assertions;
    const std::size_t end = reader.beginArray(8);
    while (reader.isBefore(end)) {
        reader.align(8);
        StatusReport::Assertion& assertion = assertions.emplace_back();
        assertion.type = reader.string();
        assertion.service = reader.string();
        assertion.what = reader.string();
        assertion.isEffective = reader.boolean();
    }
    return assertions;
}

namespace {

struct Property {
    std::string_view name;
    std::string_view signature;
    void (*read)(DBusReader&, StatusReport&);
};

} // namespace

static constexpr std::array<Property, 19> properties{{
    {StatusWire::titleProperty, "s", [](DBusReader& reader, StatusReport& report) { report.title = reader.string(); }},
    {StatusWire::reasonProperty,
        "s",
        [](DBusReader& reader, StatusReport& report) { report.reason = reader.string(); }},
    {StatusWire::subtitleProperty,
        "s",
        [](DBusReader& reader, StatusReport& report) { report.subtitle = reader.string(); }},
    {StatusWire::detailsProperty,
        "s",
        [](DBusReader& reader, StatusReport& report) { report.details = reader.string(); }},
    {StatusWire::isAwakeProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.isAwake = reader.boolean(); }},
    {StatusWire::isPausedProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.isPaused = reader.boolean(); }},
    {StatusWire::activeAgentsProperty,
        "as",
        [](DBusReader& reader, StatusReport& report) { report.activeAgents = readTexts(reader); }},
    {StatusWire::leasesProperty,
        StatusWire::leasesSignature,
        [](DBusReader& reader, StatusReport& report) { report.leases = readLeases(reader); }},
    {StatusWire::sessionEndProperty,
        "d",
        [](DBusReader& reader, StatusReport& report) { report.sessionEnd = reader.real(); }},
    {StatusWire::assertionsProperty,
        StatusWire::assertionsSignature,
        [](DBusReader& reader, StatusReport& report) { report.assertions = readAssertions(reader); }},
    {StatusWire::onACProperty, "b", [](DBusReader& reader, StatusReport& report) { report.isOnAC = reader.boolean(); }},
    {StatusWire::hasBatteryProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.hasBattery = reader.boolean(); }},
    {StatusWire::batteryPercentProperty,
        "i",
        [](DBusReader& reader, StatusReport& report) { report.batteryPercent = reader.int32(); }},
    {StatusWire::lidClosedProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.isLidClosed = reader.boolean(); }},
    {StatusWire::thermalStateProperty,
        "u",
        [](DBusReader& reader, StatusReport& report) { report.thermalState = reader.uint32(); }},
    {StatusWire::isHotProperty, "b", [](DBusReader& reader, StatusReport& report) { report.isHot = reader.boolean(); }},
    {StatusWire::lockShortcutProperty,
        "s",
        [](DBusReader& reader, StatusReport& report) { report.lockShortcut = reader.string(); }},
    {StatusWire::trayProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.isTrayShown = reader.boolean(); }},
    {StatusWire::versionProperty,
        "s",
        [](DBusReader& reader, StatusReport& report) { report.version = reader.string(); }},
}};

std::optional<StatusReport> readStatus(const DBusMessage& reply)
{
    if (reply.type != DBusMessageType::methodReturn || reply.signature != "a{sv}")
        return {};
    StatusReport report;
    DBusReader reader(reply.body);
    const std::size_t end = reader.beginArray(8);
    while (reader.isBefore(end)) {
        reader.align(8);
        const std::string_view name = reader.string();
        const std::string_view signature = reader.signature();
        const auto property = std::find_if(properties.begin(), properties.end(), [&](const Property& candidate) {
            return candidate.name == name && candidate.signature == signature;
        });
        if (property == properties.end())
            reader.skip(signature);
        else
            property->read(reader, report);
    }
    if (reader.hasFailed())
        return {};
    return report;
}

std::optional<StatusReport> askForStatus(const std::vector<BusAddress>& buses, uid_t user, Deadline deadline)
{
    DBusWriter body;
    body.string(StatusWire::interfaceName);
    DBusMessage call;
    call.flags = DBusMessage::noAutoStart;
    call.destination = StatusWire::busName;
    call.path = StatusWire::objectPath;
    call.interface = "org.freedesktop.DBus.Properties";
    call.member = "GetAll";
    call.signature = "s";
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
