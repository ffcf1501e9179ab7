// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "StatusReport.h"

#include <optional>
#include <string>

namespace Tarvik {

/// The report for a human reader, several lines; times of day in the local time zone.
std::string statusText(const StatusReport& report);

/// The report as one JSON object on one line; of a Tarvik that is not running when there is none.
std::string statusJson(const std::optional<StatusReport>& report);

} // namespace Tarvik
