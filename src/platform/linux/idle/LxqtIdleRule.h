// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IdleSleep.h"

namespace Tarvik::LxqtIdleRule {

/// What lxqt-powermanagement does without activity, by its file below the user's configuration.
IdleSleepRule read(bool isOnMains);

} // namespace Tarvik::LxqtIdleRule
