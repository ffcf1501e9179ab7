// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IdleSleep.h"

#include <QStringView>

#include <optional>

/// What the power daemons of desktops do without activity that keep their settings in GSettings. Without an action
/// where their schemas are not installed, or others than expected.
namespace Tarvik::GSettingsIdleRules {

/// GNOME's does not sleep in a virtual machine, whatever it is set to.
IdleSleepRule gnome(bool isOnMains, bool isVirtualMachine);
/// Whether it takes this one for such, if the kernel's command line says so; else it asks systemd.
std::optional<bool> isVirtualMachine(QStringView commandLine);
IdleSleepRule cinnamon(bool isOnMains);
IdleSleepRule mate(bool isOnMains);

} // namespace Tarvik::GSettingsIdleRules
