// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/LidSensor.h"
#include "platform/PowerSources.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// Whether the machine runs on external power, how full its battery is and, while asked to, whether its lid is closed.
/// Every write of a field emits its signal, changed or not.
class PowerMonitor final : public QObject {
    Q_OBJECT

public:
    /// Reads the power sources once and listens from then on. All three must outlive the monitor.
    PowerMonitor(PowerSources& sources, LidSensor& lid, Clock& clock);

    bool isOnAC() const { return m_isOnAC; }
    /// Charge of the internal battery in percent, above 100 when the battery says so; nothing when unknown.
    std::optional<int> batteryPercent() const { return m_batteryPercent; }
    bool hasBattery() const { return m_hasBattery; }
    /// Only kept current while lid polling is on, false otherwise.
    bool lidClosed() const { return m_lidClosed; }
    /// Whether there is a lid at all; nothing while that is not known.
    std::optional<bool> hasLid() const { return m_lid.isPresent(); }

    /// Reads the power sources anew and publishes what they say.
    void refresh();

    /// Keeps `lidClosed` current, or stops doing so and counts the lid as open without calling `onChange`.
    void setLidPolling(bool enabled);

    /// Reads the lid once; a lid that cannot be read counts as open.
    void readLid();

    /// Called after each notification of the power sources, whether or not a value changed, after lid changes, and when
    /// it has become known whether there is a lid.
    std::function<void()> onChange;

Q_SIGNALS:
    void isOnACChanged();
    void batteryPercentChanged();
    void hasBatteryChanged();
    void lidClosedChanged();
    void hasLidChanged();

private:
    void publishFallback();
    void notify() const;

    PowerSources& m_sources;
    LidSensor& m_lid;
    Clock& m_clock;
    bool m_isOnAC = true;
    std::optional<int> m_batteryPercent;
    bool m_hasBattery = false;
    bool m_lidClosed = false;
    std::unique_ptr<Timer> m_lidTimer;
    Subscription m_sourceChanges;
    Subscription m_lidChanges;
    Subscription m_lidPresenceChanges;
};

} // namespace Tarvik
