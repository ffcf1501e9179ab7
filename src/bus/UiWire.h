// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

/// Names that Tarvik and its windows' process use for each other on the session bus. The interfaces are described in
/// the XML files of the same names.
namespace Tarvik::UiWire {

inline constexpr auto coordinatorInterface = "com.morvanta.Tarvik.Coordinator1";
inline constexpr auto settingsInterface = "com.morvanta.Tarvik.Settings1";
inline constexpr auto powerInterface = "com.morvanta.Tarvik.Power1";
inline constexpr auto thermalInterface = "com.morvanta.Tarvik.Thermal1";
inline constexpr auto journalInterface = "com.morvanta.Tarvik.Journal1";
inline constexpr auto hooksInterface = "com.morvanta.Tarvik.Hooks1";
inline constexpr auto updaterInterface = "com.morvanta.Tarvik.Updater1";

inline constexpr auto uiBusName = "com.morvanta.TarvikUi";
inline constexpr auto uiObjectPath = "/com/morvanta/TarvikUi";
inline constexpr auto windowsInterface = "com.morvanta.TarvikUi.Windows1";

} // namespace Tarvik::UiWire
