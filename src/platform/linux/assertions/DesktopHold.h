// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/inhibitors/DBusInhibitor.h"

#include <QString>

namespace Tarvik {

/// The inhibitors that desktops offer.
enum class DesktopHold {
    /// org.freedesktop.login1.Manager.Inhibit, mode "block".
    logindIdle,
    logindSleep,
    /// org.gnome.SessionManager.Inhibit, flags 4 (suspend) and 8 (idle).
    sessionManagerSuspend,
    sessionManagerIdle,
    /// org.freedesktop.PowerManagement.Inhibit of the two desktops that give it different meanings.
    kdePowerManagement,
    xfcePowerManagement,
    /// org.freedesktop.ScreenSaver.Inhibit.
    screenSaver,
    /// What the X server takes for activity.
    x11ScreenSaver,
};

namespace DesktopHolds {

/// Whom people see holding sleep off ("logind", "session manager", ...).
QString serviceLabel(DesktopHold hold);

/// What is asked for, in the service's own words ("idle", "suspend", ...).
QString what(DesktopHold hold);

/// On the system bus, not on the session bus.
bool isOnSystemBus(DesktopHold hold);

/// The call that takes `hold`, which must be one of those on a bus, for the program `who`.
InhibitorRequest request(DesktopHold hold, const QString& who);

} // namespace DesktopHolds

} // namespace Tarvik
