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

inline constexpr auto titleProperty = "Title";
inline constexpr auto reasonProperty = "Reason";
inline constexpr auto subtitleProperty = "Subtitle";
inline constexpr auto detailsProperty = "Details";
inline constexpr auto isAwakeProperty = "IsAwake";
inline constexpr auto isPausedProperty = "IsPaused";
inline constexpr auto activeProperty = "Active";
inline constexpr auto leasesProperty = "Leases";
inline constexpr auto sessionEndProperty = "SessionEnd";
inline constexpr auto assertionsProperty = "Assertions";
inline constexpr auto onACProperty = "OnAC";
inline constexpr auto hasBatteryProperty = "HasBattery";
inline constexpr auto batteryPercentProperty = "BatteryPercent";
inline constexpr auto lidClosedProperty = "LidClosed";
inline constexpr auto thermalStateProperty = "ThermalState";
inline constexpr auto isHotProperty = "IsHot";
inline constexpr auto lockShortcutProperty = "LockShortcut";
inline constexpr auto trayProperty = "TrayShown";
inline constexpr auto versionProperty = "Version";

inline constexpr auto leasesSignature = "a(sssdd)";
inline constexpr auto assertionsSignature = "a(sssb)";

} // namespace Tarvik::TarvikWire
