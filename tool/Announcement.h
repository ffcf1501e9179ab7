// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "BusAddress.h"
#include "DBusMessage.h"
#include "Deadline.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {

/// What the session bus is told of a lease: the action and, where they are not empty, its other fields.
struct Announcement {
    std::string action;
    std::string session;
    std::string tool;
    /// Seconds, as decimal text.
    std::string ttl;
    std::string reason;

    bool operator==(const Announcement&) const = default;
};

/// Text that may travel in a message: valid UTF-8 without control characters, whatever offends replaced by "?", and at
/// most 4096 bytes of it. The same text always gives the same result.
std::string cleanText(std::string_view text);

/// The broadcast signal that carries an announcement.
DBusMessage hookSignal(const Announcement& announcement);

/// Hands an announcement to the first of the buses on which a Tarvik runs, and to those before it in the list, so that
/// other listeners hear it too. True when at least one bus has taken it.
bool announce(const Announcement& announcement, const std::vector<BusAddress>& buses, uid_t user, Deadline deadline);

} // namespace Tarvik
