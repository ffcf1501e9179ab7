// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

/// Where the UI process answers on the session bus; the interface is described in the XML file of its name.
namespace Tarvik::UiWire {

inline constexpr auto busName = "com.morvanta.TarvikUi";
inline constexpr auto objectPath = "/com/morvanta/TarvikUi";
inline constexpr auto windowsInterface = "com.morvanta.TarvikUi.Windows1";

} // namespace Tarvik::UiWire
