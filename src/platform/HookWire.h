// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// The broadcast signal by which the command-line tool announces an agent's turn on the session bus. Its one argument
/// is a map of strings to strings (a{ss}) under the keys below. Shared by programs without Qt.
namespace Tarvik::HookWire {

inline constexpr auto objectPath = "/com/morvanta/tarvik/Hook";
inline constexpr auto interfaceName = "com.morvanta.tarvik.hook";
inline constexpr auto signalName = "Event";
inline constexpr auto signature = "a{ss}";

inline constexpr auto actionKey = "action";
inline constexpr auto sessionKey = "session";
inline constexpr auto toolKey = "tool";
/// Lifetime in seconds, as decimal text.
inline constexpr auto ttlKey = "ttl";
inline constexpr auto reasonKey = "reason";

inline constexpr auto acquireAction = "acquire";
inline constexpr auto releaseAction = "release";
inline constexpr auto releaseAllAction = "release-all";

/// Announcements that are longer, keys and values together, are refused.
inline constexpr std::size_t maximumBytes = std::size_t(64) * 1024;

} // namespace Tarvik::HookWire
