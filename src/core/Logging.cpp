// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "core/Logging.h"

namespace Tarvik {

Q_LOGGING_CATEGORY(logCoordinator, "com.morvanta.Tarvik.coordinator", QtInfoMsg)
Q_LOGGING_CATEGORY(logNotify, "com.morvanta.Tarvik.notify", QtInfoMsg)
Q_LOGGING_CATEGORY(logHooks, "com.morvanta.Tarvik.hooks", QtInfoMsg)
Q_LOGGING_CATEGORY(logAgentRequest, "com.morvanta.Tarvik.agentRequest", QtInfoMsg)
Q_LOGGING_CATEGORY(logSystem, "com.morvanta.Tarvik.system", QtInfoMsg)
Q_LOGGING_CATEGORY(logSettings, "com.morvanta.Tarvik.settings", QtInfoMsg)

} // namespace Tarvik
