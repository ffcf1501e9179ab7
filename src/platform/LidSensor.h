// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <optional>

namespace Tarvik {

/// Whether the lid of a portable machine is closed.
class LidSensor {
public:
    virtual ~LidSensor() = default;

    /// Whether there is a lid at all; nothing while that is not known, which it is soon.
    virtual std::optional<bool> isPresent() const = 0;

    /// The state as last told; nothing when there is no lid or no way to tell. Never blocks. Asking also makes a sensor
    /// that is not told of changes look again, so that a later call knows.
    virtual std::optional<bool> isClosed() = 0;

    /// The state changed between two calls of `isClosed()`; only where the system announces it.
    Signal<void()> changed;

    /// `isPresent()` says something new.
    Signal<void()> presenceChanged;
};

} // namespace Tarvik
