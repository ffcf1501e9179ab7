// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/TimerfdClock.h"

#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace Tarvik {

namespace {

/// Longer than any machine stays up, and short enough for a timespec.
constexpr Seconds longestDelay{1e9};

timespec toTimespec(Seconds interval)
{
    const double seconds = std::floor(interval.count());
    return {.tv_sec = static_cast<time_t>(seconds), .tv_nsec = static_cast<long>((interval.count() - seconds) * 1e9)};
}

class TimerfdTimer final : public Timer {
public:
    TimerfdTimer(Seconds delay, Seconds period, std::function<void()> action)
        : m_descriptor(timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK))
        , m_action(std::move(action))
        , m_notifier(m_descriptor, QSocketNotifier::Read)
    {
        // An all-zero value would disarm the timer instead of firing at once.
        const auto first = toTimespec(std::clamp(delay, Seconds{1e-6}, longestDelay));
        const itimerspec schedule{.it_interval = toTimespec(period), .it_value = first};
        timerfd_settime(m_descriptor, 0, &schedule, nullptr);
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { fire(); });
    }

    ~TimerfdTimer() override
    {
        m_notifier.setEnabled(false);
        close(m_descriptor);
    }

    TimerfdTimer(const TimerfdTimer&) = delete;
    TimerfdTimer& operator=(const TimerfdTimer&) = delete;

private:
    void fire()
    {
        std::uint64_t expirations = 0;
        if (read(m_descriptor, &expirations, sizeof expirations) != sizeof expirations)
            return;
        // The action may destroy this timer and with it m_action.
        const auto action = m_action;
        action();
    }

    int m_descriptor;
    std::function<void()> m_action;
    QSocketNotifier m_notifier;
};

} // namespace

TimePoint TimerfdClock::now() const
{
    return std::chrono::time_point_cast<Seconds>(std::chrono::system_clock::now());
}

std::unique_ptr<Timer> TimerfdClock::after(Seconds delay, std::function<void()> action)
{
    return std::make_unique<TimerfdTimer>(delay, Seconds::zero(), std::move(action));
}

std::unique_ptr<Timer> TimerfdClock::every(Seconds period, std::function<void()> action)
{
    return std::make_unique<TimerfdTimer>(period, period, std::move(action));
}

} // namespace Tarvik
