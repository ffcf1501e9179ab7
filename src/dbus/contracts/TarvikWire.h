// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

/// Where a running Tarvik answers on the session bus; its interfaces are described in the XML files of their names.
/// Shared by programs without Qt.
namespace Tarvik::TarvikWire {

inline constexpr auto busName = "com.morvanta.Tarvik";
inline constexpr auto objectPath = "/com/morvanta/Tarvik";

inline constexpr auto statusInterface = "com.morvanta.Tarvik.Status1";
inline constexpr auto settingsInterface = "com.morvanta.Tarvik.Settings1";
inline constexpr auto journalInterface = "com.morvanta.Tarvik.Journal1";
inline constexpr auto hooksInterface = "com.morvanta.Tarvik.Hooks1";
inline constexpr auto updaterInterface = "com.morvanta.Tarvik.Updater1";
inline constexpr auto lidClosedInterface = "com.morvanta.Tarvik.LidClosed1";
inline constexpr auto whyInterface = "com.morvanta.Tarvik.Why1";

inline constexpr auto describeMethod = "Describe";
inline constexpr auto explainMethod = "Explain";

} // namespace Tarvik::TarvikWire
