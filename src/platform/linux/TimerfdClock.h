// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

namespace Tarvik {

/// The machine's clock. Timers run on CLOCK_BOOTTIME, timerfd_create(2), so that a session of an hour that was
/// interrupted by a night of sleep has ended when the machine wakes up.
class TimerfdClock final : public Clock {
public:
    TimePoint now() const override;
    std::unique_ptr<Timer> after(Seconds delay, std::function<void()> action) override;
    std::unique_ptr<Timer> every(Seconds period, std::function<void()> action) override;
};

} // namespace Tarvik
