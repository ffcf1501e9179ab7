// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

namespace Tarvik {

class AppSettings;
class LoginItem;

/// Sets the setting to what the desktop will really do at the next login.
void mirrorLaunchAtLogin(const LoginItem& item, AppSettings& settings);

/// The same, whenever that changes by somebody else's doing.
Subscription followLaunchAtLogin(LoginItem& item, AppSettings& settings);

/// Registers or unregisters the login item. A failure is logged; the setting shows the state that results either way.
void changeLaunchAtLogin(LoginItem& item, AppSettings& settings, bool on);

} // namespace Tarvik
