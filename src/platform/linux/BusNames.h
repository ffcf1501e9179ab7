// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Well-known bus names of the services that hold sleep off, or that tell which desktop is running.
namespace Tarvik::BusNames {

inline const auto logind = QStringLiteral("org.freedesktop.login1");
inline const auto sessionManager = QStringLiteral("org.gnome.SessionManager");
inline const auto kdePowerManager = QStringLiteral("org.kde.Solid.PowerManagement");
inline const auto xfcePowerManager = QStringLiteral("org.xfce.PowerManager");
inline const auto lxqtSession = QStringLiteral("org.lxqt.session");
inline const auto powerManagement = QStringLiteral("org.freedesktop.PowerManagement");
inline const auto screenSaver = QStringLiteral("org.freedesktop.ScreenSaver");

} // namespace Tarvik::BusNames
