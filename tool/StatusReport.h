// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "BusAddress.h"
#include "DBusMessage.h"
#include "Deadline.h"

#include <optional>
#include <string>
#include <vector>

namespace Tarvik {

/// What a running Tarvik is asked.
enum class StatusQuestion {
    /// What it is doing: Describe of com.morvanta.Tarvik.Status1.
    status,
    /// Why this computer is awake: Explain of com.morvanta.Tarvik.Why1.
    why,
};

/// What it says to that.
struct StatusReport {
    /// To be printed as it is.
    std::string text;
    /// Tarvik keeps the computer awake, or, for `why`, anything does.
    bool isAwake = false;

    bool operator==(const StatusReport&) const = default;
};

/// Reads the answer; nothing when it is an error or malformed.
std::optional<StatusReport> readStatus(const DBusMessage& reply);

/// Asks the Tarvik that runs on one of these buses, which are tried in turn; none is started. Nothing when there is
/// none, or it does not answer in time.
std::optional<StatusReport> askForStatus(
    StatusQuestion question, bool asJson, const std::vector<BusAddress>& buses, uid_t user, Deadline deadline);

} // namespace Tarvik
