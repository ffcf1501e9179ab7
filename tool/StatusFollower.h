// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "StatusReport.h"

#include <functional>
#include <optional>
#include <vector>

namespace Tarvik {

/// Calls `tell` with what the Tarvik that runs on one of these buses says of itself, and again whenever that may have
/// changed, also when it ends or another one starts; nothing when none runs. Waits for its signals and asks then.
/// Returns when the bus has gone, and without any call when no bus answers in time.
void followStatus(bool asJson,
    const std::vector<BusAddress>& buses,
    uid_t user,
    const std::function<void(const std::optional<StatusReport>&)>& tell);

} // namespace Tarvik
