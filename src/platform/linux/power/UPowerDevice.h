// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PowerSources.h"

#include <QString>
#include <QVariantMap>

#include <optional>
#include <vector>

namespace Tarvik {

/// What org.freedesktop.UPower.Device says of one device. A field is absent when it was missing or had the wrong type.
struct UPowerDevice {
    std::optional<QString> nativePath;
    std::optional<uint> type;
    std::optional<uint> state;
    std::optional<bool> powersSystem;
    std::optional<bool> isPresent;
    /// 0 to 100.
    std::optional<double> percentage;

    /// Takes over the properties that are in the map and leaves the others as they are.
    void apply(const QVariantMap& properties);

    /// How the device appears among the power sources; nothing when it powers something else or is not there.
    std::optional<PowerSourceDescription> describe() const;

    /// An uninterruptible supply that runs on its battery.
    bool isDischargingUps() const;
};

/// The snapshot that these devices and UPower's property OnBattery make.
PowerSourcesSnapshot upowerSnapshot(std::optional<bool> onBattery, std::vector<UPowerDevice> devices);

} // namespace Tarvik
