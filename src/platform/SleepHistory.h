// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <QList>

#include <optional>

namespace Tarvik {

/// One sleep of this computer.
struct PastSleep {
    TimePoint from;
    /// Nothing where it is not known when it ended.
    std::optional<TimePoint> until;

    bool operator==(const PastSleep&) const = default;
};

/// When this computer slept since it was started.
class SleepHistory {
public:
    virtual ~SleepHistory() = default;

    /// Oldest first, the last 20 at most; nothing where the system does not tell this user.
    virtual std::optional<QList<PastSleep>> sleeps() const = 0;
};

} // namespace Tarvik
