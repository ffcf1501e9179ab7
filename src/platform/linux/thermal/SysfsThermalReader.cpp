// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/thermal/SysfsThermalReader.h"

#include "platform/linux/kernel/SysfsFile.h"

#include <QDir>

#include <algorithm>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 hottestTrip = 200'000;

double toCelsius(qint64 millidegrees)
{
    return static_cast<double>(millidegrees) / 1000;
}

QStringList namesIn(const QString& directory, const QString& pattern)
{
    return QDir{directory}.entryList({pattern}, QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

/// A trip that is not set, as the processors' own zones have, reads 0 or less.
std::optional<ThermalTrip> readTrip(const QString& prefix)
{
    const auto temperature = SysfsFile::integer(prefix + u"_temp"_s);
    if (!temperature || *temperature <= 0 || *temperature >= hottestTrip)
        return {};
    const qint64 hysteresis = SysfsFile::integer(prefix + u"_hyst"_s).value_or(0);
    return ThermalTrip{toCelsius(*temperature), toCelsius(std::clamp(hysteresis, qint64{0}, *temperature))};
}

/// Keeps the lower of two trips; tells whether it is the new one.
bool takeLower(std::optional<ThermalTrip>& lowest, const ThermalTrip& trip)
{
    if (lowest && lowest->temperature <= trip.temperature)
        return false;
    lowest = trip;
    return true;
}

} // namespace

SysfsThermalReader::SysfsThermalReader(QString root)
    : m_root(std::move(root))
{
    rescan();
}

void SysfsThermalReader::rescan()
{
    m_isStale = false;
    scanZones();
    scanPackages();
}

ThermalReadings SysfsThermalReader::read()
{
    if (m_isStale)
        rescan();

    ThermalReadings readings;
    for (const Zone& zone : m_zones) {
        ThermalZoneReading reading = zone.fixed;
        if (const auto temperature = SysfsFile::integer(zone.path + u"/temp"_s))
            reading.temperature = toCelsius(*temperature);
        else if (!QDir{zone.path}.exists())
            m_isStale = true;
        if (reading.temperature && reading.passive && *reading.temperature >= reading.passive->temperature) {
            reading.isCooling = std::ranges::any_of(
                zone.coolingStates, [](const QString& state) { return SysfsFile::integer(state).value_or(0) > 0; });
        }
        readings.zones.push_back(std::move(reading));
    }
    for (const Package& package : m_packages) {
        if (const auto total = SysfsFile::integer(package.counter))
            readings.packages.push_back({package.name, *total});
        else
            m_isStale = true;
    }
    return readings;
}

void SysfsThermalReader::scanZones()
{
    m_zones.clear();
    const QString directory = m_root + u"/class/thermal/"_s;
    for (const QString& name : namesIn(directory, u"thermal_zone*"_s)) {
        const QString path = directory + name;
        if (SysfsFile::text(path + u"/mode"_s) == QByteArrayLiteral("disabled"))
            continue;
        Zone zone = scanZone(path, name);
        if (zone.fixed.passive || zone.fixed.hot || zone.fixed.critical)
            m_zones.push_back(std::move(zone));
    }
}

SysfsThermalReader::Zone SysfsThermalReader::scanZone(const QString& path, const QString& name)
{
    Zone zone;
    zone.path = path;
    zone.fixed.zone = name;
    std::optional<qint64> passiveTrip;
    for (const QString& file : namesIn(path, u"trip_point_*_type"_s)) {
        const QString prefix = path + u'/' + file.chopped(5);
        const auto type = SysfsFile::text(path + u'/' + file);
        const auto trip = readTrip(prefix);
        if (!type || !trip)
            continue;
        // Active trips only turn a fan.
        if (*type == "critical")
            takeLower(zone.fixed.critical, *trip);
        else if (*type == "hot")
            takeLower(zone.fixed.hot, *trip);
        else if (*type == "passive" && takeLower(zone.fixed.passive, *trip))
            passiveTrip = file.split(u'_').at(2).toLongLong();
    }
    if (!passiveTrip)
        return zone;

    for (const QString& file : namesIn(path, u"cdev*_trip_point"_s)) {
        if (SysfsFile::integer(path + u'/' + file) == passiveTrip)
            zone.coolingStates.push_back(path + u'/' + file.section(u'_', 0, 0) + u"/cur_state"_s);
    }
    return zone;
}

void SysfsThermalReader::scanPackages()
{
    m_packages.clear();
    const QString directory = m_root + u"/devices/system/cpu/"_s;
    for (const QString& name : namesIn(directory, u"cpu[0-9]*"_s)) {
        // All processors of a package tell the same number.
        const auto id = SysfsFile::text(directory + name + u"/topology/physical_package_id"_s);
        const QString package = QString::fromLatin1(id.value_or(QByteArray{}));
        if (std::ranges::find(m_packages, package, &Package::name) != m_packages.end())
            continue;
        const QString counter = directory + name + u"/thermal_throttle/package_throttle_total_time_ms"_s;
        if (SysfsFile::integer(counter))
            m_packages.push_back({package, counter});
    }
}

} // namespace Tarvik
