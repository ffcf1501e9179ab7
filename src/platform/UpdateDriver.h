// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

namespace Tarvik {

/// How new versions of the application come to this machine. Costs nothing until it is asked something.
class UpdateDriver {
public:
    enum class Task {
        /// Look for a new version.
        check,
        /// Look for one, and install it if there is one.
        checkAndInstall,
    };

    enum class Initiator {
        user,
        /// Nobody waits for the outcome, and nobody is to be asked for a password.
        timer,
    };

    virtual ~UpdateDriver() = default;

    /// Begins to find out whether updates can be had, unless that is known.
    virtual void prepare() = 0;

    /// Updates can be had; false until `prepare()` has found out.
    virtual bool isAvailable() const = 0;

    /// Begins a task; only when available and no other one is under way.
    virtual void start(Task task, Initiator initiator) = 0;

    /// `isAvailable()` has changed.
    Signal<void()> availabilityChanged;

    /// The task is over. `hasChecked`: it is known whether there is a new version. What failed has been logged.
    Signal<void(bool hasChecked)> finished;
};

} // namespace Tarvik
