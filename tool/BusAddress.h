// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "Environment.h"

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

namespace Tarvik {

/// A Unix socket at which a session bus may listen.
struct BusAddress {
    enum class Kind { path, abstract };

    Kind kind = Kind::path;
    std::string name;
    /// Only a socket that belongs to the user counts: the place was guessed, not named.
    bool mustBelongToUser = false;

    bool operator==(const BusAddress&) const = default;
};

/// The Unix sockets of a list of server addresses in the D-Bus specification's form
/// ("unix:path=/run/x;unix:abstract=y"), in its order; entries of other transports or that cannot be read are left out.
std::vector<BusAddress> parseBusAddresses(std::string_view list, std::string_view runtimeDirectory);

/// Where the user's session bus may be, best first: what the environment names, which may be stale, then the user's
/// runtime directory, which agents started from elsewhere do not know of. No socket is looked at.
std::vector<BusAddress> sessionBusCandidates(const Environment& environment, uid_t user);

} // namespace Tarvik
