// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "StatusReport.h"

#include "DBusReader.h"
#include "DBusWriter.h"
#include "SessionBus.h"

#include "dbus/contracts/TarvikWire.h"

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
    {TarvikWire::titleProperty, "s", [](DBusReader& reader, StatusReport& report) { report.title = reader.string(); }},
    {TarvikWire::reasonProperty,
        "s",
        [](DBusReader& reader, StatusReport& report) { report.reason = reader.string(); }},
    {TarvikWire::subtitleProperty,
        "s",
        [](DBusReader& reader, StatusReport& report) { report.subtitle = reader.string(); }},
    {TarvikWire::detailsProperty,
        "s",
        [](DBusReader& reader, StatusReport& report) { report.details = reader.string(); }},
    {TarvikWire::isAwakeProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.isAwake = reader.boolean(); }},
    {TarvikWire::isPausedProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.isPaused = reader.boolean(); }},
    {TarvikWire::activeProperty,
        "as",
        [](DBusReader& reader, StatusReport& report) { report.activeAgents = readTexts(reader); }},
    {TarvikWire::leasesProperty,
        TarvikWire::leasesSignature,
        [](DBusReader& reader, StatusReport& report) { report.leases = readLeases(reader); }},
    {TarvikWire::sessionEndProperty,
        "d",
        [](DBusReader& reader, StatusReport& report) { report.sessionEnd = reader.real(); }},
    {TarvikWire::assertionsProperty,
        TarvikWire::assertionsSignature,
        [](DBusReader& reader, StatusReport& report) { report.assertions = readAssertions(reader); }},
    {TarvikWire::onACProperty, "b", [](DBusReader& reader, StatusReport& report) { report.isOnAC = reader.boolean(); }},
    {TarvikWire::hasBatteryProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.hasBattery = reader.boolean(); }},
    {TarvikWire::batteryPercentProperty,
        "i",
        [](DBusReader& reader, StatusReport& report) { report.batteryPercent = reader.int32(); }},
    {TarvikWire::lidClosedProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.isLidClosed = reader.boolean(); }},
    {TarvikWire::thermalStateProperty,
        "u",
        [](DBusReader& reader, StatusReport& report) { report.thermalState = reader.uint32(); }},
    {TarvikWire::isHotProperty, "b", [](DBusReader& reader, StatusReport& report) { report.isHot = reader.boolean(); }},
    {TarvikWire::lockShortcutProperty,
        "s",
        [](DBusReader& reader, StatusReport& report) { report.lockShortcut = reader.string(); }},
    {TarvikWire::trayProperty,
        "b",
        [](DBusReader& reader, StatusReport& report) { report.isTrayShown = reader.boolean(); }},
    {TarvikWire::versionProperty,
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
    body.string(TarvikWire::statusInterface);
    DBusMessage call;
    call.flags = DBusMessage::noAutoStart;
    call.destination = TarvikWire::busName;
    call.path = TarvikWire::objectPath;
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
