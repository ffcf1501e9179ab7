// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IdleSleep.h"

#include <QVariant>
#include <QVersionNumber>

namespace Tarvik::XfceIdleRule {

/// What xfce4-power-manager is set to; invalid where nothing is set.
struct Settings {
    QVersionNumber release = {};
    QVariant presentationMode = {};
    /// Those for mains or for the battery.
    QVariant minutes = {};
    QVariant sleepMode = {};
};

/// What it does without activity.
IdleSleepRule of(const Settings& settings, bool isOnMains);

} // namespace Tarvik::XfceIdleRule
