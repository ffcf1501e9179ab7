// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IdleSleep.h"

/// What the power daemons of desktops do without activity that keep their settings in GSettings. Without an action
/// where their schemas are not installed, or others than expected.
namespace Tarvik::GSettingsIdleRules {

/// GNOME's does not sleep in a virtual machine, whatever it is set to.
IdleSleepRule gnome(bool isOnMains, bool isVirtualMachine);
IdleSleepRule cinnamon(bool isOnMains);
IdleSleepRule mate(bool isOnMains);

} // namespace Tarvik::GSettingsIdleRules
