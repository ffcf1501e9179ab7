// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace Tarvik {

/// Lines on the standard error, each with its priority as systemd reads it.
void logInfo(std::string_view message);
void logWarning(std::string_view message);
void logError(std::string_view message);

} // namespace Tarvik
