// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tarvik {

/// Why keeping awake is held back although there is something to keep awake for.
struct BlockReason {
    enum class Kind {
        tooHot,
        onBattery,
        lowBattery,
    };

    static BlockReason tooHot() { return {.kind = Kind::tooHot}; }
    static BlockReason onBattery() { return {.kind = Kind::onBattery}; }
    static BlockReason lowBattery(int percent, int threshold)
    {
        return {.kind = Kind::lowBattery, .percent = percent, .threshold = threshold};
    }

    /// "tooHot", "onBattery" or "lowBattery". Reasons of one key are the same pause, whatever the battery does
    /// meanwhile.
    QString key() const;

    /// "running on battery"
    QString shortDescription() const;

    /// "Paused — on battery"
    QString pauseTitle() const;

    Kind kind = Kind::tooHot;
    /// Both in percent and only meaningful for `lowBattery`.
    int percent = 0;
    int threshold = 0;

    bool operator==(const BlockReason&) const = default;
};

} // namespace Tarvik
