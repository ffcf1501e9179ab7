// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "BusAddress.h"

#include <algorithm>
#include <optional>

namespace Tarvik {

static int hexValue(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    return -1;
}

static std::optional<std::string> unescape(std::string_view text)
{
    std::string plain;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (text[index] != '%') {
            plain.push_back(text[index]);
            continue;
        }
        if (index + 2 >= text.size())
            return {};
        const int high = hexValue(text[index + 1]);
        const int low = hexValue(text[index + 2]);
        if (high < 0 || low < 0 || (high == 0 && low == 0))
            return {};
        plain.push_back(static_cast<char>(high * 16 + low));
        index += 2;
    }
    return plain;
}

/// Cuts the text before the separator off the rest, and the separator with it.
static std::string_view cut(std::string_view& rest, char separator)
{
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view piece = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return piece;
}

static std::optional<BusAddress> parseEntry(std::string_view entry, std::string_view runtimeDirectory)
{
    static constexpr std::string_view transport = "unix:";
    if (!entry.starts_with(transport))
        return {};
    entry.remove_prefix(transport.size());
    while (!entry.empty()) {
        std::string_view value = cut(entry, ',');
        const std::string_view key = cut(value, '=');
        const auto name = unescape(value);
        if (!name || name->empty())
            continue;
        if (key == "path")
            return BusAddress{BusAddress::Kind::path, *name};
        if (key == "abstract")
            return BusAddress{BusAddress::Kind::abstract, *name};
        if (key == "runtime" && *name == "yes" && runtimeDirectory.starts_with('/'))
            return BusAddress{BusAddress::Kind::path, std::string(runtimeDirectory) + "/bus"};
    }
    return {};
}

std::vector<BusAddress> parseBusAddresses(std::string_view list, std::string_view runtimeDirectory)
{
    std::vector<BusAddress> addresses;
    while (!list.empty()) {
        if (auto address = parseEntry(cut(list, ';'), runtimeDirectory))
            addresses.push_back(*std::move(address));
    }
    return addresses;
}

std::vector<BusAddress> sessionBusCandidates(const Environment& environment, uid_t user)
{
    const std::string runtimeDirectory = environment("XDG_RUNTIME_DIR");
    auto candidates = parseBusAddresses(environment("DBUS_SESSION_BUS_ADDRESS"), runtimeDirectory);
    if (runtimeDirectory.starts_with('/'))
        candidates.push_back({BusAddress::Kind::path, runtimeDirectory + "/bus", true});
    candidates.push_back({BusAddress::Kind::path, "/run/user/" + std::to_string(user) + "/bus", true});

    std::vector<BusAddress> distinct;
    for (auto& candidate : candidates) {
        const bool isKnown = std::any_of(distinct.begin(), distinct.end(), [&](const BusAddress& known) {
            return known.kind == candidate.kind && known.name == candidate.name;
        });
        if (!isKnown)
            distinct.push_back(std::move(candidate));
    }
    return distinct;
}

} // namespace Tarvik
