// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Pure functions that read what power-management tools print.
namespace Tarvik::PowerParsers {

/// Whether the listing of "pmset -g" reports the sleep-disabled flag as exactly 1. Only the first line that names the
/// flag, in any case, counts.
bool isSleepDisabled(const QString& pmsetG);

} // namespace Tarvik::PowerParsers
