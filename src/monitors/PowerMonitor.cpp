// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "monitors/PowerMonitor.h"

#include <cmath>
#include <limits>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

constexpr Seconds lidPollPeriod{5};

struct BatteryReading {
    bool found = false;
    std::optional<int> percent;
};

std::optional<int> percentOf(const PowerSourceDescription& source)
{
    if (!source.currentCapacity || !source.maxCapacity || *source.maxCapacity < 1)
        return {};
    const double percent
        = static_cast<double>(*source.currentCapacity) / static_cast<double>(*source.maxCapacity) * 100;
    // Rounds halves away from zero.
    const double rounded = std::round(percent);
    if (std::abs(rounded) > std::numeric_limits<int>::max())
        return {};
    return static_cast<int>(rounded);
}

BatteryReading readBatteries(const std::vector<PowerSourceDescription>& sources)
{
    BatteryReading reading;
    for (const PowerSourceDescription& source : sources) {
        if (source.type != u"InternalBattery"_s)
            continue;
        reading.found = true;
        if (const auto percent = percentOf(source))
            reading.percent = percent;
    }
    return reading;
}

} // namespace

PowerMonitor::PowerMonitor(PowerSources& sources, LidSensor& lid, Clock& clock)
    : m_sources(sources)
    , m_lid(lid)
    , m_clock(clock)
{
    refresh();
    m_sourceChanges = m_sources.changed.subscribe([this] {
        refresh();
        notify();
    });
    m_lidChanges = m_lid.changed.subscribe([this] {
        if (m_lidTimer)
            readLid();
    });
    m_lidPresenceChanges = m_lid.presenceChanged.subscribe([this] {
        Q_EMIT hasLidChanged();
        notify();
    });
}

void PowerMonitor::refresh()
{
    const auto snapshot = m_sources.snapshot();
    if (!snapshot) {
        publishFallback();
        return;
    }

    const BatteryReading battery = readBatteries(snapshot->sources);
    if (snapshot->providingType)
        m_isOnAC = *snapshot->providingType == u"AC Power"_s;
    m_hasBattery = battery.found;
    m_batteryPercent = battery.percent;

    if (snapshot->providingType)
        Q_EMIT isOnACChanged();
    Q_EMIT hasBatteryChanged();
    Q_EMIT batteryPercentChanged();
}

void PowerMonitor::setLidPolling(bool enabled)
{
    if (enabled == (m_lidTimer != nullptr))
        return;

    if (enabled) {
        // The timer is there before the first reading, because whoever hears of that reading may call this again.
        m_lidTimer = m_clock.every(lidPollPeriod, [this] { readLid(); });
        readLid();
        return;
    }
    m_lidTimer.reset();
    m_lidClosed = false;
    Q_EMIT lidClosedChanged();
}

void PowerMonitor::readLid()
{
    const bool closed = m_lid.isClosed().value_or(false);
    if (closed == m_lidClosed)
        return;
    m_lidClosed = closed;
    Q_EMIT lidClosedChanged();
    notify();
}

void PowerMonitor::publishFallback()
{
    m_isOnAC = true;
    m_batteryPercent.reset();
    m_hasBattery = false;
    Q_EMIT isOnACChanged();
    Q_EMIT batteryPercentChanged();
    Q_EMIT hasBatteryChanged();
}

void PowerMonitor::notify() const
{
    if (onChange)
        onChange();
}

} // namespace Tarvik
