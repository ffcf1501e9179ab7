// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/locks/LockAnswers.h"
#include "platform/linux/locks/ProgramLabels.h"

namespace Tarvik::LockList {

/// Makes one list of what all services have answered, with each lock once: session managers and PowerDevil and logind
/// take over locks from each other.
SleepLockList of(LockAnswers answers, const ProgramLabels& labels);

} // namespace Tarvik::LockList
