// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "StatusReport.h"

#include <functional>
#include <optional>
#include <vector>

namespace Tarvik {

/// Is called with what a Tarvik says of itself; with nothing when none runs.
using TellStatus = std::function<void(const std::optional<StatusReport>&)>;

/// Calls `tell` with the status of the Tarvik that runs on one of these buses, and again whenever it may have changed,
/// also when it ends or another one starts. Waits for its signals and asks then. Returns when the bus has gone, or
/// nobody reads `output` any more; without any call when no bus answers in time.
void followStatus(bool asJson, const std::vector<BusAddress>& buses, uid_t user, int output, const TellStatus& tell);

} // namespace Tarvik
