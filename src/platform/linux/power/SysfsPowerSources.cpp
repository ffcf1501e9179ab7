// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/power/SysfsPowerSources.h"

#include "platform/linux/kernel/SysfsFile.h"

#include <QDir>

#include <algorithm>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

constexpr Seconds pollPeriod{60};
/// Batteries may hold a little more than they were made for; a reading above twice that is noise.
constexpr qint64 mostPlausibleFactor = 2;

struct Findings {
    bool isMainsOnline = false;
    bool isBatteryDischarging = false;
    bool isUpsDischarging = false;
    std::vector<PowerSourceDescription> sources;
};

bool reads(const QString& path, const char* value)
{
    return SysfsFile::text(path) == value;
}

/// A USB port that gives power instead of taking it is online too.
bool isGivingPower(const QString& supply)
{
    const QDir ports{supply + u"/device/typec"_s};
    bool isSource = false;
    for (const QString& port : ports.entryList({u"port*"_s}, QDir::AllEntries | QDir::NoDotAndDotDot)) {
        const QByteArray role = SysfsFile::text(ports.filePath(port) + u"/power_role"_s).value_or(QByteArray{});
        if (role.contains("[sink]"))
            return false;
        isSource |= role.contains("[source]");
    }
    return isSource;
}

bool takeCharge(PowerSourceDescription& battery, std::optional<qint64> current, std::optional<qint64> max)
{
    if (!current || !max || *max < 1 || *current < 0 || *current / mostPlausibleFactor > *max)
        return false;
    battery.currentCapacity = current;
    battery.maxCapacity = max;
    return true;
}

PowerSourceDescription describeBattery(const QString& supply)
{
    PowerSourceDescription battery;
    battery.type = u"InternalBattery"_s;
    const auto integer = [&](const QString& name) { return SysfsFile::integer(supply + u'/' + name); };
    // The kernel's own percentage is what every other battery display shows.
    if (!takeCharge(battery, integer(u"capacity"_s), 100)
        && !takeCharge(battery, integer(u"energy_now"_s), integer(u"energy_full"_s)))
        takeCharge(battery, integer(u"charge_now"_s), integer(u"charge_full"_s));
    return battery;
}

void examine(const QString& supply, Findings& findings)
{
    // A supply of scope "Device" is that of a mouse or a phone.
    const auto type = SysfsFile::text(supply + u"/type"_s);
    if (!type || type->isEmpty() || reads(supply + u"/scope"_s, "Device"))
        return;
    const bool isBattery = *type == "Battery";
    if (isBattery || *type == "UPS") {
        if (SysfsFile::integer(supply + u"/present"_s).value_or(1) == 0)
            return;
        const bool isDischarging = reads(supply + u"/status"_s, "Discharging");
        (isBattery ? findings.isBatteryDischarging : findings.isUpsDischarging) |= isDischarging;
        findings.sources.push_back(isBattery
                ? describeBattery(supply)
                : PowerSourceDescription{.type = u"UPS"_s, .currentCapacity = {}, .maxCapacity = {}});
        return;
    }
    if (type->startsWith("USB") && isGivingPower(supply))
        return;
    findings.isMainsOnline |= SysfsFile::integer(supply + u"/online"_s).value_or(0) > 0;
}

QString providingType(const Findings& findings)
{
    if (findings.isUpsDischarging)
        return u"UPS Power"_s;
    if (findings.isBatteryDischarging && !findings.isMainsOnline)
        return u"Battery Power"_s;
    return u"AC Power"_s;
}

bool hasBattery(const std::optional<PowerSourcesSnapshot>& snapshot)
{
    return snapshot
        && std::ranges::find(snapshot->sources, u"InternalBattery"_s, &PowerSourceDescription::type)
        != snapshot->sources.end();
}

} // namespace

SysfsPowerSources::SysfsPowerSources(Clock& clock, QString root)
    : m_clock(clock)
    , m_root(std::move(root))
    , m_last(snapshot())
    , m_uevents(QByteArrayLiteral("power_supply"), [this] { handleEvent(); })
{
    schedulePolls();
}

std::optional<PowerSourcesSnapshot> SysfsPowerSources::snapshot() const
{
    const QDir supplies{m_root + u"/class/power_supply"_s};
    if (!supplies.exists())
        return {};
    Findings findings;
    for (const QString& name : supplies.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name))
        examine(supplies.filePath(name), findings);
    return PowerSourcesSnapshot{providingType(findings), std::move(findings.sources)};
}

void SysfsPowerSources::handleEvent()
{
    m_last = snapshot();
    schedulePolls();
    changed();
}

void SysfsPowerSources::poll()
{
    auto current = snapshot();
    if (current == m_last)
        return;
    m_last = std::move(current);
    changed();
}

void SysfsPowerSources::schedulePolls()
{
    if (!hasBattery(m_last))
        m_polls.reset();
    else if (!m_polls)
        m_polls = m_clock.every(pollPeriod, [this] { poll(); });
}

} // namespace Tarvik
