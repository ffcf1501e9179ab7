// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "StatusFormat.h"

#include "base/PlainText.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <string_view>

namespace Tarvik {

static std::string timeOfDay(double secondsSince1970)
{
    const auto moment = static_cast<std::time_t>(secondsSince1970);
    std::tm local{};
    std::array<char, 32> text{};
    if (!localtime_r(&moment, &local))
        return "?";
    std::strftime(text.data(), text.size(), "%H:%M", &local);
    return text.data();
}

static std::string duration(double seconds)
{
    const auto whole = static_cast<long>(std::clamp(std::ceil(seconds), 0.0, 1e9));
    if (whole < 60)
        return std::to_string(whole) + " s";
    if (whole < 3600)
        return std::to_string((whole + 59) / 60) + " min";
    return std::to_string(whole / 3600) + " h " + std::to_string(whole % 3600 / 60) + " min";
}

static std::string powerText(const StatusReport& report)
{
    std::string text = report.isOnAC ? "external" : "battery";
    if (report.hasBattery && report.batteryPercent >= 0)
        text += ", battery at " + std::to_string(report.batteryPercent) + " %";
    return text;
}

static std::string heatText(const StatusReport& report)
{
    static constexpr std::array<std::string_view, 4> levels{"normal", "warm", "hot", "very hot"};
    return std::string(report.thermalState < levels.size() ? levels[report.thermalState] : "unknown")
        + (report.isHot ? " (too hot to be kept awake)" : "");
}

std::string statusText(const StatusReport& report)
{
    std::string text = PlainText::printable(report.reason.empty() ? report.title : report.reason) + '\n';
    const auto add = [&text](std::string label, const std::string& value) {
        label.resize(10, ' ');
        text += "  " + label + PlainText::printable(value) + '\n';
    };
    if (!report.subtitle.empty())
        add("Now", report.subtitle);
    if (!report.details.empty())
        add("", report.details);
    for (std::size_t index = 0; index < report.activeAgents.size(); ++index)
        add(index == 0 ? "Active" : "", report.activeAgents[index]);
    for (std::size_t index = 0; index < report.leases.size(); ++index) {
        const StatusReport::Lease& lease = report.leases[index];
        add(index == 0 ? "Leases" : "",
            lease.tool + ", " + duration(lease.remainingSeconds) + " left, " + lease.key
                + (lease.reason.empty() ? "" : ": " + lease.reason));
    }
    if (report.sessionEnd > 0)
        add("Session", "until " + timeOfDay(report.sessionEnd));
    for (std::size_t index = 0; index < report.assertions.size(); ++index) {
        const StatusReport::Assertion& assertion = report.assertions[index];
        add(index == 0 ? "Holds" : "",
            assertion.type + ": " + assertion.what + " (" + assertion.service + ')'
                + (assertion.isEffective ? "" : ", not confirmed"));
    }
    add("Power", powerText(report));
    add("Heat", heatText(report));
    if (report.isLidClosed)
        add("Lid", "closed");
    if (!report.lockShortcut.empty())
        add("Lock key", report.lockShortcut);
    add("Tray", report.isTrayShown ? "shown" : "not shown: no panel offers a place");
    if (!report.version.empty())
        add("Version", report.version);
    return text;
}

namespace {

class JsonObject final {
public:
    using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

    explicit JsonObject(Writer& writer)
        : m_writer(writer)
    {
        m_writer.StartObject();
    }
    JsonObject(const JsonObject&) = delete;
    JsonObject& operator=(const JsonObject&) = delete;
    ~JsonObject() { m_writer.EndObject(); }

    void add(std::string_view key, const std::string& value) { text(key), text(value); }
    void add(std::string_view key, bool value) { text(key), m_writer.Bool(value); }
    void add(std::string_view key, unsigned value) { text(key), m_writer.Uint(value); }
    /// A number that JSON has no form for becomes null.
    void add(std::string_view key, double value, bool isKnown = true)
    {
        text(key);
        isKnown&& std::isfinite(value) ? m_writer.Double(value) : m_writer.Null();
    }
    void addNull(std::string_view key) { text(key), m_writer.Null(); }
    void add(std::string_view key, int value) { text(key), m_writer.Int(value); }

    template <typename Items, typename Write>
    void addArray(std::string_view key, const Items& items, Write write)
    {
        text(key);
        m_writer.StartArray();
        for (const auto& item : items)
            write(m_writer, item);
        m_writer.EndArray();
    }

private:
    void text(std::string_view value) { m_writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size())); }

    Writer& m_writer;
};

} // namespace

static void writeReport(JsonObject& object, const StatusReport& report)
{
    object.add("title", report.title);
    object.add("reason", report.reason);
    object.add("subtitle", report.subtitle);
    object.add("details", report.details);
    object.add("isAwake", report.isAwake);
    object.add("isPaused", report.isPaused);
    object.addArray("activeAgents", report.activeAgents, [](JsonObject::Writer& writer, const std::string& agent) {
        writer.String(agent.data(), static_cast<rapidjson::SizeType>(agent.size()));
    });
    object.addArray("leases", report.leases, [](JsonObject::Writer& writer, const StatusReport::Lease& lease) {
        JsonObject one(writer);
        one.add("key", lease.key);
        one.add("tool", lease.tool);
        one.add("reason", lease.reason);
        one.add("acquiredAt", lease.acquiredAt);
        one.add("remainingSeconds", lease.remainingSeconds);
    });
    object.add("sessionEnd", report.sessionEnd, report.sessionEnd > 0);
    object.addArray(
        "assertions", report.assertions, [](JsonObject::Writer& writer, const StatusReport::Assertion& held) {
            JsonObject one(writer);
            one.add("type", held.type);
            one.add("service", held.service);
            one.add("what", held.what);
            one.add("effective", held.isEffective);
        });
    object.add("onAC", report.isOnAC);
    object.add("hasBattery", report.hasBattery);
    if (report.batteryPercent < 0)
        object.addNull("batteryPercent");
    else
        object.add("batteryPercent", report.batteryPercent);
    object.add("lidClosed", report.isLidClosed);
    object.add("thermalState", report.thermalState);
    object.add("isHot", report.isHot);
    object.add("lockShortcut", report.lockShortcut);
    object.add("trayShown", report.isTrayShown);
    object.add("version", report.version);
}

/// JSON in which what would steer a terminal stands in the form of an escape. None of it can stand outside a string.
static std::string escaped(std::string_view json)
{
    std::string result;
    while (!json.empty()) {
        const PlainText::Character character = PlainText::firstCharacter(json);
        const std::size_t size = std::max<std::size_t>(character.size, 1);
        if (character.size > 0 && PlainText::isControl(character.code)) {
            std::array<char, 7> text{};
            std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(character.code));
            result += text.data();
        } else {
            result += json.substr(0, size);
        }
        json.remove_prefix(size);
    }
    return result;
}

std::string statusJson(const std::optional<StatusReport>& report)
{
    rapidjson::StringBuffer buffer;
    JsonObject::Writer writer(buffer);
    {
        JsonObject object(writer);
        object.add("isRunning", report.has_value());
        if (report)
            writeReport(object, *report);
    }
    return escaped({buffer.GetString(), buffer.GetSize()});
}

} // namespace Tarvik
