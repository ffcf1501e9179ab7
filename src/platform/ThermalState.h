// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

namespace Tarvik {

/// How hot the machine runs, on a scale of four.
enum class ThermalLevel : int {
    nominal = 0,
    fair = 1,
    serious = 2,
    critical = 3,
};

/// The operating system's view of the machine's thermal state.
class ThermalState {
public:
    virtual ~ThermalState() = default;

    /// The level at this moment; nominal when it cannot be told.
    virtual ThermalLevel level() const = 0;

    /// From the event loop: the system has announced a state, changed or not.
    Signal<void()> changed;
};

} // namespace Tarvik
