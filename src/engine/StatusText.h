// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "engine/BlockReason.h"
#include "platform/Clock.h"

#include <QStringList>

#include <optional>

/// The texts that tell the user what is kept awake and why.
namespace Tarvik::StatusText {

/// Whole minutes until `end`, the one under way included and never below 0; absent when no session is active: without
/// an end, or with one that is not strictly after `now`.
std::optional<int> minutesLeft(std::optional<TimePoint> end, TimePoint now);

struct TitleInputs {
    bool isEnabled = true;
    bool isPaused = false;
    bool isAwake = false;
};

/// "Off", "Paused", "Awake" or "Watching".
QString title(const TitleInputs& inputs);

struct ReasonInputs {
    bool awake = false;
    std::optional<BlockReason> reason;
    bool timedSessionActive = false;
    std::optional<int> minutesLeft;
    /// Numbers of running agents and applications; agents known by their leases alone are not counted.
    qsizetype agentCount = 0;
    qsizetype appCount = 0;
};

/// "Awake · 2 agents, 1 app", "Awake — 25 min left", "Paused — on battery", "Dozing — nothing to watch".
QString reason(const ReasonInputs& inputs);

struct SubtitleInputs {
    bool isEnabled = true;
    std::optional<BlockReason> reason;
    QStringList activeList;
    bool timedSessionActive = false;
};

/// "Claude Code, Codex +3 more", "running on battery", "Timed session", ...
QString subtitle(const SubtitleInputs& inputs);

struct DetailsInputs {
    std::optional<BlockReason> reason;
    bool hasBattery = false;
    bool isOnAC = true;
    /// Percent; absent when unknown.
    std::optional<int> batteryPercent;
    bool isHot = false;
    /// 0 nominal to 3 critical.
    int thermalState = 0;
    /// The lid is closed while the machine is kept running for it.
    bool lidClosedMode = false;
    std::optional<int> minutesLeft;
};

/// "charging 80% · running hot · lid closed · 25 min left"; empty when there is nothing to add.
QString details(const DetailsInputs& inputs);

/// "normal", "warm", "hot", "very hot"; "unknown" for any other state.
QString thermalWord(int thermalState);

} // namespace Tarvik::StatusText
