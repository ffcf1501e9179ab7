// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/ThermalState.h"

#include <QString>

#include <array>
#include <deque>
#include <map>
#include <optional>
#include <vector>

namespace Tarvik {

/// A temperature at which the kernel acts, and how far below it must fall again; both in °C.
struct ThermalTrip {
    double temperature = 0;
    double hysteresis = 0;

    bool operator==(const ThermalTrip&) const = default;
};

/// One look at one thermal zone.
struct ThermalZoneReading {
    QString zone;
    /// In °C; nothing when it cannot be read.
    std::optional<double> temperature;
    /// The lowest trip of each kind.
    std::optional<ThermalTrip> passive;
    std::optional<ThermalTrip> hot;
    std::optional<ThermalTrip> critical;
    /// A cooling device that belongs to the passive trip is at work.
    bool isCooling = false;
};

/// How long one processor package has been slowed down for thermal reasons since the machine started.
struct ThrottleReading {
    QString package;
    qint64 totalMilliseconds = 0;
};

struct ThermalReadings {
    std::vector<ThermalZoneReading> zones;
    std::vector<ThrottleReading> packages;
    /// Somebody who may be wrong says so.
    bool isSaidToBeTooHot = false;
};

/// A condition that counts only after it has held for a while, and no longer only after it has been gone for a while.
class HoldLatch {
public:
    /// `isAbove` speaks for the condition, `isBelow` against it; neither keeps things as they are.
    bool update(bool isAbove, bool isBelow, Seconds hold, TimePoint now);
    /// What was measured so far does not count as time held.
    void restart();
    bool isSet() const { return m_isSet; }

private:
    bool m_isSet = false;
    std::optional<TimePoint> m_aboveSince;
    std::optional<TimePoint> m_belowSince;
};

/// Turns readings into one of the four levels. A level is entered when its temperature has been held for a while and
/// left when the temperature has stayed clearly below for a while, so that the level does not flap.
class ThermalClassifier {
public:
    /// The highest level of all zones and packages; one more, but never critical, where the machine is said to be too
    /// hot: alone, that pauses nothing. To be called at least every half minute while there is something to
    /// read: what lies between calls further apart does not count as held.
    ThermalLevel classify(const ThermalReadings& readings, TimePoint now);

private:
    /// Fair, serious, critical.
    using Latches = std::array<HoldLatch, 3>;

    struct Package {
        struct Sample {
            TimePoint time;
            qint64 totalMilliseconds;
        };
        std::deque<Sample> samples;
        Latches latches;
    };

    void restartAfterGap(TimePoint now);
    void classifyZones(const std::vector<ThermalZoneReading>& zones, TimePoint now);
    void classifyPackages(const std::vector<ThrottleReading>& packages, TimePoint now);

    std::map<QString, Latches> m_zones;
    std::map<QString, Package> m_packages;
    HoldLatch m_hint;
    std::optional<TimePoint> m_lastTime;
};

} // namespace Tarvik
