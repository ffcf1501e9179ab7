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

/// What a running Tarvik says of itself: the properties of com.morvanta.Tarvik.Status1. A property that it does not
/// offer, or with another type, keeps the value below.
struct StatusReport {
    struct Lease {
        std::string key;
        std::string tool;
        /// Empty when none was given.
        std::string reason;
        /// Seconds since 1970.
        double acquiredAt = 0;
        double remainingSeconds = 0;

        bool operator==(const Lease&) const = default;
    };
    struct Assertion {
        std::string type;
        std::string service;
        std::string what;
        bool isEffective = false;

        bool operator==(const Assertion&) const = default;
    };

    std::string title;
    std::string reason;
    std::string subtitle;
    std::string details;
    bool isAwake = false;
    bool isPaused = false;
    std::vector<std::string> activeAgents;
    std::vector<Lease> leases;
    /// Seconds since 1970; 0 without a timed session.
    double sessionEnd = 0;
    std::vector<Assertion> assertions;
    bool isOnAC = false;
    bool hasBattery = false;
    /// -1 when unknown.
    int batteryPercent = -1;
    bool isLidClosed = false;
    unsigned thermalState = 0;
    bool isHot = false;
    /// In words, with who delivers it.
    std::string lockShortcut;
    bool isTrayShown = false;
    std::string version;

    bool operator==(const StatusReport&) const = default;
};

/// Reads the answer to GetAll; nothing when it is an error or malformed.
std::optional<StatusReport> readStatus(const DBusMessage& reply);

/// Asks the Tarvik that runs on one of these buses, which are tried in turn; none is started. Nothing when there is
/// none, or it does not answer in time.
std::optional<StatusReport> askForStatus(const std::vector<BusAddress>& buses, uid_t user, Deadline deadline);

} // namespace Tarvik
