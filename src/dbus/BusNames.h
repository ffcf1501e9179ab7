// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Well-known bus names of the desktop's services.
namespace Tarvik::BusNames {

inline const auto kglobalaccel = QStringLiteral("org.kde.kglobalaccel");
inline const auto gnomeMediaKeys = QStringLiteral("org.gnome.SettingsDaemon.MediaKeys");
inline const auto gnomeShell = QStringLiteral("org.gnome.Shell");
inline const auto desktopPortal = QStringLiteral("org.freedesktop.portal.Desktop");
inline const auto systemd = QStringLiteral("org.freedesktop.systemd1");
inline const auto logind = QStringLiteral("org.freedesktop.login1");
inline const auto sessionManager = QStringLiteral("org.gnome.SessionManager");
inline const auto kdePowerManager = QStringLiteral("org.kde.Solid.PowerManagement");
inline const auto xfcePowerManager = QStringLiteral("org.xfce.PowerManager");
inline const auto gnomePowerManager = QStringLiteral("org.gnome.SettingsDaemon.Power");
inline const auto mutterDisplayConfig = QStringLiteral("org.gnome.Mutter.DisplayConfig");
inline const auto matePowerManager = QStringLiteral("org.mate.PowerManager");
inline const auto cinnamonPowerManager = QStringLiteral("org.cinnamon.SettingsDaemon.Power");
inline const auto lxqtSession = QStringLiteral("org.lxqt.session");
inline const auto lxqtPowerManager = QStringLiteral("org.lxqt.lxqt-powermanagement");
inline const auto powerManagement = QStringLiteral("org.freedesktop.PowerManagement");
inline const auto screenSaver = QStringLiteral("org.freedesktop.ScreenSaver");
inline const auto gnomeScreenSaver = QStringLiteral("org.gnome.ScreenSaver");
inline const auto mateScreenSaver = QStringLiteral("org.mate.ScreenSaver");
inline const auto cinnamonScreenSaver = QStringLiteral("org.cinnamon.ScreenSaver");
inline const auto xfceSessionManager = QStringLiteral("org.xfce.SessionManager");

} // namespace Tarvik::BusNames
