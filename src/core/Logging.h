// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

namespace Tarvik {

/// One logging category per area, all below the subsystem "com.morvanta.Tarvik". Info and above are on by default.
Q_DECLARE_LOGGING_CATEGORY(logCoordinator)
Q_DECLARE_LOGGING_CATEGORY(logNotify)
Q_DECLARE_LOGGING_CATEGORY(logHooks)
Q_DECLARE_LOGGING_CATEGORY(logAgentRequest)
Q_DECLARE_LOGGING_CATEGORY(logSystem)

/// The settings store, which has no text of its own to say but must not lose data in silence.
Q_DECLARE_LOGGING_CATEGORY(logSettings)

/// What stands before the area in a category's name.
inline constexpr auto logSubsystem = "com.morvanta.Tarvik";

} // namespace Tarvik
