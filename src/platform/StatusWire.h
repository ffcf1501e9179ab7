// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

/// Where a running Tarvik answers on the session bus what it is doing. Shared by programs without Qt; the properties
/// and their types are described in com.morvanta.Tarvik.Status1.xml.
namespace Tarvik::StatusWire {

inline constexpr auto busName = "com.morvanta.Tarvik";
inline constexpr auto objectPath = "/com/morvanta/Tarvik";
inline constexpr auto interfaceName = "com.morvanta.Tarvik.Status1";

inline constexpr auto titleProperty = "Title";
inline constexpr auto reasonProperty = "Reason";
inline constexpr auto subtitleProperty = "Subtitle";
inline constexpr auto detailsProperty = "Details";
inline constexpr auto isAwakeProperty = "IsAwake";
inline constexpr auto isPausedProperty = "IsPaused";
inline constexpr auto activeAgentsProperty = "ActiveAgents";
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

} // namespace Tarvik::StatusWire
