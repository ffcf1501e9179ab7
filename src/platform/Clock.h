// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace Tarvik {

/// An interval in seconds, with fraction.
using Seconds = std::chrono::duration<double>;

/// A point of wall-clock time with sub-second precision. In double seconds, so that no lifetime is too long to be
/// added.
using TimePoint = std::chrono::time_point<std::chrono::system_clock, Seconds>;

/// A scheduled call; destroying it cancels the call, also from within the call itself.
class Timer {
public:
    virtual ~Timer() = default;
};

/// Tells the time and calls back later, on the thread that asked.
class Clock {
public:
    virtual ~Clock() = default;

    virtual TimePoint now() const = 0;

    /// Calls `action` once after `delay` (at once on the next loop turn when not positive). Time during which the
    /// machine was suspended counts.
    [[nodiscard]] virtual std::unique_ptr<Timer> after(Seconds delay, std::function<void()> action) = 0;

    /// Calls `action` every `period` seconds, the first time after one period.
    [[nodiscard]] virtual std::unique_ptr<Timer> every(Seconds period, std::function<void()> action) = 0;
};

} // namespace Tarvik
