// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tarvik {

/// Keeps one service from acting on a lack of activity, until it is destroyed.
class Inhibitor {
public:
    enum class State {
        /// The service is not there.
        waiting,
        /// The service has been asked.
        pending,
        effective,
        /// The service has answered with an error.
        refused,
    };

    virtual ~Inhibitor() = default;

    /// Its name on its bus; empty for a service that is on none, and is there as long as the session.
    virtual QString service() const = 0;
    virtual State state() const = 0;

    /// Why the service refused, a positive errno; 0 in every other state.
    virtual int error() const = 0;

    /// The service has got an owner, perhaps another one than before, or lost it: its unique name on the bus, or
    /// nothing.
    virtual void setOwner(const QString& owner) = 0;
};

} // namespace Tarvik
