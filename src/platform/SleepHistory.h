// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <QList>

#include <functional>
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

    /// Oldest first, the last 20 at most. Where the system does not tell this user, those that were seen, or nothing
    /// when there were none: an empty list says that the computer has not slept. The answer comes later, within three
    /// seconds, and once; destroying this object drops it.
    virtual void read(std::function<void(const std::optional<QList<PastSleep>>&)> done) = 0;
};

} // namespace Tarvik
