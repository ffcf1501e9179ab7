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

/// What a running Tarvik says of itself.
struct StatusReport {
    /// To be printed as it is.
    std::string text;
    bool isAwake = false;

    bool operator==(const StatusReport&) const = default;
};

/// Reads the answer to Describe of com.morvanta.Tarvik.Status1; nothing when it is an error or malformed.
std::optional<StatusReport> readStatus(const DBusMessage& reply);

/// Asks the Tarvik that runs on one of these buses, which are tried in turn; none is started. Nothing when there is
/// none, or it does not answer in time.
std::optional<StatusReport> askForStatus(
    bool asJson, const std::vector<BusAddress>& buses, uid_t user, Deadline deadline);

} // namespace Tarvik
