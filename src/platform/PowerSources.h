// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QString>

#include <optional>
#include <vector>

namespace Tarvik {

/// What one power source says of itself; a field that is absent was missing or had the wrong type.
struct PowerSourceDescription {
    /// "InternalBattery", "UPS", ...
    std::optional<QString> type;
    /// Charge in any unit that `maxCapacity` shares.
    std::optional<qint64> currentCapacity;
    std::optional<qint64> maxCapacity;

    bool operator==(const PowerSourceDescription&) const = default;
};

/// One reading of all power sources.
struct PowerSourcesSnapshot {
    /// "AC Power", "Battery Power" or "UPS Power"; absent when it cannot be told.
    std::optional<QString> providingType;
    /// In a stable order.
    std::vector<PowerSourceDescription> sources;

    bool operator==(const PowerSourcesSnapshot&) const = default;
};

/// Where the machine's power comes from and how much is left.
class PowerSources {
public:
    virtual ~PowerSources() = default;

    /// What is known at this moment, without blocking; nothing when there is no way to tell.
    virtual std::optional<PowerSourcesSnapshot> snapshot() const = 0;

    /// From the event loop: something about the sources has changed; changes at the same time come as one.
    Signal<void()> changed;
};

} // namespace Tarvik
