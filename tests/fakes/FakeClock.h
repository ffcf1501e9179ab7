// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <algorithm>
#include <vector>

namespace Tarvik {

/// A clock that stands still until it is told to advance; scheduled calls run in the order of their times.
class FakeClock final : public Clock {
public:
    FakeClock() = default;
    FakeClock(const FakeClock&) = delete;
    FakeClock& operator=(const FakeClock&) = delete;
    ~FakeClock() override
    {
        for (ScheduledCall* call : m_calls)
            call->clock = nullptr;
    }

    TimePoint now() const override { return m_now + m_wallClockOffset; }

    std::unique_ptr<Timer> after(Seconds delay, std::function<void()> action) override
    {
        return schedule(delay, Seconds::zero(), std::move(action));
    }

    std::unique_ptr<Timer> every(Seconds period, std::function<void()> action) override
    {
        return schedule(period, period, std::move(action));
    }

    /// Lets `interval` pass, running what falls due on the way.
    void advance(Seconds interval)
    {
        const TimePoint end = m_now + interval;
        for (ScheduledCall* next = earliest(); next != nullptr && next->due <= end; next = earliest()) {
            m_now = std::max(m_now, next->due);
            fire(*next);
        }
        m_now = end;
    }

    /// Lets `interval` pass in which the process stands still: what falls due on the way runs at the end.
    void standStill(Seconds interval)
    {
        m_now += interval;
        advance(Seconds::zero());
    }

    /// Sets the wall clock back; no time passes for what is scheduled.
    void setBack(Seconds interval) { m_wallClockOffset -= interval; }

    /// How many calls are scheduled.
    std::size_t pending() const { return m_calls.size(); }

    /// Time until the earliest scheduled call; there must be one.
    Seconds untilNext() const { return earliest()->due - m_now; }

private:
    struct ScheduledCall final : Timer {
        ~ScheduledCall() override
        {
            if (clock != nullptr)
                std::erase(clock->m_calls, this);
        }

        FakeClock* clock = nullptr;
        TimePoint due;
        Seconds period{0};
        std::function<void()> action;
    };

    std::unique_ptr<Timer> schedule(Seconds delay, Seconds period, std::function<void()> action)
    {
        auto call = std::make_unique<ScheduledCall>();
        call->clock = this;
        call->due = m_now + delay;
        call->period = period;
        call->action = std::move(action);
        m_calls.push_back(call.get());
        return call;
    }

    ScheduledCall* earliest() const
    {
        const auto it = std::ranges::min_element(m_calls, {}, &ScheduledCall::due);
        return it == m_calls.end() ? nullptr : *it;
    }

    void fire(ScheduledCall& call)
    {
        // The action may destroy its own timer, so nothing of the call is touched after it.
        const auto action = call.action;
        if (call.period > Seconds::zero()) {
            call.due += call.period;
        } else {
            std::erase(m_calls, &call);
            call.clock = nullptr;
        }
        action();
    }

    TimePoint m_now{Seconds{1'700'000'000}};
    Seconds m_wallClockOffset{0};
    std::vector<ScheduledCall*> m_calls;
};

} // namespace Tarvik
