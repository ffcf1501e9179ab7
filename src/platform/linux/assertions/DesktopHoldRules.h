// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/assertions/DesktopHold.h"

#include <QList>
#include <QStringView>

namespace Tarvik {

/// What can be told about the desktop, most of it by the bus names that are owned.
struct DesktopFacts {
    bool logind = false;
    /// org.gnome.SessionManager: GNOME, MATE, Cinnamon, Budgie.
    bool sessionManager = false;
    /// org.kde.Solid.PowerManagement.
    bool kdePowerManager = false;
    /// org.xfce.PowerManager.
    bool xfcePowerManager = false;
    /// org.cinnamon.SettingsDaemon.Power.
    bool cinnamonPowerManager = false;
    bool lxqtSession = false;
    /// org.freedesktop.PowerManagement.
    bool powerManagement = false;
    /// org.freedesktop.ScreenSaver.
    bool screenSaver = false;
    /// An X server has the screen; it is no guest of a Wayland compositor.
    bool x11Screen = false;
    /// A desktop whose idle daemon runs a suspend command: compositors without a power manager, COSMIC.
    bool idleDaemonSuspends = false;
    /// XFCE is set to suspend after a time without activity; by default it is not.
    bool xfceSuspendsWhenIdle = false;
    /// 0 where systemd does not answer.
    int systemdVersion = 0;

    bool operator==(const DesktopFacts&) const = default;
};

namespace DesktopHoldRules {

/// The holds that keep the system from suspending for lack of activity and, where the desktop can tell them apart,
/// leave the screen and an explicit suspend alone. The one that matters most comes first.
QList<DesktopHold> againstSystemSleep(const DesktopFacts& facts);

/// The holds that keep the display on and unlocked.
QList<DesktopHold> againstDisplaySleep(const DesktopFacts& facts);

/// What must be held for a moment more when the system may sleep again: there are desktops whose timer goes off once
/// in a time without activity and, when suspend was refused then, is armed again by activity alone, or by what they
/// take for it; Cinnamon's goes off after twice the time, or four times. Without that the computer would stay awake
/// until somebody touches it.
QList<DesktopHold> rearmingSystemSleep(const DesktopFacts& facts);

/// Whether XDG_CURRENT_DESKTOP, a list separated by colons, names a desktop of the kind `idleDaemonSuspends`.
bool namesIdleDaemonDesktop(QStringView currentDesktop);

} // namespace DesktopHoldRules

} // namespace Tarvik
