// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Whom people see holding sleep off.
namespace Tarvik::ServiceLabels {

inline const auto logind = QStringLiteral("logind");
inline const auto sessionManager = QStringLiteral("session manager");
inline const auto kdePowerManagement = QStringLiteral("KDE power management");
inline const auto xfcePowerManagement = QStringLiteral("XFCE power management");
inline const auto screenSaver = QStringLiteral("screen saver");
inline const auto powerManagement = QStringLiteral("power management");
inline const auto waylandCompositor = QStringLiteral("Wayland compositor");

} // namespace Tarvik::ServiceLabels
