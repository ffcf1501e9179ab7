// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace Tarvik {

/// Sleep is switched off from its creation to its destruction, a closed lid included, and ended by the system when the
/// process ends.
class SleepOverride {
public:
    virtual ~SleepOverride() = default;

    /// The system has taken it back. The receiver may destroy the override.
    std::function<void()> onLost;
};

/// The machine's sleep, where the background helper does not rule it.
class SleepControl {
public:
    using OverrideReceiver = std::function<void(std::unique_ptr<SleepOverride> sleepOverride, const QString& error)>;

    virtual ~SleepControl() = default;

    /// Switches sleep off with the rights of an administrator, for whose password it may ask the user; takes as long as
    /// that takes. `done` gets the override, or null and why there is none.
    virtual void takeOverride(OverrideReceiver done) = 0;

    /// For the moment in which an override has ended: has the machine sleep as it would have when its lid was closed,
    /// where nobody else does that. Does nothing when the lid is open, another display is connected or another program
    /// objects.
    virtual void sleepForClosedLid() = 0;
};

} // namespace Tarvik
