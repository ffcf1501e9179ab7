// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/AwakeRules.h"

namespace Tarvik::AwakeRules {

namespace {

/// A machine without a battery never pauses for power.
std::optional<BlockReason> powerBlock(const Inputs& inputs)
{
    if (!inputs.hasBattery)
        return {};
    if (inputs.requireAC && !inputs.isOnAC)
        return BlockReason::onBattery();
    // Also while charging: the machine stays paused until it has what it needs to go on when unplugged.
    if (inputs.batteryLimitEnabled && inputs.batteryPercent && *inputs.batteryPercent < inputs.batteryThreshold)
        return BlockReason::lowBattery(*inputs.batteryPercent, inputs.batteryThreshold);
    return {};
}

} // namespace

Decision decide(const Inputs& inputs)
{
    const bool hasWork = inputs.timedSessionActive || !inputs.activeList.isEmpty();
    if (!inputs.isEnabled || !hasWork)
        return {.awake = false, .reason = {}};
    if (inputs.isHot && inputs.pauseWhenHot)
        return {.awake = false, .reason = BlockReason::tooHot()};
    if (const auto reason = powerBlock(inputs))
        return {.awake = false, .reason = reason};
    return {.awake = true, .reason = {}};
}

} // namespace Tarvik::AwakeRules
