// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

namespace Tarvik {

/// How displays are switched off at once.
enum class DisplayWay {
    /// org.gnome.ScreenSaver.SetActive: GNOME's settings daemon follows it, and switches on with activity.
    gnomeScreenSaver,
    /// PowerSaveMode of org.gnome.Mutter.DisplayConfig, which nobody else sets back.
    mutterPowerSave,
    /// PowerDevil's own action, by KDE's global shortcuts.
    kdeShortcut,
    kscreenDoctor,
    /// zwlr_output_power_manager_v1, which nobody else sets back.
    waylandOutputPower,
    /// The X server's DPMS.
    x11Dpms,
};

/// What can be told about who rules the displays.
struct DisplayFacts {
    /// By the bus names that are owned.
    bool gnomeScreenSaver = false;
    bool gnomePowerManager = false;
    bool mutter = false;
    bool kdePowerManager = false;
    bool kglobalaccel = false;
    /// A Wayland compositor has the screen.
    bool wayland = false;
    /// An X server has the screen; it is no guest of a Wayland compositor.
    bool x11 = false;
};

namespace DisplayPowerRules {

/// The ways to try, one after the other until one succeeds.
QList<DisplayWay> ways(const DisplayFacts& facts);

} // namespace DisplayPowerRules

} // namespace Tarvik
