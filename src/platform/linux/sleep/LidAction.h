// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCalls.h"

#include <functional>
#include <optional>

namespace Tarvik {

class BusNameWatch;

/// What the desktop's power daemon is set to do when the lid is being closed.
namespace LidAction {

/// Asks the desktop's own settings, those of PowerDevil, Xfconf, GSettings or LXQt's file, whether that is suspend or
/// hibernation. `done` gets the answer, at once or through `calls`; nothing where it cannot be told.
/// `sessionNames` are those of the daemons on `sessionBus`.
void ask(DBusCalls& calls,
    const QDBusConnection& sessionBus,
    const BusNameWatch& sessionNames,
    bool isOnMains,
    const std::function<void(std::optional<bool> suspends)>& done);

} // namespace LidAction

} // namespace Tarvik
