// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/BlockReason.h"

#include <QStringList>

#include <optional>

/// The decision whether to keep awake, a plain function of a snapshot.
namespace Tarvik::AwakeRules {

struct Inputs {
    bool isEnabled = true;
    bool timedSessionActive = false;
    /// Labels of everything that is working now.
    QStringList activeList;

    bool isHot = false;
    bool pauseWhenHot = true;

    bool requireAC = false;
    bool batteryLimitEnabled = false;
    /// Percent.
    int batteryThreshold = 20;

    bool hasBattery = false;
    bool isOnAC = true;
    /// Percent; absent when unknown.
    std::optional<int> batteryPercent;
};

/// Awake, dozing (nothing to keep awake for, or switched off) or paused for a reason.
struct Decision {
    bool awake = false;
    /// Never set while awake.
    std::optional<BlockReason> reason;

    bool operator==(const Decision&) const = default;
};

Decision decide(const Inputs& inputs);

} // namespace Tarvik::AwakeRules
