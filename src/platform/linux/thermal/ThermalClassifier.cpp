// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/thermal/ThermalClassifier.h"

#include <algorithm>

namespace Tarvik {

namespace {

constexpr Seconds enterHold{30};
constexpr Seconds hintHold{60};
constexpr Seconds leaveHold{60};
constexpr Seconds longestGap{30};
constexpr Seconds throttleWindow{60};
constexpr double leastHysteresis = 3;
constexpr double hottestPlausible = 150;

/// One level's condition on a temperature.
struct Threshold {
    double temperature;
    double hysteresis;
    Seconds hold;
};

std::optional<Threshold> below(const std::optional<ThermalTrip>& trip, double distance, Seconds hold)
{
    if (!trip)
        return {};
    return Threshold{trip->temperature - distance, std::max(trip->hysteresis, leastHysteresis), hold};
}

std::optional<Threshold> fairThreshold(const ThermalZoneReading& zone)
{
    return zone.passive ? below(zone.passive, 5, enterHold) : below(zone.critical, 20, enterHold);
}

std::optional<Threshold> seriousThreshold(const ThermalZoneReading& zone)
{
    // Processors run at their limit for short bursts by design: only a lasting thermal load, or a kernel that has begun
    // to slow things down, is serious.
    if (zone.passive)
        return below(zone.passive, 0, zone.isCooling ? Seconds::zero() : enterHold);
    return below(zone.critical, 10, enterHold);
}

std::optional<Threshold> criticalThreshold(const ThermalZoneReading& zone)
{
    const auto hot = below(zone.hot, 0, Seconds::zero());
    const auto nearShutdown = below(zone.critical, 5, Seconds::zero());
    if (!hot || !nearShutdown)
        return hot ? hot : nearShutdown;
    return hot->temperature <= nearShutdown->temperature ? hot : nearShutdown;
}

bool isPlausible(double temperature)
{
    return temperature > 0 && temperature < hottestPlausible;
}

void update(HoldLatch& latch, std::optional<double> temperature, std::optional<Threshold> threshold, TimePoint now)
{
    if (!temperature || !isPlausible(*temperature) || !threshold) {
        latch.update(false, true, enterHold, now);
        return;
    }
    const bool isAbove = *temperature >= threshold->temperature;
    const bool isBelow = *temperature < threshold->temperature - threshold->hysteresis;
    latch.update(isAbove, isBelow, threshold->hold, now);
}

template <typename Latches>
void update(Latches& latches, const ThermalZoneReading& zone, TimePoint now)
{
    update(latches[0], zone.temperature, fairThreshold(zone), now);
    update(latches[1], zone.temperature, seriousThreshold(zone), now);
    update(latches[2], zone.temperature, criticalThreshold(zone), now);
}

template <typename Latches>
bool isAnySet(const Latches& latches)
{
    return std::ranges::any_of(latches, &HoldLatch::isSet);
}

template <typename Latches>
ThermalLevel levelOf(const Latches& latches)
{
    if (latches[2].isSet())
        return ThermalLevel::critical;
    if (latches[1].isSet())
        return ThermalLevel::serious;
    return latches[0].isSet() ? ThermalLevel::fair : ThermalLevel::nominal;
}

/// What a weak hint makes of a level.
ThermalLevel raised(ThermalLevel level)
{
    return level == ThermalLevel::nominal ? ThermalLevel::fair : std::max(level, ThermalLevel::serious);
}

} // namespace

bool HoldLatch::update(bool isAbove, bool isBelow, Seconds hold, TimePoint now)
{
    auto& since = m_isSet ? m_belowSince : m_aboveSince;
    if (m_isSet ? !isBelow : !isAbove) {
        since.reset();
        return m_isSet;
    }
    if (!since)
        since = now;
    if (now - *since >= (m_isSet ? leaveHold : hold)) {
        since.reset();
        m_isSet = !m_isSet;
    }
    return m_isSet;
}

void HoldLatch::restart()
{
    m_aboveSince.reset();
    m_belowSince.reset();
}

ThermalLevel ThermalClassifier::classify(const ThermalReadings& readings, TimePoint now)
{
    restartAfterGap(now);
    classifyZones(readings.zones, now);
    classifyPackages(readings.packages, now);
    m_hint.update(readings.isSaidToBeTooHot, !readings.isSaidToBeTooHot, hintHold, now);

    auto level = ThermalLevel::nominal;
    for (const auto& [name, latches] : m_zones)
        level = std::max(level, levelOf(latches));
    for (const auto& [name, package] : m_packages)
        level = std::max(level, levelOf(package.latches));
    return m_hint.isSet() ? raised(level) : level;
}

void ThermalClassifier::restartAfterGap(TimePoint now)
{
    const bool isContinuous = m_lastTime && now >= *m_lastTime && now - *m_lastTime <= longestGap;
    m_lastTime = now;
    if (isContinuous)
        return;
    m_hint.restart();
    for (auto& [name, latches] : m_zones)
        std::ranges::for_each(latches, &HoldLatch::restart);
    for (auto& [name, package] : m_packages) {
        std::ranges::for_each(package.latches, &HoldLatch::restart);
        package.samples.clear();
    }
}

void ThermalClassifier::classifyZones(const std::vector<ThermalZoneReading>& zones, TimePoint now)
{
    for (const ThermalZoneReading& zone : zones)
        update(m_zones[zone.zone], zone, now);

    // A zone that has gone away cools down like one that cannot be read.
    for (auto& [name, latches] : m_zones) {
        if (std::ranges::find(zones, name, &ThermalZoneReading::zone) == zones.end())
            update(latches, ThermalZoneReading{}, now);
    }
    std::erase_if(m_zones, [&](const auto& entry) {
        return !isAnySet(entry.second)
            && std::ranges::find(zones, entry.first, &ThermalZoneReading::zone) == zones.end();
    });
}

void ThermalClassifier::classifyPackages(const std::vector<ThrottleReading>& packages, TimePoint now)
{
    std::erase_if(m_packages, [&](const auto& entry) {
        return std::ranges::find(packages, entry.first, &ThrottleReading::package) == packages.end();
    });
    for (const ThrottleReading& reading : packages) {
        Package& package = m_packages[reading.package];
        auto& samples = package.samples;
        if (!samples.empty() && reading.totalMilliseconds < samples.back().totalMilliseconds)
            samples.clear();
        while (!samples.empty() && now - samples.front().time > throttleWindow)
            samples.pop_front();
        samples.push_back({now, reading.totalMilliseconds});

        const std::chrono::milliseconds throttled{reading.totalMilliseconds - samples.front().totalMilliseconds};
        const bool isFair = throttled.count() > 0;
        const bool isSerious = throttled >= throttleWindow / 5;
        package.latches[0].update(isFair, !isFair, Seconds::zero(), now);
        package.latches[1].update(isSerious, !isSerious, Seconds::zero(), now);
    }
}

} // namespace Tarvik
