// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IdleSleep.h"

#include <QStringList>

namespace Tarvik {

/// What PowerDevil does without activity.
namespace KdeIdleRule {

struct Facts {
    /// Of Plasma: 5 or 6, as KDE_SESSION_VERSION tells; anything else where it is not known.
    int release = 0;
    /// That is in force: "AC", "Battery" or "LowBattery"; empty where PowerDevil does not tell.
    QString profile = {};
    /// What Plasma 6 goes by where nothing is set.
    bool isVirtualMachine = false;
    bool canSuspend = false;
};

/// Reads its settings; `directories` are those of configuration files, the user's first.
IdleSleepRule read(const Facts& facts, const QStringList& directories);

} // namespace KdeIdleRule

} // namespace Tarvik
