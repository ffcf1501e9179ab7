// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

/// Where the background helper answers on the system bus; its operations are described in
/// com.morvanta.Tarvik.HelperProtocol1.xml. Shared by programs without Qt.
namespace Tarvik::HelperWire {

/// The environment variable that hands the helper its label, which is its name on the bus.
inline constexpr auto machLabelKey = "TARVIK_MACH_LABEL";
/// The label where nobody hands it one.
inline constexpr auto defaultMachLabel = "com.morvanta.tarvik.helper";

inline constexpr auto objectPath = "/com/morvanta/Tarvik/Helper";
inline constexpr auto interfaceName = "com.morvanta.Tarvik.HelperProtocol1";

inline constexpr auto setKeepAwakeMethod = "setKeepAwake";
inline constexpr auto getStateMethod = "getState";
inline constexpr auto heartbeatMethod = "heartbeat";
inline constexpr auto versionMethod = "version";

/// What a request gets that crosses the end of a helper that had nothing to do; the next one starts another helper.
inline constexpr auto endingError = "The background helper was just ending. Please try again.";

} // namespace Tarvik::HelperWire
