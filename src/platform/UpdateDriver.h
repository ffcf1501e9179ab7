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

    /// How new versions come to this copy of the application.
    enum class Channel {
        /// That has not been found out.
        unknown,
        /// Through this driver.
        available,
        /// With the packages of the system, but not through this driver.
        system,
        /// It was built where it runs, and is built anew.
        source,
        /// Somebody puts them in its place.
        manual,
    };

    virtual ~UpdateDriver() = default;

    /// Begins to find out whether updates can be had, unless that is known.
    virtual void prepare() = 0;

    /// May be unknown until `prepare()` has found out.
    virtual Channel channel() const = 0;

    /// Updates can be had here.
    bool isAvailable() const { return channel() == Channel::available; }

    /// Begins a task; only when available and no other one is under way.
    virtual void start(Task task, Initiator initiator) = 0;

    /// `channel()` has changed.
    Signal<void()> channelChanged;

    /// The task is over. `hasChecked`: it is known whether there is a new version. What failed has been logged.
    Signal<void(bool hasChecked)> finished;
};

} // namespace Tarvik
